#include "workflow/run/transient_text.h"

#include "platform/text/listing.h"
#include "steady/case/state_change.h"

namespace zel {
namespace {

constexpr Text heading = {"Zustandsänderungen", "Change-of-states"};
constexpr Text method_label = {"Berechnungsverfahren :", "Calculation method :"};
constexpr Text marks_found = {"*  kennzeichnet den berechneten Wert",
                              "*  marks the calculated value"};
constexpr Text not_found = {"Fehler", "Error"};
constexpr std::string_view found_mark = " *";

/// A quantity of a row; one that the failed row sought says so.
std::string shown(const StateChange& row, StateCell cell, std::string text, bool failed,
                  LangId lang) {
    if (takes_input(row.merker, cell)) return text;
    return failed ? std::string(not_found.in(lang)) : text + std::string(found_mark);
}

std::string with_unit(const Entry& cell, std::string_view unit) {
    return (cell.given() ? cell.text : "0") + std::string(unit);
}

void add_row(Listing& listing, const TransientResult& result, const CalcCase& c, std::size_t i,
             LangId lang) {
    const StateChange& row = c.Z[i];
    const bool failed = result.rows[i].Failed == 1;
    listing.add_caption(change_of_state_names[i].in(lang));
    listing.add(new_current_label.in(lang),
                shown(row, &StateChange::Strom, with_unit(row.Strom, " A"), failed, lang));
    listing.add(new_temperature_label.in(lang),
                shown(row, &StateChange::TEMP, with_unit(row.TEMP, " °C"), failed, lang));
    const std::string duration = with_unit(row.min, " min ") + with_unit(row.sec, " sec");
    listing.add(duration_label.in(lang), shown(row, &StateChange::min, duration, failed, lang));
    // "t 0-1 = 5 min 0 sec": the label ends with the sign.
    const std::string& total = result.texts[i].total;
    const std::size_t sign = total.find('=');
    if (sign != std::string::npos)
        listing.add(total.substr(0, sign + 1), without_outer_blanks(total.substr(sign + 1)));
}

}  // namespace

std::string start_current_text(const TransientStart& start, const CalcCase& c,
                               DecimalSeparator separator) {
    return masked(start.current * sharing_conductors(c), "#####0", separator) + " A";
}

std::string start_temperature_text(const TransientStart& start, DecimalSeparator separator) {
    return masked(start.temperature, "####0.0", separator) + " °C";
}

std::string transient_text(const TransientResult& result, const CalcCase& c, const Locale& locale) {
    Listing listing;
    listing.add(method_label.in(locale.lang), std::string(name_of(result.method)));
    listing.add(without_outer_blanks(start_current_label.in(locale.lang)),
                start_current_text(result.start, c, locale.separator));
    listing.add(without_outer_blanks(start_temperature_label.in(locale.lang)),
                start_temperature_text(result.start, locale.separator));
    for (std::size_t i = 0; i < result.rows_run(); ++i) add_row(listing, result, c, i, locale.lang);
    return std::string(heading.in(locale.lang)) + "\n" + listing.text() + "\n  " +
           std::string(marks_found.in(locale.lang)) + "\n";
}

}  // namespace zel
