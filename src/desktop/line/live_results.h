#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "compare/chosen_steps.h"
#include "compare/live_rating.h"
#include "desktop/frame/captions.h"
#include "desktop/frame/paused_job.h"
#include "desktop/line/line_case.h"

class QLabel;
class QLayout;
class QPushButton;
class QShortcut;

namespace zel {

/// The results of the inputs as they are typed, a column a method; greyed, with the reason, as long
/// as the inputs give none. After a pause it tells what moves the result, and where the changes of
/// state lead. It rates nothing as long as it is hidden.
class LiveResults : public QWidget {
public:
    struct Parts {
        const LineCase& line;
        const Session& session;
        Captions& captions;
        /// What is typed and not yet entered.
        std::function<std::vector<forms::PendingText>()> pending;
        const ChosenSteps& steps;  // of the inputs, to find what moves the result
    };
    explicit LiveResults(Parts parts);

    /// The inputs have changed.
    void update_results();
    /// An option of the calculation has changed, which is no input.
    void settings_changed();
    /// The case is another one.
    void forget();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Column {
        Method method;
        QLabel* name;
        QLabel* value;
    };

    [[nodiscard]] QLayout* make_outlook();
    void show_results();
    void show_column(const Column& column, const MethodResult* line) const;
    void look_further();
    void show_outlook();
    void need_height();
    /// Tells that it is under way, and how to cancel it.
    void show_work();
    void cancel();

    Parts parts_;
    LiveRating rating_;
    std::vector<Column> columns_;
    QLabel* about_;
    NoteLine* reason_;
    QLabel* outlook_;
    std::optional<Outlook> found_;  // of the results, once it was looked for
    bool cancelled_ = false;        // by the user: it is not looked for again before a change
    QPushButton* cancel_;
    QShortcut* cancel_key_;
    QTimer moment_;
    PausedJob job_;
};

}  // namespace zel
