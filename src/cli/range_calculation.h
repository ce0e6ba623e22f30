#pragma once

#include "cli/case_command.h"
#include "program/case_source.h"
#include "tables_graphs/parameter_table.h"

namespace zel {

/// A run that calculates the results of a case over a range, for which the input check and that of
/// the table come first.
class RangeCalculation : public CaseRun {
public:
    explicit RangeCalculation(const CaseWords& words);

protected:
    int calculate() override;
    /// Calculates and writes; false where a method found nothing somewhere.
    virtual bool find() = 0;

    [[nodiscard]] const CalcCase& calc_case() const { return loaded_.c; }
    [[nodiscard]] const Session& session() const { return session_; }
    [[nodiscard]] const std::vector<Note>& notes() const { return notes_; }

private:
    LoadedCase loaded_;
    Session session_;
    std::vector<Note> notes_;
};

}  // namespace zel
