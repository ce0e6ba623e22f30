#pragma once

#include <memory>
#include <string>

#include "platform/time_zone.h"

namespace zel {

/// The zone of that name ("Europe/Berlin") in the system's database of time zones. Throws
/// `InputError` where it has none of the name.
[[nodiscard]] std::unique_ptr<TimeZone> named_zone(const std::string& name);

}  // namespace zel
