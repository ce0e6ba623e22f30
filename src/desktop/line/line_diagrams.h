#pragma once

#include "desktop/frame/diagram_source.h"
#include "desktop/line/line_case.h"
#include "messages/area_messages.h"

class QWidget;

namespace zel {

/// What the diagrams of a form work with.
struct LineDiagramParts {
    QWidget& form;
    const LineCase& line;
    const Session& session;
    AreaMessages& messages;  // beside the pages
    int patience;            // in milliseconds: a longer calculation shows its progress
};

/// `frm_graph_steady`: the range of the parameter table as curves.
[[nodiscard]] DiagramForm steady_diagram_form(const LineDiagramParts& parts);

/// `frm_graph_unsteady`: the last transient over time. It is not drawn where its inputs have
/// changed since.
[[nodiscard]] DiagramForm transient_diagram_form(const LineDiagramParts& parts);

}  // namespace zel
