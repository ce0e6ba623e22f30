#include "persistence/database/table_names.h"

#include <algorithm>
#include <array>

#include "platform/errors.h"
#include "platform/text/text.h"
#include "platform/text/utf8.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

/// As they are typed. The small k stands among them as it does.
constexpr std::array<std::string_view, 31> refused = {
    "k", "!", "$", "%", "&", "/", "(", ")", "=", "?", "`", "{", "[", "]", "}", "\\",
    "´", "*", "+", "~", "'", "#", "ö", "ä", "ü", "ß", ",", ";", ":", ".", "-"};

constexpr BoxText taken_name = {Icon::Stop,
                                short_name,
                                {"Der Name {0} ist in diesem Verzeichnis\n"
                                 "fest definiert. Es darf keine weitere Datenbank \n"
                                 "diesen Namens angelegt werden ! \n"
                                 "Bitte korrigieren Sie ihre Eingabe !",
                                 "The file name {1} in this directory\n"
                                 "is already in use. Please choose another filename "}};

constexpr Text no_name = {"eine Tabelle braucht einen Namen", "a table needs a name"};
constexpr Text wrong_name = {"{0}: der Name einer Tabelle kann \"{1}\" nicht enthalten",
                             "{0}: the name of a table cannot have \"{1}\""};

struct Reserved {
    std::string_view name;
    std::string_view in_english;
    bool told;
};

constexpr Reserved reserved[] = {{"stcas.mdb", "stcas.mdb", true},
                                 {"worstcas.mdb", "worstca.mdb", true},
                                 {"st_cases.mdb", "", false}};

}  // namespace

std::optional<std::string> refused_character(std::string_view name) {
    for (; !name.empty(); name.remove_prefix(character_length(name))) {
        const std::size_t length = character_length(name);
        const std::string_view character = name.substr(0, std::max<std::size_t>(length, 1));
        // What is no character, steers a terminal, or makes an umlaut of the letter before it.
        const bool is_strange = length == 0 || printable(character) != character ||
                                character == "\n" ||
                                ("\u0300" <= character && character <= "\u036F");
        if (is_strange || std::find(refused.begin(), refused.end(), character) != refused.end())
            return std::string(character);
    }
    return std::nullopt;
}

void refuse_table_name(const std::string& name) {
    if (name.empty()) throw InputError(Reason(no_name));
    if (const auto character = refused_character(name))
        throw InputError(Reason(wrong_name, {in_quotes(name), printable(*character)}));
}

ReservedName reserved_case_database(std::string_view path, std::string_view calculation_folder,
                                    LangId lang) {
    for (const auto& [name, in_english, told] : reserved) {
        if (!same_name(path, std::string(calculation_folder) + "/" + std::string(name))) continue;
        if (!told) return {true};
        return {true, box_in(lang, taken_name, {name, in_english})};
    }
    return {};
}

ReservedName reserved_short_circuit_database(std::string_view path) {
    for (const auto& [name, in_english, told] : reserved) {
        if (!has_ending(path, "/" + std::string(name))) continue;
        return {true, box_in(LangId::German, taken_name, {told ? name : reserved[0].name})};
    }
    return {};
}

}  // namespace zel
