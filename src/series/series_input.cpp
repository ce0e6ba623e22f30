#include "series/series_input.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "platform/errors.h"
#include "platform/rounding.h"
#include "steady/case/method.h"
#include "steady/sun.h"
#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

/// What stands as the text of a number that an array gives: it says that there is an input.
const std::string given_text = "0";

// No text of an element is ever shown.
constexpr DecimalSeparator any_separator = DecimalSeparator::Point;

void give(Entry& entry, double number) {
    if (entry.text.empty()) entry.text = given_text;
    entry.value = number;
}

/// The wind stands at `angle` (0 to 90 degrees) to the line: a direction from which the folding of
/// a case gives that angle back.
void put_wind_angle(SeriesElement& element, double angle) {
    const double azimuth = element.c.Winkel_S_S_db.value;
    constexpr double largest_direction = 359.9;
    const bool forward = azimuth + angle <= largest_direction;
    double direction = forward ? azimuth + angle : azimuth - angle;
    // A last bit above 90 degrees would be folded into none.
    while (std::abs(direction - azimuth) > 90) direction = std::nextafter(direction, azimuth);
    give(element.c.Winkel_W_S_db, direction);
}

void put_wind_direction(SeriesElement& element, double direction) {
    put_wind_angle(element, acute_angle(direction, element.c.Winkel_S_S_db.value));
}

void put_longitude(SeriesElement& element, double east) { give(element.c.geo_laeng_db, -east); }

/// Seconds since 1970 in UTC, to the minute. Clock and sun then agree at longitude 0; Kirn, who
/// takes the hour of summer time off every clock, has it back by a standard time 15 degrees to the
/// west.
void put_time(SeriesElement& element, double seconds) {
    using namespace std::chrono;
    const sys_time<minutes> time{minutes(static_cast<std::int64_t>(std::floor(seconds / 60)))};
    const auto midnight = floor<days>(time);
    const year_month_day date{midnight};
    const hh_mm_ss<minutes> clock{time - midnight};
    CalcCase& c = element.c;
    give(c.Tag_db, static_cast<unsigned>(date.day()));
    give(c.Monat_db, static_cast<unsigned>(date.month()));
    give(c.Stunden_db, static_cast<double>(clock.hours().count()));
    give(c.Minuten_db, static_cast<double>(clock.minutes().count()));
    const double day = day_of_year(c.Tag_db.value, static_cast<std::int16_t>(c.Monat_db.value));
    const bool loses_hour = is_selected(c, Method::Kirn) && in_summer_time(day);
    constexpr double degrees_of_hour = 15;
    give(c.geo_laeng_zeit_db, loses_hour ? degrees_of_hour : 0);
    c.wzsz_merker_db = 2;
}

void put_duration(SeriesElement& element, double seconds) { element.duration = seconds; }
void put_preload(SeriesElement& element, double percent) { element.preload = percent; }

template <std::size_t row>
void put_change_current(SeriesElement& element, double of_bundle) {
    StateChange& change = element.c.Z[row];
    const int n = sharing_conductors(element.c);
    give(change.Strom, of_bundle / n);
    show_bundle_current(change, n, any_separator);
}
template <std::size_t row>
void put_change_temperature(SeriesElement& element, double temperature) {
    give(element.c.Z[row].TEMP, temperature);
}
template <std::size_t row>
void put_change_duration(SeriesElement& element, double seconds) {
    const double whole = round_half_even(seconds);
    const double minutes = std::min(60.0, std::floor(whole / 60));  // 60 min 59 s can be entered
    give(element.c.Z[row].min, minutes);
    give(element.c.Z[row].sec, whole - 60 * minutes);
}

// NOLINTBEGIN(cppcoreguidelines-macro-usage, bugprone-macro-parentheses): the changes of state
// differ in their number, which is part of texts.
#define CHANGE_INPUT(n, quantity, unit, limits, de, en, put) \
    DerivedInput { "change_" #n "_" quantity, unit, limits, Text{de #n, en #n}, {}, put<n - 1> }
// NOLINTEND(cppcoreguidelines-macro-usage, bugprone-macro-parentheses)
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage)
#define CHANGE(n)                                                                                  \
    CHANGE_INPUT(n, "current", "A", Limits().between(0, 999999),                                   \
                 "Strom (Bündel) der Zustandsänderung ", "current (bundle) of change of state ",   \
                 put_change_current),                                                              \
        CHANGE_INPUT(n, "temperature", "°C", Limits().between(-50, 350),                           \
                     "Temperatur am Ende der Zustandsänderung ",                                   \
                     "temperature at the end of change of state ", put_change_temperature),        \
        CHANGE_INPUT(n, "duration", "s", Limits().between(1, 3659), "Dauer der Zustandsänderung ", \
                     "duration of change of state ", put_change_duration)

const FieldKey wind_fields[] = {&CalcCase::Winkel_W_S_db};
const FieldKey longitude_fields[] = {&CalcCase::geo_laeng_db};
const FieldKey time_fields[] = {
    &CalcCase::Tag_db,     &CalcCase::Monat_db,          &CalcCase::Stunden_db,
    &CalcCase::Minuten_db, &CalcCase::geo_laeng_zeit_db, &CalcCase::wzsz_merker_db};

// Years 1900 to 2200.
constexpr double first_second = -2208988800.0;
constexpr double last_second = 7258118399.0;

const DerivedInput derived[] = {
    {"wind_from_direction",
     "°",
     Limits().between(-360, 360),
     {"Richtung, aus der der Wind kommt, von Nord über Ost; gerechnet wird mit dem spitzen Winkel "
      "zur Leitung",
      "direction that the wind comes from, from north over east; its acute angle to the line counts"},
     wind_fields,
     put_wind_direction},
    {"wind_angle",
     "°",
     Limits().between(0, 90),
     {"spitzer Winkel zwischen Wind und Leitung", "acute angle between wind and line"},
     wind_fields,
     put_wind_angle},
    {"longitude",
     "°",
     Limits().between(-180, 180),
     {"geographische Länge, Ost positiv", "longitude, east positive"},
     longitude_fields,
     put_longitude},
    {"time",
     "s",
     Limits().between(first_second, last_second),
     {"Sekunden seit 1970 in UTC", "seconds since 1970 in UTC"},
     time_fields,
     put_time},
    {"duration",
     "s",
     Limits().between(1, 86400),
     {"Dauer der Belastung auf Zeit", "duration of the temporary rating"},
     {},
     put_duration},
    {"preload_percent",
     "%",
     Limits().between(0, 100),
     {"Vorbelastung in Prozent der dauernden Belastbarkeit",
      "preload as percent of the permanent rating"},
     {},
     put_preload},
    CHANGE(1),
    CHANGE(2),
    CHANGE(3),
    CHANGE(4),
    CHANGE(5),
    CHANGE(6),
};
#undef CHANGE
#undef CHANGE_INPUT

/// What counts positive, and from where, of the inputs that have a sign or a direction.
constexpr struct {
    std::string_view name;
    Text sense;
} senses[] = {
    {"line_azimuth", {"von Nord über Ost", "from north over east"}},
    {"wind_angle_to_north", {"von Nord über Ost", "from north over east"}},
    {"wind_from_direction", {"von Nord über Ost", "from north over east"}},
    {"latitude", {"Nord positiv", "north positive"}},
    {"longitude_west", {"Ost negativ", "east negative"}},
    {"zone_longitude_west", {"Ost negativ", "east negative"}},
    {"longitude", {"Ost positiv", "east positive"}},
};

constexpr Text no_such_input = {"keine Eingabe heißt {0}; zel help fields zeigt alle",
                                "no input is called {0}; zel help fields lists all"};

const CaseField* find_numeric_field(std::string_view name) {
    const CaseField* field = find_by_any_name(name);
    if (field == nullptr || field->kind == FieldKind::Text || field->kind == FieldKind::Flag)
        return nullptr;
    return field;
}

constexpr Limits no_limits;

/// Of inputs that are typed as they are, and judged later, chosen from a list, or not judged at
/// all.
const struct {
    FieldKey field;
    Limits limits;
} limits_of_series[] = {
    {&CalcCase::geogr_Breite_db, Limits().between(-90, 90)},
    {&CalcCase::geo_laeng_db, Limits().between(-180, 180)},
    {&CalcCase::geo_laeng_zeit_db, Limits().between(-180, 180)},
    // Not the marks of missing values of weather services; instruments tell a little less than no
    // radiation at night.
    {&CalcCase::Umgebungstemperatur_db, Limits().between(-90, 100)},
    {&CalcCase::Bodentemp_db, Limits().between(-90, 100)},
    {&CalcCase::Globalstrahlung_db, Limits().between(-20, 1400)},
    {&CalcCase::Bodenart_db, Limits().between(0, 1)},
    {&CalcCase::Bewoelkungsgrad_db, Limits().between(0, 1)},
    {&CalcCase::Emissionsverhaeltnis_db, Limits().between(0, 1)},
    {&CalcCase::Netzfrequenz_db, Limits().between(0, 61)},
    {&CalcCase::Hoehe_ueber_NN_db, Limits().between(-500, 4500)},
    // A measured current may have a sign; methods that square it would pass over that.
    {&CalcCase::Stromstaerke_db, Limits().between(0, 999999)},
    {&CalcCase::Stromstaerke_Buendel, Limits().between(0, 999999)},
    {&CalcCase::Seildurchmesser_db, Limits().between(0, 1000)},
    {&CalcCase::DCR_20_db, Limits().between(0, 1000)},
    {&CalcCase::Tag_db, Limits().between(1, 31)},
    {&CalcCase::Monat_db, Limits().between(1, 12)},
    {&CalcCase::Stunden_db, Limits().between(0, 23)},
    {&CalcCase::Minuten_db, Limits().between(0, 59)},
    {&CalcCase::Anzahl_Teilleiter_db, Limits().between(1, 8)},
    {&CalcCase::conductor_type_db, Limits().between(1, 4)},
    {&CalcCase::conductor_shape_db, Limits().between(1, 2)},
    {&CalcCase::ACDC_R_Option_Merker_db, Limits().between(1, 2)},
    {&CalcCase::Gravi_merker1_db, Limits().between(1, 3)},
    {&CalcCase::Formel_merker1_db, Limits().between(1, 2)},
    {&CalcCase::wzsz_merker_db, Limits().between(1, 2)},
};

const Limits* entry_limits(const CaseField& field) {
    for (const auto& row : limits_of_series)
        if (row.field == field.key) return &row.limits;
    const auto* const entry = std::get_if<Entry CalcCase::*>(&field.key);
    const Limits* limits = entry != nullptr ? limits_of(*entry) : nullptr;
    return limits != nullptr ? limits : &no_limits;
}

RatingCode put_field(const CaseField& field, CalcCase& c, double number) {
    if (const auto* entry = std::get_if<Entry CalcCase::*>(&field.key)) {
        give(c.**entry, field.rounded ? round_half_even(number) : number);
        return RatingCode::Rated;
    }
    const auto whole = round_to_int16(number);
    if (!whole || number != *whole) return RatingCode::OutsideLimits;
    c.*std::get<std::int16_t CalcCase::*>(field.key) = *whole;
    return RatingCode::Rated;
}

}  // namespace

SeriesInput::SeriesInput(std::string_view name) : name_(name) {
    if (const CaseField* field = find_numeric_field(name)) {
        place_ = FieldPlace{field, entry_limits(*field)};
        return;
    }
    if (const auto cell = find_state_cell(name)) {
        place_ = *cell;
        return;
    }
    const auto* const row = std::find_if(std::begin(derived), std::end(derived),
                                         [&](const DerivedInput& d) { return d.name == name; });
    if (row == std::end(derived)) throw InputError(Reason(no_such_input, {name_}));
    place_ = row;
}

std::string_view SeriesInput::unit() const {
    if (const auto* place = std::get_if<FieldPlace>(&place_))
        return place->field->unit_in(LangId::English);
    if (const auto* const* input = std::get_if<const DerivedInput*>(&place_)) return (*input)->unit;
    return {};
}

Limits SeriesInput::limits() const {
    if (const auto* place = std::get_if<FieldPlace>(&place_)) return *place->limits;
    if (const auto* const* input = std::get_if<const DerivedInput*>(&place_))
        return (*input)->limits;
    return no_limits;
}

std::span<const FieldKey> SeriesInput::fields() const {
    if (const auto* place = std::get_if<FieldPlace>(&place_)) return {&place->field->key, 1};
    if (const auto* const* input = std::get_if<const DerivedInput*>(&place_))
        return (*input)->fields;
    return {};
}

bool SeriesInput::is_derived() const { return std::holds_alternative<const DerivedInput*>(place_); }

RatingCode SeriesInput::put(SeriesElement& element, double number) const {
    if (std::isnan(number)) return RatingCode::MissingInput;
    if (std::isinf(number)) return RatingCode::OutsideLimits;
    if (const auto* place = std::get_if<FieldPlace>(&place_)) {
        if (!place->limits->holds(number)) return RatingCode::OutsideLimits;
        return put_field(*place->field, element.c, number);
    }
    if (const auto* cell = std::get_if<StateCellPlace>(&place_)) {
        StateChange& row = element.c.Z[cell->row];
        row.*(cell->cell) = {plain_number(number, any_separator), number};
        if (cell->cell == &StateChange::Strom)
            show_bundle_current(row, sharing_conductors(element.c), any_separator);
        return RatingCode::Rated;
    }
    const DerivedInput& input = *std::get<const DerivedInput*>(place_);
    if (!input.limits.holds(number)) return RatingCode::OutsideLimits;
    input.put(element, number);
    return RatingCode::Rated;
}

Text sense_of(std::string_view name) {
    for (const auto& row : senses)
        if (row.name == name) return row.sense;
    return {};
}

std::span<const DerivedInput> derived_inputs() { return derived; }

Limits series_limits_of(const CaseField& field) { return *entry_limits(field); }

double acute_angle(double wind_direction, double line_azimuth) {
    const double turned = std::fmod(std::abs(wind_direction - line_azimuth), 180);
    // Directions differ in their last bits where they were turned; their decimals do not.
    constexpr double parts = 1e6;
    return std::round(std::min(turned, 180 - turned) * parts) / parts;
}

}  // namespace zel
