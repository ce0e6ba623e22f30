#include "reports/steady_report.h"

#include <algorithm>

#include "reports/report_frame.h"
#include "reports/steady_report_rows.h"
#include "reports/steady_report_tables.h"
#include "steady/case/case_fields.h"
#include "workflow/rules/derived.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

constexpr PrintText temperatures_title = {" Temperaturberechnung nach ",
                                          "temperature calculation: "};
constexpr PrintText currents_title = {"Stromstärkeberechnung nach ", "current load calculation: "};
constexpr PrintText busbar_sheet = {"Seite {0}", "page {0}"};

constexpr PrintText by_DC = {"Berechnung mit DC-Widerstand u. T-Koeffizienten",
                             "calculation done with DC resistance & temp.-coeff."};
constexpr PrintText by_AC = {"Berechnung mit AC-Widerständen",
                             "calculation done with AC resistances"};
constexpr PrintText by_none = PrintText::same("Error ACDC_R_Option_Merker");

constexpr PrintText result_head = {"Berechnungsergebnis", "calculation result "};
constexpr PrintText sentence_begins = {"Bei ", "At "};
constexpr PrintText of_current = {"Stromstärke des ", "current load of the "};
constexpr PrintText is_temperature = {" beträgt die Seiltemperatur ",
                                      " the conductor temperature is "};
constexpr PrintText by = {"nach", "by"};
constexpr PrintText of_temperature = {"mittlere Leitertemperatur beträgt die Stromstärke des ",
                                      "averaged conductor temperature the current load of the "};
constexpr PrintText is_current = {"", " is"};
constexpr PrintText surface = {"Temperatur Seil-Oberfläche (TB 601):  ",
                               "temperature conductor surface (TB 601):  "};
constexpr PrintText core_of = {"Temperatur Seilkern (TB 601):  ",
                               "temperature conductor core (TB 601):  "};

constexpr std::string_view current_mask = "#####0";
constexpr std::string_view temperature_mask = "##0.0";
constexpr std::string_view no_value = "-";

/// How a method is called in its sentence, and where it found nothing.
struct MethodWords {
    Method method;
    std::string_view name;
    std::string_view failed;
};
constexpr MethodWords method_words[] = {
    {Method::TB601, " Cigre TB 601", "TB601: Error!"},
    {Method::TB207, " Cigre TB 207", "TB207/TBB: Error!"},
    {Method::TBB, " Puffer", "TB207/TBB: Error!"},
    {Method::Webs, " Webs", "Webs: Error!"},
    {Method::Kirn, " Kirn", "Kirn: Error!"},
};
constexpr std::string_view failed_busbar = "Puffer: Error!";

bool is_busbar_alone(const CalcCase& c) {
    return is_selected(c, Method::TBB) &&
           std::none_of(all_methods.begin(), all_methods.end(), [&](Method method) {
               return method != Method::TBB && is_selected(c, method);
           });
}

class SteadyPages {
public:
    SteadyPages(const SteadyPrint& steady, const ReportPrint& print)
        : c_(steady.c),
          run_(steady.run),
          table_(steady.table),
          print_(print),
          say_(print.lang),
          busbar_(is_busbar_alone(steady.c)) {}

    Report print() {
        report_.title =
            say(run_.basis.current_given ? temperatures_title : currents_title) + methods_line(c_);
        report_.sheet_label = say(busbar_ ? busbar_sheet : frame_.sheet_label);
        report_.band = project_band(say_, band_labels, project_of(c_));
        for (const PrintedSection& section : busbar_ ? busbar_inputs() : method_inputs())
            add(section);
        report_.blocks.emplace_back(SheetBreak{report_.title});
        add_conductor();
        add_results();
        if (table_ != nullptr) add_tables(report_, *table_, c_, say_, print_, busbar_);
        add_footer(report_, say_, frame_, print_.print_date, c_.Bearbeiter_db);
        return std::move(report_);
    }

private:
    std::string say(const PrintText& text) { return std::string(say_(text)); }
    std::string bundle() { return say(PrintText(bundle_name(c_.Anzahl_Teilleiter_db))); }

    // ---- values of rows

    /// What the two currents and the temperature of sheet 1 are: where a transient would start,
    /// else what the first method found.
    [[nodiscard]] std::optional<TransientStart> printed_state() const {
        if (run_.transient_start) return run_.transient_start;
        for (const MethodResult& line : run_.methods)
            if (line.outcome.sound())
                return TransientStart{line.outcome.current_A.value_or(c_.Stromstaerke_db.value),
                                      line.outcome.temperature_C.value_or(c_.Leitertemp_db.value)};
        return std::nullopt;
    }

    std::string current(double share, const Entry& given, std::string_view mask) const {
        if (run_.basis.current_given)
            return given.given() ? print_.number(given.value, mask) : std::string(no_value);
        const auto state = printed_state();
        return state ? print_.number(state->current * share, mask) : std::string(no_value);
    }

    std::string temperature(std::string_view mask) const {
        if (!run_.basis.current_given) return print_.number(c_.Leitertemp_db.value, mask);
        const auto state = printed_state();
        return state ? print_.number(state->temperature, mask) : std::string(no_value);
    }

    std::string date_and_time(std::string_view mask) const {
        for (const Entry* part : {&c_.Tag_db, &c_.Monat_db, &c_.Stunden_db, &c_.Minuten_db})
            if (!part->given()) return std::string(no_value);
        const auto two = [&](const Entry& part) { return print_.number(part.value, mask); };
        return two(c_.Tag_db) + "." + two(c_.Monat_db) + " " + two(c_.Stunden_db) + ":" +
               two(c_.Minuten_db);
    }

    const PrintText& resistance_mode() const {
        switch (c_.ACDC_R_Option_Merker_db) {
            case resistance_by_formula: return by_DC;
            case resistance_by_table: return by_AC;
            default: return by_none;
        }
    }

    std::string value(const PrintedRow& row, Entry CalcCase::*field) const {
        const Entry& entry = c_.*field;
        const bool unset = !entry.given() || (field_of(field).nothing_at_0 && entry.value == 0);
        return unset ? std::string(no_value) : print_.number(entry.value, row.mask);
    }
    std::string value(const PrintedRow& row, std::int16_t CalcCase::*field) const {
        return c_.*field == 0 ? std::string(no_value) : print_.number(c_.*field, row.mask);
    }
    std::string value(const PrintedRow& /*row*/, std::string CalcCase::*field) const {
        const std::string text = without_outer_blanks(c_.*field);
        return text.empty() ? std::string(no_value) : text;
    }
    std::string value(const PrintedRow& row, PrintedValue which) {
        switch (which) {
            case PrintedValue::DateAndTime: return date_and_time(row.mask);
            case PrintedValue::CurrentOfOne: return current(1, c_.Stromstaerke_db, row.mask);
            case PrintedValue::CurrentOfBundle:
                return current(c_.Anzahl_Teilleiter_db, c_.Stromstaerke_Buendel, row.mask);
            case PrintedValue::Temperature: return temperature(row.mask);
            case PrintedValue::BundleName: return bundle();
            case PrintedValue::ConductorType: return say(printed_type(c_.conductor_type_db));
            case PrintedValue::ConductorShape: return say(printed_shape(c_.conductor_shape_db));
            case PrintedValue::ResistanceMode: return {};
        }
        return {};
    }

    [[nodiscard]] static bool is_text(const PrintedRow& row) {
        if (std::holds_alternative<std::string CalcCase::*>(row.source)) return true;
        const auto* which = std::get_if<PrintedValue>(&row.source);
        return which != nullptr && row.unit.empty() && *which != PrintedValue::DateAndTime;
    }

    [[nodiscard]] bool applies(const PrintedRow& row) const {
        const auto* which = std::get_if<PrintedValue>(&row.source);
        return which == nullptr || *which != PrintedValue::CurrentOfBundle ||
               c_.Anzahl_Teilleiter_db > 1;
    }

    /// What nobody gave says so.
    [[nodiscard]] std::string mark_of(const PrintedRow& row) const {
        const auto* field = std::get_if<Entry CalcCase::*>(&row.source);
        if (field == nullptr || !(c_.**field).assumed) return {};
        return " " + std::string(assumed_mark.in(language_of(print_.lang)));
    }

    ReportRow printed(const PrintedRow& row) {
        const auto* which = std::get_if<PrintedValue>(&row.source);
        if (which != nullptr && *which == PrintedValue::ResistanceMode)
            return {say(resistance_mode())};
        ReportRow made = {say(row.label)};
        made.value = std::visit([&](auto source) { return value(row, source); }, row.source);
        made.is_text = is_text(row);
        if (made.value != no_value) made.unit = std::string(row.unit) + mark_of(row);
        return made;
    }

    // ---- blocks

    void add(const PrintedSection& section) {
        ReportSection made;
        if (!section.head.texts[0]->empty()) made.head = say(section.head);
        made.columns = section.columns;
        for (const PrintedRow& row : section.rows)
            if (applies(row)) made.rows.push_back(printed(row));
        report_.blocks.emplace_back(std::move(made));
    }

    void add_conductor() {
        if (busbar_) {
            for (const PrintedSection& section : busbar_conductor()) add(section);
            return;
        }
        for (const PrintedSection& section : method_conductor()) add(section);
        if (c_.conductor_type_db == steel_cored_conductor ||
            c_.conductor_type_db == composite_core_conductor)
            add(method_core());
        add(method_radial());
    }

    void add_results() {
        const std::string head = say(result_head);
        results_.clear();
        for (const MethodResult& line : run_.methods) add_result(line);
        report_.blocks.emplace_back(ReportParagraph{joined(results_, "\n"), false, head});
        for (const Note& note : notes_on(run_, {language_of(print_.lang), print_.separator}))
            report_.blocks.emplace_back(ReportParagraph{note.text});
    }
    void add_line(std::string text) { results_.push_back(std::move(text)); }

    void add_result(const MethodResult& line) {
        const auto& words = *std::find_if(
            std::begin(method_words), std::end(method_words),
            [&](const MethodWords& candidate) { return candidate.method == line.method; });
        const auto& found =
            run_.basis.current_given ? line.outcome.temperature_C : line.outcome.current_A;
        if (!line.outcome.sound() || !found)
            return add_line(std::string(busbar_ ? failed_busbar : words.failed));
        add_line(sentence(words.name, *found));
        if (!line.outcome.tb601) return;
        add_line(say(surface) + print_.number(line.outcome.tb601->TSurface, temperature_mask) +
                 " °C");
        add_line(say(core_of) + print_.number(line.outcome.tb601->TCore, temperature_mask) + " °C");
    }

    std::string sentence(std::string_view method, double found) {
        std::string text = say(sentence_begins);
        if (run_.basis.current_given) {
            text += print_.number(run_.basis.given, current_mask) + " A " + say(of_current);
            text += bundle() + say(is_temperature) + say(by) + std::string(method) + " ";
            return text + print_.number(found, temperature_mask) + " °C ";
        }
        text += print_.number(run_.basis.given, temperature_mask) + " °C " + say(of_temperature);
        text += bundle() + say(is_current) + std::string(method) + " ";
        return text + print_.number(found * c_.Anzahl_Teilleiter_db, current_mask) + " A ";
    }

    const CalcCase& c_;
    const SteadyRunResult& run_;
    const ParameterTable* table_;
    const ReportPrint& print_;
    LabelWriter say_;
    bool busbar_;  // the method of the busbar is the only one
    FrameTexts frame_ = {.print_date = {"Druck-Datum:", "print date:"}};
    std::vector<std::string> results_;  // a line each
    Report report_;
};

}  // namespace

std::optional<Report> print_tab_stat(const SteadyPrint& steady, const ReportPrint& print) {
    if (is_busbar_alone(steady.c)) return S01_print_tab_stat_TBB_1(steady, print);
    if (methods_line(steady.c).empty()) return std::nullopt;
    return S01_print_tab_stat_cigrewebskirn_1(steady, print);
}

std::string_view steady_procedure(const CalcCase& c) {
    return is_busbar_alone(c) ? "S01_print_tab_stat_TBB_1" : "S01_print_tab_stat_cigrewebskirn_1";
}

Report S01_print_tab_stat_cigrewebskirn_1(const SteadyPrint& steady, const ReportPrint& print) {
    return SteadyPages(steady, print).print();
}

Report S01_print_tab_stat_TBB_1(const SteadyPrint& steady, const ReportPrint& print) {
    return SteadyPages(steady, print).print();
}

}  // namespace zel
