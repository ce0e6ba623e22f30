#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/case_command.h"
#include "cli/case_output.h"
#include "compare/comparison.h"
#include "persistence/sheet_file.h"
#include "platform/errors.h"
#include "program/case_source.h"
#include "program/stores.h"
#include "shell/case_settings.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr const char* compare_notes =
    "\n"
    "Runs two to six cases as \"zel steady\" does and shows their results side by side, with\n"
    "the inputs by which they differ (--all: every input). A star stands before a line in\n"
    "which they differ. FILE.csv and FILE.xlsx have all inputs.\n";

constexpr Text too_many = {"höchstens {0} Fälle stehen nebeneinander",
                           "at most {0} cases stand side by side"};
constexpr Text refused_case = {"{0}: die Eingabe wurde abgelehnt", "{0}: the input was refused"};

struct CompareWords : CaseWords {
    std::vector<std::string> paths{};
    std::string table_path{};
    bool all = false;
};

/// Files by their names alone, where these are different.
std::vector<std::string> short_names(const std::vector<std::string>& paths) {
    std::vector<std::string> names;
    for (const std::string& path : paths) names.push_back(path.substr(path.rfind('/') + 1));
    std::vector<std::string> sorted = names;
    std::sort(sorted.begin(), sorted.end());
    const bool alike = std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end();
    return alike ? paths : names;
}

class CompareRun : public CaseRun {
public:
    explicit CompareRun(const CompareWords& words) : CaseRun(words), words_(words) {
        if (!words.table_path.empty()) refuse_sheet_ending(words.table_path);
        if (words.paths.size() > most_compared)
            throw InputError(Reason(too_many, {std::to_string(most_compared)}));
        for (const std::string& path : words.paths)
            loaded_.push_back(load_case(path, words, console()));
    }

private:
    int calculate() override {
        Session session = {words(), words().Meldung_merker(), console()};
        take_settings(session, ProgramStores().settings().now());
        bool all_sound = true;
        const std::vector<std::string> names = short_names(words_.paths);
        for (std::size_t i = 0; i < loaded_.size(); ++i) {
            LoadedCase& loaded = loaded_[i];
            if (loaded.refusal) return refused_of(i, *loaded.refusal);
            KeptRun run = {names[i], std::move(loaded.c), {}};
            MethodMemory memory;  // no case goes on from another
            RunSteady(run.c, session.apart(console(), &memory), run.result);
            if (!run.result.input_valid) return refused_of(i, run.result.refusal);
            all_sound = all_sound && !loaded.text_refused && sound(run.result);
            runs_.push_back(std::move(run));
        }
        if (!words_.table_path.empty()) {
            XlsxStore workbooks;
            PosixFiles files;
            write_sheet(comparison_sheet(compared(ComparedInputs::All), words()), words_.table_path,
                        workbooks, files, words().separator);
        }
        return printed(all_sound);
    }

    [[nodiscard]] int refused_of(std::size_t index, const Box& box) const {
        Console::tell_reason(fill(refused_case.in(words().lang), {words_.paths[index]}));
        return refused(box);
    }

    [[nodiscard]] std::vector<const KeptRun*> runs() const {
        std::vector<const KeptRun*> all;
        for (const KeptRun& run : runs_) all.push_back(&run);
        return all;
    }
    [[nodiscard]] Comparison compared(ComparedInputs inputs) const {
        return compare(runs(), inputs, words());
    }

    [[nodiscard]] std::string document(std::string_view program_end) const override {
        ordered_json runs_found = ordered_json::array();
        for (const KeptRun& run : runs_) {
            ordered_json methods = ordered_json::array();
            for (const MethodResult& line : run.result.methods) {
                const SteadyResult& outcome = line.outcome;
                ordered_json entry = {{"method", key_of(line.method)}, {"result", line.result}};
                entry["current_A"] = outcome.current_A ? ordered_json(*outcome.current_A) : nullptr;
                entry["temperature_C"] =
                    outcome.temperature_C ? ordered_json(*outcome.temperature_C) : nullptr;
                methods.push_back(std::move(entry));
            }
            runs_found.push_back({{"case", run.name},
                                  {"angle_deg", run.result.angle},
                                  {"methods", std::move(methods)}});
        }
        ordered_json changed = ordered_json::array();
        for (const ComparedRow& row : changed_inputs(runs(), words())) {
            ordered_json values = ordered_json::array();
            for (const auto& [text, number] : row.values)
                values.push_back(number         ? ordered_json(*number)
                                 : text.empty() ? ordered_json(nullptr)
                                                : ordered_json(text));
            changed.push_back({{"field", row.field},
                               {"label", row.label},
                               {"unit", row.unit},
                               {"values", std::move(values)}});
        }
        ordered_json document = {{"runs", std::move(runs_found)},
                                 {"changed", std::move(changed)},
                                 {"messages", json_of(messages())}};
        if (!program_end.empty()) document["program_end"] = program_end;
        return json_text(document);
    }

    [[nodiscard]] std::string page() const override {
        return comparison_text(
            compared(words_.all ? ComparedInputs::All : ComparedInputs::Changed));
    }

    const CompareWords& words_;
    std::vector<LoadedCase> loaded_;
    std::vector<KeptRun> runs_;
};

}  // namespace

void add_compare(CommandLine& line) {
    const auto [command, words] =
        line.add<CompareWords>("compare", "Rate cases side by side",
                               [](const CompareWords& given) { return CompareRun(given).run(); });
    command.add_option("CASE", words.paths, "Case files (JSON), two to six")
        ->required()
        ->expected(2, -1);
    command.add_option("-o", words.table_path, "Write the comparison into a file too")
        ->option_text("FILE.xlsx|FILE.csv");
    command.add_flag("--all", words.all, "Show every input");
    add_case_options(command, words, compare_notes);
    add_conductor_option(command, words);
}

}  // namespace zel
