#pragma once

#include "persistence/database/record_table.h"
#include "short_circuit/short_circuit_case.h"
#include "short_circuit/short_circuit_file.h"

// A short-circuit case as a row of a table.

namespace zel {

/// The tables of short-circuit cases: 150 columns, those from the 35th on kept free.
[[nodiscard]] const TableFormat& short_circuit_tables();

/// `KS81_Tabellenfelder_erzeugen_u_hinzufuegen`: a new table for short-circuit cases.
void KS81_Tabellenfelder_erzeugen_u_hinzufuegen(Database& database, const std::string& table);

/// `KS82_Tabellendaten_speichern`: the values of `c` for a row. Free numbers are 0 and free texts
/// empty, but for four numbers that stay Null. `cut` and failures are those of `column_values`.
[[nodiscard]] std::vector<NamedValue> KS82_Tabellendaten_speichern(ShortCircuitCase c,
                                                                   std::vector<CutText>& cut);

/// `KS72_Daten_einlesen`: the case of a row, as if a form were filled in with its values.
[[nodiscard]] ShortCircuitFile KS72_Daten_einlesen(const StoredRow& row, const Locale& locale);

}  // namespace zel
