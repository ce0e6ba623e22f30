#include <nlohmann/json.hpp>

#include "cli/case_output.h"
#include "cli/commands.h"
#include "platform/text/listing.h"
#include "workflow/run/transient_text.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

/// The value, or null where the row failed to find it.
template <class T>
ordered_json found_or_null(const TransientRow& row, StateCell cell, T value) {
    const bool lacks = row.Failed == 1 && !takes_input(row.Merker, cell);
    return lacks ? ordered_json(nullptr) : ordered_json(value);
}

ordered_json or_null(const std::optional<double>& value) {
    return value ? ordered_json(*value) : ordered_json(nullptr);
}

ordered_json row_entry(const TransientRow& row, std::size_t number, const std::string& total,
                       const std::optional<CurrentCheck>& check) {
    ordered_json entry = {{"row", number},
                          {"kind", row.Merker},
                          {"Strom_A", found_or_null(row, &StateChange::Strom, row.Strom)},
                          {"Temp_C", found_or_null(row, &StateChange::TEMP, row.Temp)},
                          {"Min", found_or_null(row, &StateChange::min, row.Min)},
                          {"Sec", found_or_null(row, &StateChange::sec, row.Sec)},
                          {"Failed", row.Failed},
                          {"Direction", row.Direction},
                          {"total", total.empty() ? ordered_json(nullptr) : ordered_json(total)}};
    if (row.Merker != seeks_current) return entry;
    entry["check"] = check ? ordered_json({{"reached_C", or_null(check->reached)},
                                           {"Strom_A", or_null(check->current)}})
                           : ordered_json(nullptr);
    return entry;
}

ordered_json series_entry(const RowSeries& row) {
    ordered_json points = ordered_json::array();
    for (const SeriesPoint& point : row.points) points.push_back({point.time, point.temperature});
    return {{"row", row.row}, {"points", std::move(points)}};
}

}  // namespace

std::string transient_document(const TransientReport& report, const std::vector<Message>& messages,
                               std::string_view program_end) {
    ordered_json start = nullptr;
    if (report.start)
        start = {{"current_A", report.start->current},
                 {"temperature_C", report.start->temperature}};
    ordered_json rows = ordered_json::array();
    // Rows of a run that ended the program hold no results.
    const std::size_t count = program_end.empty() ? report.run.rows_run() : 0;
    for (std::size_t i = 0; i < count; ++i)
        rows.push_back(
            row_entry(report.run.rows[i], i + 1, report.run.texts[i].total, report.run.checks[i]));
    ordered_json document = {
        {"input_valid", true},
        {"messages", json_of(messages)},
        {"method", report.method ? ordered_json(key_of(*report.method)) : ordered_json(nullptr)},
        {"start", std::move(start)},
        {"rows", std::move(rows)},
        {"notes", json_of(report.notes)}};
    if (report.series) {
        document["series"] = ordered_json::array();
        for (const RowSeries& row : *report.series) document["series"].push_back(series_entry(row));
    }
    if (!program_end.empty()) document["program_end"] = program_end;
    return json_text(document);
}

std::string series_text(const std::vector<RowSeries>& series, const Locale& locale) {
    Listing listing;
    for (const RowSeries& row : series) {
        listing.add_caption(
            change_of_state_names[static_cast<std::size_t>(row.row - 1)].in(locale.lang));
        for (const auto& [time, temperature] : row.points)
            listing.add("t " + masked(time, "0.0", locale.separator) + " sec",
                        masked(temperature, "0.00", locale.separator) + " °C");
    }
    return listing.text();
}

}  // namespace zel
