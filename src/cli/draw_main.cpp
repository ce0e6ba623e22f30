#include <CLI/CLI.hpp>

#include "cli/commands.h"

// The program that draws. "zel" becomes it, with the same words, where a command draws a file: no
// other command waits for Qt to be loaded.

namespace zel {
namespace {

/// Qt is loaded when there is something to draw: wrong input is refused without it.
std::string draw_alone(DrawingKind kind, const CanvasBox& area, std::string_view title,
                       const std::function<void(Canvas&)>& draw) {
    const DrawingSystem system;
    return drawing_file(kind, area, title, draw);
}

std::string draw_sheets_alone(const SheetsDocument& document) {
    const DrawingSystem system;
    return sheets_file(document);
}

int run(int argc, char** argv) {
    CLI::App app("Draw diagrams into files", "zel");
    app.require_subcommand(1);
    CommandLine line(app, argv, {draw_alone, draw_sheets_alone});
    add_graph(line);
    add_picture(line);
    add_report(line);
    add_sensitivity(line);
    if (const auto status = refused_words(app, argc, argv)) return *status;
    return line.chosen()();
}

}  // namespace
}  // namespace zel

int main(int argc, char** argv) {
    return zel::guarded([&] { return zel::run(argc, argv); });
}
