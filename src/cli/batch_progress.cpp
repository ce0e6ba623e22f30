#include "cli/batch_progress.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>

#include "cli/console.h"
#include "excel_batch/batch_texts.h"

namespace zel {
namespace {

using namespace std::chrono_literals;

constexpr int bar_width = 30;
constexpr auto redraw_after = 100ms;
constexpr const char* take_line_away = "\r\x1B[K";

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

void BatchProgress::active_rows(int /*count*/, const std::string& line) { status(line); }

bool BatchProgress::stop_after_row() {
    if (shown_ && Clock::now() - drawn_ > redraw_after) draw();
    return false;
}

void BatchProgress::clear() {
    if (shown_) std::fputs(take_line_away, stderr);
}

void BatchProgress::draw() {
    if (!shown_) return;
    drawn_ = Clock::now();
    const int filled = static_cast<int>(std::lround(percent_ / 100 * bar_width));
    const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                            std::string(static_cast<std::size_t>(bar_width - filled), '.');
    const std::string time = excel_batch::duration_text(seconds()) + suffix_;
    std::fprintf(stderr, "%s[%s] %6.2f %%  %s  %.60s", take_line_away, bar.c_str(), percent_,
                 time.c_str(), printable(status_).c_str());
    std::fflush(stderr);
}

}  // namespace zel
