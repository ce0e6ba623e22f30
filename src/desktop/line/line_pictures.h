#pragma once

#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

#include "compare/kept_run.h"
#include "compare/sensitivity.h"
#include "desktop/line/line_case.h"
#include "desktop/line/step_list.h"
#include "desktop/pictures/picture_panel.h"

namespace zel {

/// The pictures of the thermal rating: line and conductor as they are typed, and what the last run
/// found.
class LinePictures : public PicturePanel {
public:
    LinePictures(const PanelParts& parts, PrintSource& printing, const LineCase& line,
                 ChosenSteps& steps);

    /// The inputs have changed, or the language.
    void show_case();
    /// Line, wind and conductor follow texts that are not entered yet, once these rest for a
    /// moment.
    void follow_typing(std::vector<forms::PendingText> texts);
    void show_run(KeptRun run);
    void forget();
    /// Called where the user has chosen a step of an input.
    std::function<void()> steps_changed = [] {};

private:
    void show_typed();
    [[nodiscard]] std::vector<PictureEntry> entries();
    void add_results(std::vector<PictureEntry>& entries);

    const LineCase& line_;
    const Session& session_;
    ChosenSteps& steps_;
    StepList* step_list_;
    QTimer pause_;
    std::vector<forms::PendingText> texts_;
    CalcCase typed_;  // the case with the texts
    std::optional<KeptRun> run_;
    std::optional<Sensitivity> sensitivity_;  // of the run, once it was looked at
};

}  // namespace zel
