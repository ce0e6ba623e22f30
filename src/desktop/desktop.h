#pragma once

#include <string>

#include "platform/case_store.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "steady/calc_case.h"

namespace zel {

struct DesktopOptions {
    LangId lang = LangId::English;
    DecimalSeparator separator = DecimalSeparator::Point;
    CalcCase start_case{};     // shown from the start
    std::string start_path{};  // the file that it comes from
};

/// Shows the windows, which keep their cases in `store`, and lives from their events until the user
/// ends the program. Gives the exit status: 0; 1 where there is no display, which is told on
/// stderr; 3 where a calculation had to end the program.
int run_desktop(int& argc, char** argv, DesktopOptions options, CaseStore& store);

}  // namespace zel
