#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/canvas.h"

namespace zel {

/// `text` in lines that are no wider than `width`, broken at blanks, and within a word that is
/// wider than a line. An empty text is no line; ends of lines in it stand.
[[nodiscard]] std::vector<std::string> broken_lines(const Canvas& canvas, std::string_view text,
                                                    const Font& font, double width);

struct FittedLines {
    std::vector<std::string> lines;
    Font font;
};

/// `text` in a font that is no larger than `font`, so that its lines fit into a box.
[[nodiscard]] FittedLines fitted_lines(const Canvas& canvas, std::string_view text,
                                       const Font& font, double width, double height);

}  // namespace zel
