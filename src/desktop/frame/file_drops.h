#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

namespace zel {

/// Opens the file that is dropped on one of some windows, wherever in it. Nothing is taken while
/// another window wants an answer.
class FileDrops : public QObject {
public:
    FileDrops(const std::vector<QWidget*>& windows,
              std::function<void(const std::string& path)> open);

protected:
    bool eventFilter(QObject* of, QEvent* event) override;

private:
    std::vector<QWidget*> windows_;
    std::function<void(const std::string&)> open_;
};

}  // namespace zel
