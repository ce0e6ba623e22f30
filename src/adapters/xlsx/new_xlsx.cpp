#include "adapters/xlsx/new_xlsx.h"

#include <xlsxwriter.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/errors.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

constexpr Text not_made = {"eine neue Arbeitsmappe kann nicht angelegt werden: {0}",
                           "a new workbook cannot be made: {0}"};

[[noreturn]] void refuse(const Reason& reason) { throw OutputError(filled(not_made, reason)); }

/// The library writes to a file only.
class TemporaryFolder {
public:
    TemporaryFolder() {
        // Asked itself, the library tells less of what is wrong.
        const char* const named = std::getenv("TMPDIR");
        const fs::path parent = named != nullptr && *named != '\0' ? named : "/tmp";
        std::string name = (parent / "zel-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            refuse(Reason(Text{"keine temporären Dateien in {0} (TMPDIR): {1}",
                               "no temporary files in {0} (TMPDIR): {1}"},
                          {parent.string(), std::strerror(errno)}));
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    [[nodiscard]] const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

constexpr lxw_color_t input_colour = 0xFFF8DC;
constexpr lxw_color_t heading_colour = 0xDDE6F0;
constexpr lxw_color_t note_colour = 0x666666;

class NewWorkbook {
public:
    explicit NewWorkbook(const std::string& path) : folder_(fs::path(path).parent_path().string()) {
        lxw_workbook_options options = {};
        options.tmpdir = folder_.data();
        book_ = workbook_new_opt(path.c_str(), &options);
        if (book_ == nullptr) refuse(Reason(Text{"zu wenig Speicher", "out of memory"}));
        for (std::size_t i = 0; i < formats_.size(); ++i)
            formats_[i] = format_of(static_cast<CellLook>(i));
    }
    ~NewWorkbook() {
        if (book_ != nullptr) workbook_close(book_);
    }
    NewWorkbook(const NewWorkbook&) = delete;
    NewWorkbook& operator=(const NewWorkbook&) = delete;

    void set_title(std::string title) {
        lxw_doc_properties properties = {};
        properties.title = title.data();
        workbook_set_properties(book_, &properties);
    }

    void add(const SheetDesign& design) {
        lxw_worksheet* sheet = workbook_add_worksheet(book_, design.name.c_str());
        if (sheet == nullptr)
            refuse(Reason(
                {"ein Arbeitsblatt kann nicht {0} heißen", "a worksheet cannot be named {0}"},
                {design.name}));
        for (const auto& [first, last, width, look] : design.columns)
            check(worksheet_set_column(sheet, column(first), column(last),
                                       width == 0 ? LXW_DEF_COL_WIDTH : width, format(look)));
        for (const DesignCell& cell : design.cells) write(sheet, cell);
        for (const DesignRule& rule : design.rules) add(sheet, rule);
        worksheet_freeze_panes(sheet, row(design.fixed_rows + 1), column(design.fixed_columns + 1));
    }

    void close() {
        lxw_workbook* book = book_;
        book_ = nullptr;
        errno = 0;
        const lxw_error error = workbook_close(book);
        // Only now it writes.
        if (error != LXW_NO_ERROR && errno != 0) refuse(std::strerror(errno));
        check(error);
    }

private:
    static lxw_row_t row(int number) { return static_cast<lxw_row_t>(number - 1); }
    static lxw_col_t column(int number) { return static_cast<lxw_col_t>(number - 1); }
    static void check(lxw_error error) {
        if (error != LXW_NO_ERROR) refuse(lxw_strerror(error));
    }
    [[nodiscard]] lxw_format* format(CellLook look) const {
        return formats_[static_cast<std::size_t>(look)];
    }

    lxw_format* format_of(CellLook look) {
        lxw_format* format = workbook_add_format(book_);
        switch (look) {
            case CellLook::Plain: break;
            case CellLook::Title:
                format_set_bold(format);
                format_set_font_size(format, 14);
                break;
            case CellLook::Heading:
                format_set_bold(format);
                format_set_bg_color(format, heading_colour);
                break;
            case CellLook::Label: break;
            case CellLook::Note: format_set_font_color(format, note_colour); break;
            case CellLook::Input:
                format_set_bg_color(format, input_colour);
                format_set_border(format, LXW_BORDER_HAIR);
                break;
            case CellLook::ColumnHead:
                format_set_bold(format);
                format_set_text_wrap(format);
                format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
                format_set_bg_color(format, heading_colour);
                break;
            case CellLook::WholeResult: format_set_num_format(format, "0"); break;
            case CellLook::TenthResult: format_set_num_format(format, "0.0"); break;
        }
        return format;
    }

    void write(lxw_worksheet* sheet, const DesignCell& cell) const {
        const auto r = row(cell.row);
        const auto c = column(cell.column);
        if (const auto* number = std::get_if<double>(&cell.content))
            check(worksheet_write_number(sheet, r, c, *number, format(cell.look)));
        else if (const auto* text = std::get_if<std::string>(&cell.content))
            check(worksheet_write_string(sheet, r, c, text->c_str(), format(cell.look)));
        else
            check(worksheet_write_blank(sheet, r, c, format(cell.look)));
    }

    static void add(lxw_worksheet* sheet, const DesignRule& rule) {
        lxw_data_validation validation = {};
        validation.validate =
            rule.whole ? LXW_VALIDATION_TYPE_INTEGER : LXW_VALIDATION_TYPE_DECIMAL;
        validation.criteria = LXW_VALIDATION_CRITERIA_BETWEEN;
        validation.minimum_number = rule.low;
        validation.maximum_number = rule.high;
        const CellArea& area = rule.area;
        check(worksheet_data_validation_range(sheet, row(area.first_row), column(area.first_column),
                                              row(area.last_row), column(area.last_column),
                                              &validation));
    }

    std::string folder_;
    lxw_workbook* book_ = nullptr;
    std::array<lxw_format*, static_cast<std::size_t>(CellLook::TenthResult) + 1> formats_{};
};

}  // namespace

std::string new_xlsx(const WorkbookDesign& design, const std::string& title) {
    const TemporaryFolder folder;
    const std::string path = (folder.path() / "new.xlsx").string();
    NewWorkbook book(path);
    book.set_title(title);
    for (const SheetDesign& sheet : design) book.add(sheet);
    book.close();
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file || bytes.empty())
        refuse(Reason(Text{"ihre temporäre Datei kann nicht gelesen werden",
                           "its temporary file cannot be read"}));
    return bytes;
}

}  // namespace zel
