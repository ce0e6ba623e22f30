#pragma once

#include <vector>

#include "platform/canvas.h"

namespace zel {

/// Records what is drawn.
class RecordingCanvas : public Canvas {
public:
    struct Line {
        double x1, y1, x2, y2;
        Pen pen;

        friend bool operator==(const Line&, const Line&) = default;
    };

    void line(double x1, double y1, double x2, double y2, const Pen& pen) override {
        lines.push_back({x1, y1, x2, y2, pen});
    }

    std::vector<Line> lines;
};

}  // namespace zel
