#include "forms/given_value.h"

namespace zel {
namespace {

constexpr GivenValueRow rows[] = {
    {GivenValue::Nothing, "", {"(bitte auswählen)", "(please choose)"}},
    {GivenValue::Temperature,
     "Text16",
     {"Leitertemperatur gegeben: Stromstärke gesucht",
      "Conductor temperature given: current sought"}},
    {GivenValue::Current,
     "Text18",
     {"Strom eines Teilleiters gegeben: Temperatur gesucht",
      "Sub-conductor current given: temperature sought"}},
    {GivenValue::BundleCurrent,
     "Text39",
     {"Strom des Bündels gegeben: Temperatur gesucht", "Bundle current given: temperature sought"}},
};

}  // namespace

std::span<const GivenValueRow> given_value_rows() { return rows; }

GivenValue given_value(const MethodSelection& c) {
    if (c.Leitertemp_Merker_db == c.Stromstaerke_Merker_db) return GivenValue::Nothing;
    if (c.Leitertemp_Merker_db) return GivenValue::Temperature;
    return c.Stromstaerkebuendel_Merker_db ? GivenValue::BundleCurrent : GivenValue::Current;
}

void set_given_value(CalcCase& c, GivenValue value, DecimalSeparator separator) {
    const bool was_derived = c.Stromstaerkebuendel_Merker_db;
    c.Leitertemp_Merker_db = value == GivenValue::Temperature;
    c.Stromstaerkebuendel_Merker_db = value == GivenValue::BundleCurrent;
    c.Stromstaerke_Merker_db = value == GivenValue::Current || value == GivenValue::BundleCurrent;
    if (!was_derived || c.Stromstaerkebuendel_Merker_db) return;
    if (const auto shown = parse_number(c.Stromstaerke_db.text, separator))
        c.Stromstaerke_db.value = *shown;
}

}  // namespace zel
