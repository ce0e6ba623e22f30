#include "cli/output_file.h"
#include "cli/range_calculation.h"
#include "cli/transient_calculation.h"
#include "platform/errors.h"
#include "program/stores.h"
#include "shell/case_settings.h"
#include "tables_graphs/curve_points.h"
#include "tables_graphs/steady_diagram.h"
#include "tables_graphs/transient_diagram.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

constexpr const char* graph_notes =
    "\n"
    "FILE.svg, FILE.png and FILE.pdf are drawings, a sheet of A4 on its side. FILE.csv has\n"
    "the points of the curves, for other programs to draw: a line for each point, numbers\n"
    "with a point and all their digits.\n"
    "\n"
    "  steady     method,wind_m_s,current_A,temperature_C over the range of \"zel table\"\n"
    "  transient  t_s,temperature_C,current_A from the start to the end of \"zel transient\"\n"
    "\n"
    "Currents are those of the bundle. A curve has a gap, and a field is empty, where a\n"
    "method found nothing; the exit status is 1 then.\n";

constexpr Text wrong_ending = {
    "ein Diagramm wird als .svg, .png oder .pdf geschrieben, seine Punkte als .csv",
    "a diagram is written as .svg, .png or .pdf, its points as .csv"};
constexpr Text cannot_draw = {"das Diagramm kann nicht gezeichnet werden: {0}",
                              "the diagram cannot be drawn: {0}"};
constexpr Text no_time = {"die Zustandsänderungen dauern keine Zeit, es gibt nichts zu zeichnen",
                          "the changes of state take no time, there is nothing to draw"};

struct GraphWords : CaseWords {
    std::string path{};
    bool black_ground = false;
    bool without_lines = false;
    std::optional<TransientCurve> hidden{};
};

/// What a file is to hold: a drawing, or points where there is no kind.
struct GraphFile : OutputFile {
    const GraphWords& words;
    decltype(&drawing_file) draw_file;
    std::optional<DrawingKind> kind{};

    GraphFile(const GraphWords& given, const DrawingTools& tools)
        : OutputFile(given, given.path), words(given), draw_file(tools.file) {
        for (const auto& [ending, drawn] : drawing_endings)
            if (has_ending(given.path, ending)) kind = drawn;
        if (!kind && !has_ending(given.path, ".csv"))
            throw InputError(at(given.path, Reason(wrong_ending)));
    }

    using OutputFile::write;
    void write(const Diagram& diagram) {
        DiagramView view;
        view.auxiliary_lines = !words.without_lines;
        view.black_ground = words.black_ground;
        view.hidden.resize(diagram.curves.size());
        if (words.hidden) view.hidden.at(*words.hidden) = true;
        write(draw_file(
            *kind, diagram_sheet, without_outer_blanks(diagram.title),
            [&](Canvas& canvas) { draw(canvas, diagram_sheet, diagram, view, words.separator); }));
    }
};

class SteadyGraph : public RangeCalculation {
public:
    explicit SteadyGraph(GraphFile& file) : RangeCalculation(file.words), file_(file) {}

private:
    bool find() override {
        const auto curves = calculate_curves(calc_case(), session());
        if (file_.kind)
            file_.write(steady_diagram(*curves, calc_case(), words()));
        else
            file_.write(steady_points(*curves, calc_case()));
        return curves->complete();
    }
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return file_.document(notes(), messages(), program_end);
    }
    [[nodiscard]] std::string page() const override { return file_.page(notes()); }

    GraphFile& file_;
};

class TransientGraph : public TransientCalculation {
public:
    explicit TransientGraph(GraphFile& file)
        : TransientCalculation(file.words, true), file_(file) {}

private:
    void found() override {
        const TransientCourse course = {calc_case(), *report().start, report().run.rows,
                                        *report().series};
        if (file_.kind)
            draw(course);
        else
            file_.write(
                transient_points(course.series, current_steps(course.rows, course.start,
                                                              course.c.Anzahl_Teilleiter_db)));
    }
    void draw(const TransientCourse& course) {
        const auto diagram = transient_diagram(course, words());
        if (!diagram) throw InputError(at(words().case_path, Reason(no_time)));
        file_.write(*diagram);
    }
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return file_.document(report().notes, messages(), program_end);
    }
    [[nodiscard]] std::string page() const override { return file_.page(report().notes); }

    GraphFile& file_;
};

template <class Run>
Command<GraphWords> add_kind(CommandLine& line, CLI::App& group, const char* name,
                             const char* description) {
    const auto [command, words] =
        line.add<GraphWords>(group, name, description, [&line](const GraphWords& given) {
            GraphFile file(given, line.tools());
            if (file.kind && file.draw_file == nullptr)
                return become_program("zel-draw", line.words(), cannot_draw, given.lang);
            return Run(file).run();
        });
    add_case_word(command, words);
    command.add_option("-o", words.path, "File to be written")
        ->required()
        ->option_text("FILE.svg|png|pdf|csv REQUIRED");
    command.add_flag("--black", words.black_ground, "Draw on black instead of white");
    command.add_flag("--no-lines", words.without_lines, "Draw no auxiliary lines");
    add_case_options(command, words, graph_notes);
    add_conductor_option(command, words);
    return {command, words};
}

}  // namespace

void add_graph(CommandLine& line) {
    CLI::App& group = line.add_group("graph", "The diagram of a case, or its points", graph_notes);
    add_kind<SteadyGraph>(line, group, "steady", "Currents and temperatures over a range");
    const auto [command, words] =
        add_kind<TransientGraph>(line, group, "transient", "Temperature and current over time");
    add_choice<TransientCurve>(command, "--hide", words.hidden,
                               {{"current", current_curve}, {"temperature", temperature_curve}},
                               "Do not draw this curve");
}

}  // namespace zel
