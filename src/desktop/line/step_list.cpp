#include "desktop/line/step_list.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "platform/text/pasted_number.h"

namespace zel {
namespace {

enum { input_column, step_column };

constexpr Text list_name = {"Schritte der Eingaben", "Steps of the inputs"};
constexpr Text heads[] = {{"Eingabe", "Input"}, {"Schritt", "Step"}};
constexpr Text hint = {"Ein anderer Schritt gilt von nun an; leer ist es wieder der übliche.",
                       "Another step counts from now on; empty it is the usual one again."};
constexpr std::string_view hundredth = "1 %";
constexpr int lines_at_once = 5;

std::string input_text(const CaseField& field, LangId lang) {
    const std::string unit(long_unit_of(field));
    return std::string(long_label_of(field).in(lang)) + (unit.empty() ? "" : " [" + unit + "]");
}

/// A step as it is typed, with either separator where that is not ambiguous.
std::optional<double> step_of(const std::string& text, DecimalSeparator separator) {
    const auto readings = readings_of(text, separator);
    const auto step = parse_number(readings.size() == 1 ? readings.front() : text, separator);
    return step && *step != 0 ? step : std::nullopt;
}

}  // namespace

StepList::StepList(const Session& session, Captions& captions, ChosenSteps& steps)
    : session_(session), steps_(steps) {
    captions.accessible_name(this, list_name)->setObjectName("sensitivity_steps");
    captions.tool_tip(this, hint);
    setColumnCount(static_cast<int>(std::size(heads)));
    verticalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(input_column, QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    setTabKeyNavigation(false);
    setSelectionMode(SingleSelection);
    setEditTriggers(AllEditTriggers);
    setFixedHeight((lines_at_once + 1) * verticalHeader()->defaultSectionSize());
    captions.computed([this](LangId) { show_steps(); });
    on(this, &QTableWidget::itemChanged, [this](const QTableWidgetItem* item) { choose(*item); });
}

void StepList::show_case(const CalcCase& c) {
    c_ = c;
    show_steps();
}

void StepList::show_steps() {
    const QSignalBlocker quiet(this);
    const std::vector<ChosenStep> chosen = steps_.of(c_);
    lines_ = started_steps(c_, chosen);
    for (int column = 0; const Text& head : heads)
        setHorizontalHeaderItem(column++, new QTableWidgetItem(qt(head, session_.lang)));
    setRowCount(static_cast<int>(lines_.size()));
    for (int row = 0; const SensitivityLine& line : lines_) {
        auto* input = new QTableWidgetItem(qt(input_text(*line.field, session_.lang)));
        input->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        const bool own = std::any_of(chosen.begin(), chosen.end(), [&](const ChosenStep& step) {
            return step.field == line.field->name;
        });
        auto* step = new QTableWidgetItem(
            qt(line.is_hundredth ? hundredth : plain_number(line.step, session_.separator)));
        QFont font;
        font.setBold(own);
        step->setFont(font);
        step->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setItem(row, input_column, input);
        setItem(row++, step_column, step);
    }
}

void StepList::choose(const QTableWidgetItem& item) {
    const CaseField& field = *lines_[static_cast<std::size_t>(item.row())].field;
    steps_.choose(field, step_of(item.text().toStdString(), session_.separator));
    // The editor of the item is still open.
    later(*this, [this] { show_steps(); });
    changed();
}

}  // namespace zel
