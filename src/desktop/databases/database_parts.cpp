#include "desktop/databases/database_parts.h"

#include "platform/errors.h"

namespace zel {
namespace {

constexpr BoxText refused = {Icon::Stop, {"Datenbank", "Database"}, {"{0}", "{0}"}};

}  // namespace

std::int16_t carry_out(ErrorHandling& errors, const Session& session, std::string_view module,
                       std::string_view procedure, const std::function<void()>& act) {
    bool told = false;
    const std::int16_t action = trap(errors, module, procedure, [&] {
        try {
            act();
        } catch (const InputError& error) {
            if (error.fault() != PlatformFault::Unforeseen) throw;
            told = true;
            session.tell(box_in(session.lang, refused, {error.told(session.lang)}));
        }
    });
    return told ? static_cast<std::int16_t>(leave_procedure_told) : action;
}

}  // namespace zel
