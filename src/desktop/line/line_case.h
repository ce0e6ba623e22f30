#pragma once

#include <functional>

#include "desktop/frame/document.h"
#include "desktop/frame/live_settings.h"
#include "workflow/run/transient_memory.h"

namespace zel {

/// The case of the thermal rating, as the windows of its area share it.
struct LineCase {
    CalcCase& c;
    TransientMemory& transient;             // where a transient starts, and the last one
    std::function<void()> changed = [] {};  // called by whoever changes the case
};

/// The case as a document. A file that names a setting changes it, which is asked for before; what
/// a setting changes is no change of the case.
class LineRecord : public DocumentRecord {
public:
    LineRecord(CalcCase& c, const Session& session, LiveSettings& settings)
        : c_(c), session_(session), settings_(settings) {}

    [[nodiscard]] FlatObject values() const override;
    [[nodiscard]] FlatObject entered() const override;
    std::vector<RefusedText> take(const FlatObject& values) override;
    void start_anew() override;
    [[nodiscard]] std::vector<NamedValue> row(std::vector<CutText>& cut) const override;
    std::vector<RefusedText> take(const StoredRow& row) override;
    [[nodiscard]] std::unique_ptr<forms::ShownRecord> shown(const StoredRow& row) const override;
    [[nodiscard]] std::unique_ptr<forms::ShownRecord> shown() const override;
    /// What refuses a calculation of it.
    [[nodiscard]] std::optional<Box> refusal_to_keep() const override;

private:
    void take_missing_settings(CalcCase& c, const FlatObject& values) const;

    CalcCase& c_;
    const Session& session_;
    LiveSettings& settings_;
};

}  // namespace zel
