#pragma once

#include <QObject>
#include <string>
#include <utility>
#include <vector>

#include "platform/system.h"
#include "shell/session.h"

class QWidget;

namespace zel {

/// A document of the help. Its file is looked for by its name, which may lack in a language: the
/// other one is then opened. Where it is not there, the user guide tells the same in a topic.
struct HelpDocument {
    const char* menu_entry;
    Text caption;
    Text file;
    const char* topic;
};

/// The topic of the user guide that fits a window, its page of the moment, or a part of it.
[[nodiscard]] std::string help_topic(const QWidget& at);

/// Opens the user guide and other documents with the programs that the user has for them. They lie
/// in the folders `folders`, looked for in this order. What is missing, or what the system has no
/// program for, is told with its path.
class Help {
public:
    Help(const Session& session, Launcher& launcher, std::vector<std::string> folders)
        : session_(session), launcher_(launcher), folders_(std::move(folders)) {}

    /// The guide at `topic`, in the language of the session.
    void open(const std::string& topic) const;
    void open(const HelpDocument& document) const;
    [[nodiscard]] const Session& session() const { return session_; }

private:
    /// Whether one of the folders has the file.
    [[nodiscard]] bool opened(const std::string& name) const;
    void tell_missing(const std::string& name) const;

    const Session& session_;
    Launcher& launcher_;
    std::vector<std::string> folders_;
};

/// F1 in any window of the program, as long as this lives: opens the guide at what fits it.
class HelpKey : public QObject {
public:
    explicit HelpKey(const Help& help);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    const Help& help_;
};

}  // namespace zel
