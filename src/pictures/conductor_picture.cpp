#include "pictures/conductor_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "pictures/shapes.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "tb601_transient/tb601/tb601_params.h"

namespace zel {
namespace {

constexpr Text title = {"Querschnitt des Leiters", "Cross-section of the conductor"};
constexpr Text diameter = {"Durchmesser {0} mm", "Diameter {0} mm"};
constexpr Text wall = {"Wandstärke {0} mm", "Wall thickness {0} mm"};
constexpr Text layers_text = {"{0} Lagen, {1} Drähte zu {2} mm", "{0} layers, {1} wires of {2} mm"};
constexpr Text one_layer = {"1 Lage, {1} Drähte zu {2} mm", "1 layer, {1} wires of {2} mm"};
constexpr Text smooth_layers = {"{0} Lagen, glatte Oberfläche", "{0} layers, smooth surface"};
constexpr Text core_wires = {"Kern {0} mm, {1} Drähte zu {2} mm",
                             "Core {0} mm, {1} wires of {2} mm"};
constexpr Text core_alone = {"Kern {0} mm", "Core {0} mm"};
constexpr Text sections = {"Querschnitt {0} mm²", "Cross-section {0} mm²"};
constexpr Text by_tb601 = {"Temperatur nach Cigre TB 601", "Temperature by Cigre TB 601"};
constexpr Text core_label = {"Kern", "Core"};
constexpr Text surface_label = {"Oberfläche", "Surface"};
constexpr Text mean_label = {"Mittel {0} °C", "Mean {0} °C"};
constexpr Text radius_label = {"Radius {0} mm", "Radius {0} mm"};
constexpr Text drop = {"Unterschied {0} K", "Difference {0} K"};

constexpr CanvasPoint centre = {2100, 3050};
constexpr double drawn_radius = 1700;
constexpr double text_x = 4300;
constexpr double text_room = 2700;

/// How many wires lie side by side on a circle.
int fitting(double radius, double wire) {
    if (!(radius > wire / 2)) return 1;
    constexpr double play = 1.02;  // of wires that are laid a little askew
    return static_cast<int>(std::numbers::pi / std::asin(wire / 2 / radius) * play);
}

/// Wires around a middle of the diameter `inside` (0: a single wire), layer by layer from the
/// outside; nothing where they do not fit.
std::vector<WireRing> stranded(int wires, int layers, double wire, double outside, bool core) {
    if (wires < 1 || layers < 1 || !(wire > 0)) return {};
    // The innermost of layers that have 6 wires more each.
    const int surplus = wires - 3 * layers * (layers - 1);
    const int innermost = surplus / layers;
    if (innermost < 1 || surplus % layers != 0) return {};
    std::vector<WireRing> rings;
    double radius = (outside - wire) / 2;
    for (int layer = layers - 1; layer >= 0; --layer, radius -= wire) {
        const int count = innermost + 6 * layer;
        const bool middle = layer == 0 && count == 1;
        if (!middle && count > fitting(radius, wire)) return {};
        rings.push_back({middle ? 0 : std::max(0.0, radius), wire, count, core});
    }
    return rings;
}

/// Layers around a single wire in the middle, which some data count as a layer.
std::vector<WireRing> around_a_wire(int wires, int layers, double wire, double outside, bool core) {
    std::vector<WireRing> rings = wires == 1 + 3 * layers * (layers + 1)
                                      ? stranded(wires - 1, layers, wire, outside, core)
                                  : wires == 1 + 3 * layers * (layers - 1)
                                      ? stranded(wires - 1, layers - 1, wire, outside, core)
                                      : std::vector<WireRing>();
    if (wires == 1 || !rings.empty()) rings.push_back({0, wire, 1, core});
    return rings;
}

/// The layers of a core that is stranded in whole rings: 1, 7, 19, 37 wires.
int rings_around_wire(int wires) {
    int layers = 0;
    while (1 + 3 * layers * (layers + 1) < wires) ++layers;
    return layers;
}

/// From a pale yellow at the surface to a red at the core.
Colour heat_colour(double share) {
    constexpr double cool[] = {253, 226, 150};
    constexpr double hot[] = {216, 84, 60};
    const auto part = [&](int i) {
        return static_cast<std::uint8_t>(std::lround(cool[i] + share * (hot[i] - cool[i])));
    };
    return rgb(part(0), part(1), part(2));
}

class Drawing {
public:
    /// Without a course the parts have the colours of their metals.
    Drawing(Canvas& canvas, const ConductorSection& section,
            const std::optional<RadialCourse>& course)
        : canvas_(canvas),
          section_(section),
          course_(course),
          per_mm_(2 * drawn_radius / section.diameter) {}

    void draw() const {
        if (section_.rings.empty()) draw_layers();
        for (const WireRing& ring : section_.rings) draw_ring(ring);
        if (section_.core > 0 && !core_has_wires()) {
            disc(canvas_, centre, section_.core / 2 * per_mm_, colour_at(0, core_metal));
            circle(canvas_, centre, section_.core / 2 * per_mm_, {ink});
        }
        circle(canvas_, centre, drawn_radius, {faint_ink, LineStyle::Dots});
    }

private:
    [[nodiscard]] bool core_has_wires() const {
        return std::any_of(section_.rings.begin(), section_.rings.end(),
                           [](const WireRing& ring) { return ring.core; });
    }

    [[nodiscard]] Colour colour_at(double radius, Colour of_metal) const {
        return course_ ? heat_colour(course_->share_at(radius)) : of_metal;
    }

    /// Rings of one temperature each, narrow enough to look like a course.
    void draw_layers() const {
        constexpr int rings = 24;
        const double solid = std::max(section_.core, section_.hollow) / 2;
        const double width = section_.diameter / 2 - solid;
        disc(canvas_, centre, drawn_radius, colour_at(section_.diameter / 2, metal));
        for (int ring = course_ ? rings - 1 : 0; ring > 0; --ring) {
            const double radius = solid + width * ring / rings;
            disc(canvas_, centre, radius * per_mm_, colour_at(radius - width / rings / 2, metal));
        }
        circle(canvas_, centre, drawn_radius, {ink});
        const double inner = std::max(section_.core, section_.hollow);
        for (int layer = 1; layer < section_.layers; ++layer)
            circle(canvas_, centre,
                   (inner + (section_.diameter - inner) * layer / section_.layers) / 2 * per_mm_,
                   {faint_ink});
        if (!(section_.hollow > 0)) return;
        disc(canvas_, centre, section_.hollow / 2 * per_mm_, white);
        circle(canvas_, centre, section_.hollow / 2 * per_mm_, {ink});
    }

    void draw_ring(const WireRing& ring) const {
        for (int i = 0; i < ring.count; ++i) {
            const CanvasPoint at = away(centre, 360.0 * i / ring.count, ring.radius * per_mm_);
            disc(canvas_, at, ring.wire / 2 * per_mm_,
                 colour_at(ring.radius, ring.core ? core_metal : metal));
            circle(canvas_, at, ring.wire / 2 * per_mm_, {ink});
        }
    }

    Canvas& canvas_;
    const ConductorSection& section_;
    const std::optional<RadialCourse>& course_;
    double per_mm_;
};

/// What stands beside the drawing.
class Words {
public:
    Words(Canvas& canvas, const Locale& locale) : canvas_(canvas), locale_(locale) {}

    void add(const Text& text, std::initializer_list<std::string_view> values,
             const Font& font = picture_font) {
        y = write_lines(canvas_, {text_x, y}, Side::Left, text_room,
                        fill(text.in(locale_.lang), values), font) +
            70;
    }
    [[nodiscard]] std::string number(double value) const {
        return plain_number(value, locale_.separator);
    }
    [[nodiscard]] std::string temperature(double value, std::string_view mask = "###0.0") const {
        return masked(value, mask, locale_.separator);
    }
    [[nodiscard]] LangId lang() const { return locale_.lang; }

    double y = 900;

private:
    Canvas& canvas_;
    Locale locale_;
};

void write_data(Words& words, const CalcCase& c) {
    words.add({"{0}"}, {without_outer_blanks(c.Bezeichnung1_db)}, bold_font);
    words.add(diameter, {words.number(c.Seildurchmesser_db.value)});
    const std::string wire = words.number(c.DrahtdurchmesserLeiter_db.value);
    if (c.conductor_type_db == tubular_busbar)
        words.add(wall, {wire});
    else if (c.DrahtlagenzahlLeiter_db > 0)
        words.add(c.conductor_shape_db == smooth_surface ? smooth_layers
                  : c.DrahtlagenzahlLeiter_db == 1       ? one_layer
                                                         : layers_text,
                  {std::to_string(c.DrahtlagenzahlLeiter_db), std::to_string(c.DrahtzahlLeiter_db),
                   wire});
    if (c.KerndurchmesserTraeger_db.value > 0)
        words.add(c.DrahtzahlTraeger_db > 0 ? core_wires : core_alone,
                  {words.number(c.KerndurchmesserTraeger_db.value),
                   std::to_string(c.DrahtzahlTraeger_db),
                   words.number(c.DrahtdurchmesserTraeger_db.value)});
    if (c.Seilquerschnitt_db.value > 0)
        words.add(sections, {words.number(c.Seilquerschnitt_db.value)});
}

/// The temperature over the radius, from the middle at the left to the surface at the right.
void draw_course(Canvas& canvas, const CanvasBox& box, const RadialCourse& course,
                 const ConductorSection& section, const Words& words) {
    constexpr int points = 48;
    const double radius = section.diameter / 2;
    const auto y_of = [&](double share) { return box.bottom - box.height() * share; };
    std::vector<CanvasPoint> curve;
    for (int i = 0; i <= points; ++i) {
        const double share = course.share_at(radius * i / points);
        const double x = box.left + box.width() * i / points;
        if (i > 0)
            canvas.fill({curve.back().x, y_of(share), x, box.bottom + 60}, heat_colour(share));
        curve.push_back({x, y_of(share)});
    }
    canvas.line(box.left, y_of(0.5), box.right, y_of(0.5), {faint_ink, LineStyle::Dots});
    canvas.path(curve, {ink, LineStyle::Solid, 2});
    canvas.path(std::array{CanvasPoint{box.left, box.top}, CanvasPoint{box.left, box.bottom + 60},
                           CanvasPoint{box.right, box.bottom + 60}},
                {ink});
    write(canvas, {box.right, box.bottom + 100}, Side::Right,
          fill(radius_label.in(words.lang()), {words.number(radius)}), small_font);
    write(canvas, {box.left, box.bottom + 100}, Side::Left, "0", small_font);
}

/// Core and surface with their values in the section, and the course between them beside it.
void draw_temperatures(Canvas& canvas, Words& words, const Tb601Details& at, double mean,
                       const ConductorSection& section, const RadialCourse& course) {
    words.y += 120;
    words.add(by_tb601, {}, bold_font);
    words.add(drop, {words.temperature(at.TCore - at.TSurface, "###0.00")});
    words.add(mean_label, {words.temperature(mean)});
    constexpr double lowest = 4900;
    constexpr double least_height = 600;
    const double top = std::min(words.y + 60, lowest - least_height);
    draw_course(canvas, {text_x, top, text_x + text_room - 60, lowest}, course, section, words);
    constexpr Colour hot = rgb(150, 30, 40);
    const auto lead = [&](const CanvasPoint& from, double x, std::string_view name, double value) {
        canvas.path(std::array{from, CanvasPoint{x, 5010}}, {hot});
        disc(canvas, from, 45, hot);
        write(canvas, {x, 5030}, Side::Middle,
              std::string(name) + " " + words.temperature(value) + " °C", bold_font, hot);
    };
    lead(centre, centre.x - 900, core_label.in(words.lang()), at.TCore);
    lead(away(centre, 135, drawn_radius), centre.x + 1150, surface_label.in(words.lang()),
         at.TSurface);
}

}  // namespace

RadialCourse::RadialCourse(const ConductorSection& section, double core_C, double surface_C)
    : core_radius_(section.core / 2),
      radius_(section.diameter / 2),
      core_C_(core_C),
      surface_C_(surface_C) {}

/// Of a ring with an even source of heat and none from inside: R² - r² - 2 r1² ln(R / r).
double RadialCourse::share_at(double radius) const {
    if (core_C_ == surface_C_) return 0;
    const auto rise = [this](double r) {
        const double core = core_radius_ * core_radius_;
        const double of_core = core > 0 ? 2 * core * std::log(radius_ / r) : 0;
        return radius_ * radius_ - r * r - of_core;
    };
    return std::clamp(rise(std::max(radius, core_radius_)) / rise(core_radius_), 0.0, 1.0);
}

double RadialCourse::at(double radius) const {
    return surface_C_ + share_at(radius) * (core_C_ - surface_C_);
}

std::optional<ConductorSection> conductor_section(const ConductorData& conductor) {
    ConductorSection section;
    section.diameter = conductor.Seildurchmesser_db.value;
    if (!(section.diameter > 0)) return std::nullopt;
    const double wire = conductor.DrahtdurchmesserLeiter_db.value;
    if (conductor.conductor_type_db == tubular_busbar) {
        section.hollow = std::max(0.0, section.diameter - 2 * wire);
        return section;
    }
    section.layers = conductor.DrahtlagenzahlLeiter_db;
    const double core = conductor.KerndurchmesserTraeger_db.value;
    if (core > 0 && core < section.diameter) section.core = core;
    if (conductor.conductor_shape_db == smooth_surface) return section;
    section.rings = section.core > 0 ? stranded(conductor.DrahtzahlLeiter_db, section.layers, wire,
                                                section.diameter, false)
                                     : around_a_wire(conductor.DrahtzahlLeiter_db, section.layers,
                                                     wire, section.diameter, false);
    if (section.rings.empty() || section.core == 0) return section;
    const int wires = conductor.DrahtzahlTraeger_db;
    const auto inner = around_a_wire(wires, rings_around_wire(wires),
                                     conductor.DrahtdurchmesserTraeger_db.value, core, true);
    section.rings.insert(section.rings.end(), inner.begin(), inner.end());
    return section;
}

std::optional<Picture> conductor_picture(const CalcCase& c, const SteadyRunResult* result,
                                         const Locale& locale) {
    const auto section = conductor_section(c);
    if (!section) return std::nullopt;
    std::optional<SteadyResult> tb601;
    if (result != nullptr)
        for (const MethodResult& line : result->methods)
            if (line.outcome.tb601) tb601 = line.outcome;
    return Picture{std::string(title.in(locale.lang)),
                   [c, section = *section, tb601, locale](Canvas& canvas) {
                       std::optional<RadialCourse> course;
                       if (tb601)
                           course.emplace(section, tb601->tb601->TCore, tb601->tb601->TSurface);
                       Drawing(canvas, section, course).draw();
                       Words words(canvas, locale);
                       write_data(words, c);
                       if (course)
                           draw_temperatures(canvas, words, *tb601->tb601, *tb601->temperature_C,
                                             section, *course);
                   }};
}

}  // namespace zel
