#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/sheets_document.h"

// Drawings as files: made in memory, for the one writer that puts files on the disk whole.

class QGuiApplication;

namespace zel {

enum class DrawingKind : std::uint8_t { Svg, Png, Pdf };

struct DrawingEnding {
    std::string_view ending;
    DrawingKind kind;
};
inline constexpr DrawingEnding drawing_endings[] = {
    {".svg", DrawingKind::Svg}, {".png", DrawingKind::Png}, {".pdf", DrawingKind::Pdf}};

/// The file of what `draw` draws into `area`, which is all of the picture or page. Texts stay texts
/// in SVG and PDF; PNG has 192 pixels an inch. The same drawing gives the same bytes, but for the
/// date in a PDF. There has to be an application object of Qt. Throws `OutputError`.
[[nodiscard]] std::string drawing_file(DrawingKind kind, const CanvasBox& area,
                                       std::string_view title,
                                       const std::function<void(Canvas&)>& draw);

/// The PDF of sheets of paper with title and language; otherwise as `drawing_file`.
[[nodiscard]] std::string sheets_file(const SheetsDocument& document);

/// Qt as a program without windows needs it for drawing: no display, no words of the command line,
/// nothing on standard error. One object, made before anything is drawn. Throws `OutputError` where
/// the system has no font, since texts would be empty boxes then.
class DrawingSystem {
public:
    DrawingSystem();
    ~DrawingSystem();
    DrawingSystem(const DrawingSystem&) = delete;
    DrawingSystem& operator=(const DrawingSystem&) = delete;

private:
    int no_words_ = 0;  // which Qt might take for its own; it keeps the reference
    std::unique_ptr<QGuiApplication> application_;
};

}  // namespace zel
