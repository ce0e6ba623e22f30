#pragma once

#include "desktop/frame/desktop_state.h"
#include "desktop/frame/file_document.h"

namespace zel {

/// The case of the thermal rating as a document. A file that names a setting changes it, which is
/// asked for before; what a setting changes is no change of the case.
class CaseDocument : public FileDocument {
public:
    /// What stands in the case at the start counts as stored in its file.
    explicit CaseDocument(DesktopState& state);

    /// An empty case without a file; false where the user does not want to lose changes.
    bool start_anew();

protected:
    [[nodiscard]] FlatObject values() const override;
    [[nodiscard]] FlatObject entered() const override;
    std::vector<RefusedText> take(const FlatObject& values) override;

private:
    void take_missing_settings(CalcCase& c, const FlatObject& values) const;

    DesktopState& state_;
};

}  // namespace zel
