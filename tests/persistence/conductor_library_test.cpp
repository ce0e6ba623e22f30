#include "persistence/conductor_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "fakes/memory_stores.h"
#include "fakes/steady_cases.h"
#include "persistence/exchange_record.h"
#include "platform/errors.h"

namespace zel {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr auto Point = DecimalSeparator::Point;
constexpr auto English = LangId::English;

std::string shipped_file(const char* name) {
    std::ostringstream content;
    content << std::ifstream(std::string(ZEL_SOURCE_DIR "/data/") + name).rdbuf();
    return content.str();
}

constexpr const char* own_file = "/home/conductors.csv";

class Library : public testing::Test {
protected:
    Library() {
        files.files["/shipped/conductors.csv"] = shipped_file("conductors.csv");
        files.files["/shipped/materials.csv"] = shipped_file("materials.csv");
    }
    ConductorLibrary open(DecimalSeparator separator = Point) {
        return {files, {"/shipped", own_file}, separator};
    }
    MemoryFiles files;
};

template <class Act>
std::string refusal(Act act) {
    try {
        act();
    } catch (const InputError& error) {
        return error.what();
    }
    return "taken";
}

std::vector<LibraryConductor> read(const std::string& table) {
    return read_conductors(table, "own.csv", {}, Point);
}

std::string refusal_of(const std::string& table) {
    return refusal([&] { (void)read(table); });
}

TEST_F(Library, has_the_shipped_conductors_with_their_sources_and_materials) {
    const auto library = open();
    ASSERT_THAT(library.conductors(), SizeIs(99));
    for (const LibraryConductor& conductor : library.conductors()) {
        const CalcCase& c = conductor.c;
        EXPECT_FALSE(conductor.own);
        EXPECT_THAT(conductor.source, Not(IsEmpty())) << c.Bezeichnung1_db;
        for (const Entry* needed :
             {&c.Seilquerschnitt_db, &c.Seildurchmesser_db, &c.DCR_20_db, &c.Mantelquerschnitt_db,
              &c.DrahtdurchmesserLeiter_db, &c.Dichte_Leiterwerkstoff1_db, &c.c_leiter20_db,
              &c.beta_leiter20_db, &c.DC_Resist_Leiter_db, &c.T_Koeff_DC_Resist_Leiter_linear_db})
            EXPECT_GT(needed->value, 0) << c.Bezeichnung1_db;
        EXPECT_TRUE(c.T_Koeff_DC_Resist_Leiter_quadrat_db.given());
        EXPECT_EQ(c.Dichte_traegerwerkstoff1_db.given(),
                  c.conductor_type_db == steel_cored_conductor);
    }
}

TEST_F(Library, figures_of_a_conductor_are_those_of_its_row_and_its_materials) {
    const auto library = open(DecimalSeparator::Comma);
    const CalcCase& c = find_conductor(library.conductors(), "265/35").c;
    EXPECT_EQ(c.Bezeichnung1_db, "264-AL1/34-ST1A");
    EXPECT_EQ(c.conductor_type_db, steel_cored_conductor);
    EXPECT_EQ(c.DCR_20_db, (Entry{"0,1095", 0.1095}));
    EXPECT_EQ(c.DrahtzahlLeiter_db, 24);
    EXPECT_EQ(c.DC_Resist_Leiter_db.value, 28.264);
    EXPECT_EQ(c.beta_leiter20_db.value, 0.38);
    EXPECT_EQ(c.Dichte_traegerwerkstoff1_db.value, 7780);
    EXPECT_FALSE(c.DC_Resist_traeger_db.given());
    EXPECT_EQ(c.ACDC_R_Option_Merker_db, 1);
    EXPECT_EQ(c.radialthermalconductivity_unter_KPT_db, (Entry{"1,5", 1.5}));
    EXPECT_EQ(c.radialthermalconductivity_ueber_KPT_db, (Entry{"0,7", 0.7}));
    EXPECT_FALSE(c.KniepunktTemperatur_db.given());
}

TEST_F(Library, figures_of_the_shipped_conductors_agree_with_each_other) {
    const auto library = open();
    for (const LibraryConductor& conductor : library.conductors()) {
        EXPECT_THAT(conductor.confirmed, IsEmpty());
        EXPECT_THAT(implausible_figures(conductor.c, English), IsEmpty())
            << conductor.c.Bezeichnung1_db;
    }
}

TEST_F(Library, every_conductor_can_be_named_and_told_by_its_record) {
    const auto library = open();
    for (const LibraryConductor& conductor : library.conductors()) {
        EXPECT_EQ(&find_conductor(library.conductors(), full_name(conductor)), &conductor);
        EXPECT_EQ(find_record(library.conductors(), written_record(conductor.c)), &conductor);
    }
    EXPECT_EQ(find_record(library.conductors(), std::string(record_size, '\0')), nullptr);
}

TEST_F(Library, finds_by_either_name_whatever_letters_and_blanks) {
    const auto library = open();
    for (const char* name :
         {"264-AL1/34-ST1A", "265/35", " 264-al1/34-st1a  265/35 ", "264-AL1/34-ST1A (265/35)"})
        EXPECT_EQ(find_conductor(library.conductors(), name).c.Bezeichnung2_db, "265/35") << name;
    EXPECT_EQ(find_conductor(library.conductors(), "moose").c.Bezeichnung1_db, "528-AL1/69-ST1A");
}

TEST_F(Library, lists_the_near_ones_of_an_unknown_or_ambiguous_name) {
    const auto library = open();
    const auto refused = [&](const std::string& name) {
        return refusal([&] { (void)find_conductor(library.conductors(), name); });
    };
    EXPECT_THAT(refused("264-AL1/35-ST1A"),
                AllOf(HasSubstr("no conductor"), HasSubstr("264-AL1/34-ST1A (265/35)")));
    EXPECT_THAT(refused("zebr"),
                AllOf(HasSubstr("429-AL1/56-ST1A (ZEBRA)"), Not(HasSubstr("MOOSE"))));
    EXPECT_THAT(refused("212-AL1/49-ST1A"),
                AllOf(HasSubstr("more than one"), HasSubstr("(210/50)"), HasSubstr("(PANTHER)")));
    EXPECT_EQ(refused(""), "\"\": no conductor of the library has this name");
}

TEST(ConductorNames, come_in_the_order_of_letters_and_numbers) {
    const std::pair<const char*, const char*> ordered[] = {
        {"34-AL1", "122-AL1"},
        {"122-AL1/20", "122-AL1/71"},
        {"122-AL1", "122-al1/20"},
        {"Horse", "moose"},
        {"", "a"},
        {"122-AL1", "MOOSE"},
        {"TUBE 80x5", "tube 80x06"},
        {"a9b2", "a10b1"},
    };
    for (const auto& [first, second] : ordered) {
        EXPECT_TRUE(text_before(first, second)) << first;
        EXPECT_FALSE(text_before(second, first)) << first;
        EXPECT_FALSE(text_before(first, first)) << first;
    }
    EXPECT_FALSE(text_before("Moose", "moose"));
}

TEST_F(Library, matches_words_in_any_order) {
    const auto library = open();
    const auto count = [&](const char* typed) {
        return std::count_if(library.conductors().begin(), library.conductors().end(),
                             [&](const auto& conductor) { return matches(conductor, typed); });
    };
    EXPECT_EQ(count(""), 99);
    EXPECT_EQ(count("tube 120"), 3);
    EXPECT_EQ(count(" 120  TUBE x8"), 1);
    EXPECT_EQ(count("tube moose"), 0);
}

TEST_F(Library, keeps_own_conductors_in_the_users_file_alone) {
    const auto shipped = files.files;
    auto library = open();
    LibraryConductor mine = find_conductor(library.conductors(), "265/35");
    mine.c.Bezeichnung1_db = "Mine, \"new\"";
    mine.c.KniepunktTemperatur_db = typed(95.5);
    mine.source = "measured";
    library.keep(mine);
    ASSERT_THAT(library.conductors(), SizeIs(100));
    EXPECT_TRUE(library.conductors().front().own);
    for (const auto& [path, content] : shipped) EXPECT_EQ(files.files[path], content);

    const auto again = open();
    ASSERT_THAT(again.conductors(), SizeIs(100));
    EXPECT_EQ(again.conductors().front().c, mine.c);
    EXPECT_EQ(again.conductors().front().source, "measured");
}

TEST_F(Library, changes_and_removes_own_conductors) {
    auto library = open();
    LibraryConductor mine = find_conductor(library.conductors(), "265/35");
    mine.c.Bezeichnung2_db = "mine";
    library.keep(mine);
    LibraryConductor changed = library.conductors().front();
    changed.c.Bezeichnung2_db = "still mine";
    library.keep(changed, &mine);  // `mine` is a shipped one that was copied
    ASSERT_THAT(library.conductors(), SizeIs(101));
    const LibraryConductor first = library.conductors().front();
    changed.c.Bezeichnung2_db = "renamed";
    library.keep(changed, &first);
    ASSERT_THAT(library.conductors(), SizeIs(101));
    EXPECT_EQ(library.conductors().front().c.Bezeichnung2_db, "renamed");
    library.remove(changed);
    ASSERT_THAT(library.conductors(), SizeIs(100));
    EXPECT_EQ(library.conductors().front().c.Bezeichnung2_db, "still mine");
}

TEST_F(Library, loses_nothing_that_another_program_kept_meanwhile) {
    auto first = open();
    auto second = open();
    LibraryConductor mine = find_conductor(first.conductors(), "265/35");
    mine.c.Bezeichnung2_db = "by the first";
    first.keep(mine);
    mine.c.Bezeichnung2_db = "by the second";
    second.keep(mine);
    const auto both = open();
    EXPECT_THAT(both.conductors(), SizeIs(101));
}

TEST_F(Library, changes_nothing_where_a_conductor_is_refused) {
    auto library = open();
    LibraryConductor mine = find_conductor(library.conductors(), "265/35");
    library.keep(mine);
    const auto before = files.files;
    EXPECT_THROW(library.keep(mine), InputError);  // the name is taken
    mine.c.Bezeichnung1_db = "implausible";
    mine.c.DCR_20_db = typed(0.9015);
    EXPECT_THROW(library.keep(mine), InputError);
    EXPECT_EQ(files.files, before);
    EXPECT_THAT(library.conductors(), SizeIs(100));
    mine.confirmed = "copper, not aluminium";
    library.keep(mine);
    EXPECT_THAT(library.conductors(), SizeIs(101));
}

TEST_F(Library, tells_a_file_that_cannot_be_written) {
    ConductorLibrary library(files, {"/shipped", "/locked/conductors.csv"}, Point);
    const LibraryConductor mine = library.conductors().front();
    EXPECT_THROW(library.keep(mine), OutputError);
    EXPECT_THAT(library.conductors(), SizeIs(99));
}

TEST_F(Library, an_own_conductor_comes_before_a_shipped_one_of_the_same_name) {
    auto library = open();
    LibraryConductor mine = find_conductor(library.conductors(), "265/35");
    mine.source = "mine";
    library.keep(mine);
    EXPECT_TRUE(find_conductor(library.conductors(), "265/35").own);
}

TEST_F(Library, tells_a_refused_own_file_and_does_not_write_it) {
    files.files[own_file] = "Bezeichnung1_db,colour\nA,red\n";
    auto library = open();
    EXPECT_THAT(library.refusal_of_own(), HasSubstr("unknown column \"colour\""));
    EXPECT_THAT(library.conductors(), SizeIs(99));
    const LibraryConductor mine = library.conductors().front();
    EXPECT_THROW(library.keep(mine), InputError);
    EXPECT_EQ(files.files[own_file], "Bezeichnung1_db,colour\nA,red\n");
}

TEST_F(Library, refuses_a_missing_library_by_its_path) {
    files.files.erase("/shipped/conductors.csv");
    EXPECT_THAT(refusal([&] { open(); }), HasSubstr("/shipped/conductors.csv"));
}

constexpr const char* head = "Bezeichnung1_db,conductor_type_db,conductor_shape_db,";

TEST(ConductorTable, refuses_by_file_line_column_and_limit) {
    const auto row = [](const std::string& column, const std::string& cell) {
        return refusal_of(head + column + "\nA,1,1," + cell + "\n");
    };
    EXPECT_EQ(row("DCR_20_db", "0,1"), "own.csv: line 2: 5 cells, the table has 4 columns");
    EXPECT_EQ(row("DCR_20_db", "\"0,1\""),
              "own.csv: line 2, column DCR_20_db: a number with a point is expected, not \"0,1\"");
    EXPECT_EQ(row("DCR_20_db", "-1"), "own.csv: line 2, column DCR_20_db: -1 is below the limit 0");
    EXPECT_EQ(row("Normmonat_db", "13"),
              "own.csv: line 2, column Normmonat_db: a whole number from 0 to 12 is expected, not "
              "\"13\"");
    EXPECT_EQ(row("DrahtzahlLeiter_db", "2.5"),
              "own.csv: line 2, column DrahtzahlLeiter_db: a whole number from 0 to 32767 is "
              "expected, not \"2.5\"");
    EXPECT_EQ(row("colour", "red"), "own.csv: unknown column \"colour\"");
    EXPECT_EQ(row("Windgeschwindigkeit_db", "1"),
              "own.csv: unknown column \"Windgeschwindigkeit_db\"");
    EXPECT_EQ(row("conductor_material", "AL9"),
              "own.csv: line 2, column conductor_material: unknown material \"AL9\", known are ");
    EXPECT_EQ(
        row("DCR_20_db", "1e39"),
        "own.csv: line 2, column Bezeichnung1_db: A: DCR_20_db: the number is beyond the range "
        "of the record's 32-bit float");
    EXPECT_EQ(row("conductor_type_db", "1"),
              "own.csv: line 1, column conductor_type_db: stands twice");
    EXPECT_EQ(row("Seiltemperatur_max_db", "-1"), "taken");
}

TEST(ConductorTable, needs_a_designation_a_kind_and_a_shape) {
    EXPECT_THAT(refusal_of(std::string(head) + "Norm_db\n,1,1,\n"), HasSubstr("Bezeichnung1_db"));
    EXPECT_THAT(refusal_of(std::string(head) + "Norm_db\nA,5,1,\n"), HasSubstr("from 1 to 4"));
    EXPECT_THAT(refusal_of(std::string(head) + "Norm_db\nA,1,3,\n"), HasSubstr("from 1 to 2"));
    EXPECT_THAT(refusal_of(std::string(head) + "Norm_db\nA,1,,\n"),
                HasSubstr("conductor_shape_db"));
    EXPECT_THAT(refusal_of(""), HasSubstr("names of the columns"));
}

TEST(ConductorTable, refuses_two_rows_of_the_same_name) {
    EXPECT_EQ(refusal_of(std::string(head) + "Bezeichnung2_db\nA,1,1,b\nA,1,1,\na,1,1,B\n"),
              "own.csv: line 4, column Bezeichnung1_db: a (B) stands in line 2 too");
}

struct FigureRow {
    Entry CalcCase::*field;
    double value;  // in place of that of 264-AL1/34-ST1A
    const char* told;
};

// 24 wires of 3.74 mm are 263.66 mm², 7 of 2.49 mm 34.087 mm²; the layers give 22.43 mm; straight
// wires of 263.7 mm² have 28.264 / 263.7 = 0.107182 ohm/km.
constexpr FigureRow figure_rows[] = {
    {&CalcCase::Mantelquerschnitt_db, 263.1, ""},
    {&CalcCase::Mantelquerschnitt_db, 262.9, "Conductor cross-section"},
    {&CalcCase::Mantelquerschnitt_db, 264.3, ""},
    {&CalcCase::Mantelquerschnitt_db, 264.4, "Conductor cross-section"},
    {&CalcCase::KernquerschnittTraeger_db, 34.2, "Core cross-section"},
    {&CalcCase::Seilquerschnitt_db, 298.4, ""},
    {&CalcCase::Seilquerschnitt_db, 298.6, "Total cross-section"},
    {&CalcCase::Seildurchmesser_db, 22.48, ""},
    {&CalcCase::Seildurchmesser_db, 22.49, "Conductor diameter"},
    {&CalcCase::Seildurchmesser_db, 22.38, ""},
    {&CalcCase::Seildurchmesser_db, 22.37, "Conductor diameter"},
    {&CalcCase::DCR_20_db, 0.1082, ""},
    {&CalcCase::DCR_20_db, 0.1081, "DC resistance"},
    {&CalcCase::DCR_20_db, 0.1103, ""},
    {&CalcCase::DCR_20_db, 0.1105, "DC resistance"},
};

TEST_F(Library, tells_figures_that_contradict_each_other) {
    const auto library = open();
    const CalcCase sound = find_conductor(library.conductors(), "265/35").c;
    for (const FigureRow& row : figure_rows) {
        CalcCase c = sound;
        c.*row.field = typed(row.value);
        const auto findings = implausible_figures(c, English);
        if (*row.told == '\0') {
            EXPECT_THAT(findings, IsEmpty()) << row.value;
        } else {
            ASSERT_THAT(findings, SizeIs(1)) << row.value;
            EXPECT_THAT(findings.front(), HasSubstr(row.told));
        }
    }
}

TEST_F(Library, does_not_judge_the_wires_of_a_smooth_conductor) {
    const auto library = open();
    CalcCase c = find_conductor(library.conductors(), "265/35").c;
    c.DrahtdurchmesserLeiter_db = typed(4.4);
    c.KerndurchmesserTraeger_db = typed(9);
    EXPECT_THAT(implausible_figures(c, English), SizeIs(3));
    c.conductor_shape_db = 2;
    EXPECT_THAT(implausible_figures(c, English), IsEmpty());
    c.DCR_20_db = typed(0.12);
    EXPECT_THAT(implausible_figures(c, LangId::German), SizeIs(1));
}

TEST(Offers, fill_only_what_is_without_input_and_are_told) {
    CalcCase from;
    from.ACDC_R_Option_Merker_db = 1;
    from.radialthermalconductivity_unter_KPT_db = typed(1.5);
    from.radialthermalconductivity_ueber_KPT_db = typed(0.7);
    CalcCase to;
    to.radialthermalconductivity_unter_KPT_db = {"2,0", 2};
    const auto box = take_offers(to, from, {LangId::German, DecimalSeparator::Comma});
    EXPECT_EQ(to.ACDC_R_Option_Merker_db, 1);
    EXPECT_EQ(to.radialthermalconductivity_unter_KPT_db, (Entry{"2,0", 2}));
    EXPECT_EQ(to.radialthermalconductivity_ueber_KPT_db, (Entry{"0,7", 0.7}));
    EXPECT_FALSE(to.KniepunktTemperatur_db.given());
    ASSERT_TRUE(box);
    EXPECT_THAT(joined(box->lines, "\n"), AllOf(HasSubstr("oberhalb des Kniepunkts: 0,7 W/(m·K)"),
                                                Not(HasSubstr("unterhalb des Kniepunkts: "))));
    EXPECT_EQ(take_offers(to, from, {LangId::German, DecimalSeparator::Comma}), std::nullopt);
}

TEST(Offers, take_the_pairs_where_there_is_no_dc_resistance_and_nothing_for_a_tube) {
    CalcCase pairs;
    pairs.ACR1_db = typed(0.07);
    add_usual_offers(pairs, Point);
    EXPECT_EQ(pairs.ACDC_R_Option_Merker_db, 2);
    CalcCase tube;
    tube.conductor_type_db = tubular_busbar;
    tube.conductor_shape_db = 1;
    add_usual_offers(tube, Point);
    EXPECT_EQ(tube.ACDC_R_Option_Merker_db, 0);
    EXPECT_FALSE(tube.radialthermalconductivity_unter_KPT_db.given());
}

}  // namespace
}  // namespace zel
