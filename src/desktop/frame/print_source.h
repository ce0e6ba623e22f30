#pragma once

#include "reports/printing.h"

class QWidget;

namespace zel {

/// Who prints for the forms.
class PrintSource {
public:
    virtual ~PrintSource() = default;

    /// Shows the report in the preview or prints it, as the settings say, in the language of
    /// reports.
    virtual void print(QWidget& form, const PrintOrder& order) = 0;
    /// The same in `lang`.
    virtual void print(QWidget& form, const PrintOrder& order, PrintLang lang) = 0;
    /// `frm_printer_select`.
    virtual void choose_printer(QWidget& form) = 0;
};

inline constexpr Text printer_setup_caption = {"Drucker einrichten", "Printer configuration"};

}  // namespace zel
