#pragma once

#include <functional>

#include "desktop/frame/input_page.h"

namespace zel::short_circuit {

/// Page 0: project, current, and what is judged, with the buttons of the standard cases.
class GeneralPage : public InputPage {
public:
    GeneralPage(const FormParts& parts, std::function<void()> open_standard,
                std::function<void()> save_standard);
};

/// Page 1: the conductor, with the buttons that open the database and take over what was chosen
/// there.
class ConductorPage : public InputPage {
public:
    ConductorPage(const FormParts& parts, std::function<void()> start_database,
                  std::function<void()> take_over);
};

}  // namespace zel::short_circuit
