#include "adapters/ini/ini_store.h"

#include <stdexcept>

#include "adapters/ini/profile_text.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text utf16 = {"eine Datei in UTF-16, die nicht geändert wird",
                        "a file in UTF-16, which is not changed"};
constexpr Text no_value = {"kein Name oder Wert einer Profildatei",
                           "no name or value of a profile file"};

constexpr std::size_t size_limit = 1U << 20U;
constexpr Text too_large = {"größer als 1 MiB, keine Datei von Einstellungen",
                            "larger than 1 MiB, no file of settings"};

bool is_utf16(std::string_view text) {
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

}  // namespace

std::optional<std::string> IniStore::read(std::string_view section, std::string_view key) const {
    const auto text = files_.read(path_);
    if (text && text->size() > size_limit) throw InputError(at(path_, Reason(too_large)));
    return text ? profile_value(*text, section, key) : std::nullopt;
}

void IniStore::write(std::string_view section, std::string_view key, std::string_view value) {
    files_.update(path_, [&](const std::string& text) {
        if (text.size() > size_limit) throw OutputError(at(path_, Reason(too_large)));
        if (is_utf16(text)) throw OutputError(at(path_, Reason(utf16)));
        try {
            return with_profile_value(text, section, key, value);
        } catch (const std::invalid_argument&) {
            throw OutputError(at(path_, at(std::string(key), Reason(no_value))));
        }
    });
}

}  // namespace zel
