#pragma once

#include <cstdint>
#include <string>

#include "platform/case_store.h"

namespace zel::forms {

/// Where a file that a user gives to the windows belongs.
enum class FileSort : std::uint8_t {
    LineCase,
    ShortCircuitCase,
    UnreadableCase,
    Workbook,
    Database
};

/// Workbooks and databases are known by their endings, a case by the fields in it. What cannot be
/// read counts as a case, in whatever area: opening it tells why.
[[nodiscard]] FileSort sort_of(const std::string& path, CaseStore& cases);

}  // namespace zel::forms
