#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_stores.h"
#include "fakes/memory_tables.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/test_data.h"
#include "measuring/measuring_inputs.h"
#include "measuring/measuring_ports.h"
#include "measuring/measuring_table.h"
#include "persistence/database/saving.h"

namespace zel::measuring {
namespace {

using nlohmann::json;

constexpr Locale german = {LangId::German, DecimalSeparator::Comma};

json input_rows(const char* name) { return test_data("measuring").at(name); }

std::string lines_in(const Box& box) { return joined(box.lines, "\n"); }

TEST(Height, is_taken_at_32_bits_or_refused) {
    for (const json& row : input_rows("height_entries")) {
        SCOPED_TRACE(row.dump());
        Entry height;
        const auto refused = enter_height(height, row[0].get<std::string>(), german);
        ASSERT_EQ(refused.has_value(), row[1].contains("title"));
        if (!refused) {
            EXPECT_EQ(height.value, row[1]["value"]);
            continue;
        }
        EXPECT_EQ(refused->box.title, row[1]["title"]);
        EXPECT_EQ(lines_in(refused->box), row[1]["lines"]);
        EXPECT_EQ(refused->clears, row[1]["clears"]);
        EXPECT_EQ(height, Entry{});
    }
}

TEST(Height, keeps_its_number_without_a_text) {
    Entry height = {"3", 3};
    EXPECT_FALSE(enter_height(height, "", german));
    EXPECT_EQ(height.value, 3);
    EXPECT_FALSE(height.given());
}

TEST(Height, decides_whether_a_cycle_starts) {
    for (const json& row : input_rows("starts")) {
        SCOPED_TRACE(row.dump());
        Entry height;
        ASSERT_FALSE(enter_height(height, row[0].get<std::string>(), german));
        const auto refusal = refusal_to_start(height, LangId::German);
        ASSERT_EQ(refusal.has_value(), row[1].is_null());
        if (!refusal) continue;
        EXPECT_EQ(refusal->title, row[2]);
        EXPECT_THAT(lines_in(*refusal), testing::HasSubstr(row[3].get<std::string>()));
    }
}

TEST(CombinationBoxes, take_typed_numbers_into_the_case) {
    for (const json& row : input_rows("combinations")) {
        SCOPED_TRACE(row.dump());
        const CombinationBox& box = combination_boxes()[row[0] == "Combo1" ? 0 : 1];
        CalcCase c;
        c.*box.field = {"0,5", 0.5};
        const auto refused = enter(box, row[1].get<std::string>(), c, german);
        EXPECT_EQ(refused.has_value(), row.size() > 3);
        EXPECT_EQ((c.*box.field).given(), !refused);
        if (refused) {
            EXPECT_EQ(refused->box.title, row[2]);
            EXPECT_EQ(lines_in(refused->box), row[3]);
            EXPECT_EQ(refused->clears, row[4]);
        } else {
            EXPECT_EQ((c.*box.field).value, row[2]);
        }
    }
}

TEST(CombinationBoxes, have_entries_that_begin_with_their_values) {
    for (const CombinationBox& box : combination_boxes())
        for (std::size_t i = 0; i < box.entries.size(); ++i) {
            const auto& [text, value] = box.entries[i];
            for (const auto& [wording, separator] :
                 {std::pair(text.de, DecimalSeparator::Comma), {text.en, DecimalSeparator::Point}})
                EXPECT_EQ(parse_number(wording.substr(0, wording.find(' ')), separator), value);
            CalcCase c;
            choose(box, *entry_named(box, text.de), c, DecimalSeparator::Comma);
            EXPECT_EQ((c.*box.field).value, value);
        }
}

class Ports : public testing::Test {
protected:
    MemorySettings shared, user;
    std::string stored(const char* key) const { return shared.read("VOR", key).value_or(""); }
};

TEST_F(Ports, are_assigned_after_a_question_unless_they_are_taken) {
    for (const json& row : input_rows("ports")) {
        SCOPED_TRACE(row.dump());
        shared = {};
        Settings settings(shared, user, "/data");
        ScriptedDialogs dialogs;
        for (const json& answer : row["answers"])
            dialogs.answers.push_back(answer == "yes" ? Answer::Yes : Answer::No);
        assign_port(row["owner"], row["port"], settings, dialogs, LangId::German);
        std::vector<std::string> told;
        for (const Box& box : dialogs.shown) {
            EXPECT_EQ(box.title, " Belegungsmeldung serielle Schnittstelle");
            told.push_back(lines_in(box));
        }
        EXPECT_EQ(json(told), row["boxes"]);
        const bool assigned = row["boxes"].size() == 2 && told[1].ends_with("belegt !");
        EXPECT_EQ(stored(row["owner"] == 0 ? "MUCOM" : "MGCOM"),
                  assigned ? std::to_string(row["port"].get<int>()) : "");
    }
}

TEST_F(Ports, mark_their_item_and_close_the_other_one) {
    for (const json& row : input_rows("marks")) {
        SCOPED_TRACE(row.dump());
        shared = {};
        const char* keys[] = {"MUCOM", "MGCOM"};
        for (std::size_t i = 0; i < 2; ++i) shared.write("VOR", keys[i], row[i].get<std::string>());
        const Settings settings(shared, user, "/data");
        for (std::size_t owner = 0; owner < 2; ++owner)
            for (std::int16_t port = 1; port <= port_count; ++port) {
                const PortItem item = port_item(owner, port, settings.now());
                const auto marked = [&](std::size_t of) {
                    return row[2 + of].get<std::string>()[static_cast<std::size_t>(port - 1)] ==
                           '*';
                };
                EXPECT_EQ(item.marked, marked(owner)) << port;
                EXPECT_EQ(item.open, !marked(1 - owner)) << port;
            }
    }
}

TEST_F(Ports, have_devices_and_lines_in_the_settings) {
    shared.write("VOR", "Port2_dev", "/dev/mast");
    shared.write("VOR", "MUCOM_line", "19200 7E1");
    Settings settings(shared, user, "/data");
    const auto [anemometer, radiation_meter] = connections(settings.now());
    EXPECT_EQ(anemometer.device, "/dev/mast");
    EXPECT_EQ(anemometer.line, (PortLine{19200, 7, Parity::Even, 1}));
    EXPECT_EQ(radiation_meter.device, "/dev/ttyUSB0");
    settings.set_for_this_run(&ProgramSettings::MGCOM, 5);
    EXPECT_EQ(refusal_of([&] { return connections(settings.now()); }),
              "MGCOM: there is no port 5, only 1 to 4");
    settings.set(&ProgramSettings::MUCOM_line, "fast");
    EXPECT_EQ(refusal_of([&] { return line_of(anemometer_owner, settings.now()); }),
              "MUCOM_line: \"fast\" is no baud rate with a frame like 9600 8N1");
}

class MeasuringTable : public testing::Test {
protected:
    MeasuringTable() {
        means.start = {7, 3, 2026, 9, 5, 1};
        means.end = {7, 3, 2026, 9, 6, 0};
        means.Anzahl = 109;
        means.vector_mean_direction = 270.5;
        means.Windgeschw_Mittel = 3.25;
        means.Lufttemp_Mittel = -1.5;
        means.Globalstrahlung_Mittel = 410;
        c.geogr_Breite_db = {"48,5", 48.5};
    }
    /// The record once it was stored, and the row that it was read from.
    StoredRow stored() {
        MemoryTables tables;
        MemoryDatabase database(tables);
        std::vector<CutText> cut;
        save_in_new_table(
            database, measuring_tables(), "Mast",
            row_of(measured_record(means, 4, "Mast 7", c, DecimalSeparator::Comma), cut));
        return stored_row(database, record_table(database, measuring_tables(), "Mast"), 1);
    }

    CycleMeans means;
    CalcCase c;
};

TEST_F(MeasuringTable, has_a_column_a_label_and_four_more) {
    const auto& columns = measuring_tables().columns;
    ASSERT_EQ(columns.size(), 17U);
    const StoredRow row = stored();
    const std::pair<std::size_t, const char*> expected[] = {{0, "Mast 7"},
                                                            {1, "07.03"},
                                                            {2, "09.05"},
                                                            {3, "48.5"},
                                                            {4, ""},
                                                            {5, ""},
                                                            {6, ""},
                                                            {7, "270.5"},
                                                            {8, "3.25"},
                                                            {9, "410"},
                                                            {10, "-1.5"},
                                                            {11, "1"},
                                                            {12, "0.2"},
                                                            {13, "07.03.2026 09:05:01"},
                                                            {14, "07.03.2026 09:06:00"},
                                                            {15, "109"},
                                                            {16, "4"}};
    for (const auto& [column, text] : expected) EXPECT_EQ(row.text(columns[column].name), text);
}

TEST_F(MeasuringTable, is_known_by_its_first_three_columns) {
    EXPECT_TRUE(holds_records(measuring_tables(), {"a", {"KENNUNG_mw", "Datum_mw", "Uhrzeit_mw"}}));
    EXPECT_FALSE(
        holds_records(measuring_tables(), {"a", {"Datum_mw", "Kennung_mw", "Uhrzeit_mw"}}));
    EXPECT_FALSE(holds_records(measuring_tables(), {"a", {"Kennung_mw", "Datum_mw"}}));
}

TEST_F(MeasuringTable, keeps_clearness_and_albedo_of_the_case) {
    c.Bewoelkungsgrad_db = {"0,34", 0.34};
    c.Bodenart_db = {"0,82", 0.82};
    const StoredRow row = stored();
    EXPECT_EQ(row.text("Bewoelkungsgrad_mw"), "0.34");
    EXPECT_EQ(row.text("Bodenart_mw"), "0.82");
}

TEST_F(MeasuringTable, gives_a_case_its_surroundings_and_their_time) {
    CalcCase taken;
    taken.geogr_Breite_db = {"1", 1};
    taken.Minuten_db = {"59", 59};
    take_over(stored(), taken, DecimalSeparator::Comma);
    const std::pair<Entry CalcCase::*, Entry> expected[] = {
        {&CalcCase::Windgeschwindigkeit_db, {"3,25", 3.25}},
        {&CalcCase::Winkel_W_S_db, {"270,5", 270.5}},
        {&CalcCase::Umgebungstemperatur_db, {"-1,5", -1.5}},
        {&CalcCase::Globalstrahlung_db, {"410", 410}},
        {&CalcCase::Bewoelkungsgrad_db, {"1", 1}},
        {&CalcCase::Bodenart_db, {"0,2", 0.2}},
        {&CalcCase::Tag_db, {"7", 7}},
        {&CalcCase::Monat_db, {"3", 3}},
        {&CalcCase::Stunden_db, {"9", 9}},
        {&CalcCase::Minuten_db, {"5", 5}},
        {&CalcCase::geogr_Breite_db, {"1", 1}}};
    for (const auto& [field, entry] : expected) EXPECT_EQ(taken.*field, entry) << entry.text;
}

TEST_F(MeasuringTable, has_no_direction_without_wind_and_none_beyond_the_case) {
    CalcCase taken;
    taken.Winkel_W_S_db = {"10", 10};
    means.vector_mean_direction.reset();
    take_over(stored(), taken, DecimalSeparator::Point);
    EXPECT_FALSE(taken.Winkel_W_S_db.given());
    means.vector_mean_direction = 359.95;
    take_over(stored(), taken, DecimalSeparator::Point);
    EXPECT_EQ(taken.Winkel_W_S_db, (Entry{"0", 0}));
}

}  // namespace
}  // namespace zel::measuring
