#include <QAction>
#include <QDialog>
#include <QTimer>

#include "adapters/sqlite/sqlite_store.h"
#include "desktop/desktop_fixture.h"
#include "fakes/scratch_folder.h"

namespace zel {
namespace {

class Databases : public DesktopTest {
protected:
    /// What `act` does in the modal window that the menu entry opens.
    template <class Act>
    void in_window(const char* entry, const Act& act) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            act(*dialog);
            dialog->reject();
        });
        control<QAction>(entry).trigger();
    }

    ScratchFolder folder;
    SqliteStore files;
};

TEST_F(Databases, a_new_one_that_is_left_is_gone_again) {
    used_tables = &files;
    open(twin_264_34());
    const std::string path = folder.file("lines.mdb");
    chooser.paths = {path};
    in_window("mneueDatenbank", [&](QDialog& dialog) {
        EXPECT_FALSE(std::filesystem::is_empty(folder.path()));
        dialog.findChild<QLineEdit*>("Text1")->setText("North");
    });
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace zel
