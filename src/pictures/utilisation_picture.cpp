#include "pictures/utilisation_picture.h"

#include <algorithm>
#include <array>

#include "pictures/shapes.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"

namespace zel {
namespace {

constexpr Text title = {"Thermische Kurzschlußfestigkeit", "Thermal short-circuit strength"};
constexpr Text conductor_load = {"S_th = {0} A/mm²", "S_th = {0} A/mm²"};
constexpr Text conductor_limit = {"zulässig {0} A/mm²", "admissible {0} A/mm²"};
constexpr Text equipment_load = {"I_th = {0} kA", "I_th = {0} kA"};
constexpr Text equipment_limit = {"zulässig {0} kA", "admissible {0} kA"};
constexpr Text close_text = {"ab {0} % nahe der Grenze", "from {0} % close to the limit"};
constexpr Text use_text = {"Ausnutzung {0} %", "Utilisation {0} %"};
constexpr Text withstood[] = {
    {"Der Leiter ist kurzschlußfest.", "The conductor withstands."},
    {"Das Betriebsmittel ist kurzschlußfest.", "The equipment withstands."}};
constexpr Text close[] = {{"Der Leiter ist kurzschlußfest, aber nahe der Grenze.",
                           "The conductor withstands, but close to its limit."},
                          {"Das Betriebsmittel ist kurzschlußfest, aber nahe der Grenze.",
                           "The equipment withstands, but close to its limit."}};
constexpr Text not_withstood[] = {
    {"Der Leiter ist nicht kurzschlußfest.", "The conductor does not withstand."},
    {"Das Betriebsmittel ist nicht kurzschlußfest.", "The equipment does not withstand."}};

constexpr Colour strong = rgb(70, 120, 180);
constexpr Colour weak = rgb(176, 0, 0);
constexpr Colour rail = rgb(228, 231, 235);
constexpr CanvasBox bar = {picture_margin, 2350, picture_sheet.right - picture_margin, 3050};

bool is_close(const Utilisation& use) { return use.withstands && use.share() >= close_share; }

void draw_verdict(Canvas& canvas, const Utilisation& use, LangId lang) {
    const std::size_t of = use.conductor ? 0 : 1;
    const Text& words = !use.withstands ? not_withstood[of]
                        : is_close(use) ? close[of]
                                        : withstood[of];
    sign(canvas,
         !use.withstands ? Sign::Cross
         : is_close(use) ? Sign::Warning
                         : Sign::Check,
         {picture_margin + 260, 1250}, 250);
    write_lines(canvas, {picture_margin + 660, 1130}, Side::Left, 5800, words.in(lang), {11, true});
}

void draw_bar(Canvas& canvas, const Utilisation& use, const Locale& locale) {
    const double most = std::max(1.25, use.share() * 1.05);
    const auto x_of = [&](double share) { return bar.left + bar.width() * share / most; };
    const Colour colour = use.withstands ? strong : weak;
    canvas.fill(bar, rail);
    canvas.fill({bar.left, bar.top, x_of(use.share()), bar.bottom}, colour);
    // Beyond the limit the bar is hatched too.
    for (double x = x_of(1) + 120; x < x_of(use.share()); x += 120)
        canvas.path(std::array{CanvasPoint{x, bar.top}, CanvasPoint{x - 120, bar.bottom}}, {white});
    const auto mark = [&](double share, LineStyle style, int width) {
        canvas.line(x_of(share), bar.top - 120, x_of(share), bar.bottom + 120, {ink, style, width});
        write(canvas, {x_of(share), bar.bottom + 150}, Side::Middle,
              plain_number(share * 100, locale.separator) + " %", small_font);
    };
    mark(0, LineStyle::Solid, 1);
    mark(0.5, LineStyle::Dots, 1);
    canvas.line(x_of(close_share), bar.top - 520, x_of(close_share), bar.bottom + 120,
                {ink, LineStyle::Dots, 1});
    write(canvas, {x_of(close_share) - 60, bar.top - 600}, Side::Right,
          fill(close_text.in(locale.lang), {plain_number(close_share * 100, locale.separator)}),
          small_font);
    mark(1, LineStyle::Solid, 3);
    const auto number = [&](double value) { return masked(value, "####0.0#", locale.separator); };
    write(
        canvas, {bar.left, bar.top - 420}, Side::Left,
        fill((use.conductor ? conductor_load : equipment_load).in(locale.lang), {number(use.load)}),
        bold_font, colour);
    const std::string limit = fill(
        (use.conductor ? conductor_limit : equipment_limit).in(locale.lang), {number(use.limit)});
    const double half = canvas.text_width(limit, bold_font) / 2;
    write(canvas, {std::min(x_of(1), bar.right - half), bar.bottom + 420}, Side::Middle, limit,
          bold_font);
    write(canvas, {bar.left, 4200}, Side::Left,
          fill(use_text.in(locale.lang), {share_text(use, locale.separator)}), {12, true});
}

}  // namespace

std::optional<Utilisation> utilisation(const ShortCircuitCase& c,
                                       const ShortCircuitResult& result) {
    Utilisation use;
    if (result.verdict_Leiter != 0) {
        use = {true, result.S_th, result.S_zul, result.verdict_Leiter == withstands};
    } else if (result.verdict_Betriebsmittel != 0) {
        const bool short_enough = result.T_k <= c.Tkr.value;
        use = {false, result.I_th, short_enough ? c.Ithr.value : admissible_current(c, result.T_k),
               result.verdict_Betriebsmittel == withstands};
    }
    if (!(use.limit > 0)) return std::nullopt;
    return use;
}

std::string share_text(const Utilisation& use, DecimalSeparator separator) {
    std::string text = masked(use.share() * 100, "###0.0", separator);
    const std::string full = masked(100, "###0.0", separator);
    if (text == full && !use.withstands) return "> 100";
    if (text == full && use.share() < 1) return "< 100";
    return text;
}

std::optional<Picture> utilisation_picture(const ShortCircuitCase& c,
                                           const ShortCircuitResult& result, const Locale& locale) {
    const auto use = utilisation(c, result);
    if (!use) return std::nullopt;
    return Picture{std::string(title.in(locale.lang)), [use = *use, locale](Canvas& canvas) {
                       draw_verdict(canvas, use, locale.lang);
                       draw_bar(canvas, use, locale);
                   }};
}

}  // namespace zel
