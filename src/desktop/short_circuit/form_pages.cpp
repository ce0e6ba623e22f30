#include "desktop/short_circuit/form_pages.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/frame/column_grid.h"
#include "desktop/frame/events.h"
#include "short_circuit/input_check.h"

namespace zel::short_circuit {
namespace {

constexpr int gap = 12;  // pixels between columns

struct ButtonRow {
    const char* name;
    Text caption;
};
constexpr ButtonRow start_button = {
    "Command3", {"Aus Seildatenbank auswählen", "Choose from conductor database"}};
constexpr ButtonRow take_over_button = {"Command4", {"Übernehmen", "Take over"}};
constexpr ButtonRow open_standard_button = {
    "Befehl5", {"Aus&wahl aus Standardfall-Tabelle", "Choose from sta&ndard-case table"}};
constexpr ButtonRow save_standard_button = {
    "Command2", {"S&peichern in Standardfall-Tabelle", "Sa&ve in standard-case table"}};

/// The columns side by side, where there is room for both, with what is left below them.
QWidget* content_of(QWidget* left, QWidget* right) {
    auto* content = new QWidget;
    auto* columns = new ColumnGrid(gap);
    columns->place(left, {0, 0}, {0, 0});
    columns->place(right, {0, 1}, {0, 1});
    columns->share({1, 1}, {1, 1}, 0, 0);
    auto* layout = new QVBoxLayout(content);
    layout->addWidget(columns, 1);
    return content;
}

QPushButton* make_button(const ButtonRow& row, Captions& captions, std::function<void()> act) {
    auto* button = new QPushButton;
    button->setObjectName(row.name);
    on(button, &QPushButton::clicked, std::move(act));
    return captions.text(button, row.caption);
}

}  // namespace

GeneralPage::GeneralPage(const FormParts& parts, std::function<void()> open_standard,
                         std::function<void()> save_standard)
    : InputPage(short_circuit::input_page, parts) {
    enum { project, current, object };
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button :
         {make_button(open_standard_button, parts.captions, std::move(open_standard)),
          make_button(save_standard_button, parts.captions, std::move(save_standard))})
        buttons->addWidget(button);
    QWidget* left = column_of({project, object});
    static_cast<QVBoxLayout*>(left->layout())->insertLayout(left->layout()->count() - 1, buttons);
    set_content(content_of(left, column_of({current})));
    setAlignment(Qt::AlignHCenter);
    tab_through({project, current, object});
}

ConductorPage::ConductorPage(const FormParts& parts, std::function<void()> start_database,
                             std::function<void()> take_over)
    : InputPage(short_circuit::conductor_page, parts) {
    enum { record, material };
    auto* buttons = new QWidget;
    auto* layout = new QHBoxLayout(buttons);
    layout->setContentsMargins(0, 6, 0, 0);
    layout->addWidget(make_button(start_button, parts.captions, std::move(start_database)));
    layout->addWidget(make_button(take_over_button, parts.captions, std::move(take_over)));
    layout->addStretch();
    panel(record).add_below(buttons);
    set_content(content_of(column_of({record}), column_of({material})));
    setAlignment(Qt::AlignHCenter);
    tab_through({record, material});
}

}  // namespace zel::short_circuit
