#pragma once

#include <exception>
#include <new>
#include <optional>
#include <string_view>

#include "library/named_case.h"
#include "library/zel.h"
#include "platform/errors.h"
#include "series/radiation.h"

// What stands behind the handles of the C interface, and what keeps exceptions on this side of it.

struct zel_case {
    zel::library::NamedCase named;
};

struct zel_options {
    unsigned threads = 0;
    zel_given given = ZEL_AS_IN_CASE;
    zel::HeatCapacityOption heat_capacity = zel::HeatCapacityOption::WithTemperature;
    zel::Radiation radiation = zel::Radiation::AsItStands;
};

namespace zel::library {

/// Keeps why the call of this thread failed.
void keep_error(const Reason& reason);

/// A text of the caller. Throws `InputError` where it is null.
[[nodiscard]] std::string_view given_text(const char* text);

/// Runs one call of the interface.
template <class Body>
zel_status guarded(Body body) noexcept {
    try {
        keep_error(Reason(""));
        body();
        return ZEL_DONE;
    } catch (const InputError& error) {
        keep_error(error.reason());
        return ZEL_REFUSED;
    } catch (const PlatformError& error) {
        keep_error(error.reason());
    } catch (const std::exception& error) {
        keep_error(Reason(error.what()));
    } catch (...) {
        keep_error(Reason("unknown failure"));
    }
    return ZEL_FAILED;
}

}  // namespace zel::library
