#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "series/case_rater.h"
#include "series/radiation.h"
#include "workflow/run/transient.h"

// Arrays of ratings: one case, of which some inputs change from element to element. An element's
// result has the same bits whatever stands beside it, and by how many threads the series is rated.

namespace zel {

/// Numbers in memory with a distance of `stride` bytes; 0 repeats the first. Null: not wanted.
template <class T>
struct Strided {
    T* first = nullptr;
    std::ptrdiff_t stride = sizeof(T);

    [[nodiscard]] T& operator[](std::size_t i) const {
        using Byte = std::conditional_t<std::is_const_v<T>, const char, char>;
        return *reinterpret_cast<T*>(  // NOLINT: the caller says how its memory is laid out
            reinterpret_cast<Byte*>(first) + static_cast<std::ptrdiff_t>(i) * stride);  // NOLINT
    }
    void set(std::size_t i, T value) const {
        if (first != nullptr) (*this)[i] = value;
    }
};

struct SeriesColumn {
    SeriesInput input;
    Strided<const double> numbers;
};

/// What is rated: `count` elements.
struct SeriesInputs {
    /// Puts those columns last that read what others set. Throws `InputError` where two set the
    /// same field.
    SeriesInputs(const CalcCase& its_base, std::vector<SeriesColumn> its_columns,
                 std::size_t its_count);

    /// The fields that change.
    [[nodiscard]] const std::vector<FieldKey>& varying() const { return varying_; }
    /// Puts element `i` for `method`. A code that is not `Rated` says why it cannot be rated, and
    /// `culprit` the column.
    RatingCode put(SeriesElement& element, std::size_t i, Method method, Radiation radiation,
                   const SeriesColumn** culprit = nullptr) const;

    CalcCase base;
    std::vector<SeriesColumn> columns;
    std::size_t count;

private:
    /// Puts what does not change into the base once.
    void put_constants();

    std::vector<FieldKey> varying_;
};

/// How it is rated. Nothing is asked or told.
struct SeriesOptions {
    unsigned threads = 0;  // 0: one for each processor
    HeatCapacityOption heat_capacity = HeatCapacityOption::WithTemperature;
    Radiation radiation = Radiation::AsItStands;  // of a column
};

struct SteadySeries {
    Strided<double> current;            // A, of the bundle
    Strided<double> conductor_current;  // A, of one sub-conductor
    Strided<double> temperature;        // °C
    Strided<double> angle;              // degrees, between wind and line
    Strided<std::int32_t> code;         // RatingCode
};

/// Steady states by `method`: the current where the temperature is given, the temperature where the
/// current is.
void rate_steady(const SeriesInputs& inputs, Method method, const SeriesOptions& options,
                 const SteadySeries& out);

struct TatlSeries {
    Strided<double> patl;  // A, of the bundle
    Strided<double> tatl;  // A, of the bundle
    Strided<double> angle;
    Strided<std::int32_t> patl_code;
    Strided<std::int32_t> tatl_code;
};

/// Permanent ratings, and those for `duration` seconds after a preload of `preload_percent`, by
/// Cigre TB 601.
void rate_tatl(const SeriesInputs& inputs, const SeriesOptions& options, const TatlSeries& out);

/// One of the six changes of state.
struct StateSeries {
    Strided<double> current;      // A, of the bundle
    Strided<double> temperature;  // °C at its end
    Strided<double> duration;     // s
    Strided<std::int32_t> code;
};

/// The changes of state of the case, from the steady state of its method (TB 601, TB 207 or the
/// busbar method). A row that is not in use gives no numbers.
void rate_transient(const SeriesInputs& inputs, Method method, const SeriesOptions& options,
                    const std::array<StateSeries, state_change_count>& out);

/// Why element `i` has no value, for a reader in `lang`: the input or the check that refuses it.
/// Empty where inputs and check let it pass.
[[nodiscard]] std::string refusal_of(const SeriesInputs& inputs, Method method,
                                     const SeriesOptions& options, std::size_t i, LangId lang);

}  // namespace zel
