#pragma once

#include "cli/case_command.h"
#include "cli/case_output.h"
#include "program/case_source.h"
#include "workflow/run/steady_run.h"
#include "workflow/run/transient.h"

namespace zel {

/// A run that rates a case and follows it through its changes of state.
class TransientCalculation : public CaseRun {
public:
    /// `series`: the course of the temperature is found too.
    TransientCalculation(const CaseWords& words, bool series);

protected:
    int calculate() override;
    /// Called before what was found is printed.
    virtual void found() {}

    [[nodiscard]] const TransientReport& report() const { return report_; }
    [[nodiscard]] const SteadyRunResult& steady() const { return steady_; }
    [[nodiscard]] const CalcCase& calc_case() const { return loaded_.c; }
    [[nodiscard]] bool ran() const { return ran_; }

private:
    int without_start();
    int page_refused(const TransientRefusal& refusal);

    LoadedCase loaded_;
    MethodMemory memory_;
    Session session_;
    bool wants_series_;
    bool ran_ = false;  // the changes of state did, the failed one included
    SteadyRunResult steady_;
    TransientBasis basis_;
    TransientReport report_;
};

}  // namespace zel
