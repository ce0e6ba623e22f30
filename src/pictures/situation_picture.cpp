#include "pictures/situation_picture.h"

#include <array>
#include <cmath>
#include <numbers>

#include "pictures/shapes.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "steady/case/method.h"
#include "steady/kirn.h"
#include "steady/webs.h"
#include "workflow/rules/derived.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

constexpr Text title = {"Lage von Leitung, Wind und Sonne", "Line, wind and sun"};
constexpr Text north = {"N", "N"};
constexpr Text line_angle = {"Leitung: {0}° zu Nord", "Line: {0}° to north"};
constexpr Text wind_angle = {"Wind: aus {0}° zu Nord", "Wind: from {0}° to north"};
constexpr Text wind_speed = {"Windgeschwindigkeit: {0} m/s", "Wind speed: {0} m/s"};
constexpr Text no_angles = {"Winkel von Leitung und Wind sind noch nicht angegeben.",
                            "The angles of line and wind are not given yet."};
constexpr Text acute_angle_text = {"Winkel zwischen Wind und Leitung: {0}°",
                                   "Angle between wind and line: {0}°"};
constexpr Text as_it_is = {"Gerechnet wird mit {0}°.", "The methods calculate with {0}°."};
constexpr Text folded = {"Gerechnet wird mit {0}°: {1}° Unterschied zählen als {0}°.",
                         "The methods calculate with {0}°: a difference of {1}° counts as {0}°."};
constexpr Text wind_across = {"davon quer zur Leitung: {0} m/s", "of it across the line: {0} m/s"};
constexpr Text counts_as = {"zählt als {0}°", "counts as {0}°"};
constexpr Text sun_up = {"Sonne: {0}° hoch, aus {1}°", "Sun: {0}° high, from {1}°"};
constexpr Text sun_down = {"Sonne unter dem Horizont", "Sun below the horizon"};
constexpr Text radiation = {"Globalstrahlung: {0} W/m²", "Global radiation: {0} W/m²"};

constexpr CanvasPoint centre = {2250, 3000};
constexpr double rim = 1750;
constexpr double text_x = 4450;
constexpr double text_room = 2550;
constexpr Colour wind_colour = rgb(0, 90, 180);
constexpr Colour sun_colour = rgb(246, 190, 0);
constexpr Colour ground = rgb(244, 246, 248);

double degrees(double radians) { return radians * 180 / std::numbers::pi; }

void draw_rose(Canvas& canvas, LangId lang) {
    disc(canvas, centre, rim, ground);
    circle(canvas, centre, rim, {faint_ink});
    for (int direction = 0; direction < 360; direction += 30) {
        const double inner = rim - (direction % 90 == 0 ? 150 : 80);
        canvas.path(std::array{away(centre, direction, inner), away(centre, direction, rim)},
                    {faint_ink});
    }
    const CanvasPoint top = away(centre, 0, rim + 40);
    canvas.area(std::array{CanvasPoint{top.x, top.y - 260}, CanvasPoint{top.x + 110, top.y},
                           CanvasPoint{top.x, top.y - 60}, CanvasPoint{top.x - 110, top.y}},
                ink);
    write(canvas, {top.x + 180, top.y - 270}, Side::Left, north.in(lang), bold_font);
}

void draw_line(Canvas& canvas, double direction) {
    canvas.path(
        std::array{away(centre, direction, rim - 170), away(centre, direction + 180, rim - 170)},
        {core_metal, LineStyle::Solid, 8});
    canvas.path(
        std::array{away(centre, direction, rim - 170), away(centre, direction + 180, rim - 170)},
        {metal, LineStyle::Solid, 4});
}

/// The direction of the line's end that is nearer to the wind, and to which side of it the wind is:
/// 1 clockwise.
struct NearEnd {
    double direction;
    double side;
};
NearEnd near_end(const WindSituation& at) {
    double turn = std::fmod(at.wind - at.line, 360);
    if (turn < 0) turn += 360;
    if (turn <= 90) return {at.line, 1};
    if (turn <= 180) return {at.line + 180, -1};
    if (turn <= 270) return {at.line + 180, 1};
    return {at.line, -1};
}

/// On the ground of the picture, so that no line crosses it.
void write_label(Canvas& canvas, const CanvasPoint& middle, const std::string& text,
                 Colour colour) {
    const double half = canvas.text_width(text, bold_font) / 2;
    const double height = canvas.text_height(bold_font);
    const CanvasPoint at = {middle.x - half, middle.y - height / 2};
    canvas.fill({at.x - 30, at.y, middle.x + half + 30, at.y + height}, ground);
    write(canvas, at, Side::Left, text, bold_font, colour);
}

/// The angle between wind and line; that of a small one stands beyond the wind.
void draw_acute(Canvas& canvas, const WindSituation& at, const NearEnd& end, const Locale& locale) {
    constexpr double radius = 620;
    const double other = end.direction + end.side * at.acute;
    canvas.path(arc(centre, radius, std::min(end.direction, other), std::max(end.direction, other)),
                {wind_colour, LineStyle::Solid, 2});
    const double beside = at.acute < 30 ? at.acute + 20 : at.acute / 2;
    write_label(canvas, away(centre, end.direction + end.side * beside, radius + 230),
                plain_number(at.acute, locale.separator) + "°", wind_colour);
}

/// The wind as the methods take it, where that is another one.
void draw_counted(Canvas& canvas, const WindSituation& at, const NearEnd& end,
                  const Locale& locale) {
    const double direction = end.direction + end.side * at.counted;
    canvas.path(std::array{away(centre, direction, rim - 450), away(centre, direction, 260)},
                {warning_ink, LineStyle::Dashes, 2});
    arrow(canvas, away(centre, direction, 330), away(centre, direction, 90), 40, warning_ink);
    write_label(canvas, away(centre, direction, rim - 350),
                fill(counts_as.in(locale.lang), {plain_number(at.counted, locale.separator)}),
                warning_ink);
}

void draw_wind(Canvas& canvas, const WindSituation& at, const Locale& locale) {
    const NearEnd end = near_end(at);
    arrow(canvas, away(centre, at.wind, rim - 60), away(centre, at.wind, 90), 80, wind_colour);
    draw_acute(canvas, at, end, locale);
    if (at.folded_otherwise()) draw_counted(canvas, at, end, locale);
}

void draw_sun(Canvas& canvas, const SunPlace& sun) {
    if (sun.height < 0) return;
    const CanvasPoint at = away(centre, sun.direction, rim + 130);
    for (int ray = 0; ray < 360; ray += 45)
        canvas.path(std::array{away(at, ray, 150), away(at, ray, 220)},
                    {sun_colour, LineStyle::Solid, 2});
    disc(canvas, at, 120, sun_colour);
    circle(canvas, at, 120, {rgb(150, 110, 0)});
}

/// What the picture says in words, from top to bottom.
class Words {
public:
    Words(Canvas& canvas, const Locale& locale) : canvas_(canvas), locale_(locale) {}

    void add(const Text& text, std::initializer_list<double> values,
             const Font& font = picture_font, Colour colour = ink) {
        std::vector<std::string> numbers;
        for (const double value : values) numbers.push_back(plain_number(value, locale_.separator));
        numbers.resize(2);
        y_ = write_lines(canvas_, {text_x, y_}, Side::Left, text_room,
                         fill(text.in(locale_.lang), {numbers[0], numbers[1]}), font, colour) +
             120;
    }
    [[nodiscard]] double y() const { return y_; }

private:
    Canvas& canvas_;
    Locale locale_;
    double y_ = 1150;
};

double rounded(double value, double step) { return std::round(value / step) * step; }

void write_wind(Words& words, const CalcCase& c, const WindSituation& at) {
    words.add(line_angle, {at.line});
    const bool speed_given = c.Windgeschwindigkeit_db.given();
    const double speed = c.Windgeschwindigkeit_db.value;
    words.add(wind_angle, {at.wind});
    words.add(acute_angle_text, {at.acute});
    if (at.folded_otherwise())
        words.add(folded, {at.counted, at.difference}, bold_font, warning_ink);
    else
        words.add(as_it_is, {at.counted});
    const double across = std::abs(std::sin(at.counted * std::numbers::pi / 180)) * speed;
    if (!speed_given) return;
    words.add(wind_speed, {speed});
    words.add(wind_across, {rounded(across, 0.001)});
}

void write_sun(Words& words, const CalcCase& c, const std::optional<SunPlace>& sun) {
    if (sun && sun->height < 0) words.add(sun_down, {});
    if (sun && sun->height >= 0)
        words.add(sun_up, {rounded(sun->height, 1), rounded(sun->direction, 1)});
    if (c.Globalstrahlung_db.given()) words.add(radiation, {c.Globalstrahlung_db.value});
}

}  // namespace

bool WindSituation::folded_otherwise() const { return std::abs(acute - counted) > 1e-6; }

std::optional<WindSituation> wind_situation(const CalcCase& c) {
    if (!c.Winkel_S_S_db.given() || !c.Winkel_W_S_db.given()) return std::nullopt;
    WindSituation at;
    at.line = c.Winkel_S_S_db.value;
    at.wind = c.Winkel_W_S_db.value;
    at.difference = std::abs(at.wind - at.line);
    at.acute = acute_angle(c);
    at.counted = S_Winkel_Wind_Leiter(c);
    return at;
}

std::optional<SunPlace> sun_place(const CalcCase& c) {
    const bool by_webs = is_selected(c, Method::Webs);
    if (!by_webs && !is_selected(c, Method::Kirn)) return std::nullopt;
    constexpr Entry CalcCase::*needed[] = {&CalcCase::geogr_Breite_db,   &CalcCase::geo_laeng_db,
                                           &CalcCase::geo_laeng_zeit_db, &CalcCase::Tag_db,
                                           &CalcCase::Monat_db,          &CalcCase::Stunden_db,
                                           &CalcCase::Minuten_db};
    for (const auto field : needed)
        if (!(c.*field).given()) return std::nullopt;
    const SunInput in = sun_input(c);
    const SunPosition sun = by_webs ? webs_sun(in, c.wzsz_merker_db) : kirn_sun(in);
    const double latitude = in.latitude * std::numbers::pi / 180;
    // From the south, positive in the afternoon. No method needs it: it is for the eye alone.
    const double azimuth =
        std::atan2(std::sin(sun.hour_angle), std::cos(sun.hour_angle) * std::sin(latitude) -
                                                 std::tan(sun.declination) * std::cos(latitude));
    if (!std::isfinite(azimuth) || !std::isfinite(sun.height)) return std::nullopt;
    return SunPlace{180 + degrees(azimuth), degrees(sun.height)};
}

Picture situation_picture(const CalcCase& c, const Locale& locale) {
    return {std::string(title.in(locale.lang)), [c, locale](Canvas& canvas) {
                draw_rose(canvas, locale.lang);
                const auto sun = sun_place(c);
                if (sun) draw_sun(canvas, *sun);
                if (c.Winkel_S_S_db.given()) draw_line(canvas, c.Winkel_S_S_db.value);
                Words words(canvas, locale);
                if (const auto at = wind_situation(c)) {
                    draw_wind(canvas, *at, locale);
                    write_wind(words, c, *at);
                } else {
                    words.add(no_angles, {});
                }
                write_sun(words, c, sun);
            }};
}

}  // namespace zel
