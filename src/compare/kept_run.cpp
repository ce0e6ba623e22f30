#include "compare/kept_run.h"

#include <algorithm>

#include "workflow/run/transient_memory.h"

namespace zel {

void RunHistory::keep(KeptRun run) {
    if (!runs_.empty() && steady_inputs(runs_.back().c) == steady_inputs(run.c)) {
        run.pinned = runs_.back().pinned;
        runs_.back() = std::move(run);
        return;
    }
    runs_.push_back(std::move(run));
    if (runs_.size() <= most_kept) return;
    const auto oldest = std::find_if(runs_.begin(), runs_.end() - 1,
                                     [](const KeptRun& kept) { return !kept.pinned; });
    runs_.erase(oldest == runs_.end() - 1 ? runs_.begin() : oldest);
}

std::vector<const KeptRun*> RunHistory::compared() const {
    std::vector<const KeptRun*> chosen;
    for (const KeptRun& run : runs_)
        if (run.pinned || &run == &runs_.back()) chosen.push_back(&run);
    if (chosen.size() > most_compared)
        chosen.erase(chosen.begin(), chosen.end() - static_cast<std::ptrdiff_t>(most_compared));
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
