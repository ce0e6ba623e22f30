#pragma once

#include <QGroupBox>

namespace zel {

/// The widget for the content of `group`; the title stands out by its bold type.
[[nodiscard]] QWidget* inside_of(QGroupBox& group);

}  // namespace zel
