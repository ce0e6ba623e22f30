#pragma once

#include <memory>
#include <optional>

#include "compare/chosen_steps.h"
#include "compare/kept_run.h"
#include "desktop/frame/area_frame.h"
#include "desktop/frame/conductor_source.h"
#include "desktop/frame/diagram_source.h"
#include "desktop/line/line_case.h"
#include "forms/line_form.h"
#include "platform/files.h"
#include "platform/workbook.h"
#include "shell/error_handling.h"
#include "workflow/run/steady_run.h"

namespace zel {

class ConductorPage;
class ComparePanel;
class GeneralPage;
class LinePictures;
class LiveResults;
class ResultPage;
class SideDock;
class TransientPage;

/// What the area of the thermal rating works with.
struct Form1Parts {
    AreaParts area;
    CalcCase& c;
    TransientMemory& transient;
    std::string path;  // the file that the case comes from at the start; may be empty
    LiveSettings& settings;
    WorkbookStore& workbooks;  // of saved tables
    Files& files;
    int patience;  // in milliseconds: a longer run shows its progress
    MakeConductorSource make_conductors;
    MakeDiagramSource make_diagrams;
};

/// The form of the current and temperature calculation: four pages. Going to the result page
/// calculates; so does going to the transient page where inputs have changed since, for that is
/// where a transient starts.
class Form1 : public AreaFrame {
public:
    explicit Form1(Form1Parts parts);
    ~Form1() override;

    /// Takes a row of a measuring table over into the case and goes to the first page.
    void take_measured(const StoredRow& row);
    /// Another window has changed inputs of the case.
    void show_changed_inputs();
    void load() override;

    /// Shows the settings as they are now.
    void apply_settings();
    [[nodiscard]] bool may_be_left() override;

protected:
    void turn_to(int to) override;
    void forget_results() override;
    [[nodiscard]] std::string text_to_copy() override;
    [[nodiscard]] std::string print_caption() const override;
    [[nodiscard]] std::optional<PrintOrder> report_of_page() override;

private:
    void open_database();
    void take_over_conductor();
    void case_changed();
    bool run();
    void show_result(SteadyRunResult result);
    void tell_result_anew();
    [[nodiscard]] std::vector<std::string> changed_inputs() const;
    [[nodiscard]] bool result_is_former() const;
    void show_former_result();
    void allow_output_of_page();
    void follow_page();
    void typed();
    [[nodiscard]] std::vector<forms::PendingText> texts_in_boxes() const;
    void add_docks(const Form1Parts& parts);
    void open_run(const KeptRun& run);

    LineCase line_;
    forms::LineForm form_;
    LiveSettings& settings_;
    std::unique_ptr<ConductorSource> conductors_;
    std::unique_ptr<DiagramSource> steady_diagram_;
    std::unique_ptr<DiagramSource> transient_diagram_;
    GeneralPage* general_;
    ConductorPage* conductor_;
    ResultPage* result_;
    TransientPage* transient_;
    ChosenSteps steps_;
    LinePictures* pictures_ = nullptr;
    LiveResults* live_ = nullptr;
    SideDock* live_dock_ = nullptr;
    ComparePanel* comparison_ = nullptr;
    std::optional<SteadyRunResult> shown_run_;  // the last valid run
    CalcCase run_case_;                         // its inputs
    bool shown_run_is_stale_ = false;           // a refused run came after it, of other inputs
    int sharing_;                               // sub-conductors that share the typed currents
};

}  // namespace zel
