#pragma once

#include <QDialog>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/batch/batch_watch.h"
#include "desktop/frame/desktop_state.h"
#include "desktop/frame/job_runner.h"
#include "excel_batch/batch_run.h"
#include "excel_batch/test_rows.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QWidget;

namespace zel {

class WrongCellList;

/// `Excel_Modus`: which batch the window starts.
enum class ExcelMode : std::int16_t { Steady = 1, Transient = 2 };

/// `frm_excel_IO`: calculates a workbook that the user chooses, shows how far it is and which cells
/// are wrong, and opens it with the program that the user has for it; or saves an empty one. The
/// conductor of the case stands where a workbook names no field. While it is there, no other window
/// takes input.
class FrmExcelIO : public QDialog, private JobDisplay {
public:
    FrmExcelIO(QWidget* parent, DesktopState& state, ExcelMode mode);

    /// The workbook that is proposed where one is asked for.
    void propose(const std::string& path) { proposed_ = path; }
    /// The same, told, of one that was dropped on the window.
    void take_dropped(const std::string& path);

protected:
    /// While a workbook is calculated, closing is cancelling.
    void reject() override;

private:
    using TestRows = std::function<std::optional<int>(
        WorkbookStore&, const std::string&, const Session&, const excel_batch::RowsCancelled&)>;

    [[nodiscard]] QWidget* make_choice();
    [[nodiscard]] QWidget* make_progress();
    [[nodiscard]] QWidget* make_tests();
    QPushButton* make_button(const char* name, const Text& caption, void (FrmExcelIO::*action)());

    void start();
    void save_template();
    void copy_summary();
    void go_to(const excel_batch::WrongCell& cell);
    void open_workbook();
    void stop();
    void fill_with_random_values();
    void write_deviations();
    void close_window();

    void show_job(Job& job, const JobProgress& at, double seconds) override;
    [[nodiscard]] bool takes_input() const override { return true; }

    /// `S_01_io_excel_arbeitsmappe_auswaehlen`: takes a workbook that is no template of the
    /// program; false where the user wants none.
    [[nodiscard]] bool choose_workbook();
    /// Failures are told as those of `procedure` in `module`.
    void run(std::string_view module, std::string_view procedure, const Job::Work& work);
    void work_rows(std::string_view procedure, const TestRows& work);
    void show_percent(double percent);
    /// `unseen` are boxes that the user has left.
    void show_result(const excel_batch::BatchResult& result,
                     const std::vector<std::string>& unseen);
    void set_running(bool running);
    [[nodiscard]] LangId lang() const { return state_.session.lang; }

    DesktopState& state_;
    ExcelMode mode_;
    std::string path_;      // of the last workbook
    std::string proposed_;  // of the next
    FoundCells found_;
    Job* job_ = nullptr;             // that runs
    std::vector<QWidget*> at_rest_;  // cannot be used while a workbook is calculated
    QRadioButton* with_conductor_ = nullptr;
    QRadioButton* without_conductor_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QLabel* status_ = nullptr;
    QLabel* active_rows_ = nullptr;
    QLabel* done_rows_ = nullptr;
    QLabel* elapsed_ = nullptr;
    QLabel* summary_ = nullptr;
    WrongCellList* wrong_cells_ = nullptr;
    QLineEdit* seed_ = nullptr;
    QPushButton* open_ = nullptr;
    QPushButton* stop_button_ = nullptr;
    QPushButton* copy_ = nullptr;
};

}  // namespace zel
