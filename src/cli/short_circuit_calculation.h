#pragma once

#include "cli/case_command.h"
#include "short_circuit/short_circuit_file.h"
#include "short_circuit/short_circuit_run.h"

namespace zel {

/// A run that judges a short-circuit case.
class ShortCircuitCalculation : public CaseRun {
public:
    explicit ShortCircuitCalculation(const CaseWords& words);

protected:
    int calculate() override;
    /// Called before what was found is printed.
    virtual void found() {}

    [[nodiscard]] const ShortCircuitForm& form() const { return file_.form; }
    [[nodiscard]] const ShortCircuitRun& result() const { return run_; }

private:
    void tell(const Box& box, const std::string& field);

    ShortCircuitFile file_;
    ShortCircuitRun run_;
};

}  // namespace zel
