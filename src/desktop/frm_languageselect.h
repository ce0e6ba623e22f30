#pragma once

#include <QDialog>

#include "desktop/frame/captions.h"
#include "shell/startup.h"

class QCheckBox;
class QPushButton;
class QRadioButton;

namespace zel {

/// `frm_languageselect`: asks at the start for the language of the windows. The captions follow the
/// language that is marked.
class FrmLanguageselect : public QDialog {
public:
    explicit FrmLanguageselect(const LanguageChoice& marked);

    /// What is marked, once the dialog was accepted.
    [[nodiscard]] LanguageChoice choice() const;

private:
    [[nodiscard]] QPushButton* make_picture(LangId lang, QRadioButton* option);

    Captions captions_;
    QRadioButton* german_;
    QRadioButton* english_;
    QCheckBox* show_;
};

}  // namespace zel
