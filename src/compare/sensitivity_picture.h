#pragma once

#include "compare/sensitivity.h"
#include "pictures/picture.h"

namespace zel {

/// The inputs that move the result of `method` most, as bars to both sides. Nothing where the
/// method has no result.
[[nodiscard]] std::optional<Picture> sensitivity_picture(const Sensitivity& found, Method method,
                                                         const Locale& locale);

}  // namespace zel
