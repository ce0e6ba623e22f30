#pragma once

#include <functional>
#include <memory>
#include <string>

#include <nlohmann/json_fwd.hpp>

#include "adapters/qt_canvas/drawing_file.h"
#include "program/command_line.h"

namespace zel {

/// What makes files of drawings, where the program has it: only the one that draws is linked with
/// Qt.
struct DrawingTools {
    decltype(&drawing_file) file = nullptr;
    decltype(&sheets_file) sheets = nullptr;
};

/// The words of a command, and its place in the command line.
template <class Words>
struct Command {
    CLI::App& app;
    Words& words;
};

/// The command line of zel, to which each command adds itself: its words, its options, its notes
/// and what it does.
class CommandLine {
public:
    CommandLine(CLI::App& app, char** words, const DrawingTools& tools = {})
        : app_(app), words_(words), tools_(tools) {}

    /// A command below `parent`. `run` gets what the user has written and gives the exit status;
    /// what it throws is told in the language of its words, as by `guarded`.
    template <class Words>
    Command<Words> add(CLI::App& parent, const char* name, const char* description,
                       std::function<int(const Words&)> run) {
        const auto words = std::make_shared<Words>();
        CLI::App& command = *parent.add_subcommand(name, description);
        command.callback([this, words, run = std::move(run)] {
            chosen_ = [words, run] {
                return guarded([&] { return run(*words); }, lang_of(*words));
            };
        });
        return {command, *words};
    }
    template <class Words>
    Command<Words> add(const char* name, const char* description,
                       std::function<int(const Words&)> run) {
        return add<Words>(app_, name, description, std::move(run));
    }
    /// A command that has commands of its own, one of which is needed.
    CLI::App& add_group(const char* name, const char* description, const char* notes) {
        CLI::App& group = *app_.add_subcommand(name, description);
        group.require_subcommand(1);
        group.footer(notes);
        return group;
    }

    /// What the words of the user choose; empty where they name no command.
    [[nodiscard]] const std::function<int()>& chosen() const { return chosen_; }

    [[nodiscard]] CLI::App& app() const { return app_; }
    /// The words as the user has written them, the name of the program first; null behind the last.
    [[nodiscard]] char** words() const { return words_; }
    /// Null in the program that cannot draw and becomes the one that can.
    [[nodiscard]] const DrawingTools& tools() const { return tools_; }

private:
    static LangId lang_of(const CommonOptions& words) { return words.lang; }
    static LangId lang_of(const DesktopWords& words) {
        return words.lang.value_or(LangId::English);
    }

    CLI::App& app_;
    char** words_;
    DrawingTools tools_;
    std::function<int()> chosen_;
};

// One per file, <name>_command.cpp, which holds all of the command.
void add_steady(CommandLine& line);
void add_transient(CommandLine& line);
void add_table(CommandLine& line);
void add_graph(CommandLine& line);
void add_picture(CommandLine& line);
void add_compare(CommandLine& line);
void add_sensitivity(CommandLine& line);
void add_report(CommandLine& line);
void add_short_circuit(CommandLine& line);
void add_desktop(CommandLine& line);
void add_batch(CommandLine& line);
void add_rate(CommandLine& line);
void add_template(CommandLine& line);
void add_settings(CommandLine& line);
void add_conductor(CommandLine& line);
void add_db(CommandLine& line);
void add_measure(CommandLine& line);
void add_selftest(CommandLine& line);
void add_help(CommandLine& line);
void add_completion(CommandLine& line);

// ---- what several commands have

extern const char* const exit_statuses;  // of the commands that calculate a case

inline constexpr Text had_to_end = {"das Programm mußte enden: {0}", "the program had to end: {0}"};

/// The document as it is printed. What is no UTF-8 in its texts has replacement characters.
[[nodiscard]] std::string json_text(const nlohmann::ordered_json& document);

void add_json_option(CLI::App& command, CommonOptions& options);
/// "--json" and "--silent".
void add_output(CLI::App& command, CommonOptions& options);
void add_conductor_option(CLI::App& command, CommonOptions& options);

/// Becomes the program `name` beside this one, with `words`, the first of which is its own name.
/// Where that cannot be, `failure` is told with the reason as {0}; gives the status of that.
[[nodiscard]] int become_program(const char* name, char** words, const Text& failure, LangId lang);

}  // namespace zel
