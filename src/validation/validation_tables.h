#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/text/text.h"
#include "steady/case/method.h"
#include "validation/quantities.h"

// The tables that a validation walks, comma-separated values in one folder beside the case files
// that they name. Whatever cannot be read is an `InputError` with file, line, column and limit.

namespace zel {

/// A calculation: a case file of the folder, what is changed in it, and by which method.
struct CaseChoice {
    std::string file;
    /// "field=number" parted by ";", or one of the names of `special_inputs`.
    std::string changes;
    std::optional<Method> method{};  // none in a short circuit
};

/// A publication, or one of its examples.
struct PublishedSource {
    Reason place;  // file and line
    std::string key;
    Reason title;
    CaseChoice calculation;
};

/// How far a computed number may lie from a published one.
struct Tolerance {
    std::string text;  // as it stands in the table: "0.05" or "5 %"
    double value = 0;  // in the unit of the number, or a share of it
    bool relative = false;

    [[nodiscard]] bool holds(double computed, double expected) const;
};

struct PublishedFigure {
    Reason place;
    const PublishedSource* source = nullptr;
    std::string changes;  // beside those of the source
    const Quantity* quantity = nullptr;
    std::string text;  // the number as it is printed there
    double value = 0;
    /// What stands there is a misprint: this is what the other figures of the source ask for.
    std::optional<double> corrected;
    Tolerance tolerance;
    Reason why{""};  // of the tolerance
};

/// Conductors of the library that are rated together.
struct RatedFamily {
    std::string key;
    Reason name{""};
    std::string standard;  // of the conductors
    std::string source;    // text within theirs
    std::string material;  // of the layers
    std::int16_t kind = 0;
    std::int16_t least_layers = 0, most_layers = 0;
    std::string case_file;  // with the weather
    Reason outside{""};     // why the printed currents are no test; empty where they are one
};

/// How near a method has to be to the printed currents of a family.
struct RatedLimit {
    std::string family;
    Method method = Method::TB207;
    std::optional<Tolerance> mean, worst;
    Reason why{""};
};

/// An odd rule that is kept to the letter, on a case where it shows.
struct KeptOddity {
    Reason place;
    Reason rule{""};
    Reason case_text{""};
    CaseChoice letter;
    const Quantity* letter_quantity = nullptr;
    CaseChoice physics;
    const Quantity* physics_quantity = nullptr;
};

struct ValidationTables {
    std::vector<PublishedSource> sources;
    std::vector<PublishedFigure> figures;  // refer to the sources
    std::vector<RatedFamily> families;
    std::vector<RatedLimit> limits;
    std::vector<KeptOddity> oddities;

    ValidationTables() = default;
    ValidationTables(const ValidationTables&) = delete;
    ValidationTables& operator=(const ValidationTables&) = delete;
    ValidationTables(ValidationTables&&) = default;
    ValidationTables& operator=(ValidationTables&&) = default;
};

/// The tables sources.csv, figures.csv, families.csv, limits.csv and oddities.csv of `folder`.
[[nodiscard]] ValidationTables read_validation_tables(Files& files, const std::string& folder);

}  // namespace zel
