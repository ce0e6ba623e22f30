#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "desktop/frame/captions.h"
#include "shell/session.h"
#include "tables_graphs/transient_diagram.h"

class QLabel;
class QLineEdit;

namespace zel {

class DiagramPicture;

/// A transient that has run, with the course that was stepped anew.
struct StoredCourse {
    CalcCase c;
    TransientResult result;
    std::vector<RowSeries> series;

    [[nodiscard]] TransientCourse course() const { return {c, result.start, result.rows, series}; }
};

/// The curve below the rows of a transient: temperature and current over time, the limit
/// temperature, and what it says of them. The limit is that of the conductor, else the given
/// temperature, until another one is typed. Hidden as long as there is no course.
class CoursePanel : public QWidget {
public:
    CoursePanel(const Session& session, Captions& captions);

    void show_course(StoredCourse course);
    /// Whether the course is that of former inputs, which it then says.
    void tell_stale(bool stale);
    /// The case is another one.
    void forget();
    [[nodiscard]] QLineEdit* limit_box() const { return limit_; }

private:
    void show_anew();
    void show_text();
    [[nodiscard]] std::optional<double> limit() const;

    const Session& session_;
    std::optional<StoredCourse> stored_;
    bool stale_ = false;
    std::string known_limit_;  // of the case
    std::string reading_;      // of what is under the mouse
    DiagramPicture* picture_;
    QLineEdit* limit_;
    QLabel* text_;
};

}  // namespace zel
