#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

constexpr Text title = {"Unzulässige Eingabe!", "Input inadmissible!"};

constexpr BoxText comma_is_set = {
    Icon::Warning,
    title,
    {"Als Dezimaltrennzeichen ist im Windows-Benutzerprofil das Dezimalkomma ( , ) eingestellt.\n"
     "Bitte geben Sie deshalb zur Trennung des ganzzahligen und des gebrochenens Teils einer Zahl das Komma als Dezimaltrennzeichen ein!",
     "The decimal comma ( , ) is set as the decimal separator in the Windows user profile.\n"
     "So please specify the comma as decimal separatorto separate the integer part and the fraction part!"}};

constexpr BoxText point_is_set = {
    Icon::Warning,
    title,
    {"Als Dezimaltrennzeichen ist im Windows-Benutzerprofil der Dezimalpunkt ( . ) eingestellt.\n"
     "bitte geben Sie deshalb zur Trennung des ganzzahligen und des gebrochenens Teils einer Zahl den Punkt als Dezimaltrennzeichen ein!",
     "The decimal point ( . ) is set as the decimal separator in the Windows user profile.\n"
     "So please specify the point as decimal separator to separate the integer part and the fraction part!"}};

}  // namespace

FilteredKey filter_key(char32_t key, const Locale& locale) {
    const bool comma = locale.separator == DecimalSeparator::Comma;
    if (!comma && locale.separator != DecimalSeparator::Point) return {true, std::nullopt};
    if ((key >= U'0' && key <= U'9') || key == U'-' || key == U'\b') return {true, std::nullopt};
    if (key == U',' || key == U'.') {
        if ((key == U',') == comma) return {true, std::nullopt};
        return {false, box_in(locale.lang, comma ? comma_is_set : point_is_set)};
    }
    return {};
}

}  // namespace zel
