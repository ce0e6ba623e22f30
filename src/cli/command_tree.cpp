#include "cli/command_tree.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/text/text.h"
#include "program/command_line.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr std::string_view required_mark = " REQUIRED";

/// What stands behind the option in its help.
std::string value_of(const CLI::Option& option) {
    std::string text = option.get_option_text();
    if (text.empty() && option.get_items_expected_max() > 0) text = option.get_type_name();
    if (text.ends_with(required_mark)) text.resize(text.size() - required_mark.size());
    return text;
}

std::vector<std::string> choices_of(CLI::Option& option) {
    try {
        static_cast<void>(option.get_validator(choice_check));
    } catch (const CLI::OptionNotFound&) {
        return {};
    }
    return CLI::detail::split(value_of(option), '|');
}

CommandWord word_of(CLI::Option& option) {
    CommandWord word;
    word.in_its_place = option.get_positional();
    if (word.in_its_place) {
        word.names = {option.get_name(true)};
    } else {
        for (const std::string& name : option.get_snames()) word.names.push_back("-" + name);
        for (const std::string& name : option.get_lnames()) word.names.push_back("--" + name);
    }
    word.value = value_of(option);
    word.choices = choices_of(option);
    word.about = option.get_description();
    word.required = option.get_required();
    return word;
}

void add(std::vector<CommandFacts>& commands, CLI::App& app, const std::string& path) {
    CommandFacts facts{path, app.get_description(), app.get_footer()};
    for (CLI::Option* option : app.get_options({})) facts.words.push_back(word_of(*option));
    const std::vector<CLI::App*> below =
        app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); });
    for (const CLI::App* command : below) facts.commands.push_back(command->get_name());
    commands.push_back(std::move(facts));
    for (CLI::App* command : below) add(commands, *command, path + " " + command->get_name());
}

}  // namespace

std::vector<CommandFacts> all_commands(CLI::App& app) {
    std::vector<CommandFacts> commands;
    add(commands, app, app.get_name());
    return commands;
}

const CommandFacts* find_command(const std::vector<CommandFacts>& commands,
                                 const std::string& path) {
    const std::string whole = commands.front().path + " " + path;
    const auto found =
        std::find_if(commands.begin(), commands.end(),
                     [&](const CommandFacts& command) { return command.path == whole; });
    return found == commands.end() ? nullptr : &*found;
}

nlohmann::ordered_json command_document(const std::vector<CommandFacts>& commands) {
    using nlohmann::ordered_json;
    ordered_json list = ordered_json::array();
    for (const CommandFacts& command : commands) {
        ordered_json words = ordered_json::array();
        for (const CommandWord& word : command.words)
            words.push_back({{"names", word.names},
                             {"value", word.value},
                             {"choices", word.choices},
                             {"about", word.about},
                             {"required", word.required},
                             {"in_its_place", word.in_its_place}});
        list.push_back({{"command", command.path},
                        {"about", command.about},
                        {"notes", command.notes},
                        {"words", words},
                        {"commands", command.commands}});
    }
    return {{"program", short_name.en}, {"commands", list}};
}

}  // namespace zel
