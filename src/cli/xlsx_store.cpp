#include "cli/xlsx_store.h"

#include <filesystem>

#include "adapters/posix/workbook_file.h"
#include "adapters/xlsx/xlsx_workbook.h"

namespace zel {

std::unique_ptr<Workbook> XlsxStore::open(const std::string& path) {
    auto file = std::make_shared<WorkbookFile>(path);
    const std::string bytes = file->read();
    return open_xlsx(path, bytes, [file](std::string_view changed) { file->replace(changed); });
}

std::string XlsxStore::real_path(const std::string& path) {
    std::error_code failed;
    const std::filesystem::path real = std::filesystem::weakly_canonical(path, failed);
    return failed ? path : real.string();
}

}  // namespace zel
