#pragma once

#include <QScrollArea>
#include <vector>

#include "workflow/run/steady_run.h"

class QGroupBox;
class QLabel;

namespace zel {

/// Page 2: what the steady run found.
class ResultPage : public QScrollArea {
public:
    ResultPage();

    /// A valid run replaces all that is shown.
    void show_run(const SteadyRunResult& run);
    /// After a refused run: what stands there is greyed, since the inputs that led to it have
    /// changed.
    void show_nothing_new();
    void clear_balance();
    /// Shows nothing, as before the first run.
    void clear();
    void recaption(LangId lang);

private:
    struct Line {
        Method method;
        QLabel* caption;
        QLabel* result;
    };

    [[nodiscard]] QGroupBox* make_results();
    struct DetailLine {
        QLabel* caption;
        QLabel* value;
    };

    [[nodiscard]] QGroupBox* make_tb601();
    [[nodiscard]] QGroupBox* make_balance();
    [[nodiscard]] QGroupBox* make_wind();

    QLabel* head_line_;
    QLabel* methods_line_;
    std::vector<Line> lines_;
    std::vector<DetailLine> tb601_lines_;  // two temperatures, then three factors
    QLabel* balance_;
    QLabel* angle_caption_;
    QLabel* angle_;
    QLabel* wind_caption_;
    QLabel* wind_;
    QGroupBox* results_group_;
    QGroupBox* tb601_group_;
    QGroupBox* balance_group_;
    QGroupBox* wind_group_;
};

}  // namespace zel
