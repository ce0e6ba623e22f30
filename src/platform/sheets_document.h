#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/canvas.h"

namespace zel {

/// Draws sheet after sheet: calls the function before each but the first.
using DrawSheets = std::function<void(Canvas&, const std::function<void()>& next_sheet)>;

/// Sheets of paper that become one file.
struct SheetsDocument {
    CanvasBox sheet;  // the size of each
    std::string title;
    std::string_view language;  // of the texts, as "de"
    DrawSheets draw;
};

}  // namespace zel
