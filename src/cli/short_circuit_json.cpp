#include <nlohmann/json.hpp>

#include "cli/case_output.h"
#include "cli/commands.h"

namespace zel {

using nlohmann::ordered_json;

/// The words of the document are German in every language, for the programs that read them.
std::string short_circuit_document(const ShortCircuitRun& run,
                                   const std::vector<Message>& messages) {
    const ShortCircuitResult& result = run.result;
    ordered_json document = {{"input_valid", true},
                             {"messages", json_of(messages)},
                             {"I_th", result.I_th},
                             {"T_k", result.T_k}};
    for (std::size_t i = 0; i < flow_count; ++i)
        document["I_th" + std::to_string(i + 1)] = result.flows[i].I_th;
    for (std::size_t i = 0; i < flow_count; ++i) {
        document["m" + std::to_string(i + 1)] = result.flows[i].m;
        document["n" + std::to_string(i + 1)] = result.flows[i].n;
    }
    document["K"] = result.K;
    document["S_thr"] = result.S_thr;
    document["S_th"] = result.S_th;
    document["S_zul"] = result.S_zul;
    document["verdict_Betriebsmittel"] = result.verdict_Betriebsmittel;
    document["verdict_Leiter"] = result.verdict_Leiter;
    document["verdict"] = run.page.verdict.de;
    ordered_json lines = ordered_json::array();
    for (const VerdictGroup& group : run.page.groups)
        for (const VerdictRow& row : group.rows)
            lines.push_back({{"label", row.label.de}, {"value", row.value}, {"unit", row.unit.de}});
    document["lines"] = std::move(lines);
    return json_text(document);
}

}  // namespace zel
