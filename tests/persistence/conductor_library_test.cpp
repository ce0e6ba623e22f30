#include "persistence/conductor_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "fakes/memory_stores.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/test_data.h"
#include "persistence/exchange_record.h"

// tests/data/conductor_library.json holds names and what is found by them, tables that are refused,
// and figures of shipped conductors that contradict each other once they are changed.

namespace zel {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto Point = DecimalSeparator::Point;
constexpr const char* own_file = "/home/conductors.csv";
const json library_data = test_data("conductor_library");

std::string shipped_file(const char* name) {
    std::ostringstream content;
    content << std::ifstream(std::string(ZEL_SOURCE_DIR "/data/") + name).rdbuf();
    return content.str();
}

class Library : public testing::Test {
protected:
    Library() {
        files.files["/shipped/conductors.csv"] = shipped_file("conductors.csv");
        files.files["/shipped/materials.csv"] = shipped_file("materials.csv");
    }
    ConductorLibrary open(DecimalSeparator separator = Point) {
        return {files, {"/shipped", own_file}, separator};
    }
    /// A copy of a shipped conductor under a second designation of the user's.
    LibraryConductor copy(const std::string& second) {
        LibraryConductor mine = find_conductor(open().conductors(), "264-AL1/34-ST1A (265/35)");
        mine.c.Bezeichnung2_db = second;
        return mine;
    }
    MemoryFiles files;
};

TEST_F(Library, has_the_shipped_conductors_with_their_sources_and_materials) {
    const auto library = open();
    ASSERT_THAT(library.conductors(), SizeIs(99));
    for (const LibraryConductor& conductor : library.conductors()) {
        SCOPED_TRACE(full_name(conductor));
        const CalcCase& c = conductor.c;
        EXPECT_FALSE(conductor.own);
        EXPECT_FALSE(conductor.source.empty());
        EXPECT_THAT(conductor.confirmed, IsEmpty());
        EXPECT_THAT(implausible_figures(c, LangId::English), IsEmpty());
        for (const Entry* needed :
             {&c.Seilquerschnitt_db, &c.Seildurchmesser_db, &c.DCR_20_db, &c.Mantelquerschnitt_db,
              &c.DrahtdurchmesserLeiter_db, &c.Dichte_Leiterwerkstoff1_db, &c.c_leiter20_db,
              &c.beta_leiter20_db, &c.DC_Resist_Leiter_db, &c.T_Koeff_DC_Resist_Leiter_linear_db})
            EXPECT_GT(needed->value, 0);
        EXPECT_TRUE(c.T_Koeff_DC_Resist_Leiter_quadrat_db.given());
        EXPECT_EQ(c.Dichte_traegerwerkstoff1_db.given(),
                  c.conductor_type_db == steel_cored_conductor);
        EXPECT_EQ(&find_conductor(library.conductors(), full_name(conductor)), &conductor);
        EXPECT_EQ(find_record(library.conductors(), written_record(c)), &conductor);
    }
    EXPECT_EQ(find_record(library.conductors(), std::string(record_size, '\0')), nullptr);
}

TEST_F(Library, figures_of_a_conductor_are_those_of_its_row_and_its_materials) {
    const auto library = open(DecimalSeparator::Comma);
    CalcCase c = find_conductor(library.conductors(), "265/35").c;
    for (const auto& [name, expected] : library_data.at("figures of 265/35").items()) {
        const FieldRef field = find_field(c, name)->value;
        if (const auto* const* entry = std::get_if<Entry*>(&field))
            EXPECT_EQ((*entry)->text, expected) << name;
        else if (const auto* const* whole = std::get_if<std::int16_t*>(&field))
            EXPECT_EQ(**whole, expected) << name;
        else
            EXPECT_EQ(*std::get<std::string*>(field), expected) << name;
    }
}

TEST_F(Library, finds_by_either_name_and_lists_the_near_ones) {
    const auto library = open();
    for (const auto& [name, found] : library_data.at("found").items())
        EXPECT_EQ(full_name(find_conductor(library.conductors(), name)), found) << name;
    for (const auto& [name, reason] : library_data.at("not found").items())
        EXPECT_EQ(
            refusal_of([&, &name = name] { return &find_conductor(library.conductors(), name); }),
            reason);
    for (const auto& [typed, count] : library_data.at("matches").items())
        EXPECT_EQ(std::count_if(library.conductors().begin(), library.conductors().end(),
                                [&typed = typed](const auto& conductor) {
                                    return matches(conductor, typed);
                                }),
                  count)
            << typed;
}

TEST(ConductorNames, come_in_the_order_of_letters_and_numbers) {
    for (const json& pair : library_data.at("order")) {
        const std::string first = pair[0];
        const std::string second = pair[1];
        EXPECT_TRUE(text_before(first, second)) << pair;
        EXPECT_FALSE(text_before(second, first)) << pair;
        EXPECT_FALSE(text_before(first, first)) << pair;
    }
    EXPECT_FALSE(text_before("Moose", "moose"));
}

TEST_F(Library, keeps_own_conductors_in_the_users_file_alone) {
    const auto shipped = files.files;
    auto library = open();
    LibraryConductor mine = copy("new \"one\",");
    mine.c.KniepunktTemperatur_db = {"95.5", 95.5};
    mine.c.GMR_Merker_db = 1;
    mine.mass = {"998.25", 998.25};
    mine.strength = {"83.4", 83.4};
    mine.source = "measured";
    library.keep(mine);
    for (const auto& [path, content] : shipped) EXPECT_EQ(files.files[path], content);
    const auto again = open();
    ASSERT_THAT(again.conductors(), SizeIs(100));
    const LibraryConductor& kept = again.conductors().front();
    EXPECT_TRUE(kept.own);
    EXPECT_EQ(kept.c, mine.c);
    EXPECT_EQ(kept.mass, mine.mass);
    EXPECT_EQ(kept.strength, mine.strength);
    EXPECT_EQ(kept.source, mine.source);
    EXPECT_EQ(kept.conductor_material, mine.conductor_material);
    EXPECT_EQ(kept.core_material, mine.core_material);
}

TEST_F(Library, changes_and_removes_own_conductors) {
    auto library = open();
    const LibraryConductor shipped = copy("265/35");
    library.keep(copy("mine"));
    library.keep(copy("still mine"), &shipped);  // a shipped one that was copied stays
    ASSERT_THAT(library.conductors(), SizeIs(101));
    const LibraryConductor first = library.conductors().front();
    library.keep(copy("renamed"), &first);
    ASSERT_THAT(library.conductors(), SizeIs(101));
    EXPECT_EQ(library.conductors().front().c.Bezeichnung2_db, "renamed");
    library.remove(copy("renamed"));
    ASSERT_THAT(library.conductors(), SizeIs(100));
    EXPECT_EQ(library.conductors().front().c.Bezeichnung2_db, "still mine");
}

TEST_F(Library, loses_nothing_that_another_program_kept_meanwhile) {
    auto first = open();
    auto second = open();
    first.keep(copy("by the first"));
    second.keep(copy("by the second"));
    EXPECT_THAT(open().conductors(), SizeIs(101));
}

TEST_F(Library, changes_nothing_where_a_conductor_is_refused) {
    auto library = open();
    LibraryConductor mine = copy("265/35");
    mine.source = "mine";
    library.keep(mine);
    EXPECT_TRUE(find_conductor(library.conductors(), "265/35").own);  // before the shipped one
    const auto before = files.files;
    EXPECT_THROW(library.keep(mine), InputError);  // the name is taken
    mine.c.Bezeichnung1_db = "implausible";
    mine.c.DCR_20_db = {"0.9015", 0.9015};
    EXPECT_THROW(library.keep(mine), InputError);
    EXPECT_EQ(files.files, before);
    EXPECT_THAT(library.conductors(), SizeIs(100));
    mine.confirmed = "copper, not aluminium";
    library.keep(mine);
    EXPECT_THAT(library.conductors(), SizeIs(101));
    EXPECT_EQ(open().conductors()[1].confirmed, mine.confirmed);
}

TEST_F(Library, tells_files_that_cannot_be_used) {
    ConductorLibrary locked(files, {"/shipped", "/locked/conductors.csv"}, Point);
    EXPECT_THROW(locked.keep(copy("mine")), OutputError);
    EXPECT_THAT(locked.conductors(), SizeIs(99));

    files.files[own_file] = "Bezeichnung1_db,colour\nA,red\n";
    auto refused = open();
    ASSERT_TRUE(refused.refusal_of_own());
    EXPECT_EQ(refused.refusal_of_own()->en, std::string(own_file) + ": unknown column \"colour\"");
    EXPECT_THAT(refused.conductors(), SizeIs(99));
    EXPECT_THROW(refused.keep(copy("mine")), InputError);
    EXPECT_EQ(files.files[own_file], "Bezeichnung1_db,colour\nA,red\n");

    files.files.erase("/shipped/conductors.csv");
    EXPECT_THAT(refusal_of([&] { return open(); }), HasSubstr("/shipped/conductors.csv"));
}

TEST_F(Library, skips_damaged_lines_keeps_them_and_lets_them_be_repaired_or_removed) {
    const std::string head =
        "Anmerkung_db,Bezeichnung1_db,conductor_type_db,conductor_shape_db,DCR_20_db\n";
    files.files[own_file] = head + "Gr\xF6\xDF"
                                   "e,umlaut,1,1,0.5\n,no number,1,1,x\n,sound,1,1,0.5\n"
                                   ",short\n,sound,1,1,0.6\nopen,\"quote,1,1,1\n,last,1,1,0.7\n";
    auto library = open();
    ASSERT_THAT(library.conductors(), SizeIs(101));
    EXPECT_EQ(library.conductors()[1].c.Bezeichnung1_db, "last");
    std::vector<std::string> reasons;
    for (const auto& line : library.damaged()) reasons.push_back(line.damage->reason.en);
    EXPECT_EQ(json(reasons), library_data.at("damaged lines"));
    const LibraryConductor umlaut = library.damaged().front();
    EXPECT_EQ(umlaut.c.Anmerkung_db, "Größe");
    EXPECT_EQ(umlaut.c.DCR_20_db.value, 0.5);

    library.keep(copy("mine"));  // the others stay as they are
    ASSERT_THAT(library.damaged(), SizeIs(5));
    EXPECT_THAT(files.files[own_file], HasSubstr("Gr\xF6\xDF"));
    EXPECT_THAT(files.files[own_file], HasSubstr("open,\"quote,1,1,1\n"));
    library.keep(umlaut, &library.damaged().front());
    library.remove(LibraryConductor(library.damaged().back()));
    ASSERT_THAT(library.damaged(), SizeIs(3));
    EXPECT_THAT(open().conductors(), SizeIs(103));
    EXPECT_EQ(find_conductor(library.conductors(), "umlaut").c.Anmerkung_db, "Größe");
    LibraryConductor still_damaged = library.damaged().front();
    still_damaged.c.DCR_20_db = {"-1", -1};
    const LibraryConductor former = library.damaged().front();
    EXPECT_THROW(library.keep(still_damaged, &former), InputError);
    EXPECT_THAT(library.damaged(), SizeIs(3));
}

TEST(ConductorTable, refuses_by_file_line_column_and_limit) {
    const std::vector<Material> materials =
        read_materials(shipped_file("materials.csv"), "materials.csv", Point);
    for (const json& row : library_data.at("tables"))
        EXPECT_EQ(refusal_of([&] {
                      return read_conductors(row[0].get<std::string>(), "own.csv", materials,
                                             Point);
                  }),
                  row[1])
            << row[0];
    for (const json& row : library_data.at("material tables"))
        EXPECT_EQ(
            refusal_of([&] { return read_materials(row[0].get<std::string>(), "own.csv", Point); }),
            row[1])
            << row[0];
}

// 24 wires of 3.74 mm are 263.66 mm², 7 of 2.49 mm 34.087 mm²; the layers give 22.43 mm; straight
// wires of 263.7 mm² have 28.264 / 263.7 = 0.107182 ohm/km. A tube of 120 mm with a wall of 8 mm
// has 2814.87 mm² and 104 mm inside.
TEST_F(Library, tells_figures_that_contradict_each_other) {
    const auto library = open();
    for (const json& row : library_data.at("implausible")) {
        CalcCase c = find_conductor(library.conductors(), row.at("conductor")).c;
        set_fields(c, row.at("set"));
        EXPECT_EQ(implausible_figures(c, LangId::English), row.at("en")) << row;
        EXPECT_EQ(implausible_figures(c, LangId::German), row.at("de")) << row;
    }
}

/// Numbers that nobody gave.
void assume_fields(CalcCase& c, const json& row) {
    if (!row.contains("assumes")) return;
    set_fields(c, row.at("assumes"));
    for (const auto& [name, value] : row.at("assumes").items())
        std::get<Entry*>(find_field(c, name)->value)->assumed = true;
}

TEST(Offers, fill_only_what_is_without_input_and_are_told) {
    for (const json& row : library_data.at("offers")) {
        CalcCase from;
        CalcCase to;
        CalcCase expected;
        set_fields(from, row.at("from"));
        set_fields(to, row.at("to"));
        set_fields(expected, row.at("becomes"));
        assume_fields(from, row);
        assume_fields(expected, row);
        const CalcCase before = to;
        for (const auto& [lang, key] : {std::pair{LangId::German, "de"}, {LangId::English, "en"}}) {
            to = before;
            const auto box = take_offers(to, from, {lang, Point});
            EXPECT_EQ(box ? joined(box->lines, "\n") : "", row.at(key)) << row;
            EXPECT_EQ(to, expected) << row;
            EXPECT_EQ(take_offers(to, from, {lang, Point}), std::nullopt);
        }
    }
}

TEST(Offers, usual_ones_go_by_the_conductor) {
    for (const json& row : library_data.at("usual offers")) {
        CalcCase c;
        set_fields(c, row.at("of"));
        CalcCase expected = c;
        set_fields(expected, row.at("gives"));
        assume_fields(expected, row);
        add_usual_offers(c, Point);
        EXPECT_EQ(c, expected) << row;
    }
}

}  // namespace
}  // namespace zel
