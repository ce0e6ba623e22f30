
#include "platform/text/listing.h"
#include "workflow/run/steady_texts.h"

namespace zel {
namespace {

constexpr Text results_caption = {"Ergebnis", "Result"};
constexpr Text methods_caption = {"Berechnungsverfahren :", "Calculation methods :"};

std::string rows_of(const SteadyRunResult& result, LangId lang) {
    Listing listing;
    listing.add(methods_caption.in(lang), result.methods_line);
    listing.add(angle_label.in(lang), result.angle_text);
    listing.add(perpendicular_wind_label.in(lang), result.perpendicular_wind_text);
    for (const MethodResult& line : result.methods) {
        std::string value = line.outcome.fault.empty() ? line.result : "-";
        if (!line.outcome.sound()) value += "   (" + line.outcome.status + line.outcome.fault + ")";
        listing.add(line.caption, std::move(value));
    }
    for (const auto& lines : {result.tb601_temperatures, result.tb601_factors})
        for (const auto& [label, text] : lines) listing.add(without_outer_blanks(label), text);
    return listing.text();
}

}  // namespace

std::string result_text(const SteadyRunResult& result, LangId lang) {
    std::string text = std::string(results_caption.in(lang)) + "\n  " + result.head_line + "\n\n" +
                       rows_of(result, lang);
    if (!result.balance_lines.empty()) text += "\n";
    for (const std::string& line : result.balance_lines) text += "  " + line + "\n";
    return text;
}

}  // namespace zel
