#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workflow/run/steady_run.h"

// Runs that are kept to be compared with later ones.

namespace zel {

/// A steady run with its inputs.
struct KeptRun {
    std::string name;  // of its file, or when it ran
    CalcCase c;        // as it was run
    SteadyRunResult result;
    bool pinned = false;  // stays, and is compared with the runs that follow
};

/// So many runs stand side by side at most.
inline constexpr std::size_t most_compared = 6;

/// The runs of a session, the newest last. A run with the inputs and the project of the
/// newest takes its place. No more runs are pinned than can stand beside the newest: the oldest of
/// more is let go.
class RunHistory {
public:
    /// Forgets the oldest one that is not pinned beyond `most_kept`.
    void keep(KeptRun run);
    void pin(std::size_t run, bool pinned);
    void forget() { runs_.clear(); }

    [[nodiscard]] const std::vector<KeptRun>& runs() const { return runs_; }
    /// The pinned runs, in their order, and the newest: at most `most_compared`.
    [[nodiscard]] std::vector<const KeptRun*> compared() const;
    /// The run that the last call of `keep` or `pin` has let go; empty where it was none.
    [[nodiscard]] const std::string& let_go() const { return let_go_; }

    static constexpr std::size_t most_kept = 50;

private:
    void let_oldest_go(const KeptRun& wanted);

    std::vector<KeptRun> runs_;
    std::string let_go_;
};

/// A line for a shell that calculates a run again from its case as a JSON text, which `zel` takes
/// from standard input.
[[nodiscard]] std::string steady_command(std::string_view case_json);

}  // namespace zel
