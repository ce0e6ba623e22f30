#include "reports/report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "fakes/memory_canvas.h"
#include "reports/print_text.h"
#include "reports/text_lines.h"

namespace zel {
namespace {

TEST(LabelWriter, repeats_the_former_label_where_a_language_has_none) {
    const PrintText both = {"Dauer:", "duration:"};
    const PrintText all = {"Datum:", "date:", "date:", "fecha:"};
    LabelWriter german(PrintLang::German), spanish(PrintLang::Spanish);
    EXPECT_EQ(german(both), "Dauer:");
    EXPECT_EQ(spanish(both), "");
    EXPECT_EQ(spanish(all), "fecha:");
    EXPECT_EQ(spanish(both), "fecha:");
    EXPECT_EQ(print_lang(4), PrintLang::Spanish);
    EXPECT_EQ(print_lang(0), PrintLang::German);
}

/// Words of random length.
class Words {
public:
    std::string operator()(int most) {
        std::string text;
        const int count = std::uniform_int_distribution(0, most)(random_);
        for (int i = 0; i < count; ++i) {
            if (i > 0) text += ' ';
            text += std::string(std::uniform_int_distribution<std::size_t>(1, 14)(random_), 'x');
        }
        return text;
    }
    int upto(int most) { return std::uniform_int_distribution(0, most)(random_); }

private:
    std::mt19937 random_{3};
};

Report random_report(Words& words) {
    Report report;
    report.title = words(25);
    report.sheet_label = "page {0}";
    report.footer_sheet = "page {0}/{1}";
    report.print_date = {"print date:", "22/11/2026 / 12:00"};
    report.operator_name = {"operator:", words(12)};
    report.band = ProjectBand{{"project:", words(40)},
                              {"date:", words(3)},
                              {"operator:", words(12)},
                              {"department:", words(12)},
                              words(3)};
    for (int block = words.upto(7); block >= 0; --block) {
        ReportSection section = {words(6), {}, 1 + words.upto(1)};
        for (int row = words.upto(40); row > 0; --row) {
            const bool is_text = words.upto(3) == 0;
            section.rows.push_back(
                {words(9), is_text || words.upto(9) == 0 ? words(20) : "123.45", "mm", is_text});
        }
        report.blocks.emplace_back(section);
        if (words.upto(3) == 0)
            report.blocks.emplace_back(ReportParagraph{words(60), words.upto(1) == 0, words(4)});
    }
    ReportTable table = {words(8), words(3), "wind velocity (m/s)", {"0.5", "1.0"}, {}};
    for (int row = words.upto(150); row > 0; --row) table.rows.push_back({"20.0", "812", "901"});
    report.blocks.emplace_back(SheetBreak{words(8)});
    report.blocks.emplace_back(table);
    return report;
}

std::vector<CanvasBox> boxes_of_texts(const ReportSheet& sheet, const Canvas& canvas) {
    std::vector<CanvasBox> boxes;
    for (const PlacedText& placed : sheet.texts)
        boxes.push_back({placed.x, placed.y, placed.x + canvas.text_width(placed.text, placed.font),
                         placed.y + canvas.text_height(placed.font)});
    return boxes;
}

bool overlap(const CanvasBox& a, const CanvasBox& b) {
    constexpr double touching = 0.5;
    return a.left + touching < b.right && b.left + touching < a.right &&
           a.top + touching < b.bottom && b.top + touching < a.bottom;
}

TEST(Report, keeps_all_texts_on_the_paper_and_none_over_another) {
    Words words;
    const MemoryCanvas canvas;
    for (int i = 0; i < 60; ++i) {
        const Report report = random_report(words);
        std::size_t letters = 0;
        for (const ReportSheet& sheet : set_in_sheets(report, canvas)) {
            const auto boxes = boxes_of_texts(sheet, canvas);
            for (std::size_t a = 0; a < boxes.size(); ++a) {
                EXPECT_GE(boxes[a].left, 900) << sheet.texts[a].text;
                EXPECT_LE(boxes[a].right, 10801) << sheet.texts[a].text;
                EXPECT_LE(boxes[a].bottom, report_paper.bottom - 300) << sheet.texts[a].text;
                for (std::size_t b = a + 1; b < boxes.size(); ++b)
                    EXPECT_FALSE(overlap(boxes[a], boxes[b]))
                        << sheet.texts[a].text << " / " << sheet.texts[b].text;
                letters += static_cast<std::size_t>(
                    std::count(sheet.texts[a].text.begin(), sheet.texts[a].text.end(), 'x'));
            }
        }
        const ProjectBand& band = *report.band;
        std::size_t expected = 0;
        for (const std::string* text : {&band.project.value, &band.date.value,
                                        &band.operator_name.value, &band.department.value})
            expected += static_cast<std::size_t>(std::count(text->begin(), text->end(), 'x'));
        EXPECT_GE(letters, expected) << "nothing of the band is cut";
    }
}

TEST(Report, counts_its_sheets_and_heads_a_table_on_each) {
    const MemoryCanvas canvas;
    Report report;
    report.sheet_label = "Blatt {0}";
    report.footer_sheet = "Blatt {0}/{1}";
    ReportTable table = {"Caption", "head", "wind", {"0.6"}, {}};
    for (int row = 0; row < 150; ++row) table.rows.push_back({std::to_string(row), "cell"});
    report.blocks.emplace_back(table);
    const auto sheets = set_in_sheets(report, canvas);
    ASSERT_EQ(sheets.size(), 3U);
    std::size_t rows = 0;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const auto has = [&](const std::string& text) {
            return std::count_if(sheets[i].texts.begin(), sheets[i].texts.end(),
                                 [&](const PlacedText& placed) { return placed.text == text; });
        };
        EXPECT_EQ(has("Caption"), 1);
        EXPECT_EQ(has("Blatt " + std::to_string(i + 1) + "/3"), 1);
        rows += static_cast<std::size_t>(has("cell"));
    }
    EXPECT_EQ(rows, 150U);
}

TEST(BrokenLines, lose_no_letter_and_fit) {
    const MemoryCanvas canvas;
    const std::string text = "Querschnittsfläche des Leiters ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜ mm²";
    for (double width = 200; width < 6000; width += 77) {
        std::string joined;
        for (const std::string& line : broken_lines(canvas, text, {8}, width)) {
            EXPECT_LE(canvas.text_width(line, {8}), width);
            joined += line;
        }
        joined.erase(std::remove(joined.begin(), joined.end(), ' '), joined.end());
        std::string whole = text;
        whole.erase(std::remove(whole.begin(), whole.end(), ' '), whole.end());
        EXPECT_EQ(joined, whole);
    }
}

}  // namespace
}  // namespace zel
