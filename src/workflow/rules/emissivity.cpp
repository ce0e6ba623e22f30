#include "workflow/rules/emissivity.h"

namespace zel {

std::optional<double> emissivity_from_age(double age) {
    if (!(age >= 0)) return std::nullopt;
    return 0.3 + (0.6 * age) / (1 + age);
}

}  // namespace zel
