#pragma once

#include <QApplication>

namespace zel {

/// The application object. Here alone the desktop catches `ProgramEnd`: the event loop ends with
/// the exit status of an ended program, and all that is open is closed on the way out.
class Application : public QApplication {
public:
    static constexpr int program_ended = 3;

    /// The locale of numbers stays "C", whatever the user's is.
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace zel
