#pragma once

#include <QApplication>

#include "shell/error_handling.h"

namespace zel {

/// The application object. What an event's handler throws ends here and is told. Here alone the
/// desktop catches `ProgramEnd`: the event loop ends with the exit status of an ended program, and
/// all that is open is closed on the way out. What gets the focus is scrolled into sight.
class Application : public QApplication {
public:
    static constexpr int program_ended = 3;

    /// The locale of numbers stays "C", whatever the user's is.
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Tells the exception that is being caught now, which came up at an event of `where`.
    void tell_caught(const QObject& where);

    /// Errors are told by `errors` from now on; null ends that.
    void tell_errors_by(ErrorHandling* errors) { errors_ = errors; }

private:
    void tell(const QObject& where);

    ErrorHandling* errors_ = nullptr;
};

}  // namespace zel
