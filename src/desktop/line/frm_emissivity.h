#pragma once

#include <QDialog>

#include "shell/session.h"
#include "steady/case/calc_case.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace zel {

/// `frm_emissivity`: computes the emissivity from the time for which the conductor has hung in the
/// span, and hands it over where the user wants it.
class FrmEmissivity : public QDialog {
public:
    FrmEmissivity(QWidget* parent, const Session& session);

    /// The emissivity to take over as a field shows it, once the dialog was accepted.
    [[nodiscard]] Entry emissivity() const { return emissivity_; }

private:
    void compute();

    const Session& session_;
    Entry emissivity_;
    QLineEdit* age_;
    QLabel* result_;
    QPushButton* take_over_;
};

}  // namespace zel
