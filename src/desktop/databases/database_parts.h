#pragma once

#include <functional>
#include <memory>
#include <string>

#include "desktop/frame/file_chooser.h"
#include "forms/database_forms.h"
#include "forms/shown_record.h"
#include "platform/files.h"
#include "platform/workbook.h"
#include "shell/error_handling.h"
#include "shell/session.h"

class QWidget;

namespace zel {

/// The record that the windows of a database show, take over and save.
struct RecordUse {
    QWidget& window;  // of the record; those of the database stand above it
    std::function<std::unique_ptr<forms::ShownRecord>(const StoredRow&)> shown;
    std::function<bool()> may_be_replaced;  // by another one, without a loss
};

/// What the windows of a database work with.
struct DatabaseWindowParts {
    RecordUse record;
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
