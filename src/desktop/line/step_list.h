#pragma once

#include <QTableWidget>
#include <functional>
#include <vector>

#include "compare/chosen_steps.h"
#include "desktop/frame/captions.h"

namespace zel {

/// The steps by which inputs are moved, to be changed in place; what is chosen is bold. An emptied
/// step is the usual one again, and so is a text that is no step.
class StepList : public QTableWidget {
public:
    StepList(const Session& session, Captions& captions, ChosenSteps& steps);

    void show_case(const CalcCase& c);
    /// Called where the user has chosen a step.
    std::function<void()> changed = [] {};

private:
    void show_steps();
    void choose(const QTableWidgetItem& item);

    const Session& session_;
    ChosenSteps& steps_;
    CalcCase c_;
    std::vector<SensitivityLine> lines_;
};

}  // namespace zel
