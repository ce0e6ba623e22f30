#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace zel {

/// Opens the file that is dropped on one of some windows, wherever in it, or on a window above it
/// such as a dock that floats. Nothing is taken while another window wants an answer.
class FileDrops : public QObject {
public:
    /// `on` is the window that the file was dropped on.
    using Open = std::function<void(const std::string& path, const QWidget& on)>;
    FileDrops(const std::vector<QWidget*>& windows, Open open);

protected:
    bool eventFilter(QObject* of, QEvent* event) override;

private:
    [[nodiscard]] QWidget* window_of(const QWidget& part) const;

    std::vector<QWidget*> windows_;
    Open open_;
};

}  // namespace zel
