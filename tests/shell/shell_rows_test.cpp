#include "fakes/formulas.h"
#include "fakes/memory_stores.h"
#include "fakes/scripted_dialogs.h"
#include "shell/case_settings.h"
#include "shell/error_handling.h"
#include "shell/startup.h"

// The error table, the settings and the boxes of the start by the rows of tests/data/shell.json.

namespace zel {
namespace {

using nlohmann::json;

/// What the handling tells and answers in row 7 of a procedure, alike for each of the numbers,
/// for which {0} stands.
json error_of(std::vector<std::int32_t> numbers, std::string text) {
    json told;
    for (const std::int32_t number : numbers) {
        json one = {{"before", json::array()}, {"closes_before", 0}};
        const json box = in_both([&](LangId lang) -> std::optional<Box> {
            ScriptedDialogs dialogs;
            ErrorHandling program(lang, dialogs);
            program.close_workbook = [&] { one["closes_before"] = dialogs.shown.size() + 1; };
            one["action"] =
                Fehlerbehandlung(program, {number, text, "fixed_input"}, 7, "Modul", "S30_Proc");
            EXPECT_EQ(program.Fehler_Aktion, one["action"]);
            if (dialogs.shown.empty()) return std::nullopt;
            EXPECT_EQ(program.message, joined(dialogs.shown.back().lines, "\r\n") + "\r\n");
            if (dialogs.shown.size() > 1) one["before"].push_back(as_json({dialogs.shown[0]})[0]);
            Box last = dialogs.shown.back();
            const std::string digits = std::to_string(number);
            for (std::string& line : last.lines)
                if (const auto at = line.find(' ' + digits + ' '); at != std::string::npos)
                    line.replace(at + 1, digits.size(), "{0}");
            return last;
        });
        one["box"] = box;
        EXPECT_TRUE(told.is_null() || told == one) << number;
        told = one;
    }
    return told;
}

json arithmetic_box(std::int32_t fault) {
    return in_both([&](LangId lang) {
        return arithmetic_error(static_cast<ArithmeticFault>(fault), "M", "P", lang);
    });
}

/// What `key` has with each of the texts in its store.
json setting(std::string key, std::vector<std::string> texts) {
    json values = json::array();
    for (const std::string& text : texts) {
        const SettingRow& row = *find_setting(key);
        MemorySettings shared, user;
        (row.home == SettingsHome::Shared ? shared : user).values = {
            {std::string(row.section), key, text}};
        values.push_back(text_of(Settings(shared, user, "/data").now(), row));
        EXPECT_TRUE(shared.written.empty() && user.written.empty());
    }
    return values;
}

std::string entry_refusal(std::string key, std::string value) {
    std::string taken;
    std::string why = refusal_of([&] { return taken = setting_entry(*find_setting(key), value); });
    EXPECT_EQ(taken, why.empty() ? value : "");
    return why;
}

/// The settings that empty stores give, each with its key.
json defaults() {
    MemorySettings shared, user;
    const Settings settings(shared, user, "/data");
    json values;
    for (const SettingRow& row : setting_rows())
        values[std::string(row.key)] = text_of(settings.now(), row);
    values["twips"] = settings.now().frm_excel_IO_height;
    return values;
}

double g(std::int16_t Gravi_merker) {
    ProgramSettings settings;
    settings.Gravi_merker = Gravi_merker;
    return settings.g();
}

/// The question about a stored case of these settings for g, skin effect and summer time.
json question_about(std::int16_t gravity, std::int16_t formula, std::int16_t summer_time) {
    return in_both([&](LangId lang) -> std::optional<Box> {
        MemorySettings shared, user;
        Settings settings(shared, user, "/data");
        ScriptedDialogs dialogs;
        MethodSelection stored;
        stored.Gravi_merker1_db = gravity;
        stored.Formel_merker1_db = formula;
        stored.wzsz_merker_db = summer_time;
        const auto separator =
            lang == LangId::German ? DecimalSeparator::Comma : DecimalSeparator::Point;
        adopt_settings(stored, settings, {lang, separator, RunMode::Messages, dialogs});
        EXPECT_EQ(stored, MethodSelection());
        if (dialogs.shown.empty()) return std::nullopt;
        EXPECT_EQ(dialogs.shown.size(), 1U);
        return dialogs.shown[0];
    });
}

/// The box number `n` of a start on a system of this version, with these paths in the store.
json start(std::string major, std::string program, std::string exchange_file, std::size_t n) {
    json told;
    json box = in_both([&](LangId lang) -> std::optional<Box> {
        MemorySettings shared, user;
        shared.values = {{"Seildatei", "Seildatenbanknamepluspfad", program},
                         {"Seildatei", "Einseil1_dat", exchange_file}};
        Settings settings(shared, user, "/data");
        ScriptedDialogs dialogs;
        const SystemFacts system = {major, "0", "19045", "/data", "/config"};
        StartupPlatform platform{system, dialogs};
        platform.lang = lang;
        const Started started = S00_Start_Programminitialisierung(settings, platform, true);
        told["end"] = static_cast<int>(started.end);
        told["boxes"] = dialogs.shown.size();
        if (n >= dialogs.shown.size()) return std::nullopt;
        return dialogs.shown[n];
    });
    told["box"] = box;
    return told;
}

json paths(std::string data, std::string config) {
    const ProgramPaths paths = program_paths({"10", "0", "0", data, config});
    return {paths.companion_folder, paths.shared_settings_file, paths.data_folder,
            paths.user_settings_file};
}

std::string folder(std::string path) { return folder_of(path); }

TEST(Shell, gives_what_its_rows_expect) {
    expect_formulas("shell", {ZEL_FORMULA(error_of), ZEL_FORMULA(arithmetic_box),
                              ZEL_FORMULA(setting), ZEL_FORMULA(entry_refusal),
                              ZEL_FORMULA(defaults), ZEL_FORMULA(g), ZEL_FORMULA(question_about),
                              ZEL_FORMULA(start), ZEL_FORMULA(paths), ZEL_FORMULA(folder)});
}

TEST(ErrorTable, has_a_row_of_data_for_each_number_and_none_twice) {
    std::set<std::int32_t> numbers;
    for (const json& group : test_data("shell"))
        if (group.at("formula") == "error_of")
            for (const json& row : group.at("rows")) numbers.insert(row[0].begin(), row[0].end());
    for (std::int32_t number = 0; number <= 33000; ++number) {
        int rows = 0;
        for (const ErrorRow& row : error_rows()) rows += row.numbers.hold(number) ? 1 : 0;
        EXPECT_LE(rows, numbers.contains(number) ? 1 : 0) << number;
    }
}

TEST(SettingRows, no_key_stands_twice_and_each_is_found_in_any_letters) {
    std::set<std::string_view> keys;
    for (const SettingRow& row : setting_rows()) {
        EXPECT_TRUE(keys.insert(row.key).second) << row.key;
        for (const std::int16_t number : row.offered)
            EXPECT_EQ(setting_entry(row, std::to_string(number)), std::to_string(number));
    }
    EXPECT_EQ(find_setting("FORMEL_Merker")->key, "Formel_merker");
    EXPECT_EQ(find_setting("cigre_TKW_merker"), nullptr);
    EXPECT_EQ(find_setting("Messzyklus"), nullptr);
}

}  // namespace
}  // namespace zel
