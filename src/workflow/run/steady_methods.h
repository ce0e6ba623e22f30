#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "shell/session.h"
#include "steady/case/calc_case.h"
#include "steady/case/method.h"
#include "tb601_transient/tb601/tb601_params.h"

// The methods of the steady run. A method joins by a row in the table of steady_methods.cpp.

namespace zel {

/// What methods keep from one calculation to the next. A fresh one is that of a fresh program.
struct MethodMemory {
    TB601Records tb601;       // a resistance option leaves the fields of the other standing
    double Kirn_current = 0;  // A, stands where Kirn meets an exact balance
};

/// What TB 601 tells beside current, temperature and heat terms.
struct Tb601Details {
    double TSurface = 0;         // °C
    double TCore = 0;            // °C
    double KiesslingFactor = 0;  // of the skin effect; no formula sets it
    double KSkin = 0;            // skin effect factor, 0 where none entered
    double KMag = 0;             // magnetic heating factor
};

/// What a method leaves behind. A value that it does not have, or that failed, is absent.
struct SteadyResult {
    std::string status;                   // of TB 601, TB 207 and TBB; empty means no failure
    std::string fault;                    // numeric fault of Webs or Kirn, which was told
    std::optional<double> current_A;      // of one sub-conductor
    std::optional<double> temperature_C;  // of the conductor
    std::optional<HeatTerms> terms;
    std::optional<Tb601Details> tb601;
    std::optional<double> angle;  // degrees, where the method overwrites the folded angle

    [[nodiscard]] bool sound() const { return status.empty() && fault.empty(); }
};

struct SteadyMethod {
    Method id;
    Text caption;              // follows the bundle's name on the result line
    std::string_view balance;  // head of its balance line; empty where it has none
    bool starts_transient;     // leaves the state from which a transient starts
    /// Runs the method on a case whose mode is defined, at the folded angle (degrees).
    SteadyResult (*run)(const CalcCase& c, double angle, const Session& session);
};

/// The heat terms of a sound outcome of `method`, W/m, for a case at the folded angle (degrees):
/// those that it has, or those of the balance of Webs and Kirn at its current and temperature. Webs
/// is taken with its least wind, whatever was answered. Nothing where there is no result.
[[nodiscard]] std::optional<HeatTerms> heat_terms(Method method, const SteadyResult& outcome,
                                                  const CalcCase& c, double angle,
                                                  const Session& session);

/// The row of `method`, or null where the table has none.
[[nodiscard]] const SteadyMethod* find_method(Method method);

}  // namespace zel
