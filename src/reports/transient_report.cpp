#include "reports/transient_report.h"

#include "reports/report_frame.h"
#include "steady/case/state_change.h"
#include "workflow/rules/derived.h"
#include "workflow/run/transient_text.h"

namespace zel {
namespace {

/// What a method says.
struct MethodWords {
    Method method;
    PrintText table_title;
    PrintText graph_title;
    PrintText start;
};

constexpr PrintText start_of_TB207 = {
    "Als Ausgangszustand wird der aktuell berechnete statische Zustand nach Cigre TB 207 "
    "angenommen, das Seil befindet sich zum Zeitpunkt t0 = 0 sec im thermischen Gleichgewicht.",
    "The calculated steady-state by Cigre TB 207 will be assumed as the initial state , the line "
    "is at the starting point t0 = 0 sec in thermal equillibrium."};

constexpr MethodWords method_words[] = {
    {Method::TB207,
     {"Tabelle zur transienten Berechnung von Stromstärke / Leitertemperatur / Zeitdauer nach "
      "Cigre TB 207",
      "table of calculation: current load / conductor temperature / time  in the unsteady state by "
      "Cigre TB 207 "},
     {"Graphik zur transienten Berechnung von Stromstärke / Leitertemperatur / Zeitdauer nach "
      "Cigre TB 207",
      "Graphic of calculation: current load / conductor temperature / time  in the unsteady state "
      "by Cigre TB 207"},
     start_of_TB207},
    {Method::TB601,
     {"Tabelle zur transienten Berechnung von Stromstärke / Leitertemperatur / Zeitdauer nach "
      "Cigre TB 601",
      "table of calculation: current load / conductor temperature / time  in the unsteady state by "
      "Cigre TB 601 "},
     {"Graphik zur transienten Berechnung von Stromstärke / Leitertemperatur / Zeitdauer nach "
      "Cigre TB 601",
      "Graphic of calculation: current load / conductor temperature / time  in the unsteady state "
      "by Cigre TB 601"},
     {"Als Ausgangszustand wird der aktuell berechnete statische Zustand nach Cigre TB 601 "
      "angenommen, das Seil befindet sich zum Zeitpunkt t0 = 0 sec im thermischen Gleichgewicht.",
      "The calculated steady-state by Cigre TB 601 will be assumed as the initial state , the line "
      "is at the starting point t0 = 0 sec in thermal equillibrium."}},
    {Method::TBB,
     {"Tabelle zur transienten Berechnung von Stromstärke / Leitertemperatur / Zeitdauer nach "
      "Puffer",
      "table of calculation: current load / conductor temperature / time  in the unsteady state by "
      "Puffer "},
     {"Graphik zur transienten Berechnung von Stromstärke / Leitertemperatur / Zeitdauer nach "
      "Puffer",
      "Graphic of calculation: current load / conductor temperature / time  in the unsteady state "
      "by Puffer"},
     start_of_TB207},
};

const MethodWords& words_of(Method method) {
    for (const MethodWords& words : method_words)
        if (words.method == method) return words;
    return method_words[0];
}

/// An item of the ambient row.
struct AmbientItem {
    PrintText label;
    std::string_view mask;
    std::string_view unit;
    double (*value)(const CalcCase& c);
};

constexpr std::size_t angle_item = 1;
constexpr AmbientItem ambient_items[] = {
    {{"Windgeschwindigkeit = ", "Wind speed = "},
     "##0.0#",
     " m/s",
     [](const CalcCase& c) { return c.Windgeschwindigkeit_db.value; }},
    {{"Winkel Wind / Seil = ", "angle wind / conductor = "}, "##0", " °", S_Winkel_Wind_Leiter},
    {{"Umgebungstemperatur = ", "ambient temperature = "},
     "###0.0",
     " °C",
     [](const CalcCase& c) { return c.Umgebungstemperatur_db.value; }},
    {{"Globalstrahlung = ", "sun/sky radiation = "},
     "####0",
     " W/qm",
     [](const CalcCase& c) { return c.Globalstrahlung_db.value; }},
};
constexpr PrintText angle_of_graph = {"Winkel Wind / Leiter = ", "angle wind / conductor = "};

constexpr PrintText initial_state = {"Ausgangszustand", "Initial state"};
constexpr std::string_view running_times[] = {
    "t 0-1 = ", "t0-2 = ", "t0-3 = ", "t 0-4 = ", "t0-5 = ", "t0-6 = "};
/// Only one block names the duration in all languages.
constexpr std::size_t block_of_four_languages = 2;
constexpr PrintText duration_in_four = {"Zeitdauer:", "duration:", "durée:", "duración:"};
constexpr PrintText marks_found = {"*  kennzeichnet den berechneten Wert",
                                   "*  marks the calculated value"};
constexpr std::string_view not_found = "Error";
constexpr PrintText time_in_seconds = {"Zeit / sec", "time / s"};
constexpr PrintText time_in_minutes = {"Zeit / min", "time / min"};
constexpr PrintText unit_of_seconds = {"1 Hilfslinieneinheit Zeit = ", "1 line unit time = "};
constexpr PrintText unit_of_minutes = {"1 Hilfslinieneinheit x-Achse = ", "1 line unit x-axis = "};
constexpr PrintText temperature_axis = {"Temperatur / °C", "temperature / °C"};
constexpr PrintText current_axis = {"Strom / A", "current / A"};
constexpr PrintText unit_of_temperature = {"1 Hilfslinieneinheit Temperatur = ",
                                           "1 line unit temperature = "};
constexpr PrintText unit_of_current = {"1 Hilfslinieneinheit Strom = ", "1 line unit current = "};
constexpr PrintText bare_conductor_tag = {"blanker Leiter", "blanker Leiter"};
constexpr double graph_height = 12400;  // twips

/// A report of the transient area.
class TransientPage {
public:
    TransientPage(const CalcCase& c, const TransientResult& result, const ReportPrint& print)
        : c_(c), result_(result), print_(print), say_(print.lang) {}

    Report table() {
        begin(words_of(result_.method).table_title);
        add_start();
        const std::size_t rows = result_.rows_run();
        for (std::size_t i = 0; i < rows; ++i) add_change(i);
        add_paragraph(say(marks_found));
        for (const Note& note : notes_on(result_, c_, {language_of(print_.lang), print_.separator}))
            add_paragraph(note.text);
        return end();
    }

    Report graph(const std::vector<RowSeries>& series) {
        begin(words_of(result_.method).graph_title);
        report_.blocks.emplace_back(ReportSection{{}, ambient_row(&angle_of_graph), 2});
        add_diagram(series);
        return end();
    }

private:
    std::string say(const PrintText& text) { return std::string(say_(text)); }
    void add_paragraph(std::string text, bool bold = false) {
        report_.blocks.emplace_back(ReportParagraph{std::move(text), bold});
    }

    void begin(const PrintText& title) {
        report_.title = say(title);
        report_.sheet_label = say(frame_.sheet_label);
        report_.band = project_band(say_, band_labels, project_of(c_));
        add_paragraph(say(PrintText(bundle_name(c_.Anzahl_Teilleiter_db))), true);
    }

    Report end() {
        add_footer(report_, say_, frame_, print_.print_date, c_.Bearbeiter_db);
        return std::move(report_);
    }

    std::vector<ReportRow> ambient_row(const PrintText* angle = nullptr) {
        std::vector<ReportRow> rows;
        for (std::size_t i = 0; i < std::size(ambient_items); ++i) {
            const AmbientItem& item = ambient_items[i];
            rows.push_back({say(angle != nullptr && i == angle_item ? *angle : item.label),
                            print_.number(item.value(c_), item.mask), std::string(item.unit)});
        }
        return rows;
    }

    void add_start() {
        const std::string head = say(initial_state);
        const std::string sentence = say(words_of(result_.method).start);
        ReportSection section = {{}, ambient_row(), 2};
        section.rows.push_back(
            {say(PrintText(start_current_label)),
             print_.number(result_.start.current * c_.Anzahl_Teilleiter_db, "#####0"), " A"});
        section.rows.push_back({say(PrintText(start_temperature_label)),
                                print_.number(result_.start.temperature, "####0.0"), " °C"});
        report_.blocks.emplace_back(ReportParagraph{sentence, false, head});
        report_.blocks.emplace_back(std::move(section));
    }

    /// A value of row `i`: marked where it was found, and told where it could not be.
    ReportRow value_of(std::size_t i, StateCell cell, std::string label, std::string value,
                       std::string_view unit) const {
        const bool given = takes_input(c_.Z[i].merker, cell);
        if (!given && result_.rows[i].Failed == 1)
            return {std::move(label), std::string(not_found)};
        return {std::move(label), std::move(value), std::string(unit) + (given ? "" : " *")};
    }

    void add_change(std::size_t i) {
        const TransientRow& row = result_.rows[i];
        ReportSection section;
        section.head = say(PrintText(change_of_state_names[i]));
        const std::string current = say(PrintText(new_current_label));
        const std::string temperature = say(PrintText(new_temperature_label));
        const std::string duration =
            say(i == block_of_four_languages ? duration_in_four : PrintText(duration_label));
        section.rows = {
            value_of(i, &StateChange::Strom, current,
                     print_.number(row.Strom * c_.Anzahl_Teilleiter_db, "#####0"), " A"),
            value_of(i, &StateChange::TEMP, temperature, print_.number(row.Temp, "####0.0"), " °C"),
            value_of(i, &StateChange::min, duration,
                     std::to_string(row.Min) + " min " + std::to_string(row.Sec), " sec")};
        elapsed_ += duration_s(row);
        if (row.Failed != 1)
            section.rows.push_back(
                {std::string(running_times[i]), print_.number(elapsed_ / 60, "##0.0#"), " min"});
        report_.blocks.emplace_back(std::move(section));
    }

    void add_diagram(const std::vector<RowSeries>& series) {
        const Locale locale{LangId::German, print_.separator};
        auto diagram =
            transient_diagram({c_, result_.start, result_.rows, series}, locale, PlotMode::Print);
        if (!diagram) return;
        const bool in_seconds = diagram->x.unit == "sec";
        diagram->title.clear();
        diagram->header.clear();
        diagram->x.caption = say(in_seconds ? time_in_seconds : time_in_minutes);
        diagram->y.caption = say(temperature_axis);
        diagram->right->caption = say(current_axis);
        diagram->x.line_unit = say(in_seconds ? unit_of_seconds : unit_of_minutes);
        diagram->x.line_unit_end = in_seconds ? " sec" : "min";
        diagram->x.mask = "##0.0";
        diagram->y.mask = "####0.0";
        diagram->right->mask = "#####0";
        diagram->y.line_unit = say(unit_of_temperature);
        diagram->right->line_unit = say(unit_of_current);
        if (c_.conductor_type_db != tubular_busbar)
            diagram->curves[temperature_curve].tag = say(bare_conductor_tag);
        diagram->legend.front().text = diagram->y.caption;
        diagram->legend.back().text = diagram->right->caption;
        report_.blocks.emplace_back(
            ReportPicture{graph_height, [shown = *std::move(diagram), separator = print_.separator](
                                            Canvas& canvas, const CanvasBox& area) {
                              draw(canvas, area, shown, {}, separator);
                          }});
    }

    const CalcCase& c_;
    const TransientResult& result_;
    const ReportPrint& print_;
    LabelWriter say_;
    FrameTexts frame_ = {.print_date = {"Druck-Datum:", "printout date:"}};
    Report report_;
    double elapsed_ = 0;  // s from the start of the transient
};

}  // namespace

Report S03_Print_Tab_transient_Cigre207_601_TBB(const CalcCase& c, const TransientResult& result,
                                                const ReportPrint& print) {
    return TransientPage(c, result, print).table();
}

Report S04_Print_Graph_transient_Cigre207_601_TBB(const CalcCase& c, const TransientResult& result,
                                                  const std::vector<RowSeries>& series,
                                                  const ReportPrint& print) {
    return TransientPage(c, result, print).graph(series);
}

}  // namespace zel
