#include "desktop/databases/save_dialogs.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTableView>
#include <QVBoxLayout>
#include <QValidator>

#include "desktop/databases/record_view.h"
#include "desktop/frame/events.h"
#include "desktop/frame/inputs.h"
#include "desktop/frame/widgets.h"
#include "persistence/database/table_names.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr int window_width = 740;
constexpr int buttons_margin = 10;
constexpr int least_list_height = 150;

constexpr Text save_caption = {"Datensatz &speichern...", "&Save data record speichern..."};
constexpr Text back_caption = {"&Zurück", "&Back"};
constexpr Text group_caption = {"Speichern in ...", "Save in ..."};
constexpr Text existing_caption = {"bestehender &Tabelle", "&Existing table"};
constexpr Text new_caption = {"&neuer Tabelle", "&New table"};
constexpr Text first_caption = {"Neue Tabelle", "New table"};
constexpr Text name_caption = {"N&ame der Tabelle :", "N&ame of the table :"};
constexpr Text rows_text = {"Datensätze : {0}", "Data records : {0}"};

QString without_refused(QString text) {
    while (const auto character = refused_character(text.toStdString()))
        text.remove(qt(*character));
    return text;
}

class NameRule : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override {
        const QString kept = without_refused(text);
        if (kept == text) return Acceptable;
        QApplication::beep();
        cursor = static_cast<int>(without_refused(text.left(cursor)).size());
        text = kept;
        return Acceptable;
    }
};

QLabel* hint_label(const Text& text, LangId lang) {
    QLabel* label = plain_label(qt(text, lang));
    label->setWordWrap(true);
    return label;
}

/// `box` with its caption beside it.
QHBoxLayout* labelled(TableNameBox* box, LangId lang) {
    auto* label = new QLabel(qt(name_caption, lang));
    label->setBuddy(box);
    auto* line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(box, 1);
    return line;
}

}  // namespace

TableNameBox::TableNameBox() {
    setObjectName("Text1");
    setValidator(new NameRule(this));
}

SaveDialog::SaveDialog(const DatabaseWindowParts& parts, RowToSave row, const char* name,
                       const Text& title, const std::string& path)
    : QDialog(&parts.record.window),
      parts_(parts),
      row_(std::move(row)),
      name_(new TableNameBox),
      save_(new QPushButton(qt(save_caption, lang()))) {
    setObjectName(name);
    setWindowTitle(qt(fill(title.in(lang()), {path})));
    save_->setObjectName("Command1");
    save_->setDefault(true);
    on(save_, &QPushButton::clicked, [this] { Command1_click(); });
    on(name_, &QLineEdit::textChanged, [this] { may_save(); });
}

void SaveDialog::finish(QWidget* choice) {
    auto* back = new QPushButton(qt(back_caption, lang()));
    back->setObjectName("mBack");
    back->setAutoDefault(false);
    on(back, &QPushButton::clicked, [this] { reject(); });
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(buttons_margin, buttons_margin, buttons_margin, buttons_margin);
    buttons->addWidget(save_);
    buttons->addStretch();
    buttons->addWidget(back);
    content_ = new QWidget;
    auto* down = new QVBoxLayout(content_);
    down->setSpacing(12);
    down->addWidget(new RecordSummary(*row_.head, lang()));
    down->addWidget(choice, 1);
    auto* area = new QScrollArea;  // for the smallest screens
    make_scrolling(*area);
    area->setWidget(content_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(area, 1);
    layout->addLayout(buttons);
    may_save();
    fit();
}

void SaveDialog::fit() {
    content_->layout()->activate();
    size_window(*this, {window_width, content_->layout()->totalHeightForWidth(window_width) +
                                          save_->sizeHint().height() + 2 * buttons_margin});
}

void SaveDialog::may_save() { save_->setEnabled(!name_->text().isEmpty()); }

void SaveDialog::Command1_click() {
    std::string table;
    (void)carry_out(parts_, objectName().toStdString(), "Command1_click", [&] { table = save(); });
    if (table.empty()) return;
    saved_in_ = table;
    if (const auto box = told(row_.cut, lang())) parts_.session.tell(*box);
    accept();
}

std::string SaveDialog::save_in_new(Database& database) {
    std::string name = name_->name();
    if (name.empty()) return {};
    name_->setFocus();
    try {
        save_in_new_table(database, parts_.forms.format(), name, row_.values);
        return name;
    } catch (const PlatformError& error) {
        if (error.fault() != PlatformFault::TableExists || !parts_.forms.name_taken) throw;
        parts_.session.tell(box_in(lang(), *parts_.forms.name_taken));
    }
    return {};
}

SaveInDatabase::SaveInDatabase(const DatabaseWindowParts& parts, RowToSave row,
                               std::unique_ptr<Database> database, const std::string& path)
    : SaveDialog(parts, std::move(row), parts.forms.save_form, parts.forms.save_title, path),
      database_(std::move(database)),
      tables_(record_tables(*database_, parts.forms.format(), true)),
      list_(parts.forms, lang()),
      existing_(new QRadioButton(qt(existing_caption, lang()))),
      new_(new QRadioButton(qt(new_caption, lang()))),
      choice_(new QuietList),
      count_(plain_label()),
      of_existing_(make_existing()),
      of_new_(new QWidget) {
    existing_->setObjectName(parts.forms.existing_option);
    existing_->setEnabled(!tables_.empty());
    new_->setObjectName(parts.forms.new_option);
    auto* down = new QVBoxLayout(of_new_);
    down->setContentsMargins(0, 0, 0, 0);
    down->addWidget(hint_label(parts.forms.name_hint, lang()));
    down->addLayout(labelled(name_box(), lang()));
    auto* group = new QGroupBox(qt(group_caption, lang()));
    auto* layout = new QVBoxLayout(inside_of(*group));
    auto* options = new QHBoxLayout;
    for (QRadioButton* option : {existing_, new_}) {
        options->addWidget(option);
        options->addSpacing(16);
    }
    options->addStretch();
    layout->addLayout(options);
    layout->addWidget(of_existing_);
    layout->addWidget(of_new_);
    (tables_.empty() ? new_ : existing_)->setChecked(true);
    on(existing_, &QRadioButton::toggled, [this] { show_option(); });
    finish(group);
    show_table();
    show_option();
}

QWidget* SaveInDatabase::make_existing() {
    choice_->setObjectName("Combo1");
    choice_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    choice_->setAccessibleName(qt(existing_caption, lang()).remove('&'));
    for (const TableInfo& table : tables_) choice_->addItem(qt(table.name));
    on(choice_, &QComboBox::activated, [this] { show_table(); });
    count_->setObjectName("count");
    auto* view = new QTableView;
    view->setObjectName("records");
    view->setFocusPolicy(Qt::NoFocus);
    make_list_view(*view, list_);
    view->setSelectionMode(QAbstractItemView::NoSelection);
    view->setMinimumHeight(least_list_height);
    auto* existing = new QWidget;
    auto* down = new QVBoxLayout(existing);
    down->setContentsMargins(0, 0, 0, 0);
    down->addWidget(hint_label(parts().forms.choose_hint, lang()));
    down->addWidget(choice_);
    down->addWidget(view, 1);
    down->addWidget(count_);
    return existing;
}

/// What is saved into is shown: the rows that stand there already.
void SaveInDatabase::show_table() {
    if (tables_.empty()) return;
    const TableInfo& table = tables_[static_cast<std::size_t>(choice_->currentIndex())];
    (void)carry_out(parts(), parts().forms.save_form, "Combo1_click",
                    [&] { list_.read(*database_, table.name); });
    fit_columns(*findChild<QTableView*>("records"), parts().forms);
    count_->setText(qt(fill(rows_text.in(lang()), {std::to_string(list_.rowCount())})));
}

void SaveInDatabase::show_option() {
    of_existing_->setVisible(existing_->isChecked());
    of_new_->setVisible(!existing_->isChecked());
    fit();
    (existing_->isChecked() ? static_cast<QWidget*>(choice_) : name_box())->setFocus();
    may_save();
}

void SaveInDatabase::may_save() {
    if (!existing_->isChecked()) return SaveDialog::may_save();
    save_button()->setEnabled(!tables_.empty());
}

std::string SaveInDatabase::save() {
    if (!existing_->isChecked()) return save_in_new(*database_);
    const TableInfo table =
        record_table(*database_, parts().forms.format(), choice_->currentText().toStdString());
    if (const auto refusal = refused_table(parts().forms.format(), table, lang())) {
        parts().session.tell(*refusal);
        return {};
    }
    std::vector<std::string> left_out;
    add_to_table(*database_, table, row().values, left_out);
    if (const auto box = told_left_out(table, left_out, lang())) parts().session.tell(*box);
    return table.name;
}

SaveInNewDatabase::SaveInNewDatabase(const DatabaseWindowParts& parts, RowToSave row,
                                     std::unique_ptr<NewDatabase> database, const std::string& path)
    : SaveDialog(parts, std::move(row), parts.forms.new_form, parts.forms.new_title, path),
      database_(std::move(database)) {
    auto* group = new QGroupBox(qt(first_caption, lang()));
    auto* layout = new QVBoxLayout(inside_of(*group));
    layout->addWidget(hint_label(parts.forms.new_hint, lang()));
    layout->addLayout(labelled(name_box(), lang()));
    finish(group);
    name_box()->setFocus();
}

std::string SaveInNewDatabase::save() {
    std::string name = save_in_new(database_->database());
    if (!name.empty()) database_->keep();
    return name;
}

}  // namespace zel
