#pragma once

#include <cstdint>

namespace zel {

/// `Meldung_merker`: whether a calculation may ask and report in boxes. Any other value is that of
/// an Excel batch that must be shut down on a failure.
enum class RunMode : std::int16_t { Messages = 1, Silent = 2 };

}  // namespace zel
