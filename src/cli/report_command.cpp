#include "cli/output_file.h"
#include "cli/range_calculation.h"
#include "cli/short_circuit_calculation.h"
#include "cli/transient_calculation.h"
#include "platform/errors.h"
#include "program/print_time.h"
#include "program/stores.h"
#include "reports/report_file.h"
#include "reports/report_frame.h"
#include "reports/steady_report.h"
#include "reports/transient_report.h"
#include "shell/case_settings.h"
#include "short_circuit/short_circuit_report.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

constexpr const char* report_notes =
    "\n"
    "Prints sheets of A4 into FILE.pdf.\n"
    "\n"
    "  steady           inputs, conductor and results; with Wind1_db to Wind6_db the\n"
    "                   parameter tables of \"zel table\" too\n"
    "  steady-graph     the diagram of \"zel graph steady\"\n"
    "  transient        the changes of state of \"zel transient\"\n"
    "  transient-graph  their course over time\n"
    "  short-circuit    a case of \"zel short-circuit\"; its verdict is always German\n"
    "\n"
    "Without --print-lang they have the language of reports of the settings. They have\n"
    "labels in German and English; French and Spanish are there for single ones, and a\n"
    "label without its language repeats the former one. SOURCE_DATE_EPOCH, where it is\n"
    "set, is the time that is printed. Where a method found nothing the report says so;\n"
    "the exit status is 1 then.\n";

constexpr Text cannot_print = {"der Bericht kann nicht gedruckt werden: {0}",
                               "the report cannot be printed: {0}"};
constexpr Text no_time = {"die Zustandsänderungen dauern keine Zeit, es gibt nichts zu zeichnen",
                          "the changes of state take no time, there is nothing to draw"};

struct ReportWords : CaseWords {
    std::string path{};
    std::optional<PrintLang> print_lang{};
};

/// The file that a report goes into.
class ReportOutput : public OutputFile {
public:
    ReportOutput(const ReportWords& words, const DrawingTools& tools)
        : OutputFile(words, words.path),
          words_(words),
          tools_(tools),
          print_{
              words.print_lang.value_or(print_lang(ProgramStores().settings().now().LangId_print)),
              words.separator, print_date_text(print_time())} {}

    [[nodiscard]] const ReportWords& words() const { return words_; }
    [[nodiscard]] const ReportPrint& print() const { return print_; }

    void write(const Report& report) {
        const ReportFile file = file_of(report, print_.lang, tools_.sheets);
        OutputFile::write(file.pdf, file.sheets);
    }

private:
    const ReportWords& words_;
    const DrawingTools& tools_;
    ReportPrint print_;
};

class SteadyReport : public CaseRun {
public:
    explicit SteadyReport(ReportOutput& file)
        : CaseRun(file.words()),
          file_(file),
          loaded_(load_case(file.words().case_path, file.words(), console())),
          session_{file.words(), file.words().Meldung_merker(), console()} {
        take_settings(session_, ProgramStores().settings().now());
    }

private:
    int calculate() override {
        if (loaded_.refusal) return refused(*loaded_.refusal);
        CalcCase& c = loaded_.c;
        const CalcCase typed = c;
        RunSteady(c, session_, run_);
        if (!run_.input_valid) return refused(run_.refusal);
        std::optional<ParameterTable> table;
        if (has_winds(typed)) {
            const TableStart start = start_table(typed, session_);
            if (start.refusal) return refused(*start.refusal);
            table = calculate_table(typed, session_);
        }
        file_.write(*print_tab_stat({c, run_, table ? &*table : nullptr}, file_.print()));
        return printed(!loaded_.text_refused && sound(run_) && (!table || table->complete()));
    }
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return file_.document(run_.notes, messages(), program_end);
    }
    [[nodiscard]] std::string page() const override { return file_.page(run_.notes); }

    ReportOutput& file_;
    LoadedCase loaded_;
    Session session_;
    SteadyRunResult run_;
};

class SteadyGraphReport : public RangeCalculation {
public:
    explicit SteadyGraphReport(ReportOutput& file) : RangeCalculation(file.words()), file_(file) {}

private:
    bool find() override {
        const auto curves = calculate_curves(calc_case(), session());
        for (const Box& box : failures_of_graph(*curves, words().lang)) session().tell(box);
        file_.write(S02_Print_Graph_Steady(calc_case(), *curves, file_.print()));
        return curves->complete();
    }
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return file_.document(notes(), messages(), program_end);
    }
    [[nodiscard]] std::string page() const override { return file_.page(notes()); }

    ReportOutput& file_;
};

class TransientTableReport : public TransientCalculation {
public:
    explicit TransientTableReport(ReportOutput& file)
        : TransientCalculation(file.words(), false), file_(file) {}

private:
    void found() override {
        file_.write(
            S03_Print_Tab_transient_Cigre207_601_TBB(calc_case(), report().run, file_.print()));
    }
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return file_.document(report().notes, messages(), program_end);
    }
    [[nodiscard]] std::string page() const override { return file_.page(report().notes); }

    ReportOutput& file_;
};

class TransientGraphReport : public TransientCalculation {
public:
    explicit TransientGraphReport(ReportOutput& file)
        : TransientCalculation(file.words(), true), file_(file) {}

private:
    void found() override {
        if (!(TotalTime(report().run.rows) > 0))
            throw InputError(at(words().case_path, Reason(no_time)));
        file_.write(S04_Print_Graph_transient_Cigre207_601_TBB(calc_case(), report().run,
                                                               *report().series, file_.print()));
    }
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return file_.document(report().notes, messages(), program_end);
    }
    [[nodiscard]] std::string page() const override { return file_.page(report().notes); }

    ReportOutput& file_;
};

class ShortCircuitReport : public ShortCircuitCalculation {
public:
    explicit ShortCircuitReport(ReportOutput& file)
        : ShortCircuitCalculation(file.words()), file_(file) {}

private:
    void found() override {
        file_.write(KS10_tab_print_Kurzschluss_1(form().content(), result().result, file_.print()));
    }
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return file_.document({}, messages(), program_end);
    }
    [[nodiscard]] std::string page() const override { return file_.page({}); }

    ReportOutput& file_;
};

void refuse_ending(const std::string& path) {
    if (!has_ending(path, report_ending)) throw InputError(at(path, Reason(wrong_report_ending)));
}

template <class Run>
void add_kind(CommandLine& line, CLI::App& group, const char* name, const char* description) {
    const auto [command, words] =
        line.add<ReportWords>(group, name, description, [&line](const ReportWords& given) {
            refuse_ending(given.path);
            if (line.tools().sheets == nullptr)
                return become_program("zel-draw", line.words(), cannot_print, given.lang);
            ReportOutput file(given, line.tools());
            return Run(file).run();
        });
    add_case_word(command, words);
    command.add_option("-o", words.path, "File to be written")
        ->required()
        ->option_text("FILE.pdf REQUIRED");
    add_choice<PrintLang>(command, "--print-lang", words.print_lang,
                          {{"de", PrintLang::German},
                           {"en", PrintLang::English},
                           {"fr", PrintLang::French},
                           {"es", PrintLang::Spanish}},
                          "Language of the report");
    add_case_options(command, words, report_notes);
    add_conductor_option(command, words);
}

}  // namespace

void add_report(CommandLine& line) {
    CLI::App& group = line.add_group("report", "Print a case into a PDF", report_notes);
    add_kind<SteadyReport>(line, group, "steady", "Inputs, conductor and results");
    add_kind<SteadyGraphReport>(line, group, "steady-graph", "The diagram of a range");
    add_kind<TransientTableReport>(line, group, "transient", "The changes of state");
    add_kind<TransientGraphReport>(line, group, "transient-graph", "Their course over time");
    add_kind<ShortCircuitReport>(line, group, "short-circuit", "Thermal short-circuit strength");
}

}  // namespace zel
