#include "desktop/short_circuit/ks_document.h"

#include <utility>

#include "shell/program_texts.h"
#include "short_circuit/short_circuit_file.h"

namespace zel {

KsDocument::KsDocument(KsState& state)
    : FileDocument(state.session, state.store, state.chooser, short_circuit_title), state_(state) {
    mark_stored({});
}

bool KsDocument::start_anew() {
    const Session& session = state_.session;
    if (session.dialogs.show(new_case_question(session.lang)) != Answer::Yes) return false;
    state_.form = {};
    mark_stored({});
    return true;
}

FlatObject KsDocument::values() const { return values_of(state_.form.content()); }

std::vector<RefusedText> KsDocument::take(const FlatObject& values) {
    ShortCircuitFile file = read_short_circuit_case(values, state_.session);
    state_.form = std::move(file.form);
    return std::move(file.refused);
}

}  // namespace zel
