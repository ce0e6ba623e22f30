#pragma once

#include <functional>
#include <string>

#include "desktop/frame/file_chooser.h"
#include "forms/database_forms.h"
#include "platform/files.h"
#include "platform/workbook.h"
#include "shell/error_handling.h"
#include "shell/session.h"

namespace zel {

class AreaFrame;

/// What the windows of a database work with.
struct DatabaseWindowParts {
    AreaFrame& form;  // of the area, whose record stands in the tables
    const forms::DatabaseForms& forms;
    const Session& session;
    ErrorHandling& errors;
    FileChooser& chooser;
    WorkbookStore& workbooks;  // of exported tables
    Files& files;
};

/// Does `act` as `procedure` of `module` and gives the action code of `trap`. What has no message
/// of its own is told with its reason alone: a file that cannot be taken is no failure of the
/// program.
std::int16_t carry_out(const DatabaseWindowParts& parts, std::string_view module,
                       std::string_view procedure, const std::function<void()>& act);

}  // namespace zel
