#pragma once

#include <vector>

#include "desktop/frame/area_frame.h"
#include "desktop/line/table_panel.h"
#include "workflow/run/steady_run.h"

class QBoxLayout;
class QGroupBox;
class QLabel;
class QPushButton;

namespace zel {

/// Page 2: what the steady run found, and the parameter table beside that, or below it where the
/// window is narrow.
class ResultPage : public AreaPage {
public:
    explicit ResultPage(const TablePanel::Parts& parts);

    void load() override { table_->load(false); }
    void load_anew() override { table_->load(true); }
    void commit() override { table_->commit(); }
    [[nodiscard]] bool is_unfinished() const override { return table_->is_unfinished(); }
    [[nodiscard]] QWidget* input(const FieldInfo& field) const override {
        return table_->input(field);
    }
    void case_changed() { table_->case_changed(); }
    [[nodiscard]] TablePanel& table() { return *table_; }
    [[nodiscard]] QPushButton& print_button() { return *print_; }
    /// Called where a table has been calculated.
    std::function<void()> table_calculated = [] {};

    /// A valid run replaces all that is shown.
    void show_run(const SteadyRunResult& run);
    /// Greys what the last run found, or no longer, where the inputs have changed since. The table
    /// goes its own way.
    void show_former(bool former);
    /// After a refused run: what stands there is greyed, since the inputs that led to it have
    /// changed.
    void show_nothing_new();
    /// Empties the balance line and the parameter table of the former run.
    void reset();
    /// Shows nothing, as before the first run.
    void clear();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Line {
        Method method;
        QLabel* caption;
        QLabel* result;
    };

    struct DetailLine {
        QLabel* caption;
        QLabel* value;
    };

    [[nodiscard]] QGroupBox* make_results();
    [[nodiscard]] QGroupBox* make_tb601();
    [[nodiscard]] QGroupBox* make_balance();
    [[nodiscard]] QGroupBox* make_wind(Captions& captions);
    void clear_balance();

    QLabel* head_line_;
    QLabel* methods_line_;
    std::vector<Line> lines_;
    std::vector<DetailLine> tb601_lines_;  // two temperatures, then three factors
    QLabel* balance_;
    QLabel* angle_;
    QLabel* wind_;
    QGroupBox* results_group_;
    QGroupBox* tb601_group_;
    QGroupBox* wind_group_;
    QGroupBox* balance_group_;
    TablePanel* table_;
    QPushButton* print_;
    QBoxLayout* columns_;
};

}  // namespace zel
