#include "adapters/ini/ini_store.h"

#include <stdexcept>

#include "adapters/ini/profile_text.h"
#include "platform/errors.h"

namespace zel {
namespace {

bool is_utf16(std::string_view text) {
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

}  // namespace

std::optional<std::string> IniStore::read(std::string_view section, std::string_view key) const {
    const auto text = files_.read(path_);
    return text ? profile_value(*text, section, key) : std::nullopt;
}

void IniStore::write(std::string_view section, std::string_view key, std::string_view value) {
    files_.update(path_, [&](const std::string& text) {
        if (is_utf16(text)) throw OutputError(path_ + ": a file in UTF-16, which is not changed");
        try {
            return with_profile_value(text, section, key, value);
        } catch (const std::invalid_argument& error) {
            throw OutputError(path_ + ": " + std::string(key) + ": " + error.what());
        }
    });
}

}  // namespace zel
