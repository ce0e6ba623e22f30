#include <QPushButton>
#include <QTableView>

#include "desktop/desktop_fixture.h"
#include "fakes/cancelling_user.h"
#include "persistence/sheet_file.h"
#include "tables_graphs/parameter_table.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

class ParameterTablePage : public DesktopTest {
protected:
    void open_page(LangId lang, DecimalSeparator separator) {
        open(twin_264_34(), lang, separator);
        go_to(result_page);
    }
    void calculate() {
        control<QPushButton>("calculate_table").click();
        QApplication::processEvents();
    }
    std::string copied() {
        control<QPushButton>("copy_table").click();
        return QApplication::clipboard()->text().toStdString();
    }
    QTableView& view() { return control<QTableView>("parameter_table"); }
};

TEST_F(ParameterTablePage, shows_and_copies_what_the_calculation_without_windows_gives) {
    open_page(LangId::German, DecimalSeparator::Comma);
    type("Text10", "0,6");
    type("Text38", "2");
    type("Schrittweite_Temp_db", "20");
    type("Text5", "20");
    type("Text6", "90,5");
    calculate();
    CalcCase c = twin_264_34();
    c.Wind1_db = typed(0.6);
    c.Wind2_db = typed(2);
    c.Schrittweite_Temp_db = 20;
    c.Temp_min_db = typed(20);
    c.Temp_max_db = typed(90.5);
    ScriptedDialogs none;
    const Session session = {{LangId::German, DecimalSeparator::Comma}, RunMode::Silent, none};
    const ParameterTable table = *calculate_table(c, session);
    const QAbstractItemModel& model = *view().model();
    ASSERT_EQ(model.rowCount(), 4);
    ASSERT_EQ(model.columnCount(), 2);
    for (std::size_t step = 0; step < 4; ++step)
        for (std::size_t wind = 0; wind < 2; ++wind)
            EXPECT_EQ(model.index(static_cast<int>(step), static_cast<int>(wind))
                          .data()
                          .toString()
                          .toStdString(),
                      cell_text(table.at(step, wind, 0), table.stepped, session.separator));
    EXPECT_EQ(model.headerData(3, Qt::Vertical).toString(), "80");
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), "Cigre\nTB 207\n0,6 m/s");
    const std::string whole = tab_text_of(table_sheet(table, session), session.separator);
    EXPECT_EQ(copied(), whole);
    view().selectAll();
    EXPECT_EQ(copied(), whole);
    view().selectionModel()->select({model.index(2, 1), model.index(3, 1)},
                                    QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(copied(), cell_text(table.at(2, 1, 0), table.stepped, session.separator) + "\n" +
                            cell_text(table.at(3, 1, 0), table.stepped, session.separator) + "\n");
}

TEST_F(ParameterTablePage, cancelled_calculation_leaves_the_former_table) {
    patience_ms = 0;
    open_page(LangId::English, DecimalSeparator::Point);
    type("Text8", "0.6");
    type("Schrittweite_Temp_db", "1");
    type("Text5", "-40");
    type("Text6", "400");
    CancellingUser user;
    calculate();
    EXPECT_TRUE(user.blocked);
    EXPECT_EQ(view().model()->rowCount(), 0);
    EXPECT_FALSE(control<QPushButton>("copy_table").isEnabled());
    EXPECT_THAT(dialogs.shown, testing::IsEmpty());
}

}  // namespace
}  // namespace zel
