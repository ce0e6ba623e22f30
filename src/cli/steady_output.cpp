#include <nlohmann/json.hpp>

#include "cli/case_listing.h"
#include "cli/case_output.h"
#include "cli/commands.h"
#include "shell/program_texts.h"
#include "workflow/run/steady_texts.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

ordered_json json_of(const std::optional<double>& value) {
    return value ? ordered_json(*value) : ordered_json(nullptr);
}

ordered_json json_of(const MethodResult& line) {
    const SteadyResult& outcome = line.outcome;
    ordered_json entry = {{"method", key_of(line.method)},
                          {"status", outcome.fault.empty() ? outcome.status : outcome.fault},
                          {"caption", line.caption},
                          {"result", line.result},
                          {"current_A", json_of(outcome.current_A)},
                          {"temperature_C", json_of(outcome.temperature_C)}};
    if (find_method(line.method)->balance.empty()) return entry;
    const auto term = [&](double HeatTerms::*member) {
        return outcome.terms ? ordered_json((*outcome.terms).*member) : ordered_json(nullptr);
    };
    entry["PJ"] = term(&HeatTerms::PJ);
    entry["PS"] = term(&HeatTerms::PS);
    entry["PC"] = term(&HeatTerms::PC);
    entry["PR"] = term(&HeatTerms::PR);
    if (line.method != Method::TB601) return entry;
    const auto detail = [&](double Tb601Details::*member) {
        return outcome.tb601 ? ordered_json((*outcome.tb601).*member) : ordered_json(nullptr);
    };
    entry["T_surface_C"] = detail(&Tb601Details::TSurface);
    entry["T_core_C"] = detail(&Tb601Details::TCore);
    entry["k_skin"] = detail(&Tb601Details::KSkin);
    entry["k_mag"] = detail(&Tb601Details::KMag);
    return entry;
}

}  // namespace

std::string steady_document(const SteadyRunResult& result, const std::vector<Message>& messages,
                            std::string_view program_end) {
    ordered_json methods = ordered_json::array();
    for (const MethodResult& line : result.methods) methods.push_back(json_of(line));
    ordered_json start = nullptr;
    if (result.transient_start)
        start = {{"current_A", result.transient_start->current},
                 {"temperature_C", result.transient_start->temperature}};
    ordered_json document = {{"input_valid", true},
                             {"messages", json_of(messages)},
                             {"angle_deg", result.angle},
                             {"perpendicular_wind_m_s", result.perpendicular_wind},
                             {"head_line", result.head_line},
                             {"methods_line", result.methods_line},
                             {"methods", std::move(methods)},
                             {"balance_lines", result.balance_lines},
                             {"transient_start", std::move(start)},
                             {"notes", json_of(result.notes)}};
    if (!program_end.empty()) document["program_end"] = program_end;
    return json_text(document);
}

std::string steady_page(const CalcCase& c, const SteadyRunResult& result,
                        const CommonOptions& options) {
    const LangId lang = options.lang;
    return std::string(short_name.in(lang)) + "   " + std::string(long_title.in(lang)) + "\n" +
           case_listing(c, lang) + "\n" + result_text(result, lang);
}

}  // namespace zel
