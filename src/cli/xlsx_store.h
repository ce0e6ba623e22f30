#pragma once

#include "platform/workbook.h"

namespace zel {

/// Workbooks are xlsx files; their name is the path.
class XlsxStore : public WorkbookStore {
public:
    [[nodiscard]] std::unique_ptr<Workbook> open(const std::string& path) override;
};

}  // namespace zel
