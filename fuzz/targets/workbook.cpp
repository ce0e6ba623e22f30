#include <map>
#include <optional>
#include <set>

#include "adapters/xlsx/packed.h"
#include "adapters/xlsx/xlsx_workbook.h"
#include "fuzz.h"
#include "platform/text/number_text.h"

// A workbook is opened, read, changed, saved and opened again. The input is the bytes of a file, or
// changes of cells, three bytes each up to a 0, and texts with 1C between them: a worksheet, what
// stands at the end of the workbook's part, shared strings, styles and a second worksheet.

namespace zel::fuzz {
namespace {

constexpr int most_rows = 12;
constexpr int most_columns = 12;
constexpr char between = '\x1C';
constexpr const char* sheet_name = "input";

using Place = std::pair<int, int>;

struct Changes {
    std::vector<Place> read;
    std::map<Place, std::optional<double>> cells;  // a number, or a text
    std::optional<CellArea> cleared;
};

std::string as_text(double number) { return plain_number(number, DecimalSeparator::Comma); }
constexpr const char* some_text = " a<b>&\"c' ä\t";

Changes changes_of(Input& input) {
    Changes changes;
    while (const std::uint8_t kind = input.byte()) {
        const Place place = {input.place(most_rows), input.place(most_columns)};
        if (kind % 4 == 0) changes.cells[place] = std::nullopt;
        if (kind % 4 == 1) changes.cells[place] = kind / 7.0 - 8;
        if (kind % 4 == 2) changes.read.push_back(place);
        if (kind % 4 == 3)
            changes.cleared = {place.first, place.second, place.first + kind / 16,
                               place.second + kind / 32};
    }
    return changes;
}

std::string packed_parts(Input& input) {
    const std::string sheet = input.until(between);
    const std::string workbook_end = input.until(between);
    const std::string strings = input.until(between);
    const std::string styles = input.until(between);
    const std::string second = input.until(between);
    std::string links;
    xlsx::Parts more;
    const auto add = [&](const char* id, const char* type, const char* part,
                         const std::string& content) {
        if (content.empty()) return;
        links += xlsx::link_to(id, type, part);
        more.emplace_back("xl/" + std::string(part), content);
    };
    add("rId1", "sharedStrings", "strings.xml", strings);
    add("rId2", "styles", "styles.xml", styles);
    add("rId3", "worksheet", "second.xml", second);
    links += xlsx::link_to("rId4", "calcChain", "calcChain.xml");
    more.emplace_back("xl/calcChain.xml", "<calcChain/>");
    xlsx::Parts parts = xlsx::workbook_with(sheet, more, links, workbook_end);
    if (!second.empty()) {
        std::string& workbook = parts[2].second;
        workbook.insert(workbook.find("</sheets>"),
                        R"(<sheet name="second" sheetId="2" r:id="rId3"/>)");
    }
    return xlsx::packed(parts);
}

using Texts = std::map<Place, std::string>;

Texts texts_of(Workbook& workbook) {
    Texts texts;
    for (int row = 1; row <= most_rows; ++row)
        for (int column = 1; column <= most_columns; ++column)
            texts[{row, column}] = workbook.text(row, column);
    return texts;
}

Texts texts_of(const std::string& bytes) {
    auto workbook = open_xlsx("a.xlsx", bytes, [](std::string_view) {});
    workbook->select(sheet_name);
    return texts_of(*workbook);
}

std::string saved(const std::string& bytes, const Changes& changes) {
    std::string file;
    auto workbook = open_xlsx("a.xlsx", bytes, [&](std::string_view b) { file = b; });
    workbook->select(sheet_name);
    for (const auto& [row, column] : changes.read) (void)workbook->text(row, column);
    if (changes.cleared) workbook->clear(*changes.cleared);
    for (const auto& [place, number] : changes.cells)
        if (number)
            workbook->set_number(place.first, place.second, *number);
        else
            workbook->set_text(place.first, place.second, some_text);
    workbook->save();
    return file;
}

/// What a cell holds once the workbook is saved. A formula whose cells changed has no value, and a
/// number may stand in a format of dates.
void compare(const Texts& before, const Texts& after, const Changes& changes) {
    for (const auto& [place, text] : after) {
        const auto set = changes.cells.find(place);
        const bool cleared = changes.cleared && changes.cleared->holds(place.first, place.second);
        if (set != changes.cells.end()) {
            if (set->second)
                require(text == as_text(*set->second) || text.find('.') != std::string::npos ||
                            text.find(':') != std::string::npos,
                        "a number is there:", text);
            else
                require(text == some_text, "a text is there:", text);
        } else if (cleared) {
            require(text.empty(), "a cleared cell is empty:", text);
        } else {
            require(text == before.at(place) || text.empty(), "other cells stay:", text);
        }
    }
}

}  // namespace
}  // namespace zel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    fuzz::Input input(data, size);
    fuzz::Changes changes;
    std::string bytes;
    if (size > 2 && data[0] == 'P' && data[1] == 'K') {
        bytes = input.rest();
        changes.cells = {{{2, 3}, 1.5}, {{4, 1}, std::nullopt}};
    } else {
        changes = fuzz::changes_of(input);
        bytes = fuzz::packed_parts(input);
    }
    fuzz::Texts before;
    std::string file;
    try {
        before = fuzz::texts_of(bytes);
        file = fuzz::saved(bytes, changes);
    } catch (const WorkbookError&) {
        return 0;
    }
    // What could be read and was saved can be read again.
    if (!file.empty()) fuzz::compare(before, fuzz::texts_of(file), changes);
    return 0;
}
