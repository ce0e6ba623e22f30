#include "desktop/databases/record_browser.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTableView>
#include <algorithm>

#include "desktop/databases/record_view.h"
#include "desktop/frame/column_grid.h"
#include "desktop/frame/events.h"
#include "desktop/frame/inputs.h"
#include "desktop/frame/sheet_saving.h"
#include "desktop/frame/widgets.h"
#include "forms/select_path.h"
#include "persistence/database/table_export.h"

namespace zel {

struct RecordBrowser::ButtonRow {
    const char* name;
    Text caption;
    void (RecordBrowser::*act)();
    bool needs_record;
    bool writes = false;
};

namespace {

constexpr int gap = 6;  // pixels between buttons

constexpr QSize window_size(1260, 740);
constexpr int no_record = -1;
constexpr int least_name = 10;  // characters of a table's name that are seen

constexpr Text list_name = {"Datensätze", "Data records"};
constexpr Text find_caption = {"&Suchen :", "&Find :"};
constexpr Text bar_name = {"Datensatzauswahl", "Choice of the data record"};
constexpr Text only_read = {
    "Diese Datenbank kann nur gelesen werden. Eine Access-Datei lässt sich in "
    "eine neue Datenbank importieren.",
    "This database can only be read. An Access file can be imported into a "
    "new database."};
constexpr Text back_caption = {"&Zurück", "&Back"};

constexpr Text export_title = {"Tabelle exportieren", "Export table"};
constexpr BoxText exported = {
    Icon::None,
    export_title,
    {"{0} Datensätze wurden geschrieben:\n{1}", "{0} data records were written:\n{1}"}};
/// The record that none is: everything is empty.
StoredRow no_row() { return {TableInfo{}, {}}; }

}  // namespace

RecordBrowser::RecordBrowser(const DatabaseWindowParts& parts, std::unique_ptr<Database> database,
                             std::vector<TableInfo> tables, std::string path,
                             const std::string& title)
    : QDialog(&parts.record.window),
      parts_(parts),
      database_(std::move(database)),
      path_(std::move(path)),
      tables_(std::move(tables)),
      list_(parts.forms, parts.session.lang),
      found_(list_),
      choice_(new QuietList),
      find_(new QLineEdit),
      view_(new QTableView),
      sheet_(new RecordView(*parts.record.shown(no_row()), parts.forms, parts.session.lang)),
      split_(new QSplitter),
      count_(plain_label()),
      bar_(new QScrollBar(Qt::Horizontal)) {
    setObjectName(parts.forms.browser);
    setWindowTitle(qt(title));
    split_->setChildrenCollapsible(false);
    split_->addWidget(make_list());
    split_->addWidget(sheet_);
    split_->setStretchFactor(0, 1);
    auto* position = new QHBoxLayout;
    make_position(*position);
    auto* content = new QWidget;
    auto* down = new QVBoxLayout(content);
    down->addWidget(split_, 1);
    down->addLayout(position);
    down->addWidget(make_buttons());
    auto* area = new QScrollArea;  // for the smallest screens
    make_scrolling(*area);
    area->setWidget(content);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    show_choice_of_tables();
    open_table(0);
    fit_columns(*view_, parts.forms);
    view_->setFocus();
    size_window(*this, window_size);
}

RecordBrowser::~RecordBrowser() = default;

/// List and sheet stand below each other where there is no room for both side by side.
void RecordBrowser::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    constexpr int around = 40;  // pixels
    int needed = around;
    for (int i = 0; i < split_->count(); ++i)
        needed += split_->widget(i)->minimumSizeHint().width();
    split_->setOrientation(width() >= needed ? Qt::Horizontal : Qt::Vertical);
}

QWidget* RecordBrowser::make_list() {
    const LangId lang = parts_.session.lang;
    choice_->setObjectName("Combo1");
    choice_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice_->setMinimumContentsLength(least_name);
    find_->setObjectName("find");
    find_->setPlaceholderText(qt(parts_.forms.find_hint, lang));
    find_->setClearButtonEnabled(true);
    view_->setObjectName("records");
    view_->setAccessibleName(qt(list_name, lang));
    make_list_view(*view_, found_);
    view_->setSortingEnabled(true);
    view_->sortByColumn(0, Qt::AscendingOrder);
    auto* list = new QWidget;
    auto* grid = new QGridLayout(list);
    grid->setContentsMargins(0, 0, 0, 0);
    int line = 0;
    for (const auto& [caption, box] :
         {std::pair<Text, QWidget*>(parts_.forms.table_caption, choice_), {find_caption, find_}}) {
        auto* label = new QLabel(qt(caption, lang));
        label->setBuddy(box);
        grid->addWidget(label, line, 0);
        grid->addWidget(box, line++, 1);
    }
    grid->addWidget(view_, line, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    on(choice_, &QComboBox::activated,
       [this](int index) { open_table(static_cast<std::size_t>(index)); });
    on(find_, &QLineEdit::textChanged, [this](const QString& typed) { find(typed); });
    on(view_->selectionModel(), &QItemSelectionModel::currentRowChanged,
       [this] { selected_in_list(); });
    on(view_, &QTableView::doubleClicked, [this] { take_over(); });
    on(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, [this] {
        find_->setFocus();
        find_->selectAll();
    });
    const auto key_of_list = [this](const QKeySequence& key, std::function<void()> act) {
        auto* shortcut = new QShortcut(key, view_);
        shortcut->setContext(Qt::WidgetShortcut);
        on(shortcut, &QShortcut::activated, std::move(act));
    };
    key_of_list(QKeySequence::Delete, [this] { delete_row(); });
    key_of_list(Qt::Key_Home, [this] { view_->selectRow(0); });
    key_of_list(Qt::Key_End, [this] { view_->selectRow(found_.rowCount() - 1); });
    return list;
}

void RecordBrowser::make_position(QHBoxLayout& line) {
    count_->setObjectName("count");
    bar_->setObjectName("HScroll1");
    bar_->setAccessibleName(qt(bar_name, parts_.session.lang));
    bar_->setFocusPolicy(Qt::StrongFocus);
    on(bar_, &QScrollBar::valueChanged,
       [this](int value) { show_at(value - parts_.forms.first_number); });
    // The bar does not move where the number gets longer.
    count_->setMinimumWidth(count_->fontMetrics().horizontalAdvance(
        qt(fill(parts_.forms.count.in(parts_.session.lang), {"00000", "00000"}))));
    if (!parts_.forms.bar_caption.de.empty())
        line.addWidget(plain_label(qt(parts_.forms.bar_caption, parts_.session.lang)));
    line.addWidget(count_);
    line.addWidget(bar_, 1);
}

QWidget* RecordBrowser::make_buttons() {
    std::vector<QWidget*> line;
    static constexpr ButtonRow rows[] = {
        {"Command1",
         {"Angezeigten Datensatz überneh&men", "Take &over data record"},
         &RecordBrowser::take_over,
         true},
        {"Command2",
         {"Angezeigten &Datensatz löschen", "&Delete data record"},
         &RecordBrowser::delete_row,
         true,
         true},
        {"Command3",
         {"An&gezeigte Tabelle löschen", "Delete t&able"},
         &RecordBrowser::delete_table,
         false,
         true},
        {"export_table",
         {"Tabelle e&xportieren ...", "E&xport table ..."},
         &RecordBrowser::export_shown_table,
         false},
    };
    const LangId lang = parts_.session.lang;
    for (const ButtonRow& row : rows) {
        auto* button = new QPushButton(qt(row.caption, lang));
        button->setObjectName(row.name);
        button->setAutoDefault(false);
        if (row.writes && !database_->writable()) button->setToolTip(qt(only_read, lang));
        on(button, &QPushButton::clicked, [this, &row] { (this->*row.act)(); });
        line.push_back(button);
        buttons_.emplace_back(button, &row);
    }
    buttons_.front().first->setDefault(true);
    auto* back = new QPushButton(qt(back_caption, lang));
    back->setObjectName(parts_.forms.back);
    back->setAutoDefault(false);
    on(back, &QPushButton::clicked, [this] { reject(); });
    line.push_back(back);
    auto* buttons = new ColumnGrid(gap);
    buttons->place_row(line, 2, static_cast<int>(std::size(rows)) - 1);
    return buttons;
}

void RecordBrowser::show_choice_of_tables() {
    choice_->clear();
    for (const TableInfo& table : tables_) choice_->addItem(qt(table.name));
    choice_->setEnabled(!tables_.empty());
}

bool RecordBrowser::carried_out(const char* procedure, const std::function<void()>& act) {
    return carry_out(parts_, parts_.forms.browser, procedure, act) == 0;
}

void RecordBrowser::open_table(std::size_t table) {
    table_ = table;
    choice_->setCurrentIndex(static_cast<int>(table));
    reload(0);
}

void RecordBrowser::reload(int wanted) {
    record_ = no_record;
    if (tables_.empty())
        list_.clear();
    else
        (void)carried_out("Combo1_click", [this] { list_.read(*database_, table()); });
    const int rows = list_.rowCount();
    {
        const QSignalBlocker quiet(bar_);
        const int first = parts_.forms.first_number;
        bar_->setRange(first, first + std::max(rows, 1) - 1);
        bar_->setEnabled(rows > 1);
    }
    show_at(std::min(wanted, rows - 1));
}

void RecordBrowser::show_at(int record) {
    record_ = record;
    if (!read_record()) return reload(record);
    sheet_->show_record(*parts_.record.shown(shown_ ? *shown_ : no_row()));
    show_number();
    select_in_list();
    for (const auto& [button, row] : buttons_)
        button->setEnabled((row->needs_record ? shown_.has_value() : !tables_.empty()) &&
                           (!row->writes || database_->writable()));
}

/// Other programs delete rows too.
bool RecordBrowser::read_record() {
    shown_.reset();
    if (record_ == no_record) return true;
    const auto action = carry_out(parts_, parts_.forms.browser, "HScroll1_change", [this] {
        shown_ = stored_row(*database_, tables_[table_], list_.key(record_));
    });
    return action != next_statement;
}

void RecordBrowser::show_number() {
    if (record_ == no_record) return count_->clear();
    count_->setText(qt(fill(parts_.forms.count.in(parts_.session.lang),
                            {std::to_string(record_ + 1), std::to_string(list_.rowCount())})));
    const QSignalBlocker quiet(bar_);
    bar_->setValue(record_ + parts_.forms.first_number);
}

void RecordBrowser::select_in_list() {
    const QSignalBlocker quiet(view_->selectionModel());
    const QModelIndex place =
        record_ == no_record ? QModelIndex() : found_.mapFromSource(list_.index(record_, 0));
    if (place.isValid()) {
        view_->selectRow(place.row());
        view_->scrollTo(place);
    } else {
        view_->selectionModel()->clear();
    }
    view_->viewport()->update();
}

void RecordBrowser::selected_in_list() {
    const QModelIndex place = found_.mapToSource(view_->currentIndex());
    if (place.isValid() && place.row() != record_) show_at(place.row());
}

/// The record that is shown stays where it is found too; otherwise the first one comes.
void RecordBrowser::find(const QString& typed) {
    {
        const QSignalBlocker quiet(view_->selectionModel());
        found_.find(typed);
    }
    const bool kept =
        record_ != no_record && found_.mapFromSource(list_.index(record_, 0)).isValid();
    if (kept || found_.rowCount() == 0) return select_in_list();
    show_at(found_.mapToSource(found_.index(0, 0)).row());
}

void RecordBrowser::take_over() {
    if (shown_ && parts_.record.may_be_replaced()) accept();
}

void RecordBrowser::delete_row() {
    if (!shown_ || !database_->writable()) return;
    const Box question = box_in(parts_.session.lang, parts_.forms.delete_row);
    if (parts_.session.dialogs.show(question) != Answer::Yes) return;
    if (carried_out("Command2_click",
                    [this] { database_->delete_row(table(), list_.key(record_)); }))
        reload(parts_.forms.goes_to_first ? 0 : record_);
}

void RecordBrowser::delete_table() {
    if (tables_.empty() || !database_->writable()) return;
    const Box question = box_in(parts_.session.lang, parts_.forms.delete_table);
    if (parts_.session.dialogs.show(question) != Answer::Yes) return;
    if (!carried_out("Command3_click", [this] { database_->drop_table(table()); })) return;
    tables_.erase(tables_.begin() + static_cast<std::ptrdiff_t>(table_));
    show_choice_of_tables();
    open_table(0);
}

void RecordBrowser::export_shown_table() {
    const SheetSaving saving = {parts_.session, parts_.chooser, parts_.workbooks, parts_.files};
    saving.save(export_title, start_folder(path_), table(), [this](const std::string& path) {
        refuse_itself(path_, path);
        const std::size_t rows =
            export_table(*database_, parts_.forms.format(), tables_[table_], path, parts_.workbooks,
                         parts_.files, parts_.session.separator);
        return box_in(parts_.session.lang, exported, {std::to_string(rows), path});
    });
}

}  // namespace zel
