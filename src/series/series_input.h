#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "series/rating_code.h"
#include "steady/case/case_fields.h"
#include "workflow/rules/rule_tables.h"

// What may change from one element of a series to the next, and how a number of it enters the case.

namespace zel {

/// What an element is rated with.
struct SeriesElement {
    CalcCase c;
    double duration = 900;  // s, of a temporary rating
    double preload = 100;   // %, of the permanent rating, before it
};

/// An input that is not a field: it stands for one or more of them, by the conventions of series.
struct DerivedInput {
    std::string_view name;
    std::string_view unit;
    Limits limits;
    Text about;
    std::span<const FieldKey> fields;  // that it sets
    void (*put)(SeriesElement&, double);
};

/// An input of a series by its name: a numeric field of the case, by its own name or its English
/// one, a cell of a change of state (`Z1_Strom_db`), or a derived input.
///
/// Series know the wind by the direction that it comes from (`wind_from_direction`, with
/// `line_azimuth`) or by its acute angle to the line (`wind_angle`), count longitudes positive to
/// the east (`longitude`) and take the time in UTC (`time`). The fields of a case keep the
/// conventions of cases: `wind_angle_to_north` is folded by subtraction, `longitude_west` counts
/// positive to the west.
class SeriesInput {
public:
    /// Throws `InputError` where no input has the name.
    explicit SeriesInput(std::string_view name);

    [[nodiscard]] std::string_view name() const { return name_; }
    /// Empty where it has none.
    [[nodiscard]] std::string_view unit() const;
    /// What a number of it may be; without bounds where nothing is laid down.
    [[nodiscard]] Limits limits() const;
    /// The fields that it sets; empty for a cell of a change of state.
    [[nodiscard]] std::span<const FieldKey> fields() const;
    /// Whether it reads fields that others set, so that it is put after them.
    [[nodiscard]] bool is_derived() const;

    /// The number of one element. A code that is not `Rated` tells why it is none that the input
    /// can have: the element must then not be rated.
    [[nodiscard]] RatingCode put(SeriesElement& element, double number) const;

private:
    struct FieldPlace {
        const CaseField* field;
        const Limits* limits;
    };

    std::string name_;
    std::variant<FieldPlace, StateCellPlace, const DerivedInput*> place_;
};

/// What counts positive of the input `name`, and from where: "east negative"; empty where it has
/// neither sign nor direction.
[[nodiscard]] Text sense_of(std::string_view name);

/// Those that are no fields.
[[nodiscard]] std::span<const DerivedInput> derived_inputs();

/// The limits of a field of the case; those without a bound where it has none.
[[nodiscard]] Limits series_limits_of(const CaseField& field);

/// The acute angle (0 to 90 degrees, to a millionth) between a line and the wind, from their
/// directions in degrees. Turning the wind by 180° or mirroring it at the line changes nothing.
[[nodiscard]] double acute_angle(double wind_direction, double line_azimuth);

}  // namespace zel
