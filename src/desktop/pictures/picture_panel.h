#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/frame/captions.h"
#include "desktop/frame/file_chooser.h"
#include "desktop/frame/print_source.h"
#include "pictures/picture.h"
#include "platform/files.h"
#include "reports/report_frame.h"
#include "shell/session.h"

class QComboBox;
class QLayout;
class QPushButton;
class QScrollArea;

namespace zel {

/// What panels beside a page work with.
struct PanelParts {
    const Session& session;
    Captions& captions;
    FileChooser& chooser;
    Files& files;
};

/// A picture that can be shown. It is made when it is looked at, in the language of the session
/// that it is shown or printed in; nothing where there is none.
struct PictureEntry {
    std::string name;  // in the list
    std::function<std::optional<Picture>(const Session&)> make;
    bool shown_with_others = true;  // otherwise only where it is chosen
    bool has_choices = false;       // what `put_below` has put there is about it
};

/// What it takes to print pictures.
struct PicturePrinting {
    PrintSource& source;
    std::function<ReportProject()> project;  // that they are about
};

/// Pictures below each other, or one of them, each with buttons that print and save it. The key
/// Ctrl+P prints the one whose button has the focus, or the uppermost one in sight.
class PicturePanel : public QWidget {
public:
    PicturePanel(const PanelParts& parts, PicturePrinting printing);

    /// Shows other pictures; a chosen one stays chosen where it is still there. `note` stands above
    /// them: what they are not about any more, or why there are none.
    void show_entries(std::vector<PictureEntry> entries, const std::string& note = {});

protected:
    /// Puts a widget below the pictures, which is shown as long as a picture of its own is chosen.
    void put_below(QWidget& choices);
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* of, QEvent* event) override;

private:
    void fill_list();
    /// Draws nothing as long as the panel is hidden.
    void show_chosen();
    void add(const Picture& picture, const PictureEntry& entry);
    QPushButton* add_button(QLayout& line, const char* name, const Text& caption,
                            const Picture& picture, std::function<void()> act);
    void save(const Picture& picture) const;
    void print(const PictureEntry& entry);
    void print_in_sight();

    PanelParts parts_;
    PicturePrinting printing_;
    std::vector<PictureEntry> entries_;
    QComboBox* list_;
    NoteLine* note_;
    QScrollArea* area_;
    QWidget* below_ = nullptr;
    std::vector<QPushButton*> print_with_;  // of the shown pictures
    bool drawn_ = false;                    // as the entries are now
};

}  // namespace zel
