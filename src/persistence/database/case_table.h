#pragma once

#include "persistence/database/record_table.h"
#include "shell/program_settings.h"
#include "shell/session.h"
#include "steady/case/calc_case.h"

// A calculation as a row of a table: a whole case with its conductor, the ranges of the parameter
// table, the changes of state and the three settings that change results.

namespace zel {

/// The tables of calculations: 180 columns, the last 41 kept free for additions.
[[nodiscard]] const TableFormat& case_tables();

/// `S30_Access_Tabelle_anlegen`: a new table for calculations.
void S30_Access_Tabelle_anlegen(Database& database, const std::string& table);

/// `S30_Access_Daten_speichern`: the values of `c` for a row. The current is that of one
/// sub-conductor; changes of state that are not in use are Null. `cut` and failures are those of
/// `column_values`.
[[nodiscard]] std::vector<NamedValue> S30_Access_Daten_speichern(CalcCase c,
                                                                 std::vector<CutText>& cut);

/// `S30_Access_Daten_einlesen`: the calculation of a row goes into `c`. What the selected methods
/// do not use is emptied instead of read; the changes of state end at the first that is not in use,
/// and those behind it stay. A row without any method is told, and each setting that differs from
/// the present one is asked for; yes changes it.
void S30_Access_Daten_einlesen(const StoredRow& row, CalcCase& c, Settings& settings,
                               const Session& session);

}  // namespace zel
