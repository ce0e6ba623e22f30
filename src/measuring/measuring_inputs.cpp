#include "measuring/measuring_inputs.h"

#include <algorithm>
#include <cmath>

#include "measuring/evaluation.h"

namespace zel::measuring {
namespace {

constexpr double greatest_height = 199;  // m

constexpr BoxText not_numeric = {
    Icon::Stop,
    {"Fehlerhafte Eingabe", "Incorrect input data"},
    {"Eingegebener Wert kann nicht als Zahl interpretiert werden. Korrigieren Sie bitte die Eingabe !",
     "Input value can not be identified as a number. Please correct your input data !"}};

constexpr BoxText too_high = {Icon::Stop,
                              {" Fehlermeldung Eingabe", " Incorrect input"},
                              {"Maximalwert für den Höhendifferenz beträgt 199 m, !\n"
                               "Minimalwert für den Höhendifferenz beträgt -20 m.\n"
                               "Geben Sie bitte eine gültigen Wert ein",
                               "Maximum value for the height difference is 199 m !\n"
                               "Minimum value for the height difference is -20 m.\n"
                               "Please use a value within this range"}};

constexpr BoxText no_height = {Icon::Stop,
                               {"Unvollständige Eingabe", "Input incomplete"},
                               {"Es wurde keine Angabe zur Höhendifferenz\n"
                                "zwischen Messkopf und Leiterseil gemacht. \n"
                                "Bitte vervollständigen Sie ihre Eingabe !",
                                "You haven't made an input for the height difference\n"
                                "between measuring head and conductor. \n"
                                "Please complete your input !"}};

constexpr BoxText height_too_low = {
    Icon::Stop,
    {" Fehlermeldung Eingabe", " Incorrect input"},
    {"Über eine Höhendifferenz von {0} m kann die Windgeschwindigkeit nicht hochgerechnet werden:\n"
     "sie muss mindestens -2,4 m betragen.",
     "The wind speed can not be extrapolated over a height difference of {0} m:\n"
     "it has to be at least -2.4 m."}};

constexpr Text input_title = {" Fehlerhafte Eingabe", " Incorrect input"};
constexpr BoxText above_1 = {Icon::Stop,
                             input_title,
                             {"Eingegebener Wert > 1 Korrigieren Sie bitte die Eingabe !",
                              "Input value > 1 Please correct your input !"}};
constexpr BoxText zero_or_below = {Icon::Stop,
                                   input_title,
                                   {"Eingegebener Wert =< 0. Korrigieren Sie bitte die Eingabe !",
                                    "Input value =< 0. Please correct your input !"}};
constexpr BoxText below_zero = {Icon::Stop,
                                input_title,
                                {"Eingegebener Wert < 0. Korrigieren Sie bitte die Eingabe !",
                                 "Input value < 0. Please correct your input !"}};

constexpr ListedValue skies[] = {
    {{"1 wolkenlos", "1 cloudless"}, 1},
    {{"0,84 hohe Eiswolken", "0.84 high ice clouds"}, 0.84},
    {{"0,68 hohe Eisschichtwolken", "0.68 high sheets of ice clouds"}, 0.68},
    {{"0,34 mittelhohe Schichtwolken", "0.34 sheet clouds at medium height"}, 0.34},
    {{"0,12 tiefe Haufenschichtwolken", "0.12 low heaped sheet clouds"}, 0.12},
    {{"0,04 tiefe Schichtwolken", "0.04 low sheet clouds"}, 0.04},
    {{"0,01 mächtige tiefe Schichtwolken", "0.01 mighty low sheet clouds"}, 0.01},
};

constexpr ListedValue grounds[] = {
    {{"0,14 trockene schwarze Erde", "0.14 dry black soil"}, 0.14},
    {{"0,27 trockener grauer Tonboden", "0.27 dry grey clay"}, 0.27},
    {{"0,35 gelber Sand", "0.35 yellow sand"}, 0.35},
    {{"0,37 weißer Sand", "0.37 white sand"}, 0.37},
    {{"0,20 grauer Sand", "0.20 grey sand"}, 0.2},
    {{"0,20 Wiese (hohes Gras)", "0.20 meadow (high grass)"}, 0.2},
    {{"0,26 Wiese, Rasen (kurzes Gras)", "0.26 meadow, lawn (short grass)"}, 0.26},
    {{"0,12 Nadelwald", "0.12 coniferous forest"}, 0.12},
    {{"0,16 Laubwald", "0.16 deciduous forest"}, 0.16},
    {{"0,82 frisch gefallener Schnee", "0.82 freshly fallen snow"}, 0.82},
    {{"0,5 alter Schnee", "0.5 old snow"}, 0.5},
    {{"0,08 Wasser (Sonnenstand > 40°)", "0.08 water (sun above 40°)"}, 0.08},
    {{"0,22 Wasser (Sonnenstand < 40°)", "0.22 water (sun below 40°)"}, 0.22},
};

constexpr CombinationBox boxes[] = {
    {"Combo1",
     {"Bewölkungsgrad:", "Clearness ratio:"},
     &CalcCase::Bewoelkungsgrad_db,
     skies,
     0,
     true,
     false},
    {"Combo2", {"Bodenart:", "Kind of ground:"}, &CalcCase::Bodenart_db, grounds, 5, false, true},
};

constexpr NumberSpan share = {0, 1};

const BoxText* refusal(const CombinationBox& box, double value) {
    if (value > share.high) return &above_1;
    if (box.zero_is_refused) return value <= share.low ? &zero_or_below : nullptr;
    return value < share.low ? &below_zero : nullptr;
}

}  // namespace

std::optional<EntryRefusal> enter_height(Entry& Hoehendifferenz, std::string_view text,
                                         const Locale& locale) {
    Hoehendifferenz.text = text;
    if (text.empty()) return std::nullopt;
    const auto number = parse_single(text, locale.separator);
    const bool in_range = number && !(*number > greatest_height);
    if (in_range && std::isfinite(*number)) {
        Hoehendifferenz.value = *number;
        return std::nullopt;
    }
    Hoehendifferenz = {};
    const bool above = number && *number > greatest_height;
    return EntryRefusal{box_in(locale.lang, above ? too_high : not_numeric), above};
}

NumberSpan allowed_heights() { return {least_height(), greatest_height}; }

NumberSpan allowed_values(const CombinationBox& box) {
    return {share.low, share.high, box.zero_is_refused};
}

bool may_become_number(std::string_view text, const Locale& locale) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    return text.empty() || (text.size() == 1 && text[0] == character(locale.separator));
}

std::optional<Box> refusal_to_start(const Entry& Hoehendifferenz, LangId lang) {
    if (!Hoehendifferenz.given()) return box_in(lang, no_height);
    if (!is_too_low(Hoehendifferenz.value)) return std::nullopt;
    return box_in(lang, height_too_low, {Hoehendifferenz.text});
}

std::span<const CombinationBox> combination_boxes() { return boxes; }

std::optional<std::size_t> entry_named(const CombinationBox& box, std::string_view text) {
    for (std::size_t i = 0; i < box.entries.size(); ++i)
        if (box.entries[i].text.de == text || box.entries[i].text.en == text) return i;
    return std::nullopt;
}

void choose(const CombinationBox& box, std::size_t index, CalcCase& c, DecimalSeparator separator) {
    const double value = box.entries[index].value;
    c.*box.field = {plain_number(value, separator), value};
}

std::optional<EntryRefusal> enter(const CombinationBox& box, std::string_view text, CalcCase& c,
                                  const Locale& locale) {
    Entry& field = c.*box.field;
    if (text.empty()) {
        field = {};
        return std::nullopt;
    }
    const auto value = parse_single(text, locale.separator);
    const BoxText* refused = value ? refusal(box, static_cast<double>(*value)) : &not_numeric;
    if (refused != nullptr) {
        field.text.clear();
        return EntryRefusal{box_in(locale.lang, *refused), box.refusal_clears};
    }
    field = {std::string(text), static_cast<double>(*value)};
    return std::nullopt;
}

}  // namespace zel::measuring
