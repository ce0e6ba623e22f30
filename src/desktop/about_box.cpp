#include "desktop/about_box.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "desktop/frame/window_icon.h"
#include "shell/linked_libraries.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr Text title = {"Info zu {0}", "About {0}"};
constexpr Text version_line = {"{0} vom {1}", "{0} of {1}"};
constexpr Text release_line = {"Ausgabe {0}", "Release {0}"};
constexpr Text built_with = {"Gebaut mit diesen Bibliotheken :", "Built with these libraries :"};
constexpr Text heads[] = {
    {"Bibliothek", "Library"}, {"Version"}, {"Lizenz", "Licence"}, {"Zweck", "Purpose"}};

QTableWidget* make_table(LangId lang) {
    const auto libraries = linked_libraries();
    auto* table =
        new QTableWidget(static_cast<int>(libraries.size()), static_cast<int>(std::size(heads)));
    table->setObjectName("libraries");
    table->setAccessibleName(qt(built_with, lang));
    for (int column = 0; const Text& head : heads)
        table->setHorizontalHeaderItem(column++, new QTableWidgetItem(qt(head, lang)));
    for (int row = 0; const LinkedLibrary& library : libraries) {
        int column = 0;
        for (const std::string_view text :
             {library.name, library.version, library.licence, library.purpose.in(lang)})
            table->setItem(row, column++, new QTableWidgetItem(qt(text)));
        ++row;
    }
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);  // texts wrap
    table->horizontalHeader()->setStretchLastSection(true);
    table->resizeColumnsToContents();
    return table;
}

}  // namespace

void show_about(QWidget* parent, LangId lang) {
    QDialog box(parent);
    box.setObjectName("about_box");
    box.setWindowTitle(qt(fill(title.in(lang), {short_name.in(lang)})));
    auto* layout = new QVBoxLayout(&box);
    auto* icon = new QLabel;
    icon->setPixmap(window_icon().pixmap(48, 48));
    layout->addWidget(icon);
    QLabel* name = plain_label(1.6, true);
    name->setText(qt(short_name, lang));
    QLabel* what = plain_label(qt(long_title, lang));
    QLabel* dated = plain_label(qt(fill(version_line.in(lang), {version.in(lang), program_date})));
    QLabel* release = plain_label(qt(fill(release_line.in(lang), {release_number()})));
    for (QLabel* line : {name, what, dated, release, plain_label(qt(built_with, lang))}) {
        line->setWordWrap(true);
        line->setTextInteractionFlags(Qt::TextSelectableByMouse);
        layout->addWidget(line);
    }
    layout->addWidget(make_table(lang), 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    on(buttons, &QDialogButtonBox::accepted, [&box] { box.accept(); });
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
    size_window(box, {720, 540});
    box.exec();
}

}  // namespace zel
