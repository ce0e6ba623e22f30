#include "cli/command_tree.h"
#include "cli/commands.h"

// Completion of the words of a command line by the shells, made from what the commands say of
// themselves.

namespace zel {
namespace {

constexpr const char* notes =
    "\n"
    "Prints a script by which a shell completes commands, options, their values and topics of the\n"
    "help. A package installs it; without one:\n"
    "\n"
    "  source <(zel completion bash)                     bash, in ~/.bashrc\n"
    "  zel completion zsh > FOLDER-OF-fpath/_zel         zsh";

enum class Shell { Bash, Zsh };

struct CompletionWords : CommonOptions {
    Shell shell = Shell::Bash;
};

using Commands = std::vector<CommandFacts>;

std::string in_quotes_of_shell(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::string row(const std::string& pattern, const std::string& act) {
    return "        " + pattern + ") " + act + " ;;\n";
}

std::string option_names(const CommandFacts& command) {
    std::string names;
    for (const CommandWord& word : command.words)
        if (!word.in_its_place)
            for (const std::string& name : word.names) names += (names.empty() ? "" : " ") + name;
    return names;
}

constexpr std::string_view bash_head =
    R"(# Completion of zel by bash, made by "zel completion bash".
_zel() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} path=zel i
    local commands= options= values= takes=
    COMPREPLY=()
    # "--lang=de" is three words here.
    [[ $word != = ]] || word=
    [[ $before != = ]] || before=${COMP_WORDS[COMP_CWORD - 2]}
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case "$path ${COMP_WORDS[i]}" in
)";
constexpr std::string_view bash_options = R"(        esac
    done
    case "$path $before" in
)";
constexpr std::string_view bash_words = R"(    esac
    if [[ $takes ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$values" -- "$word")
        return
    fi
    case $path in
)";
constexpr std::string_view bash_tail = R"(    esac
    [[ $word == -* ]] && values=$options || values+=" $commands"
    mapfile -t COMPREPLY < <(compgen -W "$values" -- "$word")
}
# Where nothing of these fits, a file.
complete -o bashdefault -o default -F _zel zel
)";

/// The values of an option, and of a word in its place. What has none takes a file.
std::string values_of(const CommandWord& word) {
    return in_quotes_of_shell(CLI::detail::join(word.choices, " "));
}

std::string bash_script(const Commands& commands) {
    std::string script(bash_head);
    for (const CommandFacts& command : commands)
        if (&command != &commands.front())
            script += "    " + row(in_quotes_of_shell(command.path), "path='" + command.path + "'");
    script += bash_options;
    for (const CommandFacts& command : commands)
        for (const CommandWord& word : command.words) {
            if (word.in_its_place || word.value.empty()) continue;
            std::vector<std::string> patterns;
            for (const std::string& name : word.names)
                patterns.push_back(in_quotes_of_shell(command.path + " " + name));
            script += row(CLI::detail::join(patterns, " | "), "takes=1 values=" + values_of(word));
        }
    script += bash_words;
    for (const CommandFacts& command : commands) {
        std::string act = "options=" + in_quotes_of_shell(option_names(command)) + " commands=" +
                          in_quotes_of_shell(CLI::detail::join(command.commands, " "));
        for (const CommandWord& word : command.words)
            if (word.in_its_place && !word.choices.empty()) act += " values=" + values_of(word);
        if (command.path == "zel help") act += " values=$(zel help --names 2>/dev/null)";
        script += row(in_quotes_of_shell(command.path), act);
    }
    return script + std::string(bash_tail);
}

/// "zel db list" as the name of a function.
std::string function_of(std::string path) {
    for (char& c : path)
        if (c == ' ' || c == '-') c = '_';
    return "_" + path;
}

/// A text in what zsh is told of an option, where brackets and colons have a meaning.
std::string zsh_text(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\') escaped += '\\';
        escaped += c;
    }
    return escaped;
}

/// What stands behind an option or in the place of a word: ":FILE.pdf:_files".
std::string zsh_value(const CommandWord& word, const std::string& path) {
    const std::string name = word.in_its_place ? word.names.front() : word.value;
    std::string act = "_files";
    if (!word.choices.empty()) act = "(" + CLI::detail::join(word.choices, " ") + ")";
    if (path == "zel help") act = "{_values topic $(zel help --names 2>/dev/null)}";
    return ":" + zsh_text(name) + ":" + act;
}

/// The specifications of a word: one for each name of an option, which exclude each other.
std::string zsh_specs(const CommandWord& word, const std::string& path) {
    const auto line = [](const std::string& spec) {
        return " \\\n        " + in_quotes_of_shell(spec);
    };
    const bool many = word.value.find("...") != std::string::npos;
    if (word.in_its_place) {
        const std::string place = word.required && !many ? "" : "*";
        return line(place + zsh_value(word, path));
    }
    const std::string excluded = "(" + CLI::detail::join(word.names, " ") + ")";
    std::string specs;
    for (const std::string& name : word.names) {
        std::string spec = (many ? "*" : excluded) + name + "[" + zsh_text(word.about) + "]";
        if (!word.value.empty()) spec += zsh_value(word, path);
        specs += line(spec);
    }
    return specs;
}

std::string zsh_function(const Commands& commands, const CommandFacts& command) {
    std::string words;
    for (const CommandWord& word : command.words) words += zsh_specs(word, command.path);
    const std::string head = function_of(command.path) + "() {\n";
    if (command.commands.empty()) return head + "    _arguments -s" + words + "\n}\n\n";
    std::string body = "    local state line\n    typeset -A opt_args\n    _arguments -C" + words +
                       " \\\n        ':command:->command' '*::word:->words'\n" +
                       "    case $state in\n        command)\n            local -a names=(";
    std::string next;
    for (const std::string& name : command.commands) {
        const CommandFacts& below =
            *std::find_if(commands.begin(), commands.end(), [&](const CommandFacts& other) {
                return other.path == command.path + " " + name;
            });
        body += "\n                " + in_quotes_of_shell(name + ":" + zsh_text(below.about));
        next += "                " + name + ") " + function_of(below.path) + " ;;\n";
    }
    return head + body +
           ")\n            _describe command names ;;\n"
           "        words)\n            case ${line[1]} in\n" +
           next + "            esac ;;\n    esac\n}\n\n";
}

std::string zsh_script(const Commands& commands) {
    std::string script =
        "#compdef zel\n# Completion of zel by zsh, made by \"zel completion zsh\".\n\n";
    for (const CommandFacts& command : commands) script += zsh_function(commands, command);
    return script + "[[ $funcstack[1] == _zel ]] && _zel \"$@\" || compdef _zel zel\n";
}

}  // namespace

void add_completion(CommandLine& line) {
    CLI::App& app = line.app();
    const auto [command, words] = line.add<CompletionWords>(
        "completion", "Print the completion of a shell", [&app](const CompletionWords& given) {
            const Commands commands = all_commands(app);
            return print_or_fail(given.shell == Shell::Bash ? bash_script(commands)
                                                            : zsh_script(commands));
        });
    add_choice<Shell>(command, "SHELL", words.shell, {{"bash", Shell::Bash}, {"zsh", Shell::Zsh}},
                      "Whose script")
        ->required();
    command.footer(notes);
}

}  // namespace zel
