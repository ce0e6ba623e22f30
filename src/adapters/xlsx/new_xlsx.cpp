#include "adapters/xlsx/new_xlsx.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <pugixml.hpp>
#include <sstream>

#include "adapters/xlsx/xlsx_archive.h"
#include "adapters/xlsx/xlsx_workbook.h"
#include "adapters/xlsx/xml_tree.h"
#include "platform/errors.h"
#include "platform/workbook.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

constexpr Text not_made = {"eine neue Arbeitsmappe kann nicht angelegt werden: {0}",
                           "a new workbook cannot be made: {0}"};
constexpr Text no_temporary_files = {"keine temporären Dateien in {0} (TMPDIR): {1}",
                                     "no temporary files in {0} (TMPDIR): {1}"};

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
            refuse(Reason(no_temporary_files, {parent.string(), std::strerror(errno)}));
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
        if (book_ == nullptr) refuse(no_memory());
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
        if (error != LXW_NO_ERROR && errno != 0)
            refuse(Reason(no_temporary_files, {folder_, std::strerror(errno)}));
        check(error);
    }

private:
    static Reason no_memory() { return Reason(Text{"zu wenig Speicher", "out of memory"}); }
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
        if (format == nullptr) refuse(no_memory());
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

std::string content_of(const std::string& path, const std::string& folder) {
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (!file || !bytes) refuse(Reason(no_temporary_files, {folder, std::strerror(errno)}));
    return std::move(bytes).str();
}

/// What the workbook shows in a cell that holds `content`.
bool shows(const std::string& text,
           const std::variant<std::monostate, double, std::string>& content) {
    if (const auto* number = std::get_if<double>(&content)) {
        std::string shown = text;
        std::replace(shown.begin(), shown.end(), ',', '.');
        constexpr double precision = 1e-13;  // a cell shows 15 digits
        return std::abs(std::strtod(shown.c_str(), nullptr) - *number) <=
               precision * std::abs(*number);
    }
    const auto* expected = std::get_if<std::string>(&content);
    // Control characters stand in a file by other names.
    const auto is_control = [](unsigned char c) { return c < ' '; };
    return expected == nullptr || text == *expected ||
           std::any_of(expected->begin(), expected->end(), is_control);
}

constexpr const char* texts = "xl/sharedStrings.xml";

bool is_part(const xlsx::Archive& archive, const std::string& name) {
    const std::string text = archive.read(name);
    pugi::xml_document document;
    // A tree of a large one takes too much memory.
    if (text.size() <= xlsx::largest_tree) xlsx::parse_tree(document, text, name);
    return text.starts_with("<?xml ") && text[text.find_last_not_of("\r\n")] == '>';
}

/// The library does not look whether its temporary files take what it writes: on a full disk it
/// makes a workbook that lacks cells or ends of parts.
bool is_whole(const std::string& bytes, const WorkbookDesign& design) {
    const auto made = open_xlsx("new.xlsx", bytes, {});
    for (const SheetDesign& sheet : design) {
        made->select(sheet.name);
        std::map<std::pair<int, int>, const DesignCell*> cells;  // the last of a place
        for (const DesignCell& cell : sheet.cells) cells[{cell.row, cell.column}] = &cell;
        for (const auto& [place, cell] : cells)
            if (!shows(made->text(cell->row, cell->column), cell->content)) return false;
    }
    const xlsx::Archive archive(bytes);
    for (std::size_t number = 1; number <= design.size(); ++number)
        if (!is_part(archive, "xl/worksheets/sheet" + std::to_string(number) + ".xml"))
            return false;
    for (const char* part :
         {"[Content_Types].xml", "_rels/.rels", "docProps/app.xml", "docProps/core.xml",
          "xl/_rels/workbook.xml.rels", "xl/styles.xml", "xl/theme/theme1.xml", "xl/workbook.xml"})
        if (!is_part(archive, part)) return false;
    return !archive.has(texts) || is_part(archive, texts);
}

void require_whole(const std::string& bytes, const WorkbookDesign& design,
                   const std::string& folder) {
    bool whole = false;
    try {
        whole = is_whole(bytes, design);
    } catch (const WorkbookError&) {
        // It cannot even be read.
    }
    if (!whole)
        refuse(Reason({"temporäre Dateien in {0} (TMPDIR) haben Daten verloren; prüfen Sie, ob "
                       "dort Platz ist",
                       "temporary files in {0} (TMPDIR) have lost data; check whether there is "
                       "room"},
                      {folder}));
}

}  // namespace

std::string new_xlsx(const WorkbookDesign& design, const std::string& title) {
    const TemporaryFolder folder;
    const std::string path = (folder.path() / "new.xlsx").string();
    NewWorkbook book(path);
    book.set_title(title);
    for (const SheetDesign& sheet : design) book.add(sheet);
    book.close();
    std::string bytes = content_of(path, folder.path().string());
    require_whole(bytes, design, folder.path().string());
    return bytes;
}

}  // namespace zel
