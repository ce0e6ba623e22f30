#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

// The commands as they describe themselves: what the manual page and the completion of shells are
// made of.

namespace zel {

/// An option, or a word that a command takes in its place.
struct CommandWord {
    std::vector<std::string> names{};    // "-h", "--help"; of a word in its place its own, "CASE"
    std::string value{};                 // what stands behind it, "FILE.pdf"; empty for a flag
    std::vector<std::string> choices{};  // the only values that it takes, if they are few
    std::string about{};
    bool required = false;
    bool in_its_place = false;
};

struct CommandFacts {
    std::string path{};  // "zel db list"
    std::string about{};
    std::string notes{};                  // below the options in its help
    std::vector<CommandWord> words{};     // in the order of its help
    std::vector<std::string> commands{};  // names of those below it

    [[nodiscard]] std::string name() const { return path.substr(path.rfind(' ') + 1); }
};

/// `app` and all commands below it; one comes before those below it.
[[nodiscard]] std::vector<CommandFacts> all_commands(CLI::App& app);

/// The one at `path` below the first; null where there is none.
[[nodiscard]] const CommandFacts* find_command(const std::vector<CommandFacts>& commands,
                                               const std::string& path);

[[nodiscard]] nlohmann::ordered_json command_document(const std::vector<CommandFacts>& commands);

}  // namespace zel
