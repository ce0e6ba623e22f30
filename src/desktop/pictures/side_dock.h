#pragma once

#include <QDockWidget>

#include "desktop/frame/area_frame.h"
#include "desktop/frame/window_memory.h"

namespace zel {

/// What tells one dock from another.
struct DockFacts {
    const char* name;
    Text title;
    Text entry;  // of the menu
    const char* shortcut;
    Qt::DockWidgetArea area = Qt::RightDockWidgetArea;  // or below the pages
};

/// A dock beside an area's pages. As long as the user has not closed it, it is there where the
/// window has room for both; where it has not, it opens as a window of its own.
class SideDock : public QDockWidget {
public:
    SideDock(AreaFrame& form, const DockFacts& facts, QWidget* content, Captions& captions);

    [[nodiscard]] QAction& entry() const { return *entry_; }
    /// Whether it opens by itself.
    void open_by_itself(bool opens);
    /// Whether it has something to say beside the present page.
    void belong_here(bool belongs);

protected:
    bool eventFilter(QObject* of, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    void switched(bool shown);
    void follow_room();
    [[nodiscard]] bool has_room();
    [[nodiscard]] bool fits_below();
    [[nodiscard]] bool shares_with_other_side();
    [[nodiscard]] int room_beside_page();
    /// Whether the user has opened or closed it.
    [[nodiscard]] bool is_chosen() const { return property(WindowMemory::dock_chosen).isValid(); }
    void set_chosen(bool shown) { setProperty(WindowMemory::dock_chosen, shown); }
    [[nodiscard]] bool is_below() const { return area_ == Qt::BottomDockWidgetArea; }
    void share_width();

    AreaFrame& form_;
    Qt::DockWidgetArea area_;
    QAction* entry_;
    bool opens_by_itself_ = false;
    bool belongs_here_ = true;
};

/// The dock with the pictures of an area.
inline constexpr DockFacts pictures_dock = {
    "pictures_dock", {"Bilder", "Pictures"}, {"&Bilder", "&Pictures"}, "Ctrl+Shift+B"};

/// The dock with the results of the inputs as they are typed.
inline constexpr DockFacts live_dock = {"live_dock",
                                        {"Ergebnis beim Tippen", "Result while typing"},
                                        {"&Ergebnis beim Tippen", "&Result while typing"},
                                        "Ctrl+Shift+E",
                                        Qt::BottomDockWidgetArea};

/// The dock with the runs of a session.
inline constexpr DockFacts comparison_dock = {
    "comparison_dock", {"Vergleich", "Comparison"}, {"&Vergleich", "&Comparison"}, "Ctrl+Shift+V"};

/// The menu of the docks of `form`, before that of the languages.
void add_view_menu(AreaFrame& form, Captions& captions, const std::vector<SideDock*>& docks);

}  // namespace zel
