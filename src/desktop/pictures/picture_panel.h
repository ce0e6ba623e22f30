#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/frame/captions.h"
#include "desktop/frame/file_chooser.h"
#include "pictures/picture.h"
#include "platform/files.h"
#include "shell/session.h"

class QComboBox;
class QScrollArea;

namespace zel {

/// What panels beside a page work with.
struct PanelParts {
    const Session& session;
    Captions& captions;
    FileChooser& chooser;
    Files& files;
};

/// A picture that can be shown. It is made when it is looked at.
struct PictureEntry {
    std::string name;                              // in the list
    std::function<std::optional<Picture>()> make;  // nothing where there is none
    bool shown_with_others = true;                 // otherwise only where it is chosen
};

/// Pictures below each other, or one of them, each with a button that saves it.
class PicturePanel : public QWidget {
public:
    explicit PicturePanel(const PanelParts& parts);

    /// Shows other pictures; a chosen one stays chosen where it is still there. `note` stands above
    /// them: what they are not about any more, or why there are none.
    void show_entries(std::vector<PictureEntry> entries, const std::string& note = {});

protected:
    void showEvent(QShowEvent* event) override;

private:
    void fill_list();
    /// Draws nothing as long as the panel is hidden.
    void show_chosen();
    void add(const Picture& picture);
    void save(const Picture& picture) const;

    PanelParts parts_;
    std::vector<PictureEntry> entries_;
    QComboBox* list_;
    NoteLine* note_;
    QScrollArea* area_;
    bool drawn_ = false;  // as the entries are now
};

}  // namespace zel
