#include "workflow/entry_rules.h"

namespace zel {
namespace {

constexpr BoxText not_numeric = {
    Icon::Warning,
    {"Fehlerhafte Eingabe", "Incorrect input data"},
    {"Eingegebener Wert kann nicht als Zahl interpretiert werden. Korrigieren Sie bitte die "
     "Eingabe !",
     "Input value can not be identified as a number. Please correct your input data !"}};

}  // namespace

std::optional<Box> enter(Entry& field, std::string_view text, DecimalSeparator separator,
                         LangId lang) {
    field.text = text;
    if (text.empty()) return std::nullopt;
    const auto number = parse_number(text, separator);
    if (!number) {
        field.text.clear();
        return box_in(lang, not_numeric);
    }
    field.value = *number;
    return std::nullopt;
}

}  // namespace zel
