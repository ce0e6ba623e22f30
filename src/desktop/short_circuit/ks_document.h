#pragma once

#include "desktop/frame/file_document.h"
#include "desktop/short_circuit/ks_state.h"

namespace zel {

/// The short-circuit case as a document.
class KsDocument : public FileDocument {
public:
    /// What stands in the case at the start counts as stored.
    explicit KsDocument(KsState& state);

    /// An empty case without a file, after the question of `mneu`; false where the user says no.
    bool start_anew();

protected:
    [[nodiscard]] FlatObject values() const override;
    std::vector<RefusedText> take(const FlatObject& values) override;

private:
    KsState& state_;
};

}  // namespace zel
