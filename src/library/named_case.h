#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "persistence/conductor_choice.h"
#include "platform/case_store.h"
#include "series/series.h"
#include "short_circuit/short_circuit_case.h"

// What a program builds up before it rates: named values, and a conductor.

namespace zel::library {

enum class Area : int { Line = 0, ShortCircuit = 1 };

class NamedCase {
public:
    explicit NamedCase(Area area) : area_(area) {}

    [[nodiscard]] Area area() const { return area_; }

    /// Replaces former values of the same name. Throws `InputError`.
    void read_file(const std::string& path);
    void read_json(std::string_view json);
    /// By the name of the field, or its English one. Throws `InputError` where no field bears it.
    void set(std::string_view name, FlatValue value);
    void unset(std::string_view name);
    /// Throws `InputError`, see `choose_conductor`.
    void set_conductor(const std::string& record_or_name);

    /// The case of the line area, with the conductor. Throws `InputError` where a value cannot be
    /// taken.
    [[nodiscard]] CalcCase line() const;
    [[nodiscard]] const FlatObject& values() const { return values_; }

private:
    [[nodiscard]] std::string field_name(std::string_view name) const;

    Area area_;
    FlatObject values_;
    std::optional<ChosenConductor> conductor_;
};

/// The shipped conductors and the user's own. Throws `InputError` where the shipped ones are not
/// found: in share/zel beside the folder of the library or above it, or where ZEL_DATA says. They
/// are read anew when a file of theirs has changed.
[[nodiscard]] std::shared_ptr<const ConductorLibrary> open_conductors();

}  // namespace zel::library
