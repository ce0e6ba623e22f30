#pragma once

#include <cstdint>

// A surface to draw on: a window, a page, a file, or the record of a test. Lengths are in twips
// from its top left corner.

namespace zel {

/// A colour: red in the lowest byte, then green and blue; or one of the system's own.
using Colour = std::uint32_t;

inline constexpr Colour red = 255;
/// The colour of text in a window, whatever the system has chosen for it.
inline constexpr Colour window_text = 0x80000008;

enum class LineStyle : std::int16_t { Solid = 0, Dashes = 1, Dots = 2 };

struct Pen {
    Colour colour = 0;
    LineStyle style = LineStyle::Solid;
    int width = 1;

    friend bool operator==(const Pen&, const Pen&) = default;
};

class Canvas {
public:
    virtual ~Canvas() = default;
    virtual void line(double x1, double y1, double x2, double y2, const Pen& pen) = 0;
};

}  // namespace zel
