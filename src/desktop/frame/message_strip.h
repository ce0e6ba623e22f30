#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "desktop/frame/message_line.h"
#include "shell/session.h"

class QScrollArea;
class QTabWidget;
class QVBoxLayout;

namespace zel {

class AreaPage;

/// The messages of an area. On the page of its results they stand as a list above what it shows; on
/// the other pages one line at a time stands beside the tabs, where it takes no room from the page.
class MessageStrip : public QObject {
public:
    struct Parts {
        QTabWidget& tabs;
        AreaPage& results;
        const AreaPage* further;  // of a calculation that goes on from the results; may be null
        AreaMessages& messages;
        const Session& session;
        std::function<void(const FieldInfo&)> go_to;
        std::function<void(const AreaMessage&)> put_back;
        QString put_back_key;
    };
    explicit MessageStrip(Parts parts);

    void show_lines();
    /// Gives the focus to the next line.
    void focus_next();
    /// The first line with a text that can be put back; null where there is none.
    [[nodiscard]] const AreaMessage* to_put_back() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool on_results() const;
    [[nodiscard]] MessagePage page() const;
    [[nodiscard]] MessageLine* make_line(MessageLine::Shape shape, int number);
    [[nodiscard]] QString key_of(std::size_t line) const;
    void place_bar();
    void show_list();

    Parts parts_;
    std::vector<AreaMessage> lines_;
    QScrollArea* list_;
    QVBoxLayout* layout_;
    std::vector<MessageLine*> list_lines_;
    MessageLine* bar_;
    std::size_t in_bar_ = 0;  // the line that stands there
};

}  // namespace zel
