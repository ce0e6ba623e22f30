#pragma once

#include <functional>

#include "desktop/frame/file_chooser.h"
#include "desktop/frame/live_settings.h"
#include "desktop/frame/print_source.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "shell/session.h"

namespace zel {

/// What printing works with.
struct PrintParts {
    const Session& session;
    LiveSettings& settings;
    FileChooser& chooser;
    Files& files;
    Printers& printers;
    ErrorHandling& errors;
    std::function<CalendarTime()> clock;  // the local time
};

/// Printing with and without the preview.
class PrintDesk : public PrintSource {
public:
    explicit PrintDesk(const PrintParts& parts) : parts_(parts) {}

    void print(QWidget& form, const PrintOrder& order) override;
    void print(QWidget& form, const PrintOrder& order, PrintLang lang) override;
    void choose_printer(QWidget& form) override;

private:
    PrintParts parts_;
};

}  // namespace zel
