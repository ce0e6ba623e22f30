#include "pictures/balance_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "pictures/shapes.h"
#include "platform/errors.h"
#include "platform/text/number_text.h"
#include "workflow/run/steady_texts.h"

namespace zel {
namespace {

constexpr Text title = {"Wärmebilanz nach {0}", "Heat balance by {0}"};
constexpr Text subject = {"je Meter eines Teilleiters, bei {0} °C und {1} A",
                          "per metre of one sub-conductor, at {0} °C and {1} A"};
constexpr Text sum_in = {"zugeführt {0} W/m", "in {0} W/m"};
constexpr Text sum_out = {"abgegeben {0} W/m", "out {0} W/m"};
constexpr Text difference = {"Es fehlen {0} W/m an der Bilanz.", "The balance misses by {0} W/m."};
constexpr Text sun_ground_sky = {"Sonne, Boden und Himmel", "Sun, ground and sky"};
constexpr Text conductor = {"Leiter", "Conductor"};

/// A term of the balance, which way it flows, and what it is called where it is negative.
struct TermRow {
    double HeatTerms::*term;
    bool heats;
    Text name;
    Text reversed;
    Colour colour;
};
constexpr TermRow terms_in_order[] = {
    {&HeatTerms::PJ,
     true,
     {"Stromwärme", "Joule heat"},
     {"Überschuß an Wärme", "Heat in excess"},
     rgb(226, 114, 20)},
    {&HeatTerms::PS, true, {"Sonne", "Sun"}, {"Himmel", "Sky"}, rgb(246, 190, 0)},
    {&HeatTerms::PR,
     false,
     {"Strahlung", "Radiation"},
     {"Strahlung der Umgebung", "Radiation received"},
     rgb(190, 60, 70)},
    {&HeatTerms::PC,
     false,
     {"Konvektion", "Convection"},
     {"Wärme der Luft", "Heat of the air"},
     rgb(50, 120, 190)},
};

constexpr double flow_height = 2300;  // of all flows of the stronger side
constexpr double least_height = 40;
constexpr double between = 420;  // flows, at their outer ends
constexpr double label_room = 1900;
constexpr double middle_y = 2900;
constexpr double radius = 560;  // of the conductor

/// A band from one edge to another, each of the height `height`.
void band(Canvas& canvas, const CanvasPoint& from, const CanvasPoint& to, double height,
          Colour colour) {
    constexpr int steps = 24;
    std::vector<CanvasPoint> outline;
    const auto at = [&](int i, double below) {
        const double t = static_cast<double>(i) / steps;
        const double rise = t * t * (3 - 2 * t);
        return CanvasPoint{from.x + (to.x - from.x) * t, from.y + (to.y - from.y) * rise + below};
    };
    for (int i = 0; i <= steps; ++i) outline.push_back(at(i, 0));
    for (int i = steps; i >= 0; --i) outline.push_back(at(i, height));
    canvas.area(outline, colour);
}

/// A triangle that leads on to the right from an edge of a band, which it overlaps a little so that
/// no seam is seen.
void wedge(Canvas& canvas, double x, double y, double height, Colour colour) {
    constexpr double seam = 10;
    const double length = std::min(260.0, height / 2 + 60);
    canvas.area(std::array{CanvasPoint{x - seam, y}, CanvasPoint{x, y},
                           CanvasPoint{x + length, y + height / 2}, CanvasPoint{x, y + height},
                           CanvasPoint{x - seam, y + height}},
                colour);
}

class Drawing {
public:
    Drawing(Canvas& canvas, HeatFlows flows, const Locale& locale)
        : canvas_(canvas), flows_(std::move(flows)), locale_(locale) {
        const double most = std::max(sum_of(flows_.in), sum_of(flows_.out));
        per_watt_ = most > 0 ? flow_height / most : 0;
    }

    void draw() const {
        draw_side(flows_.in, true);
        draw_side(flows_.out, false);
        const CanvasPoint centre = {picture_sheet.width() / 2, middle_y};
        disc(canvas_, centre, radius, metal);
        circle(canvas_, centre, radius, {core_metal, LineStyle::Solid, 2});
        write(canvas_, {centre.x, centre.y - 100}, Side::Middle, conductor.in(locale_.lang),
              bold_font);
        const double in = sum_of(flows_.in);
        const double out = sum_of(flows_.out);
        write(canvas_, {picture_margin, bottom}, Side::Left,
              fill(sum_in.in(locale_.lang), {watts(in)}), bold_font);
        write(canvas_, {picture_sheet.right - picture_margin, bottom}, Side::Right,
              fill(sum_out.in(locale_.lang), {watts(out)}), bold_font);
        if (std::abs(in - out) > 0.01 * std::max(in, out))
            write(canvas_, {centre.x, bottom + line_step}, Side::Middle,
                  fill(difference.in(locale_.lang), {watts(std::abs(in - out))}), bold_font,
                  warning_ink);
    }

private:
    static constexpr double bottom = 4720;

    [[nodiscard]] std::string watts(double value) const {
        return masked(value, "#####0.0#", locale_.separator);
    }
    [[nodiscard]] double height_of(const HeatFlow& flow) const {
        return std::max(least_height, flow.watts * per_watt_);
    }

    void draw_side(const std::vector<HeatFlow>& flows, bool in) const {
        double inner = 0;
        for (const HeatFlow& flow : flows) inner += height_of(flow);
        double outer_y = middle_y - (inner + between * (static_cast<double>(flows.size()) - 1)) / 2;
        double inner_y = middle_y - inner / 2;
        const double outer_x =
            in ? picture_margin + label_room : picture_sheet.right - picture_margin - label_room;
        const double centre = picture_sheet.width() / 2;
        for (const HeatFlow& flow : flows) {
            const double height = height_of(flow);
            if (in) {
                band(canvas_, {outer_x, outer_y}, {centre, inner_y}, height, flow.colour);
                wedge(canvas_, outer_x, outer_y, height, white);
            } else {
                band(canvas_, {centre, inner_y}, {outer_x, outer_y}, height, flow.colour);
                wedge(canvas_, outer_x, outer_y, height, flow.colour);
            }
            write_label(flow, in, outer_y + height / 2);
            outer_y += height + between;
            inner_y += height;
        }
    }

    void write_label(const HeatFlow& flow, bool in, double middle) const {
        const double x = in ? picture_margin : picture_sheet.right - picture_margin;
        const Side side = in ? Side::Left : Side::Right;
        const double below = write_lines(canvas_, {x, middle - line_step}, side, label_room - 330,
                                         flow.name.in(locale_.lang));
        write(canvas_, {x, below}, side, watts(flow.watts) + " W/m", bold_font);
    }

    Canvas& canvas_;
    HeatFlows flows_;
    Locale locale_;
    double per_watt_ = 0;  // twips
};

}  // namespace

HeatFlows flows_of(const HeatTerms& terms, Method method) {
    HeatFlows flows;
    for (const auto& [term, heats, name, reversed, colour] : terms_in_order) {
        const double value = terms.*term;
        Text called = value < 0 ? reversed : name;
        if (term == &HeatTerms::PS && method == Method::Kirn) called = sun_ground_sky;
        (heats == (value >= 0) ? flows.in : flows.out).push_back({called, std::abs(value), colour});
    }
    return flows;
}

double sum_of(const std::vector<HeatFlow>& flows) {
    double sum = 0;
    for (const HeatFlow& flow : flows) sum += flow.watts;
    return sum;
}

std::optional<Picture> balance_picture(const CalcCase& c, const SteadyRunResult& result,
                                       Method method, const Session& session) {
    const auto line =
        std::find_if(result.methods.begin(), result.methods.end(),
                     [&](const MethodResult& found) { return found.method == method; });
    if (line == result.methods.end() || !line->outcome.sound()) return std::nullopt;
    const SteadyResult& outcome = line->outcome;
    const auto terms = heat_terms(method, outcome, c, result.angle, session);
    if (!terms) return std::nullopt;
    const Locale locale = session;
    const std::string about =
        fill(subject.in(locale.lang), {masked(*outcome.temperature_C, "###0.0", locale.separator),
                                       masked(*outcome.current_A, "####0", locale.separator)});
    return Picture{fill(title.in(locale.lang), {name_of(method)}),
                   [flows = flows_of(*terms, method), about, locale](Canvas& canvas) {
                       write(canvas, {picture_margin, picture_top - 200}, Side::Left, about,
                             small_font, faint_ink);
                       Drawing(canvas, flows, locale).draw();
                   }};
}

}  // namespace zel
