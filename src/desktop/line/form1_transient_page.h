#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/frame/area_frame.h"
#include "desktop/line/transient_row_panel.h"

class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;

namespace zel {

class CoursePanel;
struct JobProgress;

[[nodiscard]] JobProgress progress_of(const TransientProgress& at, LangId lang);

/// Page 3: up to six changes of state that start from the steady state of the last run. The button
/// checks and calculates them. A long run shows how far it is and can be cancelled; it then leaves
/// all as it was.
class TransientPage : public AreaPage {
public:
    /// A run that takes longer than `patience` (in milliseconds) shows how far it is.
    TransientPage(const TransientRowPanel::Parts& parts, int patience);

    /// Shows what stands in the case and what the last runs left. Results that are no longer those
    /// of the inputs are greyed, with a notice.
    void load() override;
    void commit() override;
    [[nodiscard]] bool is_unfinished() const override;
    void focus_first() override;
    [[nodiscard]] QWidget* input(const FieldInfo& field) const override;
    bool start_own_calculation() override;

    /// The results as text. Where they are stale, the user is asked whether to calculate anew;
    /// empty where there are none or the user does not want to.
    [[nodiscard]] std::string text_to_copy();

    [[nodiscard]] QPushButton& print_button() { return *print_; }
    /// Where the results are stale, the user is asked whether to calculate anew; false where they
    /// are stale still.
    [[nodiscard]] bool brought_up_to_date();

    /// Called where a run has come to an end.
    std::function<void()> calculated = [] {};
    /// Draws the last transient.
    std::function<void()> draw = [] {};

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QGroupBox* make_start();
    [[nodiscard]] QGroupBox* make_rows();
    [[nodiscard]] QWidget* make_actions();
    void fit_rows();
    void place_rows(bool narrow);
    void set_tab_order();
    void press_button();
    void calculate();
    [[nodiscard]] std::optional<FieldBox> refusal() const;
    void show_diagram();
    [[nodiscard]] bool is_stale() const;

    TransientRowPanel::Parts parts_;
    int patience_;
    std::vector<std::unique_ptr<TransientRowPanel>> rows_;
    QGridLayout* grid_ = nullptr;  // of the rows
    std::vector<QLabel*> headings_;
    bool narrow_ = false;
    int wide_width_ = 0;  // pixels
    QLabel* method_;
    QLabel* start_current_;
    QLabel* start_temperature_;
    QLabel* start_origin_;
    QLabel* former_notice_;  // the start is that of a former run
    QPushButton* button_;
    QPushButton* diagram_;
    QPushButton* print_;
    QLabel* notice_;
    CoursePanel* curve_;
    bool running_ = false;
    bool typing_refused_ = false;  // a text was refused while the page was taken in
};

}  // namespace zel
