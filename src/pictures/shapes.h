#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/canvas.h"

// What pictures are made of. Directions are those of a map, in degrees: 0 is up, 90 to the right.

namespace zel {

inline constexpr Font picture_font = {9};
inline constexpr Font bold_font = {9, true};
inline constexpr Font small_font = {8};

inline constexpr Colour ink = rgb(30, 30, 30);
inline constexpr Colour faint_ink = rgb(105, 105, 105);
inline constexpr Colour warning_ink = rgb(176, 0, 0);
inline constexpr Colour metal = rgb(196, 200, 206);
inline constexpr Colour core_metal = rgb(122, 128, 138);

inline constexpr double picture_margin = 240;
inline constexpr double picture_top = 720;  // below the title
inline constexpr double line_step = 250;    // from a line of text to the next

enum class Side : std::uint8_t { Left, Middle, Right };

/// Writes a line of which (x, y) is the top left, top middle or top right.
void write(Canvas& canvas, const CanvasPoint& at, Side side, std::string_view text,
           const Font& font = picture_font, Colour colour = ink);

/// The same on as many lines as it takes to stay within `room`; gives the y below the last.
double write_lines(Canvas& canvas, const CanvasPoint& at, Side side, double room,
                   std::string_view text, const Font& font = picture_font, Colour colour = ink);

/// The point at a distance and a direction from another.
[[nodiscard]] CanvasPoint away(const CanvasPoint& from, double direction, double distance);

/// A part of a circle from one direction clockwise to another.
[[nodiscard]] std::vector<CanvasPoint> arc(const CanvasPoint& centre, double radius, double from,
                                           double to);
void disc(Canvas& canvas, const CanvasPoint& centre, double radius, Colour colour);
void circle(Canvas& canvas, const CanvasPoint& centre, double radius, const Pen& pen);

/// A line with a filled head at its end; `width` is that of the line, in twips.
void arrow(Canvas& canvas, const CanvasPoint& from, const CanvasPoint& to, double width,
           Colour colour);

enum class Sign : std::uint8_t { Check, Cross, Warning };

/// A sign in a circle or triangle, told apart by its form and not by its colour alone.
void sign(Canvas& canvas, Sign kind, const CanvasPoint& centre, double radius);

}  // namespace zel
