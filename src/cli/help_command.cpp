#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/command_tree.h"
#include "cli/commands.h"
#include "cli/help_fields.h"
#include "cli/help_pages.h"
#include "platform/errors.h"
#include "platform/text/likeness.h"
#include "platform/text/utf8.h"
#include "program/stores.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr const char* notes =
    "\n"
    "Without TOPIC the topics of the user guide are listed. TOPIC may be one of them, a command\n"
    "(\"zel help db list\"), or the code of a message, of a rating or of an exit status, for which\n"
    "cause and remedy are told (\"zel help 3044\"; below zero as it stands). Besides, there are\n"
    "\n"
    "  fields      the inputs by name, with kind, unit and range: names both of the case files\n"
    "              and, in plain English, of series and programs. An input of the kind \"derived\"\n"
    "              is one of series only: it sets fields of the case.\n"
    "  commands    all commands; with --json each with its options\n"
    "\n"
    "--names prints all that TOPIC can be, one per line. With --json standard output is one\n"
    "JSON document. The windows show the same guide by F1.\n"
    "\n"
    "Exit status: 0 done; 2 there is no such topic.";

constexpr std::size_t most_near = 6;

constexpr Text head = {
    "Themen der Anleitung (zel help THEMA zeigt eines, zel help CODE erklärt eine Meldung):",
    "Topics of the guide (zel help TOPIC prints one, zel help CODE explains a message):"};
constexpr Text fields_about = {"Die Eingaben mit Art, Einheit und Bereich",
                               "The inputs with kind, unit and range"};
constexpr Text commands_about = {"Alle Befehle", "All commands"};
constexpr Text also_command = {"zel {0} --help zeigt die Optionen des Befehls.",
                               "zel {0} --help tells the options of the command."};
constexpr Text message_label = {"Meldung: ", "Message: "};
constexpr Text cause_label = {"Ursache: ", "Cause: "};
constexpr Text remedy_label = {"Abhilfe: ", "Remedy: "};
constexpr Text unknown = {"zu {0} gibt es keine Hilfe; zel help zeigt alle Themen",
                          "there is no help on {0}; zel help lists all topics"};
constexpr Text unknown_near = {
    "zu {0} gibt es keine Hilfe; ähnlich sind: {1}; zel help zeigt alle Themen",
    "there is no help on {0}; near to it: {1}; zel help lists all topics"};

struct HelpWords : CommonOptions {
    std::vector<std::string> topic{};
    bool names = false;
};

/// What the user asks for, and all that there is.
struct Question {
    const HelpWords& words;
    std::string topic;
    HelpPages pages;
    std::vector<CommandFacts> commands;
};

/// Of the terminal, but no longer than is good for reading.
std::size_t line_width() {
    constexpr std::size_t usual = 80;
    constexpr std::size_t most = 110;
    winsize size{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col < 20) return usual;
    return std::min<std::size_t>(size.ws_col, most);
}

int tell(const Question& asked, const std::string& text, const ordered_json& document) {
    if (asked.words.json) return print_or_fail(json_text(document));
    return print_or_fail(printable(wrapped(text, line_width())));
}

std::string in_small_letters(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

int tell_topics(const Question& asked) {
    const LangId lang = asked.words.lang;
    std::string text = std::string(head.in(lang)) + "\n\n";
    std::size_t width = 0;
    const auto name_of = [](const HelpTopic& topic) {
        return std::string(2 * static_cast<std::size_t>(topic.level), ' ') + topic.name;
    };
    for (const HelpTopic& topic : asked.pages.topics)
        width = std::max(width, name_of(topic).size() + 2);
    ordered_json list = ordered_json::array();
    const auto add = [&](const HelpTopic& topic) {
        const std::string name = name_of(topic);
        text += "\t" + name + std::string(width - name.size(), ' ') + topic.title + "\n";
        list.push_back({{"topic", topic.name}, {"level", topic.level}, {"title", topic.title}});
    };
    for (const HelpTopic& topic : asked.pages.topics) add(topic);
    text += "\n";
    add({"fields", 1, std::string(fields_about.in(lang))});
    add({"commands", 1, std::string(commands_about.in(lang))});
    return tell(asked, text, {{"topics", list}});
}

int tell_commands(const Question& asked) {
    std::string text;
    for (const CommandFacts& command : asked.commands) {
        if (&command == &asked.commands.front()) continue;
        constexpr std::size_t width = 28;
        text += "\t" + command.path +
                std::string(width - std::min(width - 1, command.path.size()), ' ') + command.about +
                "\n";
    }
    return tell(asked, text, command_document(asked.commands));
}

std::optional<int> tell_topic(const Question& asked) {
    const auto& topics = asked.pages.topics;
    const auto found = std::find_if(topics.begin(), topics.end(), [&](const HelpTopic& topic) {
        return topic.name == asked.topic;
    });
    if (found == topics.end()) return std::nullopt;
    std::string text =
        section_text(topics, static_cast<std::size_t>(std::distance(topics.begin(), found)));
    if (find_command(asked.commands, asked.topic) != nullptr)
        text += "\n" + fill(also_command.in(asked.words.lang), {asked.topic}) + "\n";
    std::string plain;
    for (const std::string& line : lines_of(text))
        plain += (line.starts_with('\t') ? line.substr(1) : line) + "\n";
    return tell(asked, text, {{"topic", found->name}, {"title", found->title}, {"text", plain}});
}

/// A number may be the code of more than one thing.
std::optional<int> tell_messages(const Question& asked) {
    const LangId lang = asked.words.lang;
    std::string text;
    ordered_json list = ordered_json::array();
    for (const HelpMessage& message : asked.pages.messages) {
        if (in_small_letters(message.code) != asked.topic) continue;
        if (!text.empty()) text += "\n";
        text += message.code + " (" + message.area + ")\n";
        for (const auto& [label, said] :
             {std::pair(message_label, message.text), std::pair(cause_label, message.cause),
              std::pair(remedy_label, message.remedy)})
            if (!said.empty()) text += "\n" + std::string(label.in(lang)) + said + "\n";
        list.push_back({{"code", message.code},
                        {"area", message.area},
                        {"text", message.text},
                        {"cause", message.cause},
                        {"remedy", message.remedy}});
    }
    if (list.empty()) return std::nullopt;
    return tell(asked, text, {{"messages", list}});
}

std::optional<int> tell_command(const Question& asked, CLI::App& app) {
    const CommandFacts* found = find_command(asked.commands, asked.topic);
    if (found == nullptr) return std::nullopt;
    if (asked.words.json) return print_or_fail(json_text(command_document({*found})));
    CLI::App* command = &app;
    for (const std::string& name : asked.words.topic) command = command->get_subcommand(name);
    const std::string path = found->path;
    return print_or_fail(command->help(path.substr(0, path.rfind(' '))));
}

std::vector<std::string> all_names(const Question& asked) {
    std::vector<std::string> names = {"fields", "commands"};
    for (const HelpTopic& topic : asked.pages.topics) names.push_back(topic.name);
    for (const CommandFacts& command : asked.commands)
        if (const std::size_t blank = command.path.find(' '); blank != std::string::npos)
            names.push_back(command.path.substr(blank + 1));
    for (const HelpMessage& message : asked.pages.messages)
        names.push_back(in_small_letters(message.code));
    std::vector<std::string> once;
    for (const std::string& name : names)
        if (std::find(once.begin(), once.end(), name) == once.end()) once.push_back(name);
    return once;
}

[[noreturn]] void refuse(const Question& asked) {
    const std::string quoted = in_quotes(asked.topic);
    const auto near = names_near(asked.topic, all_names(asked), most_near);
    if (near.empty()) throw InputError(Reason(unknown, {quoted}));
    throw InputError(Reason(unknown_near, {quoted, joined(near, ", ")}));
}

int tell_help(const HelpWords& words, CLI::App& app) {
    const std::string topic = in_small_letters(joined(words.topic, " "));
    if (topic == "fields" && !words.names) return tell_fields(words);
    // The pages are made of what is told of the commands.
    if (topic == "commands" && !words.names)
        return tell_commands({words, topic, {}, all_commands(app)});
    const Question asked = {words, topic, read_help_pages(help_folder(), words.lang),
                            all_commands(app)};
    if (words.names) return print_or_fail(joined(all_names(asked), "\n") + "\n");
    if (topic.empty()) return tell_topics(asked);
    if (const auto status = tell_topic(asked)) return *status;
    if (const auto status = tell_command(asked, app)) return *status;
    if (const auto status = tell_messages(asked)) return *status;
    refuse(asked);
}

/// A code below zero, which looks like an option.
bool is_number(const std::string& word) {
    return word.size() > 1 && word.find_first_not_of("0123456789", 1) == std::string::npos;
}

}  // namespace

void add_help(CommandLine& line) {
    CLI::App& app = line.app();
    const auto [command, words] =
        line.add<HelpWords>("help", "The user guide, a topic of it, or what a message means",
                            [&app](const HelpWords& given) { return tell_help(given, app); });
    command.add_option("TOPIC", words.topic, "Topic, command, or code of a message");
    command.add_flag("--names", words.names, "Print all that TOPIC can be, one per line");
    add_json_option(command, words);
    add_language(command, words.lang, words.separator);
    command.allow_extras();
    command.parse_complete_callback([&command = command, &words = words] {
        for (const std::string& word : command.remaining()) {
            if (word == "--") continue;
            if (!is_number(word)) throw CLI::ExtrasError({word});
            words.topic.push_back(word);
        }
    });
    command.footer(notes);
}

}  // namespace zel
