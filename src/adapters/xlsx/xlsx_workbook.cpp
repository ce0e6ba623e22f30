#include "adapters/xlsx/xlsx_workbook.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "adapters/xlsx/cell_edits.h"
#include "adapters/xlsx/cell_name.h"
#include "adapters/xlsx/cell_texts.h"
#include "adapters/xlsx/sheet.h"
#include "adapters/xlsx/sheet_writer.h"
#include "adapters/xlsx/stale_values.h"
#include "adapters/xlsx/workbook_parts.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"

namespace zel {
namespace {

using namespace xlsx;

struct OpenSheet {
    std::unique_ptr<Sheet> sheet;
    CellEdits edits;
    std::vector<bool> read_columns;
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
        // Spreadsheet programs do not tell large letters from small ones in names of sheets.
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
        const auto place = static_cast<std::size_t>(column);
        if (place >= selected_->read_columns.size()) selected_->read_columns.resize(place + 1);
        selected_->read_columns[place] = true;
        std::string text;
        named([&] { text = selected_->sheet->text(row, column); });
        return text;
    }

    void require_single_cells(const CellArea& area) override {
        named([&] {
            for (const CellArea& merged : selected_->sheet->index().merged)
                if (merged.meets(area))
                    throw WorkbookError(WorkbookFault::Entwined,
                                        "the cells " + area_name(merged) +
                                            " are merged, but results stand in " + area_name(area));
        });
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
            std::map<std::string, std::string> texts;  // of the changed sheets, by the part
            for (auto& [part, open] : open_) {
                place_ = name_of(part) + ": ";
                if (!open.edits.empty()) lost_formula |= edit_sheet(part, open, texts);
                open.sheet.reset();
            }
            place_.clear();
            drop_stale_values(texts);
            for (auto& [part, text] : texts) archive_->replace(part, std::move(text));
            texts.clear();
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
            Reason reason = error.reason();
            reason.de.insert(0, place_);
            reason.en.insert(0, place_);
            throw WorkbookError(error.fault(), at(name_, reason));
        }
    }

    [[nodiscard]] std::string name_of(const std::string& part) const {
        for (const SheetPart& sheet : parts_.sheets)
            if (sheet.part == part) return sheet.name;
        return part;
    }

    /// Adds the new text of a sheet, unless nothing changes; true where a formula was overwritten.
    static bool edit_sheet(const std::string& part, const OpenSheet& open,
                           std::map<std::string, std::string>& texts) {
        EditedSheet edited = edited_sheet(open.sheet->xml(), open.sheet->index(), open.edits);
        if (edited.xml != open.sheet->xml()) texts[part] = std::move(edited.xml);
        return edited.lost_formula;
    }

    void drop_stale_values(std::map<std::string, std::string>& texts) {
        if (texts.empty()) return;
        std::vector<FormulaSheet> sheets;
        for (const SheetPart& sheet : parts_.sheets) {
            FormulaSheet& found =
                sheets.emplace_back(FormulaSheet{sheet.name, sheet.part, {}, {}, {}});
            found.text = [&, part = sheet.part] {
                const auto text = texts.find(part);
                return text == texts.end() ? archive_->read(part) : text->second;
            };
            const auto open = open_.find(sheet.part);
            if (open == open_.end()) continue;
            found.changed_columns = open->second.edits.columns();
            const std::vector<bool>& read = open->second.read_columns;
            for (std::size_t column = 0; column < read.size(); ++column)
                if (read[column]) found.kept_columns.insert(static_cast<int>(column));
        }
        auto fresh = without_stale_values(sheets, parts_.names);
        if (fresh.empty()) return;
        for (auto& [part, text] : fresh) texts[part] = std::move(text);
        demand_calculation(*archive_, parts_);
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
