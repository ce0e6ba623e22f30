#include "cli/case_command.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/case_output.h"
#include "platform/errors.h"

namespace zel {

using nlohmann::ordered_json;

ordered_json json_of(const std::vector<Message>& messages) {
    ordered_json list = ordered_json::array();
    for (const Message& message : messages) {
        ordered_json entry = {{"icon", name_of(message.box.icon)},
                              {"title", message.box.title},
                              {"lines", message.box.lines}};
        if (!message.field.empty()) entry["field"] = message.field;
        list.push_back(std::move(entry));
    }
    return list;
}

ordered_json json_of(const std::vector<Note>& notes) {
    ordered_json list = ordered_json::array();
    for (const auto& [code, text] : notes) list.push_back({{"code", code}, {"text", text}});
    return list;
}

bool sound(const SteadyRunResult& result) {
    return std::all_of(result.methods.begin(), result.methods.end(),
                       [](const MethodResult& m) { return m.outcome.sound(); });
}

void add_case_word(CLI::App& command, CaseWords& words) {
    command.add_option("CASE", words.case_path, "Case file (JSON), or - for standard input")
        ->required();
}

void add_case_options(CLI::App& command, CaseWords& words, const char* notes) {
    add_output(command, words);
    add_language(command, words.lang, words.separator);
    command.footer(notes + std::string("\n") + exit_statuses);
}

void add_method_option(CLI::App& command, std::optional<Method>& method) {
    std::vector<std::pair<std::string, Method>> choices;
    for (const Method each : all_methods) choices.emplace_back(key_of(each), each);
    add_choice<Method>(command, "--method", method, choices,
                       "Of this method; without it of the first that has a result");
}

int CaseRun::run() {
    try {
        return calculate();
    } catch (const ProgramEnd& end) {
        Console::tell_reason(fill(had_to_end.in(words_.lang), {end.what()}));
        return words_.json ? print_or_fail(document(end.what()), exit_program_ended)
                           : exit_program_ended;
    }
}

int CaseRun::printed(bool sound) const {
    return print_or_fail(words_.json ? document({}) : printable(page()),
                         sound ? exit_done : exit_failed);
}

int CaseRun::refused(const Box& box) const {
    if (words_.silent) Console::tell_reason(paragraph_of(box));
    if (!words_.json) return exit_refused;
    return print_or_fail(json_text({{"input_valid", false}, {"messages", json_of(messages())}}),
                         exit_refused);
}

}  // namespace zel
