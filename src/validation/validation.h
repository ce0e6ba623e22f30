#pragma once

#include <optional>
#include <string>
#include <vector>

#include "validation/recalculation.h"
#include "validation/validation_tables.h"

// Every published figure calculated anew, the rated currents of the library against each method,
// and what the rules that are kept to the letter make of a current.

namespace zel {

enum class Verdict : std::uint8_t {
    Holds,
    Misprint,  // the figure does not hold, but what the others of its source ask for in its place
    Fails,
    NoTest,  // nothing is asked of it
};

/// "holds", "misprint", "fails", "no test".
[[nodiscard]] std::string_view name_of(Verdict verdict);

struct CheckedFigure {
    const PublishedFigure* figure = nullptr;
    std::vector<GivenInput> changes;  // beside the inputs of the source
    Recalculated computed;
    Verdict verdict = Verdict::Fails;

    /// Computed less published.
    [[nodiscard]] std::optional<double> difference() const;
};

struct CheckedSource {
    const PublishedSource* source = nullptr;
    std::vector<GivenInput> inputs;
    std::vector<GivenInput> changes;  // which of them are no inputs of the case file
    std::vector<CheckedFigure> figures;
};

/// A family of conductors by one method: computed over printed current, less 1.
struct CheckedRating {
    const RatedFamily* family = nullptr;
    Method method = Method::TB207;
    const RatedLimit* limit = nullptr;  // null where nothing is asked
    std::size_t count = 0;              // conductors that were rated
    double mean = 0;
    double spread = 0;  // standard deviation
    double worst = 0;
    std::string worst_conductor;
    std::optional<Reason> refused;  // why the method rates the first one of them that it refuses
    Verdict verdict = Verdict::NoTest;
};

struct CheckedFamily {
    const RatedFamily* family = nullptr;
    std::vector<GivenInput> inputs;  // the weather
    std::size_t conductors = 0;
    std::vector<CheckedRating> methods;
};

/// A rule that is kept, and the same case by physics.
struct SizedOddity {
    const KeptOddity* oddity = nullptr;
    std::vector<GivenInput> inputs;
    Recalculated letter, physics;

    /// Letter less physics.
    [[nodiscard]] std::optional<double> difference() const;
};

struct Validation {
    ValidationTables tables;
    std::vector<CheckedSource> sources;
    std::vector<CheckedFamily> families;
    std::vector<std::string> outside_families;  // conductors with a printed current in none
    std::vector<SizedOddity> oddities;

    [[nodiscard]] std::size_t count(Verdict verdict) const;
    /// No figure fails, and no rule is without its size.
    [[nodiscard]] bool holds() const;
};

/// Validates by the tables of `folder`, which stands in that of the shipped conductors. Throws
/// `InputError` where a table, a case file or the conductors cannot be read.
[[nodiscard]] Validation validate(Files& files, CaseStore& cases, const std::string& folder,
                                  LangId lang);

}  // namespace zel
