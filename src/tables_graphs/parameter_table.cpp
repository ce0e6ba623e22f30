#include "tables_graphs/parameter_table.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <mutex>

#include "platform/side_by_side.h"
#include "platform/text/number_text.h"
#include "steady/case/case_fields.h"

namespace zel {
namespace {

/// All that a kind of stepped quantity says.
struct Kind {
    Entry CalcCase::*low;
    Entry CalcCase::*high;
    std::int16_t CalcCase::*step;
    Text title;
    Text step_label;
    std::string_view result_mask;
    std::string_view result_unit;
};

constexpr Text currents_title = {"Tabelle Stromstärkeberechnung", "table current calculation"};
constexpr std::string_view current_mask = "####0";

constexpr Kind kinds[] = {
    {&CalcCase::Temp_min_db,
     &CalcCase::Temp_max_db,
     &CalcCase::Schrittweite_Temp_db,
     currents_title,
     {"Leitertemperatur °C", "Conductor temperature °C"},
     current_mask,
     "A"},
    {&CalcCase::Temp_min_db,
     &CalcCase::Temp_max_db,
     &CalcCase::Schrittweite_Temp_db,
     currents_title,
     {"Umgebungstemperatur °C", "Ambient temperature °C"},
     current_mask,
     "A"},
    {&CalcCase::Strom_min_db,
     &CalcCase::Strom_max_db,
     &CalcCase::Schrittweite_Strom_db,
     {"Tabelle Temperaturberechnung", "table temperature calculation"},
     {"Stromstärke A", "Current A"},
     "###0.0",
     "°C"},
};

const Kind& kind_of(Stepped stepped) { return kinds[static_cast<std::size_t>(stepped)]; }

constexpr std::array winds_of_case = {&CalcCase::Wind1_db, &CalcCase::Wind2_db,
                                      &CalcCase::Wind3_db, &CalcCase::Wind4_db,
                                      &CalcCase::Wind5_db, &CalcCase::Wind6_db};

Entry entered(double value) { return {plain_number(value, DecimalSeparator::Point), value}; }

/// From the lowest value up to the highest, which stands there where a whole number of steps leads
/// to it.
std::vector<double> steps_of(const CalcCase& c, Stepped stepped, double parts = 1) {
    constexpr double rounding_noise = 1e-9;  // of a step
    const Kind& kind = kind_of(stepped);
    const double low = (c.*kind.low).value;
    const double step = c.*kind.step / parts;
    const auto last =
        static_cast<std::size_t>(std::floor(((c.*kind.high).value - low) / step + rounding_noise));
    std::vector<double> steps;
    for (std::size_t i = 0; i <= last; ++i) steps.push_back(low + static_cast<double>(i) * step);
    return steps;
}

/// Parts of each step, and the highest value behind the last of them.
std::vector<double> steps_of_curves(const CalcCase& c, Stepped stepped) {
    constexpr double fewest_points = 200;
    const Kind& kind = kind_of(stepped);
    const double high = (c.*kind.high).value;
    const double range = high - (c.*kind.low).value;
    const double parts = std::ceil(fewest_points * (c.*kind.step) / range);
    std::vector<double> steps = steps_of(c, stepped, std::max(parts, 1.0));
    if (steps.back() < high) steps.push_back(high);
    return steps;
}

std::vector<Method> methods_of(const CalcCase& c) {
    std::vector<Method> methods;
    for (const Method method : all_methods)
        if (is_selected(c, method) && !(method == Method::TBB && is_selected(c, Method::TB207)))
            methods.push_back(method);
    return methods;
}

Stepped stepped_temperature(const CalcCase& c) {
    return c.Umgebungstemperaturmerker_db == ambient_stepped ? Stepped::AmbientTemperature
                                                             : Stepped::ConductorTemperature;
}

class Calculation {
public:
    Calculation(const CalcCase& c, Stepped stepped, std::vector<double> steps,
                const Session& session, const TableProgress& progress)
        : case_(c), session_(session), progress_(progress) {
        forget_emptied(case_);
        table_.stepped = stepped;
        table_.steps = std::move(steps);
        table_.methods = methods_of(c);
        for (const auto wind : winds_of_case)
            if ((c.*wind).given()) table_.winds.push_back((c.*wind).value);
        table_.cells.resize(places() * table_.methods.size());
    }

    std::optional<ParameterTable> run() {
        side_by_side(places(), 0, [this](std::size_t place) { fill(place); });
        if (stopped_) return std::nullopt;
        return std::move(table_);
    }

private:
    /// Of each the methods run once.
    [[nodiscard]] std::size_t places() const { return table_.steps.size() * table_.winds.size(); }

    void fill(std::size_t place) {
        if (stopped_) return;
        MethodMemory memory = session_.memory != nullptr ? *session_.memory : MethodMemory{};
        const CalcCase c =
            case_of_cell(case_, table_.stepped, table_.winds[place % table_.winds.size()],
                         table_.steps[place / table_.winds.size()]);
        for (const MethodResult& line : rated(c, silent(session_, &memory))) {
            const auto method =
                std::find(table_.methods.begin(), table_.methods.end(), line.method);
            if (method == table_.methods.end() || !line.outcome.sound()) continue;
            table_.cells[place * table_.methods.size() +
                         static_cast<std::size_t>(method - table_.methods.begin())] =
                value_of(line.outcome);
        }
        tell_progress();
    }

    [[nodiscard]] std::optional<double> value_of(const SteadyResult& outcome) const {
        if (table_.stepped == Stepped::Current) return outcome.temperature_C;
        if (!outcome.current_A) return std::nullopt;
        return *outcome.current_A * case_.Anzahl_Teilleiter_db;
    }

    void tell_progress() {
        if (!progress_) return;
        const std::lock_guard lock(telling_);
        if (!stopped_ && !progress_(++done_, places())) stopped_ = true;
    }

    CalcCase case_;
    const Session& session_;
    const TableProgress& progress_;
    ParameterTable table_;
    std::mutex telling_;
    std::size_t done_ = 0;
    std::atomic<bool> stopped_ = false;
};

void add_number(SheetDesign& sheet, int row, int column, double number) {
    DesignCell& cell = sheet.cells.emplace_back();
    cell.row = row;
    cell.column = column;
    cell.content = number;
}

}  // namespace

Stepped stepped_by(const CalcCase& c) {
    return c.Stromstaerke_Merker_db ? Stepped::Current : stepped_temperature(c);
}

bool ParameterTable::complete() const {
    return std::all_of(cells.begin(), cells.end(), [](const auto& cell) { return bool{cell}; });
}

TableStart start_table(const CalcCase& c, const Session& session) {
    CalcCase rated_once = c;
    const SteadyRunResult steady = RunSteady(rated_once, silent(session));
    TableStart start = {steady.input_valid ? check_table(c, session.lang)
                                           : std::optional(steady.refusal),
                        steady.notes};
    if (start.refusal) session.tell(*start.refusal);
    return start;
}

bool has_winds(const CalcCase& c) {
    return std::any_of(winds_of_case.begin(), winds_of_case.end(),
                       [&](const auto wind) { return (c.*wind).given(); });
}

CalcCase case_of_cell(CalcCase c, Stepped stepped, double wind, double step) {
    c.Windgeschwindigkeit_db = entered(wind);
    switch (stepped) {
        case Stepped::ConductorTemperature: c.Leitertemp_db = entered(step); break;
        case Stepped::AmbientTemperature:
            c.Umgebungstemperatur_db = c.Bodentemp_db = entered(step);
            break;
        case Stepped::Current:
            (c.Stromstaerkebuendel_Merker_db ? c.Stromstaerke_Buendel : c.Stromstaerke_db) =
                entered(step);
            break;
    }
    return c;
}

std::optional<ParameterTable> S10_tab_strom_2_rechnen(const CalcCase& c, const Session& session,
                                                      const TableProgress& progress) {
    return Calculation(c, stepped_temperature(c), steps_of(c, stepped_temperature(c)), session,
                       progress)
        .run();
}

std::optional<ParameterTable> S10_tab_temp_2_rechnen(const CalcCase& c, const Session& session,
                                                     const TableProgress& progress) {
    return Calculation(c, Stepped::Current, steps_of(c, Stepped::Current), session, progress).run();
}

std::optional<ParameterTable> calculate_table(const CalcCase& c, const Session& session,
                                              const TableProgress& progress) {
    return stepped_by(c) == Stepped::Current ? S10_tab_temp_2_rechnen(c, session, progress)
                                             : S10_tab_strom_2_rechnen(c, session, progress);
}

std::optional<ParameterTable> calculate_curves(const CalcCase& c, const Session& session,
                                               const TableProgress& progress) {
    const Stepped stepped = stepped_by(c);
    return Calculation(c, stepped, steps_of_curves(c, stepped), session, progress).run();
}

Text table_title(Stepped stepped) { return kind_of(stepped).title; }

Text table_print_caption(Stepped stepped) {
    return stepped == Stepped::Current ? Text{"Ausdruck : &Tabelle Temperaturberechnung",
                                              "Print: table temperature calculation"}
                                       : Text{"Ausdruck : &Tabelle Stromstärkeberechnung",
                                              "Print: table current calculation"};
}

Text step_label(Stepped stepped) { return kind_of(stepped).step_label; }

std::string cell_text(const std::optional<double>& cell, Stepped stepped,
                      DecimalSeparator separator) {
    return cell ? masked(*cell, kind_of(stepped).result_mask, separator) : "";
}

SheetDesign table_sheet(const ParameterTable& table, const Locale& locale) {
    constexpr double label_width = 26;  // in characters
    constexpr double column_width = 14;
    const Kind& kind = kind_of(table.stepped);
    SheetDesign sheet;
    sheet.name = kind.title.in(locale.lang);
    sheet.fixed_rows = 1;
    sheet.fixed_columns = 1;
    sheet.columns = {
        {1, 1, label_width},
        {2, 1 + static_cast<int>(table.methods.size() * table.winds.size()), column_width}};
    sheet.cells.push_back(
        {1, 1, std::string(kind.step_label.in(locale.lang)), CellLook::ColumnHead});
    int column = 1;
    for (const Method method : table.methods)
        for (const double wind : table.winds)
            sheet.cells.push_back({1, ++column,
                                   std::string(name_of(method)) + ", " +
                                       plain_number(wind, locale.separator) + " m/s, " +
                                       std::string(kind.result_unit),
                                   CellLook::ColumnHead});
    for (std::size_t step = 0; step < table.steps.size(); ++step) {
        const int row = static_cast<int>(step) + 2;
        add_number(sheet, row, 1, table.steps[step]);
        column = 1;
        for (std::size_t method = 0; method < table.methods.size(); ++method)
            for (std::size_t wind = 0; wind < table.winds.size(); ++wind) {
                ++column;
                const auto shown = parse_number(
                    cell_text(table.at(step, wind, method), table.stepped, DecimalSeparator::Point),
                    DecimalSeparator::Point);
                if (shown) add_number(sheet, row, column, *shown);
            }
    }
    return sheet;
}

}  // namespace zel
