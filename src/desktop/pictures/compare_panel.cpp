#include "desktop/pictures/compare_panel.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/sheet_saving.h"
#include "desktop/frame/window_memory.h"
#include "persistence/sheet_file.h"

namespace zel {
namespace {

constexpr Text hint = {
    "Ein Haken hält einen Lauf fest: die nächsten stehen neben ihm, höchstens sechs. Was sich "
    "unterscheidet, ist fett.",
    "A tick keeps a run: the next ones stand beside it, six at most. What differs is bold."};
constexpr Text let_go = {
    "Der Haken von {0} ist fort: mehr als sechs Läufe stehen nicht nebeneinander.",
    "The tick of {0} is gone: no more than six runs stand beside each other."};
constexpr Text list_name = {"Läufe", "Runs"};
constexpr Text table_name = {"Vergleich", "Comparison"};
constexpr Text open_caption = {"Als Fall öffnen", "Open as case"};
constexpr Text command_caption = {"Befehl kopieren", "Copy command"};
constexpr Text copy_caption = {"Tabelle kopieren", "Copy table"};
constexpr Text save_caption = {"Tabelle speichern ...", "Save table ..."};
constexpr Text save_title = {"Vergleich speichern", "Save comparison"};
constexpr Text file_name = {"Vergleich", "comparison"};
constexpr Text filters = {"Excel-Dateien (*.xlsx) (*.xlsx)\nCSV-Dateien (*.csv) (*.csv)",
                          "Excel files (*.xlsx) (*.xlsx)\nCSV files (*.csv) (*.csv)"};
constexpr Text not_saved = {"Die Tabelle kann nicht gespeichert werden:\n{0}",
                            "The table can not be saved:\n{0}"};

constexpr int usual_column = 120;  // pixels: two runs stand beside each other in a narrow dock

/// What a run is called in the list: when it ran, its conductor, and what it found.
QString line_of(const KeptRun& run) {
    std::vector<std::string> results;
    for (const MethodResult& line : run.result.methods)
        results.push_back(without_outer_blanks(line.result));
    return qt(run.name + "   " + without_outer_blanks(run.c.Bezeichnung1_db) + "   " +
              joined(results, " / "));
}

QTableWidgetItem* item_of(const std::string& text, bool bold) {
    auto* item = new QTableWidgetItem(qt(text));
    QFont font;
    font.setBold(bold);
    item->setFont(font);
    return item;
}

}  // namespace

ComparePanel::ComparePanel(Parts parts)
    : parts_(std::move(parts)),
      list_(new QListWidget),
      note_(new NoteLine(NoteLine::Sign::Note, "let_go")),
      table_(new QTableWidget) {
    Captions& captions = parts_.panel.captions;
    captions.accessible_name(list_, list_name)->setObjectName("runs");
    captions.accessible_name(table_, table_name)->setObjectName("comparison");
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    list_->setWordWrap(true);
    list_->setResizeMode(QListView::Adjust);
    auto* words = captions.text(plain_label(), hint);
    words->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(words);
    layout->addWidget(list_, 1);
    layout->addWidget(note_);
    layout->addWidget(table_, 3);
    layout->addWidget(make_buttons());
    captions.computed([this](LangId) {
        show_runs();
        show_table();
    });
    on(list_, &QListWidget::itemChanged,
       [this](const QListWidgetItem* item) { pin_as_ticked(*item); });
}

QWidget* ComparePanel::make_buttons() {
    struct ButtonRow {
        const char* name;
        Text caption;
        std::function<void()> act;
    };
    const ButtonRow rows[] = {
        {"open_run", open_caption, [this] { parts_.open(KeptRun(*chosen_run())); }},
        {"copy_command", command_caption,
         [this] {
             QGuiApplication::clipboard()->setText(
                 qt(steady_command(parts_.json(chosen_run()->c))));
         }},
        {"copy_comparison", copy_caption, [this] { copy_table(); }},
        {"save_comparison", save_caption, [this] { save_table(); }},
    };
    auto* buttons = new QWidget;
    auto* grid = new QGridLayout(buttons);
    grid->setContentsMargins(0, 0, 0, 0);
    for (const ButtonRow& row : rows) {
        auto* button = parts_.panel.captions.text(new QPushButton, row.caption);
        button->setObjectName(row.name);
        button->setEnabled(false);
        const int place = static_cast<int>(of_run_.size());
        grid->addWidget(button, place / 2, place % 2);
        on(button, &QPushButton::clicked, row.act);
        of_run_.push_back(button);
    }
    return buttons;
}

void ComparePanel::keep(KeptRun run) {
    history_.keep(std::move(run));
    for (QPushButton* button : of_run_) button->setEnabled(true);
    show_runs();
    show_table();
}

/// The newest on top; it is the chosen one.
void ComparePanel::show_runs() {
    const QSignalBlocker quiet(list_);
    list_->clear();
    const auto& runs = history_.runs();
    for (std::size_t i = runs.size(); i-- > 0;) new QListWidgetItem(line_of(runs[i]), list_);
    show_ticks();
    list_->setCurrentRow(0);
}

const KeptRun* ComparePanel::chosen_run() const {
    const auto& runs = history_.runs();
    const int row = std::max(0, list_->currentRow());
    return &runs[runs.size() - 1 - static_cast<std::size_t>(row)];
}

void ComparePanel::pin_as_ticked(const QListWidgetItem& item) {
    const std::size_t last = history_.runs().size() - 1;
    history_.pin(last - static_cast<std::size_t>(list_->row(&item)),
                 item.checkState() == Qt::Checked);
    show_ticks();
    show_table();
}

void ComparePanel::show_ticks() {
    const QSignalBlocker quiet(list_);
    const auto& runs = history_.runs();
    for (std::size_t i = 0; i < runs.size(); ++i)
        list_->item(static_cast<int>(runs.size() - 1 - i))
            ->setCheckState(runs[i].pinned ? Qt::Checked : Qt::Unchecked);
    const std::string& gone = history_.let_go();
    note_->tell(gone.empty() ? gone : fill(let_go.in(parts_.panel.session.lang), {gone}));
}

Comparison ComparePanel::compared(ComparedInputs inputs) const {
    return compare(history_.compared(), inputs, parts_.panel.session);
}

void ComparePanel::show_table() {
    const Comparison comparison = compared(ComparedInputs::Changed);
    const int columns = table_->columnCount();
    table_->clear();
    table_->setRowCount(0);
    table_->setColumnCount(static_cast<int>(comparison.names.size()));
    QStringList names;
    for (const std::string& name : comparison.names) names << qt(name);
    table_->setHorizontalHeaderLabels(names);
    for (const ComparedGroup& group : comparison.groups)
        for (const ComparedRow& row : group.rows) {
            const int line = table_->rowCount();
            table_->insertRow(line);
            table_->setVerticalHeaderItem(
                line,
                item_of(row.label + (row.unit.empty() ? "" : " [" + row.unit + "]"), row.differs));
            for (std::size_t i = 0; i < row.values.size(); ++i) {
                QTableWidgetItem* item = item_of(row.values[i].text, row.differs);
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
                table_->setItem(line, static_cast<int>(i), item);
            }
        }
    fit_columns(columns);
}

/// The runs share the width; a text that needs more takes further lines, but for a long word. Once
/// the user has chosen widths, only the columns from `first` on are fitted.
void ComparePanel::fit_columns(int first) {
    const int columns = table_->columnCount();
    if (columns == 0) return;
    if (!table_->horizontalHeader()->property(WindowMemory::widths_by_user).toBool()) first = 0;
    const int share = std::max(usual_column, table_->viewport()->width() / columns);
    for (int column = first; column < columns; ++column) {
        table_->resizeColumnToContents(column);
        table_->setColumnWidth(
            column, std::min(table_->columnWidth(column), std::max(share, widest_word(column))));
    }
    table_->resizeRowsToContents();
}

int ComparePanel::widest_word(int column) const {
    constexpr int margins = 12;  // pixels
    int widest = 0;
    for (int row = 0; row < table_->rowCount(); ++row) {
        const QTableWidgetItem& item = *table_->item(row, column);
        QFont font = table_->font();
        font.setBold(item.font().bold());
        for (const QString& word : item.text().split(' '))
            widest = std::max(widest, QFontMetrics(font).horizontalAdvance(word));
    }
    return widest + margins;
}

void ComparePanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fit_columns(table_->columnCount());
}

void ComparePanel::copy_table() const {
    const Session& session = parts_.panel.session;
    const SheetDesign sheet = comparison_sheet(compared(ComparedInputs::All), session);
    QGuiApplication::clipboard()->setText(qt(tab_text_of(sheet, session.separator)));
}

void ComparePanel::save_table() const {
    const PanelParts& parts = parts_.panel;
    const Session& session = parts.session;
    save_as(session, parts.chooser, parts.files, {save_title, filters, "xlsx", not_saved}, {},
            std::string(file_name.in(session.lang)),
            [&](const std::string& path) -> std::optional<Box> {
                write_sheet(comparison_sheet(compared(ComparedInputs::All), session), path,
                            parts_.workbooks, parts.files, session.separator);
                return std::nullopt;
            });
}

}  // namespace zel
