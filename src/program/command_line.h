#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "program/console.h"

// What the command lines of the terminal and of the windows share.

namespace zel {

inline constexpr const char* choice_check = "choice";  // of an option that takes names of a list

/// An option, or the name of a required word, that takes one of these names and sets `value` to
/// what stands beside it.
template <class T, class Value>
CLI::Option* add_choice(CLI::App& command, const std::string& name, Value& value,
                        std::vector<std::pair<std::string, T>> choices,
                        const std::string& description) {
    std::vector<std::string> names;
    names.reserve(choices.size());
    for (const auto& choice : choices) names.push_back(choice.first);
    const auto take = [choices = std::move(choices), &value](const std::string& chosen) {
        for (const auto& choice : choices)
            if (choice.first == chosen) value = choice.second;
    };
    return command.add_option_function<std::string>(name, take, description)
        ->check(CLI::IsMember(names).name(choice_check))
        ->option_text(CLI::detail::join(names, "|"));
}

/// "--lang" and "--decimal", for values or what may stay without one.
template <class Lang, class Separator>
void add_language(CLI::App& command, Lang& lang, Separator& separator) {
    add_choice<LangId>(command, "--lang", lang, {{"de", LangId::German}, {"en", LangId::English}},
                       "Language of texts and messages (default: en)");
    add_choice<DecimalSeparator>(
        command, "--decimal", separator,
        {{"point", DecimalSeparator::Point}, {"comma", DecimalSeparator::Comma}},
        "Decimal separator of typed and shown numbers (default: point)");
}

/// The words behind "zel desktop". What is not given follows the settings and the system.
struct DesktopWords {
    std::optional<LangId> lang{};
    std::optional<DecimalSeparator> separator{};
    std::string case_path{};  // empty: the windows open without a case
};

/// Gives `command` the options and the notes of "zel desktop", which fill `words`.
void add_desktop_words(CLI::App& command, DesktopWords& words);

/// Reads the words of the user. Gives the exit status where they want help, which is printed, or
/// are wrong, which is told on standard error.
[[nodiscard]] std::optional<int> refused_words(CLI::App& app, int argc, char** argv);

/// The exit status that `body` gives. What it throws is told on standard error: `InputError` and
/// `OutputError` refuse the input, in words of `lang`; all else is a failure: too little memory
/// too. From here on a file that grows beyond the limit of the process cannot be written, but ends
/// nothing.
[[nodiscard]] int guarded(const std::function<int()>& body, LangId lang = LangId::English);

}  // namespace zel
