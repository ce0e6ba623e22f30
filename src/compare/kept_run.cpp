#include "compare/kept_run.h"

#include <algorithm>

#include "workflow/run/transient_memory.h"

namespace zel {

namespace {

/// Lines of two projects may have the same inputs.
bool is_same(const CalcCase& a, const CalcCase& b) {
    return static_cast<const ProjectData&>(a) == static_cast<const ProjectData&>(b) &&
           steady_inputs(a) == steady_inputs(b);
}

}  // namespace

void RunHistory::keep(KeptRun run) {
    let_go_.clear();
    if (!runs_.empty() && is_same(runs_.back().c, run.c)) {
        run.pinned = runs_.back().pinned;
        runs_.back() = std::move(run);
        return;
    }
    runs_.push_back(std::move(run));
    let_oldest_go(runs_.back());
    if (runs_.size() <= most_kept) return;
    const auto oldest = std::find_if(runs_.begin(), runs_.end() - 1,
                                     [](const KeptRun& kept) { return !kept.pinned; });
    runs_.erase(oldest == runs_.end() - 1 ? runs_.begin() : oldest);
}

void RunHistory::pin(std::size_t run, bool pinned) {
    let_go_.clear();
    runs_.at(run).pinned = pinned;
    if (pinned) let_oldest_go(runs_[run]);
}

/// Not the one that is wanted now, and not the newest, which is compared in any case.
void RunHistory::let_oldest_go(const KeptRun& wanted) {
    if (compared().size() <= most_compared) return;
    const auto oldest = std::find_if(runs_.begin(), runs_.end(), [&](const KeptRun& kept) {
        return kept.pinned && &kept != &wanted && &kept != &runs_.back();
    });
    oldest->pinned = false;
    let_go_ = oldest->name;
}

std::vector<const KeptRun*> RunHistory::compared() const {
    std::vector<const KeptRun*> chosen;
    for (const KeptRun& run : runs_)
        if (run.pinned || &run == &runs_.back()) chosen.push_back(&run);
    return chosen;
}

std::string steady_command(std::string_view case_json) {
    // The quotes around the mark keep the shell from reading anything into the text.
    constexpr std::string_view end_mark = "END_OF_CASE";
    std::string mark(end_mark);
    while (case_json.find(mark) != std::string_view::npos) mark += "_";
    std::string text(case_json);
    if (text.empty() || text.back() != '\n') text += '\n';
    return "zel steady - <<'" + mark + "'\n" + text + mark + "\n";
}

}  // namespace zel
