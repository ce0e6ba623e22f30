#pragma once

#include <string>
#include <string_view>

#include "shell/program_settings.h"

namespace zel {

/// What is to be written for a value that a user gives to the setting of `row`: a whole number that
/// the setting has, or a text that is read back as it is. Throws `InputError` naming key and limit.
[[nodiscard]] std::string setting_entry(const SettingRow& row, std::string_view value);

}  // namespace zel
