#pragma once

#include <vector>

#include "desktop/frame/area_frame.h"
#include "workflow/run/steady_run.h"

class QGroupBox;
class QLabel;
class QVBoxLayout;

namespace zel {

class NoteLine;

/// Page 2: what the steady run found, with the program's own notes on it.
class ResultPage : public AreaPage {
public:
    explicit ResultPage(Captions& captions);

    /// A valid run replaces all that is shown.
    void show_run(const SteadyRunResult& run);
    /// After a refused run: what stands there is greyed, since the inputs that led to it have
    /// changed.
    void show_nothing_new();
    void clear_balance();
    /// Shows nothing, as before the first run.
    void clear();

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
    void show_notes(const std::vector<Note>& notes);

    QLabel* head_line_;
    QLabel* methods_line_;
    std::vector<Line> lines_;
    std::vector<DetailLine> tb601_lines_;  // two temperatures, then three factors
    QVBoxLayout* notes_;
    std::vector<NoteLine*> note_lines_;
    QLabel* balance_;
    QLabel* angle_;
    QLabel* wind_;
    QGroupBox* tb601_group_;
    QGroupBox* balance_group_;
};

}  // namespace zel
