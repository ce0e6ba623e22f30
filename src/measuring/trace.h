#pragma once

#include <chrono>
#include <deque>

#include "measuring/evaluation.h"
#include "platform/canvas.h"
#include "platform/text/locale.h"

namespace zel::measuring {

/// The samples of the last minutes as a small picture.
class Trace {
public:
    static constexpr std::chrono::minutes span{5};

    /// `at` is of a clock that nobody sets back.
    void add(std::chrono::milliseconds at, const MeasurementSample& sample);
    /// What comes next does not go on from what is there: a new cycle.
    void interrupt() { interrupted_ = true; }

    /// Draws a lane for each measured value, at least a minute of it, the newest at the right, each
    /// with its greatest and least value of the time shown.
    void draw(Canvas& canvas, const CanvasBox& area, const Locale& locale) const;

private:
    struct Point {
        std::chrono::milliseconds at;
        MeasurementSample sample;
        bool begins;  // is not joined to the one before
    };
    std::deque<Point> points_;
    bool interrupted_ = true;
};

}  // namespace zel::measuring
