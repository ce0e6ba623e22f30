#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "persistence/library_conductor.h"
#include "platform/case_store.h"
#include "platform/files.h"
#include "validation/validation_tables.h"

// Calculations of the tables, each from nothing.

namespace zel {

/// A number that was calculated, or why there is none.
struct Recalculated {
    std::optional<double> value;
    Reason why{""};
};

/// An input as it is told beside a result.
struct GivenInput {
    Reason name;
    std::string value;
    std::string_view unit;
};

/// Calculates what the tables ask for, from the case files in `folder` and the shipped conductors
/// in the folder above it. Nothing is asked, told or remembered from one calculation to the next.
class Recalculation {
public:
    /// Throws `InputError` where the conductors are missing or refused. `lang` is that of reasons.
    Recalculation(Files& files, CaseStore& cases, std::string folder, LangId lang);
    Recalculation(const Recalculation&) = delete;
    Recalculation& operator=(const Recalculation&) = delete;

    /// Throws `InputError` where file, field or number of `choice` is none.
    [[nodiscard]] Recalculated calculate(const CaseChoice& choice, const Quantity& quantity);

    /// The current of `conductor` in the weather of the case file.
    [[nodiscard]] Recalculated rating(const std::string& file, const LibraryConductor& conductor,
                                      Method method);

    /// What the case file gives, and what `changes` makes of it, in that order.
    [[nodiscard]] std::vector<GivenInput> inputs_of(const CaseChoice& choice);

    /// What `changes` alone gives.
    [[nodiscard]] static std::vector<GivenInput> changes_in(const std::string& changes);

    [[nodiscard]] const std::vector<LibraryConductor>& conductors() const { return conductors_; }

private:
    /// What a choice comes to: the values of a case file, and what no field of a case stands for.
    struct Prepared {
        FlatObject values;
        std::optional<double> start, target;  // °C
        std::optional<double> minutes;
    };
    [[nodiscard]] const FlatObject& values_in(const std::string& file);
    [[nodiscard]] Prepared prepared(const CaseChoice& choice);
    void change(Prepared& prepared, const std::string& name, const std::string& value) const;
    [[nodiscard]] CalcCase case_of(const CaseChoice& choice, const FlatObject& values) const;
    [[nodiscard]] Recalculated steady(const CalcCase& c, Method method, Quantity::OfSteady of);
    [[nodiscard]] Recalculated transient(CalcCase c, const Prepared& prepared,
                                         const Quantity::OfTransient& quantity);
    [[nodiscard]] Recalculated short_circuit(const CaseChoice& choice, const Prepared& prepared,
                                             Quantity::OfShortCircuit of) const;

    CaseStore& cases_;
    std::string folder_;
    LangId lang_;
    std::vector<LibraryConductor> conductors_;
    std::map<std::string, FlatObject> files_;
};

/// `choice` with `more` changes behind its own.
[[nodiscard]] CaseChoice with(CaseChoice choice, const std::string& more);

}  // namespace zel
