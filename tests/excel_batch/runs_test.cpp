#include "excel_batch/batch_fixture.h"
#include "excel_batch/batch_texts.h"
#include "fakes/test_data.h"
#include "workflow/run/notes.h"

// tests/data/workbook_runs.json holds workbooks, each a sound one of its kind with some cells
// changed, and what a run of it tells, shows and writes.

namespace zel::excel_batch {
namespace {

using nlohmann::json;

const json run_data = test_data("workbook_runs");

WorkbookKind kind_of_run(const json& run) {
    const std::string kind = run.at("workbook");
    return kind == "steady-fix"   ? WorkbookKind::SteadyFix
           : kind == "steady-var" ? WorkbookKind::SteadyVar
                                  : WorkbookKind::Transient;
}

const char* name_of(BatchEnd end) {
    constexpr const char* names[] = {"done", "stopped", "refused", "broken"};
    return names[static_cast<std::size_t>(end)];
}

/// Icon, title and lines.
std::vector<std::string> texts_of(const std::vector<Box>& boxes) {
    std::vector<std::string> texts;
    for (const Box& box : boxes)
        texts.push_back(std::string(zel::name_of(box.icon)) + ": " + box.title + "\n" +
                        joined(box.lines, "\n"));
    return texts;
}

/// "@name" stands for one of the texts at the head of the data.
std::vector<std::string> boxes_of(const json& run, const std::string& language) {
    std::vector<std::string> texts = run.at("boxes").at(language);
    for (std::string& text : texts)
        if (text.starts_with('@')) text = run_data.at("texts").at(text.substr(1)).at(language);
    return texts;
}

class WorkbookRuns : public Batch {
protected:
    void fill_in(const json& run) {
        const bool transient = kind_of_run(run) == WorkbookKind::Transient;
        const CalcCase line = transient ? with_masses(line_264_34()) : line_of_all_methods();
        start(kind_of_run(run), line);
        for (int i = run.value("rows", 1); i > 0; --i)
            transient ? add_weather(0.6, 90, 35, 600) : add_row(line);
        for (const json& change : run.value("set", json::array())) {
            MemorySheet& sheet = workbook().at(change[0]);
            const std::pair<int, int> place = {change[1], change[2]};
            if (change[3].is_null())
                sheet.erase(place);
            else if (change[3].is_string())
                sheet[place] = change[3].get<std::string>();
            else
                sheet[place] = change[3].get<double>();
        }
        if (run.contains("without")) workbook().erase(run.at("without").get<std::string>());
        preset = run.value("preset", false) ? line : CalcCase();
        by_cell = run.value("by_cell", false);
        mode = run.value("silent", false) ? RunMode::Silent : RunMode::Messages;
        observer = {};
        observer.stop_after = run.value("stop_after", -1);
        dialogs.shown.clear();
    }

    void expect(const json& run, const std::string& language) {
        lang = language == "de" ? LangId::German : LangId::English;
        const MemorySheets before = workbook();
        const int saved = store.saved;
        const BatchResult result = this->run();
        EXPECT_EQ(name_of(result.end), run.value("end", "done"));
        EXPECT_EQ(texts_of(dialogs.shown), boxes_of(run, language));
        EXPECT_EQ(store.saved - saved, result.saved ? 1 : 0);
        if (!result.saved) {
            EXPECT_EQ(workbook(), before);
        }
        for (const json& cell : run.value("results", json::array()))
            EXPECT_EQ(this->result(cell[0], cell[1]), cell[2]) << cell;
        const json shown = {
            {"counts", {result.rows, result.active, result.inactive, result.errors}},
            {"saved", result.saved},
            {"statuses", observer.statuses},
            {"percents", observer.percents},
            {"last_percent", observer.percents.back()},
            {"suffix", observer.suffix},
            {"summary", joined(result.summary, "\n")},
            {"notes", notes_text(notes_of(result, lang), lang)}};
        for (const auto& [key, value] : shown.items()) {
            const json expected = run.value(key, value);
            EXPECT_EQ(value, expected.is_object() ? expected.at(language) : expected) << key;
        }
    }
};

TEST_F(WorkbookRuns, tell_show_and_write_what_the_data_say) {
    for (const json& run : run_data.at("runs"))
        for (const char* language : {"de", "en"}) {
            SCOPED_TRACE(run.at("name").get<std::string>() + " " + language);
            fill_in(run);
            expect(run, language);
        }
}

}  // namespace
}  // namespace zel::excel_batch
