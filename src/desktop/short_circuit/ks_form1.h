#pragma once

#include <memory>
#include <optional>

#include "desktop/frame/area_frame.h"
#include "desktop/frame/conductor_source.h"
#include "forms/short_circuit_form.h"
#include "platform/files.h"
#include "reports/report_frame.h"
#include "short_circuit/short_circuit_run.h"

namespace zel {
class PicturePanel;
class SideDock;
}  // namespace zel

namespace zel::short_circuit {

class ConductorPage;
class GeneralPage;
class ResultView;

/// The form `KS_Form1` of the short-circuit area: three pages. Going to the result page checks and
/// calculates.
class KsForm1 : public AreaFrame {
public:
    /// `name` is what the area calls itself; it may change with the language.
    KsForm1(const AreaParts& parts, ShortCircuitForm& form, const Text& name,
            const MakeConductorSource& make_conductors, Files& files);
    ~KsForm1() override;

    void load() override;
    [[nodiscard]] bool may_be_left() override;

protected:
    void turn_to(int page) override;
    void leave_page() override;
    void forget_results() override;
    [[nodiscard]] std::string text_to_copy() override;
    [[nodiscard]] std::string print_caption() const override;
    [[nodiscard]] std::optional<PrintOrder> report_of_page() override;
    void print_order(const PrintOrder& order) override;

private:
    void case_changed();
    void start_database();
    void take_over_conductor();
    void run();
    void show_picture();
    [[nodiscard]] ReportProject project() const;

    ShortCircuitForm& form_;
    forms::ShortCircuitRecord record_;
    std::unique_ptr<ConductorSource> conductors_;
    GeneralPage* general_;
    ConductorPage* conductor_;
    ResultView* result_;
    std::optional<ShortCircuitRun> shown_;  // the result, while it is shown
    PicturePanel* pictures_;
    SideDock* dock_;
};

}  // namespace zel::short_circuit
