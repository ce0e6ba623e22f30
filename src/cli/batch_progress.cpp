#include "cli/batch_progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "excel_batch/batch_texts.h"
#include "program/console.h"

namespace zel {
namespace {

using namespace std::chrono_literals;

constexpr int bar_width = 30;
constexpr auto redraw_after = 100ms;
constexpr std::string_view take_line_away = "\r\x1B[K";

void put(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); }

std::size_t terminal_width() {
    constexpr std::size_t usual = 80;
    winsize size{};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1 ? size.ws_col : usual;
}

/// A line that is too long would not be overwritten whole.
std::string first_characters(const std::string& line, std::size_t count) {
    std::size_t end = 0;
    for (; end < line.size() && count > 0; --count)
        end += std::max<std::size_t>(character_length(std::string_view(line).substr(end)), 1);
    return line.substr(0, end);
}

}  // namespace

BatchProgress::BatchProgress(const CommonOptions& options)
    : shown_(!options.json && ::isatty(STDERR_FILENO) == 1) {}

double BatchProgress::seconds() const {
    return std::chrono::duration<double>(Clock::now() - begin_).count();
}

void BatchProgress::status(const std::string& line) {
    status_ = line;
    draw();
}

void BatchProgress::percent(double percent) {
    percent_ = percent;
    draw();
}

void BatchProgress::active_rows(const std::string& line) { status(line); }

bool BatchProgress::cancelled() {
    if (shown_ && Clock::now() - drawn_ > redraw_after) draw();
    return false;
}

void BatchProgress::clear() {
    if (shown_) put(take_line_away);
}

void BatchProgress::draw() {
    if (!shown_) return;
    drawn_ = Clock::now();
    const int filled = static_cast<int>(std::lround(percent_ / 100 * bar_width));
    const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                            std::string(static_cast<std::size_t>(bar_width - filled), '.');
    char percent[16];
    std::snprintf(percent, sizeof percent, "%6.2f %%", percent_);
    const std::string line = "[" + bar + "] " + percent + "  " +
                             excel_batch::duration_text(seconds()) + suffix_ + "  " +
                             printable(status_);
    put(take_line_away);
    put(first_characters(line, terminal_width() - 1));
    std::fflush(stderr);
}

}  // namespace zel
