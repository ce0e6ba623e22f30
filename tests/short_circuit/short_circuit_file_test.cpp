#include "short_circuit/short_circuit_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/short_circuit_cases.h"
#include "platform/errors.h"

namespace zel {
namespace {

using C = ShortCircuitCase;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

ShortCircuitFile read(const FlatObject& values,
                      DecimalSeparator separator = DecimalSeparator::Point) {
    return read_short_circuit_case(values, {LangId::English, separator});
}

TEST(ShortCircuitFile, selections_come_first_and_closed_boxes_drop_their_values) {
    const ShortCircuitFile file = read({{"Ith", 12.0},
                                        {"IK2", 20.0},
                                        {"Tk1", 0.5},
                                        {"Tk2", 0.25},
                                        {"Anzahl_KS_fluesse", 1.0},
                                        {"Strombegrenzschalter_ks", 1.0}});
    const C& c = file.form.content();
    EXPECT_EQ(c.IK2, (Entry{"20", 20}));
    EXPECT_EQ(c.Tk1.value, 0.5);
    EXPECT_EQ(c.Ith, Entry{});
    EXPECT_EQ(c.Tk2, Entry{});
    EXPECT_THAT(file.refused, IsEmpty());
}

TEST(ShortCircuitFile, list_that_a_selection_closes_drops_its_choice) {
    const ShortCircuitFile file =
        read({{"generatornah", 1.0}, {"Anzahl_KS_fluesse", 2.0}, {"Strombegrenzschalter_ks", 2.0}});
    EXPECT_EQ(file.form.content().generatornah, 0);
    EXPECT_EQ(file.form.content().Anzahl_KS_fluesse, 0);
}

TEST(ShortCircuitFile, equipment_keeps_what_stands_on_the_page_of_the_conductor) {
    const ShortCircuitFile file =
        read({{"Leiter_Bmittel", 2.0}, {"A_Leiter", 240.0}, {"theta_b", 80.0}});
    EXPECT_EQ(file.form.content().A_Leiter.value, 240);
    EXPECT_EQ(file.form.content().theta_b, Entry{});
}

TEST(ShortCircuitFile, numbers_go_through_the_entry_rules_at_32_bits) {
    const ShortCircuitFile file = read({{"Frequenz_ks", 99.5}, {"Tkr", 0.1}, {"Kappa", "1,8"}});
    ASSERT_THAT(file.refused, SizeIs(2));
    EXPECT_EQ(file.refused[0].field, "Frequenz_ks");
    EXPECT_EQ(file.refused[0].box.title, " Fehlerhafte Eingabe");
    EXPECT_EQ(file.refused[1].field, "Kappa");
    EXPECT_EQ(file.refused[1].box.title, "Incorrect input data");
    EXPECT_EQ(file.form.content().Tkr, (Entry{"0.1", 0.1F}));
    EXPECT_FALSE(file.form.content().Kappa.given());
}

TEST(ShortCircuitFile, texts_are_read_with_the_separator) {
    const auto file = read({{"Kappa", "1,8"}, {"Tkr", 0.5}}, DecimalSeparator::Comma);
    EXPECT_EQ(file.form.content().Kappa, (Entry{"1,8", 1.8F}));
    EXPECT_EQ(file.form.content().Tkr, (Entry{"0,5", 0.5}));
}

TEST(ShortCircuitFile, material_fills_the_values_that_are_not_given) {
    const ShortCircuitFile file =
        read({{"waermekapaz", 400.0}, {"Dichte_rho", ""}, {"Leitermaterial_ks", 1.0}});
    const C& c = file.form.content();
    EXPECT_EQ(c.Leitermaterial_ks, 1);
    EXPECT_EQ(c.waermekapaz.value, 400);
    EXPECT_EQ(c.kappa20_ks.value, 56);
    EXPECT_EQ(c.Tk20_ks.value, 0.0039F);
    EXPECT_EQ(c.Dichte_rho.value, 8900);
}

TEST(ShortCircuitFile, refused_value_is_not_filled_by_the_material) {
    const ShortCircuitFile file = read({{"Leitermaterial_ks", 1.0}, {"waermekapaz", 6000.0}});
    EXPECT_THAT(file.refused, SizeIs(1));
    EXPECT_EQ(file.form.content().waermekapaz, Entry{});
}

TEST(ShortCircuitFile, empty_texts_are_no_input) {
    const ShortCircuitFile file = read({{"Frequenz_ks", ""},
                                        {"Leiter_Bmittel", ""},
                                        {"Projekt_ks", ""},
                                        {"Seilquerschnitt_ks", ""}});
    EXPECT_EQ(file.form.content(), C{});
    EXPECT_THAT(file.refused, IsEmpty());
}

TEST(ShortCircuitFile, list_takes_a_number_in_a_text) {
    EXPECT_EQ(read({{"Leiter_Bmittel", "2"}}).form.content().Leiter_Bmittel, 2);
}

std::string refusal_of(const FlatObject& values) {
    try {
        (void)read(values);
    } catch (const InputError& error) {
        return error.what();
    }
    return {};
}

TEST(ShortCircuitFile, bad_members_are_refused_by_name) {
    const struct {
        FlatObject values;
        const char* reason;
    } rows[] = {
        {{{"Tk4", 1.0}}, "Tk4: unknown key"},
        {{{"Tk1", 1.0}, {"TK1", 1.0}}, "TK1: stands there as Tk1 already"},
        {{{"Leiter_Bmittel", 3.0}}, "Leiter_Bmittel: a whole number from 0 to 2 is expected"},
        {{{"Anzahl_KS_fluesse", 4.0}}, "Anzahl_KS_fluesse: a whole number from 0 to 3 is expected"},
        {{{"Anzahl_KS_fluesse", 1.5}}, "Anzahl_KS_fluesse: a whole number from 0 to 3 is expected"},
        {{{"Leitermaterial_ks", -1.0}},
         "Leitermaterial_ks: a whole number from 0 to 7 is expected"},
        {{{"generatornah", "nah"}}, "generatornah: a number is expected"},
        {{{"generatornah", true}}, "generatornah: a number is expected"},
        {{{"IK2", true}}, "IK2: a number is expected"},
        {{{"Ith", true}, {"Strombegrenzschalter_ks", 1.0}}, "Ith: a number is expected"},
        {{{"Projekt_ks", 1.0}}, "Projekt_ks: a text is expected"},
        {{{"Normjahr_ks", 40000.0}},
         "Normjahr_ks: a whole number from -32768 to 32767 is expected"},
        {{{"Seilquerschnitt_ks", 1e300}}, "Seilquerschnitt_ks: the number is too large"},
    };
    for (const auto& [values, reason] : rows) EXPECT_EQ(refusal_of(values), reason);
}

TEST(ShortCircuitFile, keys_may_be_spelled_as_columns) {
    const ShortCircuitFile file = read({{"TK1", 0.5}, {"TK20_ks", 0.004}, {"Werkstoff_ks", "Al"}});
    EXPECT_EQ(file.form.content().Tk1.value, 0.5);
    EXPECT_EQ(file.form.content().Tk20_ks.value, 0.004F);
    EXPECT_EQ(file.form.content().werkstoff_ks, "Al");
}

TEST(ShortCircuitFile, written_case_reads_as_the_same_under_either_separator) {
    ShortCircuitForm form = aluminium_near();
    form.write(&C::Projekt_ks, "Feld 7");
    ConductorData record;
    record.Bezeichnung1_db = "Al/St";
    record.Normjahr_db = 2001;
    record.Seilquerschnitt_db.value = 297.7;
    record.Mantelquerschnitt_db.value = 263.7;
    record.c_leiter20_db.value = 897;
    record.DC_Resist_Leiter_db.value = 28.264;
    record.T_Koeff_DC_Resist_Leiter_linear_db.value = 4.03;
    record.Dichte_Leiterwerkstoff1_db.value = 2703;
    ShortCircuitForm with_record = form;
    with_record.take_over(record, {LangId::German, DecimalSeparator::Point});
    for (const ShortCircuitForm& written :
         {form, with_record, copper_far(), limited_equipment(), ShortCircuitForm()}) {
        const FlatObject values = values_of(written.content());
        for (const auto separator : {DecimalSeparator::Point, DecimalSeparator::Comma}) {
            const ShortCircuitFile file = read(values, separator);
            EXPECT_THAT(file.refused, IsEmpty());
            EXPECT_EQ(values_of(file.form.content()), values);
        }
        C read_back = read(values).form.content();
        // The texts of a material have a comma; written out they are numbers.
        for (const NumberKey box : {&C::waermekapaz, &C::kappa20_ks, &C::Tk20_ks, &C::Dichte_rho})
            (read_back.*box).text = (written.content().*box).text;
        EXPECT_EQ(read_back, written.content());
    }
}

TEST(ShortCircuitFile, numbers_are_written_with_the_digits_that_were_typed) {
    ShortCircuitTyping typing;
    typing.type(&C::Tkr, "0.1").type(&C::A_Leiter, "263.7").choose(&C::Leiter_Bmittel, 1);
    EXPECT_THAT(values_of(typing.form.content()),
                ElementsAre(FlatMember{"Leiter_Bmittel", 1.0}, FlatMember{"Tkr", 0.1},
                            FlatMember{"A_Leiter", 263.7}));
}

}  // namespace
}  // namespace zel
