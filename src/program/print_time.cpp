#include "program/print_time.h"

#include <cstdlib>

namespace zel {

std::tm print_time() {
    std::tm parts{};
    if (const char* epoch = std::getenv("SOURCE_DATE_EPOCH"); epoch != nullptr) {
        const std::time_t given = std::strtoll(epoch, nullptr, 10);
        ::gmtime_r(&given, &parts);
    } else {
        const std::time_t now = std::time(nullptr);
        ::localtime_r(&now, &parts);
    }
    return parts;
}

}  // namespace zel
