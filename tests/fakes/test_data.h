#pragma once

#include <array>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "platform/message_box.h"
#include "platform/text/number_text.h"
#include "steady/case/calc_case.h"
#include "steady/steady_cause.h"

// Tests by data: documents of tests/data/, and what their rows need.

namespace zel {

NLOHMANN_JSON_SERIALIZE_ENUM(LangId, {{LangId::German, "de"}, {LangId::English, "en"}})
NLOHMANN_JSON_SERIALIZE_ENUM(DecimalSeparator, {{DecimalSeparator::Comma, "comma"},
                                                {DecimalSeparator::Point, "point"}})

/// The document tests/data/`name`.json.
[[nodiscard]] nlohmann::json test_data(const std::string& name);

/// How near a number has to be: within the larger of the two; 0 and 0 ask for the very same.
struct Closeness {
    double absolute = 0;
    double relative = 0;
};

/// The "absolute" and "relative" of a group of rows.
[[nodiscard]] Closeness closeness(const nlohmann::json& group);

/// Expects `expected` in `actual`: of an object the keys that it names, all else whole. `place` is
/// told where it fails.
void expect_part(const nlohmann::json& expected, const nlohmann::json& actual, Closeness near,
                 const std::string& place);

/// Sets the fields of `c` that `fields` names: numbers, texts and flags; null leaves the double of
/// a number and empties its text, as a user does who deletes it.
void set_fields(CalcCase& c, const nlohmann::json& fields);

/// Icon, title and lines of each box, and its buttons and its answer of a run without a user where
/// it asks something.
[[nodiscard]] nlohmann::json as_json(const std::vector<Box>& boxes);

/// A box in both languages: its icon, and of each language the title and the lines. Null where
/// `box` gives none.
[[nodiscard]] nlohmann::json in_both(const std::function<std::optional<Box>(LangId)>& box);

// --- names of failures ---------------------------------------------------------------------------

inline std::string name_of(ArithmeticFault fault) {
    switch (fault) {
        case ArithmeticFault::None: return "";
        case ArithmeticFault::InvalidArgument: return "InvalidArgument";
        case ArithmeticFault::Overflow: return "Overflow";
        case ArithmeticFault::DivisionByZero: return "DivisionByZero";
    }
    return "?";
}

inline constexpr std::array steady_cause_names = {"",
                                                  "JouleBracketing",
                                                  "ReynoldsTooLarge",
                                                  "GrashofPrandtlTooLarge",
                                                  "JouleFault",
                                                  "SolarFault",
                                                  "ConvectionFault",
                                                  "RadiationFault",
                                                  "BusbarFrequency",
                                                  "BusbarJouleFault",
                                                  "BusbarSolarFault",
                                                  "BusbarConvectionFault",
                                                  "BusbarRadiationFault",
                                                  "ModeUndefined",
                                                  "CurrentAllAbove",
                                                  "CurrentAllBelow",
                                                  "CurrentNotReached",
                                                  "TemperatureAllAbove",
                                                  "TemperatureAllBelow",
                                                  "TemperatureNotReached"};

inline std::string name_of(SteadyCause cause) {
    return steady_cause_names.at(static_cast<std::size_t>(cause));
}

/// The cause, and the kind of a numeric fault: "JouleFault: Overflow".
inline std::string name_of(const SteadyFailure& failure) {
    if (failure.fault == ArithmeticFault::None) return name_of(failure.cause);
    return name_of(failure.cause) + ": " + name_of(failure.fault);
}

}  // namespace zel
