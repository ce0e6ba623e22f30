#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/frame/captions.h"
#include "desktop/frame/inputs.h"
#include "desktop/frame/widgets.h"
#include "measuring/measuring_cycle.h"
#include "measuring/measuring_inputs.h"
#include "measuring/trace.h"
#include "shell/session.h"

class QLabel;

namespace zel {

/// The trace of the last minutes.
class TraceView : public QWidget {
public:
    explicit TraceView(const Session& session);

    [[nodiscard]] measuring::Trace& trace() { return trace_; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {320, 240}; }
    [[nodiscard]] QSize sizeHint() const override { return {460, 300}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Session& session_;
    measuring::Trace trace_;
};

/// The four values as they come, and what the instruments do.
class LivePanel : public QGroupBox {
public:
    LivePanel(Captions& captions, const Session& session);

    void show_readings(const measuring::Readings& readings);
    void show_status(const measuring::InstrumentStatus& anemometer,
                     const measuring::InstrumentStatus& radiation_meter);
    void clear_status();

private:
    const Session& session_;
    std::vector<QLabel*> values_;
    NoteLine* anemometer_;
    NoteLine* radiation_meter_;
};

/// The means of a cycle.
class MeansPanel : public QGroupBox {
public:
    MeansPanel(Captions& captions, const Session& session);

    /// "-" stands for what is not there yet.
    void clear();
    void show_means(const measuring::CycleMeans& means, const std::string& note);
    /// Without a value: "-".
    void show_extrapolated(std::optional<double> meters_per_second);

private:
    const Session& session_;
    QLabel* direction_;
    QLabel* speed_;
    QLabel* temperature_;
    QLabel* radiation_;
    QLabel* vector_direction_;
    QLabel* extrapolated_;
    QLabel* samples_;
    NoteLine* note_;
};

/// A combination box of the window: an entry of its list, or a typed value, goes into the case.
class CombinationInput : public QComboBox {
public:
    CombinationInput(const measuring::CombinationBox& box, const Session& session, CalcCase& c,
                     std::function<void()> changed);

    /// As at the opening of the window; a number that the case has already is shown.
    void load();
    void show_language();

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void chosen(int index);
    void entered();

    const measuring::CombinationBox& box_;
    const Session& session_;
    CalcCase& c_;
    std::function<void()> changed_;
    bool typed_ = false;
    FocusReturn refused_;
};

}  // namespace zel
