#pragma once

#include <QLineEdit>
#include <string>

namespace zel {

/// The box `Text1` for the name of a table. A character that a name may not have is swallowed with
/// a beep, also where it is pasted.
class TableNameBox : public QLineEdit {
public:
    TableNameBox();

    /// Without the blanks around it.
    [[nodiscard]] std::string name() const { return text().trimmed().toStdString(); }
};

}  // namespace zel
