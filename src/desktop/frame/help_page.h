#pragma once

namespace zel {

/// The property by which a window without pages says which of its kinds it is, for the topic of the
/// help that fits it.
inline constexpr const char* help_page = "help_page";

}  // namespace zel
