#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/text/number_text.h"
#include "platform/workbook_design.h"

namespace zel {

/// Cells by row and column.
using MemorySheet = std::map<std::pair<int, int>, std::variant<double, std::string>>;
using MemorySheets = std::map<std::string, MemorySheet, std::less<>>;

/// What `Workbook::text` gives.
inline std::string text_of(const MemorySheet& sheet, int row, int column) {
    const auto cell = sheet.find({row, column});
    if (cell == sheet.end()) return {};
    if (const auto* number = std::get_if<double>(&cell->second))
        return plain_number(*number, DecimalSeparator::Comma);
    return std::get<std::string>(cell->second);
}

/// Keeps workbooks in memory.
class MemoryWorkbookStore : public WorkbookStore {
public:
    std::unique_ptr<Workbook> open(const std::string& path) override;
    void create(const std::string& path, const WorkbookDesign& design,
                const std::string& /*title*/) override {
        MemorySheets& sheets = files[path] = {};
        for (const SheetDesign& sheet : design)
            for (const auto& [row, column, content, look] : sheet.cells)
                std::visit(
                    [&, at = std::pair(row, column)](const auto& held) {
                        if constexpr (!std::is_same_v<decltype(held), const std::monostate&>)
                            sheets[sheet.name][at] = held;
                    },
                    content);
    }

    std::map<std::string, MemorySheets> files;
    std::vector<CellArea> merged;           // in all sheets of all workbooks
    int saved = 0;                          // how often a workbook was saved
    std::function<void()> at_save = [] {};  // may throw
};

class MemoryWorkbook : public Workbook {
public:
    MemoryWorkbook(MemoryWorkbookStore& store, std::string path)
        : store_(store), path_(std::move(path)), sheets_(store.files.at(path_)) {}

    void select(std::string_view sheet) override {
        const auto found = sheets_.find(sheet);
        if (found == sheets_.end())
            throw WorkbookError(WorkbookFault::NoSheet,
                                path_ + ": has no worksheet " + std::string(sheet),
                                std::string(sheet));
        selected_ = &found->second;
    }
    std::string text(int row, int column) override { return text_of(*selected_, row, column); }
    void require_single_cells(const CellArea& area) override {
        for (const CellArea& merged : store_.merged)
            if (merged.meets(area)) throw WorkbookError(WorkbookFault::Entwined, "merged");
    }
    void set_number(int row, int column, double value) override {
        (*selected_)[{row, column}] = value;
    }
    void set_text(int row, int column, std::string_view text) override {
        (*selected_)[{row, column}] = std::string(text);
    }
    void clear(const CellArea& area) override {
        std::erase_if(*selected_, [&](const auto& cell) {
            return area.holds(cell.first.first, cell.first.second);
        });
    }
    void save() override {
        store_.at_save();
        store_.files[path_] = sheets_;
        ++store_.saved;
    }

private:
    MemoryWorkbookStore& store_;
    std::string path_;
    MemorySheets sheets_;
    MemorySheet* selected_ = nullptr;
};

inline std::unique_ptr<Workbook> MemoryWorkbookStore::open(const std::string& path) {
    if (!files.contains(path))
        throw WorkbookError(WorkbookFault::Missing, path + ": No such file or directory");
    return std::make_unique<MemoryWorkbook>(*this, path);
}

}  // namespace zel
