#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/message_box.h"
#include "platform/workbook_design.h"
#include "shell/session.h"
#include "steady/case/calc_case.h"
#include "steady/case/method.h"
#include "workflow/run/steady_run.h"

// The table of a result over a range: currents over the conductor or ambient temperature,
// temperatures over the current, for up to six wind speeds and each selected method.

namespace zel {

enum class Stepped : std::uint8_t { ConductorTemperature, AmbientTemperature, Current };

/// `Umgebungstemperaturmerker_db` where a table steps the ambient temperature.
inline constexpr std::int16_t ambient_stepped = 1;

/// What the table of a case steps: the current where that is given, otherwise the temperature that
/// `Umgebungstemperaturmerker_db` says.
[[nodiscard]] Stepped stepped_by(const CalcCase& c);

struct ParameterTable {
    Stepped stepped = Stepped::ConductorTemperature;
    std::vector<Method> methods;  // that ran, in the order of result lines
    std::vector<double> winds;    // m/s
    std::vector<double> steps;    // °C, or A of what is given: sub-conductor or bundle
    /// A of the bundle, or °C of the conductor; nothing where a method failed. By step, wind and
    /// method.
    std::vector<std::optional<double>> cells;

    [[nodiscard]] const std::optional<double>& at(std::size_t step, std::size_t wind,
                                                  std::size_t method) const {
        return cells[(step * winds.size() + wind) * methods.size() + method];
    }
    [[nodiscard]] bool complete() const;
};

/// Why the table cannot be calculated: winds or range are incomplete or wrong. Only the first
/// refusal is told. `S10_tab_strom_1_eingabepruefung` is for currents over a temperature,
/// `S10_tab_temp_1_eingabepruefung` for temperatures over the current.
[[nodiscard]] std::optional<Box> S10_tab_strom_1_eingabepruefung(const CalcCase& c, LangId lang);
[[nodiscard]] std::optional<Box> S10_tab_temp_1_eingabepruefung(const CalcCase& c, LangId lang);
/// The one of the two that the mode of the case asks for.
[[nodiscard]] std::optional<Box> check_table(const CalcCase& c, LangId lang);

/// Why no table of the case can be calculated, by its inputs or those of the table, and the input
/// that mends it. Tells nothing.
[[nodiscard]] std::optional<FieldBox> refusal_of_table(const CalcCase& c, LangId lang);

/// Whether a table of the case can be calculated: the input check, then the one of its table.
struct TableStart {
    std::optional<Box> refusal;  // why not, which was told
    std::vector<Note> notes;     // on the case itself
};
[[nodiscard]] TableStart start_table(const CalcCase& c, const Session& session);

/// Is told how many of all cells are done, one call at a time, and answers whether to go on.
using TableProgress = std::function<bool(std::size_t done, std::size_t all)>;

/// Calculates the table of a case that its check and the input check let pass, on all processors:
/// each cell is what `rated` finds with its wind and step. Nothing where `progress` stopped it.
/// `S10_tab_strom_2_rechnen` steps a temperature, `S10_tab_temp_2_rechnen` the current.
[[nodiscard]] std::optional<ParameterTable> S10_tab_strom_2_rechnen(const CalcCase& c,
                                                                    const Session& session,
                                                                    const TableProgress& progress);
[[nodiscard]] std::optional<ParameterTable> S10_tab_temp_2_rechnen(const CalcCase& c,
                                                                   const Session& session,
                                                                   const TableProgress& progress);
/// The one of the two that the mode of the case asks for.
[[nodiscard]] std::optional<ParameterTable> calculate_table(const CalcCase& c,
                                                            const Session& session,
                                                            const TableProgress& progress = {});

/// The same at steps close enough for smooth curves, those of the table among them, up to the
/// highest value of the range.
[[nodiscard]] std::optional<ParameterTable> calculate_curves(const CalcCase& c,
                                                             const Session& session,
                                                             const TableProgress& progress = {});

/// How many of a stepped current the bundle carries: one that is given for a sub-conductor is shown
/// for the bundle.
[[nodiscard]] inline double bundle_share(const CalcCase& c) {
    return c.Stromstaerkebuendel_Merker_db ? 1 : c.Anzahl_Teilleiter_db;
}

/// Whether the case names a wind speed for a table.
[[nodiscard]] bool has_winds(const CalcCase& c);

/// The case of one cell.
[[nodiscard]] CalcCase case_of_cell(CalcCase c, Stepped stepped, double wind, double step);

/// "table current calculation"
[[nodiscard]] Text table_title(Stepped stepped);
/// What printing one is called: "Print: table current calculation".
[[nodiscard]] Text table_print_caption(Stepped stepped);
/// What the rows step, with its unit.
[[nodiscard]] Text step_label(Stepped stepped);
/// A cell as the table shows it: whole amperes, tenths of a degree; empty without a result.
[[nodiscard]] std::string cell_text(const std::optional<double>& cell, Stepped stepped,
                                    DecimalSeparator separator);

/// The table for a spreadsheet: a column of steps, then one for each method and wind, with the
/// numbers that the table shows.
[[nodiscard]] SheetDesign table_sheet(const ParameterTable& table, const Locale& locale);

}  // namespace zel
