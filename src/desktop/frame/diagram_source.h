#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "reports/printing.h"
#include "tables_graphs/diagram.h"

class QWidget;

namespace zel {

/// What a window draws: the diagram in the language of the moment, and its points as csv.
struct DiagramContent {
    std::function<Diagram(const Locale&)> diagram;
    std::function<std::string()> points;
    PrintOrder print{};
};

/// A check box that shows or hides a curve.
struct CurveSwitch {
    const char* name;
    Text caption;
    std::size_t curve;
};

/// What tells one window with a diagram from another.
struct DiagramForm {
    const char* name;
    Text title;
    Text file_name;             // proposed for a file, without ending
    bool can_calculate = true;  // by a button of its own
    std::vector<CurveSwitch> switches{};
    /// The content for the case as it is now; nothing where there is none, which was told.
    std::function<std::optional<DiagramContent>()> calculate;
    /// Whether it is that of the case still, where only such a one is printed; what is not is told.
    std::function<bool()> may_be_printed = [] { return true; };
};

/// A window with a diagram of a form's case, beside the form.
class DiagramSource {
public:
    virtual ~DiagramSource() = default;

    /// Calculates the diagram and shows it; shows nothing where it cannot be calculated.
    virtual void open() = 0;
    /// The inputs have changed: an open diagram says that it is that of the former ones.
    virtual void inputs_changed() = 0;
    /// The case is another one: an open diagram goes.
    virtual void forget() = 0;
};

using MakeDiagramSource =
    std::function<std::unique_ptr<DiagramSource>(QWidget& form, DiagramForm diagram)>;

}  // namespace zel
