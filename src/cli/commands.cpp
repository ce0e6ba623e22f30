#include "cli/commands.h"

#include <unistd.h>

#include <cerrno>
#include <nlohmann/json.hpp>

#include "adapters/json/flat_json.h"
#include "adapters/posix/descriptor.h"
#include "program/places.h"

namespace zel {

const char* const exit_statuses =
    "Exit status: 0 done; 1 a selected method or a change of state failed, or a typed\n"
    "text was refused and counts as no input; 2 the input was refused, nothing was\n"
    "calculated; 3 the calculation had to end the program.";

std::string json_text(const nlohmann::ordered_json& document) {
    using nlohmann::ordered_json;
    return terminal_safe(document.dump(2, ' ', false, ordered_json::error_handler_t::replace)) +
           "\n";
}

void add_json_option(CLI::App& command, CommonOptions& options) {
    command.add_flag("--json", options.json, "Write one JSON document to standard output");
}

void add_output(CLI::App& command, CommonOptions& options) {
    add_json_option(command, options);
    command.add_flag("--silent", options.silent, "No messages; failures are in the status texts");
}

void add_conductor_option(CLI::App& command, CommonOptions& options) {
    command
        .add_option("--conductor", options.conductor,
                    "Take the conductor from an exchange record or from the library")
        ->check([](const std::string& named) {
            return named.empty() ? "a record or a name is needed" : "";
        })
        ->option_text("RECORD|NAME");
}

int become_program(const char* name, char** words, const Text& failure, LangId lang) {
    const std::string program = helper_program(name);
    ::execv(program.c_str(), words);
    const Reason reason = at(program, system_reason(errno));
    Console::tell_reason(fill(failure.in(lang), {reason.in(lang)}));
    return exit_failed;
}

}  // namespace zel
