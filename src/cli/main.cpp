#include <string>

#include "cli/commands.h"
#include "shell/linked_libraries.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr const char* about =
    "Thermal rating of bare overhead-line conductors and tubular busbars:\n"
    "the current that a conductor may carry at a given temperature, or the\n"
    "temperature that it takes at a given current. And whether a bare conductor or a\n"
    "piece of equipment withstands a short circuit thermally.\n";

// In the order of the help.
constexpr void (*commands[])(CommandLine&) = {
    add_steady,  add_transient,   add_table,    add_graph,         add_picture,
    add_compare, add_sensitivity, add_report,   add_short_circuit, add_desktop,
    add_batch,   add_rate,        add_template, add_settings,      add_conductor,
    add_db,      add_measure,     add_selftest, add_help,          add_completion};

int run(int argc, char** argv) {
    CLI::App app(std::string(short_name.en) + " - " + std::string(long_title.en) + "\n\n" + about,
                 "zel");
    app.set_version_flag("--version", fill("{0}, release {1}", {short_name.en, release_number()}));
    app.footer(std::string("\n\"zel COMMAND --help\" tells the options of a command.\n\n") +
               exit_statuses);
    app.require_subcommand(0, 1);
    CommandLine line(app, argv);
    for (const auto add : commands) add(line);
    if (const auto status = refused_words(app, argc, argv)) return *status;
    if (line.chosen()) return line.chosen()();
    Console::tell_reason("a command is needed\n\n" + app.help());
    return exit_refused;
}

}  // namespace

}  // namespace zel

int main(int argc, char** argv) {
    return zel::guarded([&] { return zel::run(argc, argv); });
}
