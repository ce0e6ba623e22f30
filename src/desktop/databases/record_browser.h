#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/databases/database_parts.h"
#include "desktop/databases/record_list.h"
#include "desktop/frame/document.h"

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;
class QSplitter;
class QTableView;

namespace zel {

class RecordView;

/// `frm_db_open` and `Ks_Form4`: the tables of a database, their records one by one and as a list,
/// and what can be done with them. The database is closed with the window.
class RecordBrowser : public QDialog {
public:
    /// `tables` are not none; the first is shown.
    RecordBrowser(const DatabaseWindowParts& parts, std::unique_ptr<Database> database,
                  std::vector<TableInfo> tables, std::string path, const std::string& title);
    ~RecordBrowser() override;

    /// The record that the user takes over, once the window was accepted, and its table.
    [[nodiscard]] const StoredRow& taken() const { return *shown_; }
    [[nodiscard]] const std::string& table() const { return tables_[table_].name; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct ButtonRow;

    [[nodiscard]] QWidget* make_list();
    void make_position(QHBoxLayout& line);
    [[nodiscard]] QWidget* make_buttons();
    void show_choice_of_tables();

    void open_table(std::size_t table);
    /// Reads the list anew and shows the record at `wanted`, or the last one.
    void reload(int wanted);
    void show_at(int record);
    /// False where the record is not there any more.
    [[nodiscard]] bool read_record();
    void show_number();
    void select_in_list();
    void selected_in_list();
    void find(const QString& typed);

    void take_over();
    void delete_row();
    void delete_table();
    void export_shown_table();
    /// Gives whether `act` was carried out. What fails is told as in `procedure` of this window.
    bool carried_out(const char* procedure, const std::function<void()>& act);

    DatabaseWindowParts parts_;
    std::unique_ptr<Database> database_;
    std::string path_;
    std::vector<TableInfo> tables_;
    std::size_t table_ = 0;
    int record_ = -1;  // shown, from 0; -1 for none
    std::optional<StoredRow> shown_;
    RecordList list_;
    FoundRecords found_;
    QComboBox* choice_;
    QLineEdit* find_;
    QTableView* view_;
    RecordView* sheet_;
    QSplitter* split_;
    QLabel* count_;
    QScrollBar* bar_;
    std::vector<std::pair<QPushButton*, const ButtonRow*>> buttons_;
};

}  // namespace zel
