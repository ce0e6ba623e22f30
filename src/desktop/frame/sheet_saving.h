#pragma once

#include <functional>
#include <string>

#include "desktop/frame/file_chooser.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/workbook.h"
#include "shell/session.h"

namespace zel {

/// What a table is written into a file for a spreadsheet with.
struct SheetSaving {
    const Session& session;
    FileChooser& chooser;
    WorkbookStore& workbooks;
    Files& files;

    /// Asks for a path, from `folder` and the name `name` without its ending on, and calls `write`
    /// with it, by which the file is written as its ending says; `title` stands over the question.
    /// A file that is there is replaced only where the user wants it. Shows what `write` gives
    /// back, or why the table could not be written.
    void save(const Text& title, const std::string& folder, const std::string& name,
              const std::function<Box(const std::string& path)>& write) const;
};

}  // namespace zel
