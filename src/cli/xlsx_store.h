#pragma once

#include <string>

#include "platform/workbook.h"

namespace zel {

/// Workbooks are xlsx files; their name is the path.
class XlsxStore : public WorkbookStore {
public:
    [[nodiscard]] std::unique_ptr<Workbook> open(const std::string& path) override;

    /// `path` from the root on, links followed.
    [[nodiscard]] static std::string real_path(const std::string& path);
};

}  // namespace zel
