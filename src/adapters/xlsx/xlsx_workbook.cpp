#include "adapters/xlsx/xlsx_workbook.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <utility>

#include "adapters/xlsx/cell_edits.h"
#include "adapters/xlsx/cell_texts.h"
#include "adapters/xlsx/sheet.h"
#include "adapters/xlsx/sheet_writer.h"
#include "adapters/xlsx/workbook_parts.h"
#include "platform/number_text.h"

namespace zel {
namespace {

using namespace xlsx;

/// Spreadsheet programs do not tell large letters from small ones in names of sheets.
bool same_name(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return lower(x) == lower(y); });
}

struct OpenSheet {
    std::unique_ptr<Sheet> sheet;
    CellEdits edits;
};

class XlsxWorkbook : public Workbook {
public:
    XlsxWorkbook(std::string name, std::string_view bytes,
                 std::function<void(std::string_view)> write)
        : name_(std::move(name)), write_(std::move(write)) {
        named([&] {
            archive_ = std::make_unique<Archive>(bytes);
            parts_ = workbook_parts(*archive_);
            if (parts_.from_1904) texts_.count_from_1904();
            if (!parts_.styles.empty()) texts_.read_styles(archive_->read(parts_.styles));
            if (!parts_.shared_strings.empty())
                texts_.read_shared_strings(archive_->read(parts_.shared_strings));
        });
    }

    void select(std::string_view sheet) override {
        const auto part =
            std::find_if(parts_.sheets.begin(), parts_.sheets.end(),
                         [&](const SheetPart& p) { return same_name(p.name, sheet); });
        if (part == parts_.sheets.end())
            throw WorkbookError(WorkbookFault::NoSheet,
                                name_ + ": has no worksheet " + std::string(sheet),
                                std::string(sheet));
        place_ = part->name + ": ";
        selected_ = &open_[part->part];
        if (selected_->sheet == nullptr)
            named([&] {
                selected_->sheet = std::make_unique<Sheet>(archive_->read(part->part), texts_);
            });
    }

    std::string text(int row, int column) override {
        if (const CellContent* content = selected_->edits.find(row, column)) {
            if (const auto* number = std::get_if<double>(content))
                return plain_number(*number, DecimalSeparator::Comma);
            const auto* text = std::get_if<std::string>(content);
            return text == nullptr ? std::string() : *text;
        }
        std::string text;
        named([&] { text = selected_->sheet->text(row, column); });
        return text;
    }

    void set_number(int row, int column, double value) override {
        selected_->edits.set(row, column, value);
    }
    void set_text(int row, int column, std::string_view text) override {
        selected_->edits.set(row, column, std::string(text));
    }
    void clear(const CellArea& area) override { selected_->edits.clear(area); }

    void save() override {
        std::string bytes;
        named([&] {
            bool lost_formula = false;
            for (auto& [part, open] : open_) {
                place_ = name_of(part) + ": ";
                if (!open.edits.empty()) lost_formula |= write_sheet(part, open);
                open.sheet.reset();
            }
            place_.clear();
            if (lost_formula) drop_calculation_chain(*archive_, parts_);
            bytes = archive_->close();
        });
        archive_.reset();
        write_(bytes);
    }

private:
    /// Faults met in `body` are told with the name of the workbook and of the sheet.
    template <class Body>
    void named(Body body) const {
        try {
            body();
        } catch (const WorkbookError& error) {
            throw WorkbookError(error.fault(), name_ + ": " + place_ + error.what());
        }
    }

    [[nodiscard]] std::string name_of(const std::string& part) const {
        for (const SheetPart& sheet : parts_.sheets)
            if (sheet.part == part) return sheet.name;
        return part;
    }

    bool write_sheet(const std::string& part, OpenSheet& open) {
        EditedSheet edited = edited_sheet(open.sheet->xml(), open.sheet->index(), open.edits);
        if (edited.xml != open.sheet->xml()) archive_->replace(part, std::move(edited.xml));
        return edited.lost_formula;
    }

    std::string name_;
    std::string place_;  // the sheet that is worked on, with a colon
    std::function<void(std::string_view)> write_;
    std::unique_ptr<Archive> archive_;
    WorkbookParts parts_;
    CellTexts texts_;
    std::map<std::string, OpenSheet> open_;  // by the part
    OpenSheet* selected_ = nullptr;
};

}  // namespace

std::unique_ptr<Workbook> open_xlsx(const std::string& name, std::string_view bytes,
                                    std::function<void(std::string_view)> write) {
    return std::make_unique<XlsxWorkbook>(name, bytes, std::move(write));
}

}  // namespace zel
