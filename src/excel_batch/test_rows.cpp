#include "excel_batch/test_rows.h"

#include <algorithm>
#include <array>
#include <functional>
#include <random>

#include "excel_batch/batch_rows.h"
#include "excel_batch/workbook_contract.h"
#include "platform/text/number_text.h"

namespace zel::excel_batch {
namespace {

/// A number that is drawn for a column, rounded by its mask.
struct DrawnColumn {
    int column;
    std::string_view mask;
    double low;
    double high;
};

constexpr int month_column = 19;
constexpr int hour_column = 20;
constexpr int radiation_column = 15;

// In the order in which they are drawn: month and hour before the radiation, which they bound.
constexpr DrawnColumn drawn_columns[] = {
    {5, "##0", 0, 360},      // conductor to north
    {10, "#0.0", 0.5, 12},   // wind speed
    {11, "##0", 0, 360},     // wind to north
    {14, "0.0#", 0.1, 0.4},  // albedo
    {16, "0.0#", 0.1, 1},    // clearness
    {18, "##0", 1, 28},      // day
    {month_column, "##0", 1, 12},
    {hour_column, "##0", 0, 23},
    {12, "#0", -20, 40},  // ambient temperature
    {13, "#0", -5, 40},   // ground temperature
    {radiation_column, "###0", 0, 0},
    {21, "##0", 0, 59},       // minute
    {26, "0.0#", 0.3, 0.9},   // emissivity
    {27, "0.0#", 0.3, 0.9},   // absorptivity
    {29, "###0", 100, 2000},  // current
};

// By month, in 25 W/m².
constexpr std::array<int, 12> daily_maximum = {20, 20, 20, 28, 35, 40, 40, 40, 35, 28, 20, 20};
// Of the daily maximum, by the hours from 7 to 19.
constexpr std::array<double, 13> hourly_share = {0.1,  0.3,  0.5, 0.7, 0.85, 0.95, 1,
                                                 0.95, 0.85, 0.7, 0.5, 0.3,  0.1};
constexpr int first_hour = 7;

/// Draws from the raw numbers of the generator: the distributions of the library differ from one
/// library to the next.
class Draw {
public:
    explicit Draw(std::uint32_t seed) : random_(seed) {}
    double from(double low, double high) {
        constexpr double all = 4294967296.0;  // 2^32
        return low + (high - low) * (static_cast<double>(random_()) / all);
    }

private:
    std::mt19937 random_;
};

void draw_row(Workbook& workbook, int row, Draw& draw) {
    double month = 1;
    double hour = 0;
    for (const auto& [column, mask, low, high] : drawn_columns) {
        const double most = column == radiation_column
                                ? highest_radiation(static_cast<int>(month), static_cast<int>(hour))
                                : high;
        const double value = rounded(draw.from(low, most), mask).value_or(low);
        if (column == month_column) month = value;
        if (column == hour_column) hour = value;
        workbook.set_number(row, column, value);
    }
}

/// Calls `work` for every row with a flag; nothing where the workbook is of no `wanted` kind.
std::optional<int> for_each_row(WorkbookStore& store, const std::string& path,
                                const Session& session, const RowsCancelled& cancelled,
                                std::initializer_list<WorkbookKind> wanted,
                                const std::function<void(Workbook&)>& begin,
                                const std::function<void(Workbook&, int row)>& work) {
    const auto workbook = store.open(path);
    workbook->select(fixed_sheet);
    const std::string identifier = workbook->text(identifier_row, identifier_column);
    const auto kind = kind_of(identifier);
    if (!kind || std::find(wanted.begin(), wanted.end(), *kind) == wanted.end()) {
        session.tell(*identifier_refusal(identifier, *wanted.begin(), session.lang));
        return std::nullopt;
    }
    workbook->select(rows_sheet);
    begin(*workbook);
    int row = row_of(*kind).first_row;
    const int first = row;
    for (; row < first + row_limit && !workbook->text(row, flag_column).empty(); ++row) {
        work(*workbook, row);
        if (cancelled && cancelled()) return std::nullopt;
    }
    workbook->save();
    return row - first;
}

constexpr int deviation_column = 65;

struct Deviation {
    Method of;
    Method from;
};

constexpr Deviation deviations[] = {
    {Method::Kirn, Method::TB601},
    {Method::Webs, Method::TB601},
    {Method::Kirn, Method::TB207},
    {Method::Webs, Method::TB207},
};

const ResultColumns& columns_of(Method method) {
    return *std::find_if(
        steady_results.begin(), steady_results.end(),
        [method](const ResultColumns& columns) { return columns.method == method; });
}

std::optional<double> number_in(Workbook& workbook, int row, int column) {
    return parse_number(workbook.text(row, column), DecimalSeparator::Comma);
}

void write_deviations_of(Workbook& workbook, int row) {
    constexpr auto kind = WorkbookKind::SteadyFix;
    int column = deviation_column;
    for (const auto& [of, from] : deviations) {
        const auto current = number_in(workbook, row, columns_of(of).current(kind));
        const auto basis = number_in(workbook, row, columns_of(from).current(kind));
        const auto temperature = number_in(workbook, row, columns_of(of).temperature(kind));
        const auto reference = number_in(workbook, row, columns_of(from).temperature(kind));
        if (current && basis && *basis != 0)
            workbook.set_number(row, column,
                                rounded(100 * (*current - *basis) / *basis, "###0.0").value_or(0));
        if (temperature && reference)
            workbook.set_number(row, column,
                                rounded(*temperature - *reference, "###0.0").value_or(0));
        ++column;
    }
}

void begin_deviations(Workbook& workbook) {
    const int last = deviation_column + static_cast<int>(std::size(deviations)) - 1;
    const int first_row = row_of(WorkbookKind::SteadyFix).first_row;
    const CellArea area = {first_row, deviation_column, first_row + row_limit - 1, last};
    workbook.require_single_cells(area);
    workbook.clear(area);
    int column = deviation_column;
    for (const auto& [of, from] : deviations)
        workbook.set_text(2, column++,
                          std::string(name_of(of)) + " - " + std::string(name_of(from)) +
                              " (% / K)");
}

}  // namespace

double highest_radiation(int month, int hour) {
    constexpr double unit = 25;  // W/m²
    const auto index = static_cast<std::size_t>(hour - first_hour);
    if (month < 1 || month > 12 || hour < first_hour || index >= hourly_share.size()) return 0;
    return daily_maximum[static_cast<std::size_t>(month - 1)] * unit * hourly_share[index];
}

std::optional<int> fill_with_random_values(WorkbookStore& store, const std::string& path,
                                           const Session& session,
                                           std::optional<std::uint32_t> seed,
                                           const RowsCancelled& cancelled) {
    Draw draw(seed ? *seed : std::random_device()());
    return for_each_row(
        store, path, session, cancelled, {WorkbookKind::SteadyFix, WorkbookKind::SteadyVar},
        [](Workbook&) {}, [&](Workbook& workbook, int row) { draw_row(workbook, row, draw); });
}

std::optional<int> write_deviations(WorkbookStore& store, const std::string& path,
                                    const Session& session, const RowsCancelled& cancelled) {
    return for_each_row(store, path, session, cancelled, {WorkbookKind::SteadyFix},
                        begin_deviations, write_deviations_of);
}

}  // namespace zel::excel_batch
