#include <nlohmann/json.hpp>

#include "adapters/posix/text_file.h"
#include "cli/transient_calculation.h"
#include "platform/errors.h"
#include "program/stores.h"
#include "shell/case_settings.h"
#include "tables_graphs/curve_points.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

constexpr const char* graph_notes =
    "\n"
    "The points of the curves, for other programs to draw: FILE.csv has a line for each\n"
    "point, numbers with a point and all their digits.\n"
    "\n"
    "  steady     method,wind_m_s,current_A,temperature_C over the range of \"zel table\"\n"
    "  transient  t_s,temperature_C,current_A from the start to the end of \"zel transient\"\n"
    "\n"
    "Currents are those of the bundle. A field is empty where a method found nothing;\n"
    "the exit status is 1 then.\n";

constexpr Text wrong_ending = {"die Punkte eines Diagramms werden als .csv geschrieben",
                               "the points of a diagram are written as .csv"};
constexpr Text points_written = {"{0} geschrieben\n", "{0} written\n"};

struct GraphWords : CaseWords {
    std::string path{};
};

void refuse_ending(const std::string& path) {
    constexpr std::string_view ending = ".csv";
    if (path.size() <= ending.size() ||
        !same_name(std::string_view(path).substr(path.size() - ending.size()), ending))
        throw InputError(at(path, Reason(wrong_ending)));
}

/// What is told of a written file.
std::string told(const GraphWords& words, const std::vector<Note>& notes,
                 const std::vector<Message>& messages) {
    if (!words.json)
        return fill(points_written.in(words.lang), {words.path}) + notes_text(notes, words.lang);
    return json_text(
        {{"file", words.path}, {"notes", json_of(notes)}, {"messages", json_of(messages)}});
}

class SteadyGraph : public CaseRun {
public:
    explicit SteadyGraph(const GraphWords& words)
        : CaseRun(words),
          words_(words),
          loaded_(load_case(words.case_path, words, console())),
          session_{words, words.Meldung_merker(), console()} {
        refuse_ending(words.path);
        take_settings(session_, ProgramStores().settings().now());
    }

private:
    int calculate() override {
        if (loaded_.refusal) return refused(*loaded_.refusal);
        TableStart start = start_table(loaded_.c, session_);
        if (start.refusal) return refused(*start.refusal);
        notes_ = std::move(start.notes);
        const auto curves = calculate_curves(loaded_.c, session_);
        write_text_file(words_.path, steady_points(*curves, loaded_.c));
        return printed(!loaded_.text_refused && curves->complete());
    }
    [[nodiscard]] std::string document(std::string_view /*program_end*/) const override {
        return told(words_, notes_, messages());
    }
    [[nodiscard]] std::string page() const override { return told(words_, notes_, messages()); }

    const GraphWords& words_;
    LoadedCase loaded_;
    Session session_;
    std::vector<Note> notes_;
};

class TransientGraph : public TransientCalculation {
public:
    explicit TransientGraph(const GraphWords& words)
        : TransientCalculation(words, true), words_(words) {
        refuse_ending(words.path);
    }

private:
    void found() override {
        write_text_file(words_.path, transient_points(*report().series, steps()));
        written_ = true;
    }
    [[nodiscard]] std::vector<CurrentStep> steps() const {
        return current_steps(report().run.rows, *report().start, calc_case().Anzahl_Teilleiter_db);
    }
    [[nodiscard]] std::string document(std::string_view /*program_end*/) const override {
        return told(words_, report().notes, messages());
    }
    [[nodiscard]] std::string page() const override {
        return written_ ? told(words_, report().notes, messages()) : std::string();
    }

    const GraphWords& words_;
    bool written_ = false;
};

}  // namespace

void add_graph(CommandLine& line) {
    CLI::App& group = line.add_group("graph", "The points of a diagram of a case", graph_notes);
    const auto add = [&](const char* name, const char* description,
                         std::function<int(const GraphWords&)> run) {
        const auto [command, words] =
            line.add<GraphWords>(group, name, description, std::move(run));
        add_case_word(command, words);
        command.add_option("-o", words.path, "File to be written")
            ->required()
            ->option_text("FILE.csv REQUIRED");
        add_case_options(command, words, graph_notes);
        add_conductor_option(command, words);
    };
    add("steady", "Currents and temperatures over a range",
        [](const GraphWords& words) { return SteadyGraph(words).run(); });
    add("transient", "Temperature and current over time",
        [](const GraphWords& words) { return TransientGraph(words).run(); });
}

}  // namespace zel
