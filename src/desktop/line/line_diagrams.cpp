#include "desktop/line/line_diagrams.h"

#include "desktop/frame/job_runner.h"
#include "desktop/line/course_panel.h"
#include "desktop/line/form1_transient_page.h"
#include "desktop/line/line_reports.h"
#include "forms/line_form.h"
#include "shell/program_texts.h"
#include "tables_graphs/curve_points.h"
#include "tables_graphs/steady_diagram.h"
#include "tables_graphs/transient_diagram.h"

namespace zel {
namespace {

constexpr Text diagram_name = {"Diagramm", "diagram"};

constexpr CurveSwitch switches[] = {
    {"show_current", {"Anzeige Stromverlauf", "Show current"}, current_curve},
    {"show_temperature", {"Anzeige Temperaturverlauf", "Show temperature"}, temperature_curve},
};

constexpr BoxText no_time = {
    Icon::Stop,
    short_name,
    {"In den Zustandsänderungen vergeht keine Zeit: es gibt keinen Verlauf.",
     "No time passes in the changes of state: there is no course to be drawn."}};

std::optional<DiagramContent> steady_content(const LineDiagramParts& parts) {
    const CalcCase c = parts.line.c;
    if (start_table(c, parts.session).refusal) {
        parts.messages.run_refused(
            [parts] { return refusal_of_table(parts.line.c, parts.session.lang); });
        return std::nullopt;
    }
    std::optional<ParameterTable> curves;
    RunProgress progress(parts.form, parts.session.lang, parts.patience);
    run_job(progress, parts.session.dialogs, [&curves, &c, session = parts.session](Job& job) {
        MethodMemory memory = *session.memory;
        curves = calculate_curves(
            c, session.apart(job.dialogs(), &memory), [&job](std::size_t done, std::size_t all) {
                job.tell({100.0 * static_cast<double>(done) / static_cast<double>(all)});
                return !job.cancelled();
            });
    });
    if (!curves) return std::nullopt;
    return DiagramContent{
        [c, found = *curves](const Locale& locale) { return steady_diagram(found, c, locale); },
        [c, found = *curves] { return steady_points(found, c); },
        steady_graph_order(c, *curves, parts.session)};
}

/// Of the last transient, as long as it is that of the inputs.
std::optional<FieldBox> refusal_of_course(const LineDiagramParts& parts) {
    const TransientMemory& memory = parts.line.transient;
    if (memory.result() == nullptr || memory.result_is_stale(parts.line.c, parts.session) ||
        TotalTime(memory.result()->rows) > 0)
        return std::nullopt;
    return FieldBox{box_in(parts.session.lang, no_time),
                    &forms::transient_input(0, &StateChange::min)};
}

std::optional<DiagramContent> transient_content(const LineDiagramParts& parts) {
    const TransientMemory& memory = parts.line.transient;
    const Session& session = parts.session;
    if (memory.result() == nullptr) return std::nullopt;
    if (!transient_is_current(parts.line, session)) return std::nullopt;
    if (const auto refusal = refusal_of_course(parts)) {
        session.tell(refusal->box);
        parts.messages.run_refused([parts] { return refusal_of_course(parts); });
        return std::nullopt;
    }
    StoredCourse stored = {parts.line.c, *memory.result(), {}};
    std::optional<std::vector<RowSeries>> series;
    RunProgress progress(parts.form, session.lang, parts.patience);
    run_job(progress, session.dialogs,
            [&series, &stored, basis = memory.basis(), session](Job& job) {
                MethodMemory methods = *session.memory;
                series = transient_series(stored.c, basis, stored.result,
                                          session.apart(job.dialogs(), &methods),
                                          [&job, lang = session.lang](const TransientProgress& at) {
                                              job.tell(progress_of(at, lang));
                                              return !job.cancelled();
                                          });
            });
    if (!series) return std::nullopt;
    stored.series = *std::move(series);
    return DiagramContent{
        [stored](const Locale& locale) { return *transient_diagram(stored.course(), locale); },
        [stored] {
            return transient_points(stored.series,
                                    current_steps(stored.result.rows, stored.result.start,
                                                  stored.c.Anzahl_Teilleiter_db));
        },
        transient_graph_order(stored.c, stored.result, stored.series)};
}

}  // namespace

DiagramForm steady_diagram_form(const LineDiagramParts& parts) {
    return {"frm_graph_steady", steady_diagram_title, diagram_name, true, {}, [parts] {
                return steady_content(parts);
            }};
}

DiagramForm transient_diagram_form(const LineDiagramParts& parts) {
    return {"frm_graph_unsteady",
            transient_diagram_title,
            diagram_name,
            false,
            {std::begin(switches), std::end(switches)},
            [parts] { return transient_content(parts); },
            [parts] { return transient_is_current(parts.line, parts.session); }};
}

}  // namespace zel
