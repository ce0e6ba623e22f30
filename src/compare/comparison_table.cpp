#include "compare/comparison.h"
#include "compare/text_table.h"
#include "platform/text/number_text.h"

namespace zel {
namespace {

constexpr Text sheet_name = {"Vergleich", "Comparison"};
constexpr Text unit_head = {"Einheit", "Unit"};

}  // namespace

std::string comparison_text(const Comparison& comparison) {
    std::vector<std::vector<std::string>> lines;
    lines.push_back({""});
    lines.back().insert(lines.back().end(), comparison.names.begin(), comparison.names.end());
    for (const ComparedGroup& group : comparison.groups) {
        lines.push_back({""});
        lines.push_back({group.caption});
        for (const ComparedRow& row : group.rows) {
            lines.push_back({(row.differs ? "* " : "  ") + row.label});
            for (const ComparedValue& value : row.values)
                lines.back().push_back(value.text.empty() ? "-"
                                       : row.unit.empty() ? value.text
                                                          : value.text + " " + row.unit);
        }
    }
    return text_table(lines);
}

SheetDesign comparison_sheet(const Comparison& comparison, const Locale& locale) {
    constexpr double label_width = 50;  // in characters
    constexpr double unit_width = 12;
    constexpr double run_width = 26;
    SheetDesign sheet;
    sheet.name = sheet_name.in(locale.lang);
    sheet.fixed_rows = 1;
    sheet.fixed_columns = 2;
    const int runs = static_cast<int>(comparison.names.size());
    sheet.columns = {{1, 1, label_width}, {2, 2, unit_width}, {3, 2 + runs, run_width}};
    int line = 1;
    const auto add = [&](int column, std::variant<std::monostate, double, std::string> content,
                         CellLook look = CellLook::Plain) {
        add_cell(sheet, line, column, std::move(content), look);
    };
    add(1, std::string(sheet.name), CellLook::ColumnHead);
    add(2, std::string(unit_head.in(locale.lang)), CellLook::ColumnHead);
    for (int run = 0; run < runs; ++run)
        add(3 + run, comparison.names[static_cast<std::size_t>(run)], CellLook::ColumnHead);
    for (const ComparedGroup& group : comparison.groups) {
        ++line;
        add(1, group.caption, CellLook::Title);
        for (const ComparedRow& row : group.rows) {
            ++line;
            add(1, row.label, row.differs ? CellLook::Heading : CellLook::Label);
            add(2, row.unit, CellLook::Note);
            int column = 3;
            for (const ComparedValue& value : row.values) {
                const CellLook look = row.differs ? CellLook::Heading : CellLook::Plain;
                const auto number =
                    value.number ? parse_number(value.text, locale.separator) : std::nullopt;
                if (number)
                    add(column, *number, look);
                else if (!value.text.empty())
                    add(column, value.text, look);
                ++column;
            }
        }
    }
    return sheet;
}

}  // namespace zel
