#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "compare/kept_run.h"
#include "platform/text/locale.h"
#include "platform/workbook_design.h"

// Runs side by side: what they found, and by which inputs they differ.

namespace zel {

struct ComparedValue {
    std::string text;                // empty where the run has none
    std::optional<double> number{};  // of a number, with all its digits

    friend bool operator==(const ComparedValue&, const ComparedValue&) = default;
};

/// What one thing is in each run.
struct ComparedRow {
    std::string label;
    std::string unit;
    std::vector<ComparedValue> values;
    std::string_view field{};  // of an input: its name
    bool differs = false;
};

struct ComparedGroup {
    std::string caption;
    std::vector<ComparedRow> rows;
};

struct Comparison {
    std::vector<std::string> names;     // of the runs
    std::vector<ComparedGroup> groups;  // results, then inputs
};

enum class ComparedInputs : std::uint8_t {
    Changed,  // those by which the runs differ
    All,      // all that are given and read
};

/// Runs side by side: project and conductor, results of each method (current of the bundle and
/// conductor temperature, also the one that is given), inputs. What no selected method reads of any
/// run is left out.
[[nodiscard]] Comparison compare(std::span<const KeptRun* const> runs, ComparedInputs inputs,
                                 const Locale& locale);

/// The rows of inputs by which the runs differ.
[[nodiscard]] std::vector<ComparedRow> changed_inputs(std::span<const KeptRun* const> runs,
                                                      const Locale& locale);

/// The names of the inputs by which `now` differs from the case `run`, of those that are read.
[[nodiscard]] std::vector<std::string> changed_names(const CalcCase& run, const CalcCase& now,
                                                     const Locale& locale);

/// As lines for a terminal or the clipboard; a star stands before what differs.
[[nodiscard]] std::string comparison_text(const Comparison& comparison);

/// As a worksheet, for files; what differs stands out.
[[nodiscard]] SheetDesign comparison_sheet(const Comparison& comparison, const Locale& locale);

}  // namespace zel
