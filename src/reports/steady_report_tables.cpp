#include "reports/steady_report_tables.h"

#include "reports/report_frame.h"
#include "reports/steady_report.h"
#include "tables_graphs/steady_diagram.h"
#include "workflow/rules/derived.h"

namespace zel {
namespace {

// ---- tables

constexpr PrintText temperatures_title = {"Tabelle Temperaturberechnung nach ",
                                          "table of temperature calculation: "};
constexpr PrintText currents_title = {"Tabelle Stromstärkeberechnung nach ",
                                      "table of current load calculation: "};
constexpr PrintText wind_head = {"Windgeschwindigkeit (m/s)", "wind velocity (m/s)"};
constexpr PrintText temperature_head = {"temperatur (°C)", "temperature (°C)"};
constexpr PrintText conductor_of_busbar = {"Seil-", "conductor"};

/// What a table says of what its rows step.
struct TableWords {
    PrintText kind;
    PrintText row_head;
    bool of_temperature;  // the row head goes on with the word
    std::string_view row_mask;
    std::string_view cell_mask;
};
constexpr TableWords table_words[] = {
    // by `Stepped`
    {{"Leitertemperatur- / Windgeschwindigkeits- / Stromtabelle  ",
      "conductor temperature / wind velocity / current table  "},
     {"Leiter-", "conductor"},
     true,
     "###0.0",
     "#####0"},
    {{"Umgebungstemperatur- / Windgeschwindigkeits- / Stromtabelle  ",
      "ambient temperature / wind velocity / current table  "},
     {"Umgebungs-", "ambient"},
     true,
     "###0.0",
     "#####0"},
    {{"Strom- / Windgeschwindigkeits- / Temperaturtabelle  ",
      "current / wind velocity / temperature table  "},
     {"Stromstärke (A)", "current load (A)"},
     false,
     "####0",
     "##0.0"},
};
constexpr std::string_view wind_mask = "##0.0#";
constexpr std::string_view no_result = "Error";

std::vector<std::vector<std::string>> rows_of(const ParameterTable& table, std::size_t method,
                                              const CalcCase& c, const TableWords& words,
                                              const ReportPrint& print) {
    const double share = table.stepped == Stepped::Current ? bundle_share(c) : 1;
    std::vector<std::vector<std::string>> rows;
    for (std::size_t step = 0; step < table.steps.size(); ++step) {
        auto& row = rows.emplace_back();
        row.push_back(print.number(table.steps[step] * share, words.row_mask));
        for (std::size_t wind = 0; wind < table.winds.size(); ++wind) {
            const auto& cell = table.at(step, wind, method);
            row.push_back(cell ? print.number(*cell, words.cell_mask) : std::string(no_result));
        }
    }
    return rows;
}

// ---- the diagram

constexpr PrintText graph_of_temperatures = {"Graphik zur statischen Temperaturberechnung nach ",
                                             "graphic of steady-state temperature calculation by "};
constexpr PrintText graph_of_currents = {"Graphik zur statischen Stromstärkeberechnung nach ",
                                         "graphic of steady-state current load calculation by "};
constexpr PrintText current_axis = PrintText::same("I / A");
constexpr PrintText temperature_axis = PrintText::same("T / °C");
constexpr PrintText ambient_axis = {"T / °C (Umgebungstemperatur)", "T / °C (ambient temperature)"};
constexpr PrintText conductor_axis = {"T / °C (Seiltemperatur)", "T / °C (conductor temperature)"};
constexpr PrintText unit_of_x = {"1 Hilfslinieneinheit x-Achse = ", "1 line unit x - axis = ",
                                 "L’unité de l’axe des x = ", "1 unidad de x-plano corresponde "};
constexpr PrintText unit_of_y = {"1 Hilfslinieneinheit y-Achse = ", "1 line unit y - axis = ",
                                 "L’unité de l’axe des y = ", "1 unidad de y-plano corresponde "};
constexpr PrintText conductor_temperature = {"Leitertemperatur = ", "conductor temperature = "};
constexpr PrintText ambient_temperature = {"Umgebungstemperatur = ", "ambient temperature = "};
constexpr PrintText angle_note = {"Winkel Wind / Seil = ", "angle wind / conductor = "};
constexpr PrintText radiation_note = {"Globalstrahlung = ", "sun/sky radiation = "};
constexpr double graph_height = 12400;  // twips

const PrintText& y_axis(Stepped stepped) {
    switch (stepped) {
        case Stepped::AmbientTemperature: return ambient_axis;
        case Stepped::ConductorTemperature: return conductor_axis;
        default: return temperature_axis;
    }
}

/// A method that is told by a pair of messages where it finds nothing.
struct FailureWords {
    Method method;
    Text lines;
};
constexpr FailureWords failure_words[] = {
    {Method::TB207,
     {"Die Berechnungsiteration nach Cigre TB 207\nergab kein brauchbares Ergebnis!\n"
      "Bitte überprüfen Sie ihre Eingabedaten auf Plausibilität\nund Realitätsnähe !",
      "The calculation by Cigre TB 207\ndid not lead to a result!\n"
      "Please check your input data \nif they are in range of reality !"}},
    {Method::TBB,
     {"Die Berechnungsiteration nach Cigre TB 207 / TBB\nergab kein brauchbares Ergebnis!\n"
      "Bitte überprüfen Sie ihre Eingabedaten auf Plausibilität\nund Realitätsnähe !",
      "The calculation by Cigre TB 207 / TBB\ndid not lead to a result!\n"
      "Please check your input data \nif they are in range of reality !"}},
    {Method::TB601,
     {"Die Berechnungsiteration nach Cigre TB 601\nergab kein brauchbares Ergebnis!\n"
      "Bitte überprüfen Sie ihre Eingabedaten auf Plausibilität\nund Realitätsnähe !",
      "The calculation by Cigre 601\ndid not lead to a result!\n"
      "Please check your input data \nif they are in range of reality !"}},
};

/// Writes "TB 601" and "TB 207" at the first curve of each, where the two keep clear of each other.
void tag_methods(Diagram& diagram) {
    constexpr std::pair<std::string_view, double> tags[] = {{"TB 601", 0.75}, {"TB 207", 0.25}};
    for (const auto& [tag, place] : tags) {
        const std::string name = "Cigre " + std::string(tag) + ",";  // the wind comes behind
        const auto found =
            std::find_if(diagram.curves.begin(), diagram.curves.end(),
                         [&](const DiagramCurve& curve) { return curve.name.starts_with(name); });
        if (found == diagram.curves.end()) continue;
        found->tag = tag;
        found->tag_at = place;
    }
}

bool finds_all(const ParameterTable& table, std::size_t method) {
    for (std::size_t step = 0; step < table.steps.size(); ++step)
        for (std::size_t wind = 0; wind < table.winds.size(); ++wind)
            if (!table.at(step, wind, method)) return false;
    return true;
}

}  // namespace

std::string methods_line(const CalcCase& c) {
    std::string line;
    for (const Method method : all_methods) {
        if (!is_selected(c, method)) continue;
        const std::string_view name = method == Method::TBB ? "Puffer" : name_of(method);
        line += (line.empty() ? "" : " / ") + std::string(name);
    }
    return line;
}

void add_tables(Report& report, const ParameterTable& table, const CalcCase& c, LabelWriter& say,
                const ReportPrint& print, bool busbar) {
    const TableWords& words = table_words[static_cast<std::size_t>(table.stepped)];
    const auto said = [&](const PrintText& text) { return std::string(say(text)); };
    report.blocks.emplace_back(
        SheetBreak{said(table.stepped == Stepped::Current ? temperatures_title : currents_title) +
                       methods_line(c),
                   said(FrameTexts{.print_date = {"", ""}}.sheet_label)});
    const std::string kind =
        said(words.kind) + said(PrintText(bundle_name(c.Anzahl_Teilleiter_db)));
    for (std::size_t method = 0; method < table.methods.size(); ++method) {
        ReportTable made;
        made.caption =
            kind + ", " +
            std::string(table.methods[method] == Method::TBB ? "Puffer"
                                                             : name_of(table.methods[method]));
        const bool of_tube = busbar && table.stepped == Stepped::ConductorTemperature;
        made.row_head = said(of_tube ? conductor_of_busbar : words.row_head);
        if (words.of_temperature) made.row_head += "\n" + said(temperature_head);
        made.column_head = said(wind_head);
        for (const double wind : table.winds) made.columns.push_back(print.number(wind, wind_mask));
        made.rows = rows_of(table, method, c, words, print);
        report.blocks.emplace_back(std::move(made));
    }
}

Report S02_Print_Graph_Steady(const CalcCase& c, const ParameterTable& curves,
                              const ReportPrint& print) {
    LabelWriter say(print.lang);
    const auto said = [&](const PrintText& text) { return std::string(say(text)); };
    const FrameTexts frame = {.print_date = {"Druck-Datum:", "printout date:"}};
    Report report;
    report.title =
        said(curves.stepped == Stepped::Current ? graph_of_temperatures : graph_of_currents) +
        methods_line(c);
    report.sheet_label = said(frame.sheet_label);
    report.band = project_band(say, band_labels, project_of(c));
    report.blocks.emplace_back(
        ReportParagraph{said(PrintText(bundle_name(c.Anzahl_Teilleiter_db))), true});
    Diagram diagram = steady_diagram(curves, c, {LangId::German, print.separator});
    diagram.title.clear();
    diagram.header.clear();
    diagram.x.caption = said(current_axis);
    diagram.y.caption = said(y_axis(curves.stepped));
    diagram.x.line_unit = said(unit_of_x);
    diagram.y.line_unit = said(unit_of_y);
    tag_methods(diagram);
    const bool ambient = curves.stepped == Stepped::AmbientTemperature;
    ReportSection notes = {{}, {}, 2};
    notes.rows = {
        {said(ambient ? conductor_temperature : ambient_temperature),
         print.number((ambient ? c.Leitertemp_db : c.Umgebungstemperatur_db).value, "###0.0"),
         "°C"},
        {said(angle_note), print.number(S_Winkel_Wind_Leiter(c), "##0"), " °"},
        {said(radiation_note), print.number(c.Globalstrahlung_db.value, "####0"), " W/qm"}};
    report.blocks.emplace_back(std::move(notes));
    report.blocks.emplace_back(
        ReportPicture{graph_height, [shown = std::move(diagram), separator = print.separator](
                                        Canvas& canvas, const CanvasBox& area) {
                          draw(canvas, area, shown, {}, separator);
                      }});
    add_footer(report, say, frame, print.print_date, c.Bearbeiter_db);
    return report;
}

std::vector<Box> failures_of_graph(const ParameterTable& curves, LangId lang) {
    std::vector<Box> boxes;
    for (const FailureWords& words : failure_words)
        for (std::size_t method = 0; method < curves.methods.size(); ++method)
            if (curves.methods[method] == words.method && !finds_all(curves, method))
                boxes.push_back(
                    box_in(lang, BoxText{Icon::None, steady_diagram_title, words.lines}));
    return boxes;
}

}  // namespace zel
