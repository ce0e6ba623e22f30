#include "compare/sensitivity_picture.h"

#include <algorithm>
#include <cmath>

#include "pictures/bars.h"
#include "platform/text/number_text.h"

namespace zel {
namespace {

constexpr Text title = {"Was das Ergebnis nach {0} bewegt", "What moves the result by {0}"};
constexpr Text explained = {"Änderung von {0}, wenn sich eine Eingabe um ihren Schritt ändert",
                            "Change of {0} where one input moves by its step"};
constexpr std::size_t most_bars = 10;

constexpr double note_height = 750;  // twips

constexpr Colour upwards = rgb(190, 90, 30);
constexpr Colour downwards = rgb(50, 120, 190);

}  // namespace

std::optional<Picture> sensitivity_picture(const Sensitivity& found, Method method,
                                           const Locale& locale) {
    const auto place = std::find(found.methods.begin(), found.methods.end(), method);
    if (place == found.methods.end()) return std::nullopt;
    const auto index = static_cast<std::size_t>(place - found.methods.begin());
    if (!found.results[index]) return std::nullopt;
    const std::string_view unit = found.of_temperature ? " K" : " A";
    std::vector<Bar> bars;
    for (const SensitivityLine* line : moving(found, index)) {
        const double change = *line->changes[index];
        bars.push_back(
            {step_label(*line, locale), change,
             (change > 0 ? "+" : "") + masked(change, "0.0#", locale.separator) + std::string(unit),
             change > 0 ? upwards : downwards});
    }
    if (bars.size() > most_bars) bars.resize(most_bars);
    const std::string result =
        masked(*found.results[index], found.of_temperature ? "0.0" : "0", locale.separator) +
        (found.of_temperature ? " °C" : " A");
    return Picture{fill(title.in(locale.lang), {name_of(method)}),
                   [bars, about = fill(explained.in(locale.lang), {result}),
                    note = fold_note(found, locale.lang)](Canvas& canvas) {
                       write(canvas, {picture_margin, picture_top - 200}, Side::Left, about,
                             small_font, faint_ink);
                       draw_bars(canvas, bars, {}, picture_top + 250,
                                 picture_sheet.bottom - (note.empty() ? 250 : note_height));
                       write_lines(canvas,
                                   {picture_margin, picture_sheet.bottom - note_height + 100},
                                   Side::Left, picture_sheet.width() - 2 * picture_margin, note,
                                   small_font, faint_ink);
                   }};
}

}  // namespace zel
