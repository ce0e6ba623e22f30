#pragma once

#include <optional>
#include <span>

#include "measuring/evaluation.h"
#include "persistence/database/record_table.h"
#include "steady/case/calc_case.h"

// The measuring table: a row holds the means of one cycle and what belongs to them.

namespace zel::measuring {

struct MeasuredRecord {
    std::string Kennung_mw;         // what the user calls it
    std::string Datum_mw;           // "31.12"
    std::string Uhrzeit_mw;         // "23.59"
    Entry geogr_Breite_mw;          // degrees
    Entry geo_laeng_mw;             // degrees, east negative
    Entry geo_laeng_zeit_mw;        // degrees, east negative
    Entry Winkel_S_S_mw;            // degrees, of the line, which has two directions
    Entry Winkel_W_N_mw;            // degrees, of the vector mean; no input without wind
    Entry Windgeschwindigkeit_mw;   // m/s, at the measuring head
    Entry Globalstrahlung_mw;       // W/m²
    Entry Umgebungstemperatur_mw;   // °C
    Entry Bewoelkungsgrad_mw;       // clearness
    Entry Bodenart_mw;              // albedo
    std::string Start_mw, Ende_mw;  // "31.12.2026 23:59:59"
    Entry Anzahl_mw;                // samples
    Entry Wind_Hochrechnung_mw;     // m/s, at the conductor
};

using MeasuredField = Field<MeasuredRecord>;

/// The description of the record, in the order of the columns.
[[nodiscard]] std::span<const MeasuredField> measured_fields();
[[nodiscard]] const MeasuredField& field_of(const MeasuredField::Key& key);

[[nodiscard]] const TableFormat& measuring_tables();

/// The clearness and the albedo where nobody has said otherwise.
inline constexpr double usual_clearness = 1;
inline constexpr double usual_albedo = 0.2;

/// The means of a cycle as a record. Place, conductor, clearness and albedo are those of `c`.
[[nodiscard]] MeasuredRecord measured_record(const CycleMeans& means, double Wind_Hochrechnung,
                                             const std::string& Kennung, const CalcCase& c,
                                             DecimalSeparator separator);

/// The values for a row; `cut` and failures are those of `column_values`.
[[nodiscard]] std::vector<NamedValue> row_of(MeasuredRecord record, std::vector<CutText>& cut);

/// The record of a row. What is no number is no input.
[[nodiscard]] MeasuredRecord measured_record(const StoredRow& row, DecimalSeparator separator);

/// Takes wind, temperature, radiation, clearness, albedo, date and time of a row over into `c`.
/// What the row does not hold becomes no input. The wind speed is that of the measuring head.
void take_over(const StoredRow& row, CalcCase& c, DecimalSeparator separator);

}  // namespace zel::measuring
