#pragma once

#include <functional>
#include <optional>
#include <string>

#include "desktop/frame/file_chooser.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/workbook.h"
#include "shell/session.h"

namespace zel {

/// What a question for the path of a new file says.
struct SavingWords {
    Text title;
    Text filters;             // see `PathQuestion`
    std::string_view suffix;  // of a typed name without one
    Text not_written;         // {0} is the reason
};

/// Asks for a path, from `folder` and the name `name` without its ending on, and calls `write` with
/// it. A file that is there is replaced only where the user wants it. Shows what `write` gives
/// back, if anything, or why the file could not be written.
void save_as(const Session& session, FileChooser& chooser, Files& files, const SavingWords& words,
             const std::string& folder, const std::string& name,
             const std::function<std::optional<Box>(const std::string& path)>& write);

/// What a table is written into a file for a spreadsheet with.
struct SheetSaving {
    const Session& session;
    FileChooser& chooser;
    WorkbookStore& workbooks;
    Files& files;

    /// `save_as` for a file that `write` writes as its ending says; `title` stands over the
    /// question.
    void save(const Text& title, const std::string& folder, const std::string& name,
              const std::function<Box(const std::string& path)>& write) const;
};

}  // namespace zel
