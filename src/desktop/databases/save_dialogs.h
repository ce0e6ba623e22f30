#pragma once

#include <QLineEdit>
#include <memory>
#include <string>
#include <vector>

#include "desktop/databases/record_browser.h"
#include "persistence/database/saving.h"

class QRadioButton;
class QVBoxLayout;

namespace zel {

/// The box `Text1` for the name of a table. A character that a name may not have is swallowed with
/// a beep, also where it is pasted.
class TableNameBox : public QLineEdit {
public:
    TableNameBox();

    /// Without the blanks around it.
    [[nodiscard]] std::string name() const { return text().trimmed().toStdString(); }
};

/// A record on its way into a table.
struct RowToSave {
    std::vector<NamedValue> values;
    std::vector<CutText> cut;
    std::unique_ptr<forms::ShownRecord> head;  // of which the first section is shown
};

/// What both windows that save have: the head of the case, a name for a new table, and the button
/// that saves.
class SaveDialog : public QDialog {
public:
    /// Where the case was saved, once the window was accepted.
    [[nodiscard]] const std::string& table() const { return saved_in_; }

protected:
    SaveDialog(const DatabaseWindowParts& parts, RowToSave row, const char* name, const Text& title,
               const std::string& path);

    void finish(QWidget* choice);
    /// As high as what is shown, where the screen has room for it.
    void fit();
    virtual void may_save();
    /// Saves, and gives the table; an empty name where that was refused.
    [[nodiscard]] virtual std::string save() = 0;
    /// A new table with the case; its name, or an empty one where it was refused.
    [[nodiscard]] std::string save_in_new(Database& database);

    [[nodiscard]] const DatabaseWindowParts& parts() const { return parts_; }
    [[nodiscard]] LangId lang() const { return parts_.session.lang; }
    [[nodiscard]] const RowToSave& row() const { return row_; }
    [[nodiscard]] TableNameBox* name_box() const { return name_; }
    [[nodiscard]] QPushButton* save_button() const { return save_; }

private:
    void Command1_click();

    DatabaseWindowParts parts_;
    RowToSave row_;
    std::string saved_in_;
    QWidget* content_ = nullptr;
    TableNameBox* name_;
    QPushButton* save_;
};

/// `frm_db_save` and `Ks_Form3`: adds the case to a table of a database, or to a new one in it.
class SaveInDatabase : public SaveDialog {
public:
    SaveInDatabase(const DatabaseWindowParts& parts, RowToSave row,
                   std::unique_ptr<Database> database, const std::string& path);

private:
    [[nodiscard]] QWidget* make_existing();
    void show_option();
    void show_table();
    void may_save() override;
    [[nodiscard]] std::string save() override;

    std::unique_ptr<Database> database_;
    std::vector<TableInfo> tables_;
    RecordList list_;
    QRadioButton* existing_;
    QRadioButton* new_;
    QComboBox* choice_;
    QLabel* count_;
    QWidget* of_existing_;  // what is shown for either option
    QWidget* of_new_;
};

/// `frm_db_new` and `Ks_Form8`: saves the case in the first table of a new database, which is there
/// while the window is, and stays if the case was saved.
class SaveInNewDatabase : public SaveDialog {
public:
    SaveInNewDatabase(const DatabaseWindowParts& parts, RowToSave row,
                      std::unique_ptr<NewDatabase> database, const std::string& path);

private:
    [[nodiscard]] std::string save() override;

    std::unique_ptr<NewDatabase> database_;
};

}  // namespace zel
