#pragma once

#include <QDialog>

#include "desktop/frame/live_settings.h"
#include "platform/printers.h"
#include "shell/session.h"

class QCheckBox;
class QComboBox;

namespace zel {

/// `frm_printer_select`: chooses one of the installed printers, for this run or for all.
class FrmPrinterSelect : public QDialog {
public:
    FrmPrinterSelect(QWidget* parent, const Session& session, LiveSettings& settings,
                     Printers& printers);

private:
    void take();
    [[nodiscard]] bool activate(const std::string& name);
    [[nodiscard]] bool store(const std::string& name);

    const Session& session_;
    LiveSettings& settings_;
    Printers& printers_;
    QComboBox* list_;
    QCheckBox* keep_;
};

}  // namespace zel
