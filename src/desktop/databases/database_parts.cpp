#include "desktop/databases/database_parts.h"

#include "platform/errors.h"

namespace zel {
namespace {

constexpr BoxText refused = {Icon::Stop, {"Datenbank", "Database"}, {"{0}", "{0}"}};

}  // namespace

std::int16_t carry_out(const DatabaseWindowParts& parts, std::string_view module,
                       std::string_view procedure, const std::function<void()>& act) {
    bool told = false;
    const LangId lang = parts.session.lang;
    const auto body = [&] {
        try {
            act();
        } catch (const InputError& error) {
            if (error.fault() != PlatformFault::Unforeseen) throw;
            told = true;
            parts.session.tell(box_in(lang, refused, {error.told(lang)}));
        }
    };
    const std::int16_t action =
        trap(parts.errors, module, procedure, body, parts.forms.own_failure);
    return told ? static_cast<std::int16_t>(leave_procedure_told) : action;
}

}  // namespace zel
