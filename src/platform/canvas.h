#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

// A surface to draw on: a window, a page, a file, or the record of a test. Lengths are in twips
// (1/1440 inch) from its top left corner. Who draws does not know which surface it is: texts have
// the same widths on all of them.

namespace zel {

/// A colour: red in the lowest byte, then green and blue; or one of the system's own.
using Colour = std::uint32_t;

inline constexpr Colour black = 0;
inline constexpr Colour white = 0xFFFFFF;
inline constexpr Colour red = 255;
/// The colour of text in a window, whatever the system has chosen for it.
inline constexpr Colour window_text = 0x80000008;

[[nodiscard]] constexpr Colour rgb(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    return r | static_cast<Colour>(g) << 8U | static_cast<Colour>(b) << 16U;
}

[[nodiscard]] constexpr int red_of(Colour colour) { return static_cast<int>(colour & 0xFFU); }
[[nodiscard]] constexpr int green_of(Colour colour) { return red_of(colour >> 8U); }
[[nodiscard]] constexpr int blue_of(Colour colour) { return red_of(colour >> 16U); }

enum class LineStyle : std::int16_t {
    Solid = 0,
    Dashes = 1,
    Dots = 2,
    DashDot = 3,
    DashDotDot = 4
};

struct Pen {
    Colour colour = black;
    LineStyle style = LineStyle::Solid;
    int width = 1;  // of 15 twips each

    friend bool operator==(const Pen&, const Pen&) = default;
};

/// The font is Arial, or the one that has its widths.
struct Font {
    int size = 8;  // points
    bool bold = false;
    bool italic = false;
    bool underline = false;

    friend bool operator==(const Font&, const Font&) = default;
};

struct CanvasPoint {
    double x = 0;
    double y = 0;

    friend bool operator==(const CanvasPoint&, const CanvasPoint&) = default;
};

struct CanvasBox {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    [[nodiscard]] constexpr double width() const { return right - left; }
    [[nodiscard]] constexpr double height() const { return bottom - top; }
    [[nodiscard]] constexpr bool holds(const CanvasPoint& p) const {
        return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom;
    }
    friend bool operator==(const CanvasBox&, const CanvasBox&) = default;
};

class Canvas {
public:
    virtual ~Canvas() = default;

    [[nodiscard]] virtual double text_width(std::string_view text, const Font& font) const = 0;
    /// Of a line, from the top of the highest letter to the lowest descender.
    [[nodiscard]] virtual double text_height(const Font& font) const = 0;

    /// Writes a line of text whose top left corner is at (x, y).
    virtual void text(double x, double y, std::string_view text, const Font& font,
                      Colour colour) = 0;
    virtual void line(double x1, double y1, double x2, double y2, const Pen& pen) = 0;
    /// Lines from each point to the next; styles run on around the corners.
    virtual void path(std::span<const CanvasPoint> points, const Pen& pen) = 0;
    /// The outline of a box.
    virtual void box(const CanvasBox& box, const Pen& pen) = 0;
    virtual void fill(const CanvasBox& box, Colour colour) = 0;
    /// What an outline encloses, which leads back from its last point to the first.
    virtual void area(std::span<const CanvasPoint> outline, Colour colour) = 0;
    /// Only what is inside is drawn until another call; everything without a box.
    virtual void clip(const std::optional<CanvasBox>& inside) = 0;
};

}  // namespace zel
