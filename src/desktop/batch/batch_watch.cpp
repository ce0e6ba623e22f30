#include "desktop/batch/batch_watch.h"

#include "excel_batch/batch_texts.h"

namespace zel {

Answer SeenBoxes::show(const Box& box) {
    if (!left_ || box.buttons != Buttons::Ok) return shown_by_.show(box);
    unseen_.push_back(joined(box.lines, "\n"));
    return Answer::Ok;
}

bool SeenBoxes::show_before_others(const Box& box) {
    if (!left_) left_ = shown_by_.show_before_others(box);
    return left_;
}

void FoundCells::clear() {
    const std::lock_guard lock(mutex_);
    cells_.clear();
}

void FoundCells::add(const excel_batch::WrongCell& cell) {
    const std::lock_guard lock(mutex_);
    cells_.push_back(cell);
}

std::vector<excel_batch::WrongCell> FoundCells::all() const {
    const std::lock_guard lock(mutex_);
    return cells_;
}

void BatchWatch::percent(double percent) {
    if (!job_.cancelled()) tell(at_.percent, percent);
}

void BatchWatch::rows_done(int done, int active) {
    tell(at_.done, excel_batch::rows_line(done, active, lang_));
}

}  // namespace zel
