#include "short_circuit/short_circuit_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/short_circuit_cases.h"
#include "short_circuit/conductor_materials.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel {
namespace {

using C = ShortCircuitCase;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

constexpr NumberKey every_box[] = {&C::Frequenz_ks, &C::IK2,     &C::IK,      &C::Kappa,   &C::Tk1,
                                   &C::Tk2,         &C::Tk3,     &C::Ith,     &C::T_k,     &C::Tkr,
                                   &C::Ithr,        &C::theta_b, &C::theta_e, &C::A_Leiter};

/// A form with "1.5" in every box of the first page and in the section.
ShortCircuitForm filled() {
    ShortCircuitTyping typing;
    for (const NumberKey box : every_box) typing.type(box, "1.5");
    return typing.form;
}

/// The names of closed boxes and lists.
std::vector<std::string> closed(const ShortCircuitForm& form) {
    std::vector<std::string> names;
    for (const ShortCircuitField& field : short_circuit_fields()) {
        const auto* box = std::get_if<NumberKey>(&field.key);
        const auto* list = std::get_if<ListKey>(&field.key);
        if ((box != nullptr && !form.is_open(*box)) || (list != nullptr && !form.is_open(*list)))
            names.emplace_back(field.name);
    }
    return names;
}

void expect_gone(const ShortCircuitForm& form, std::initializer_list<NumberKey> boxes) {
    for (const NumberKey box : every_box) {
        const bool gone = std::find(boxes.begin(), boxes.end(), box) != boxes.end();
        EXPECT_EQ(form.content().*box, gone ? Entry{} : (Entry{"1.5", 1.5})) << name_of(box);
    }
}

TEST(StateTable, new_form_is_empty_and_open) {
    const ShortCircuitForm form;
    EXPECT_EQ(form.content(), C{});
    EXPECT_THAT(closed(form), IsEmpty());
    EXPECT_TRUE(form.conductor_page_is_open());
}

TEST(StateTable, without_limiter_the_given_current_is_gone) {
    ShortCircuitForm form = filled();
    form.choose(&C::Strombegrenzschalter_ks, without_limiter);
    EXPECT_THAT(closed(form), UnorderedElementsAre("Ith", "T_k"));
    expect_gone(form, {&C::Ith, &C::T_k});
}

TEST(StateTable, with_limiter_all_that_the_current_is_computed_from_is_gone) {
    ShortCircuitForm form = filled();
    form.choose(&C::generatornah, generator_far);
    form.choose(&C::Anzahl_KS_fluesse, 3);
    form.choose(&C::Strombegrenzschalter_ks, with_limiter);
    EXPECT_THAT(closed(form), UnorderedElementsAre("generatornah", "IK2", "IK", "Kappa",
                                                   "Anzahl_KS_fluesse", "Tk1", "Tk2", "Tk3"));
    expect_gone(form, {&C::IK2, &C::IK, &C::Kappa, &C::Tk1, &C::Tk2, &C::Tk3});
    EXPECT_EQ(form.content().generatornah, 0);
    EXPECT_EQ(form.content().Anzahl_KS_fluesse, 0);

    form.choose(&C::Strombegrenzschalter_ks, without_limiter);
    EXPECT_THAT(closed(form), UnorderedElementsAre("Ith", "T_k"));
    EXPECT_EQ(form.content().IK2, Entry{}) << "a value hidden by a selection is gone";
    form.choose(&C::Strombegrenzschalter_ks, 0);
    EXPECT_THAT(closed(form), IsEmpty());
}

TEST(StateTable, closed_list_is_reset_without_the_rule_of_its_first_entry) {
    ShortCircuitForm form = filled();
    form.choose(&C::Anzahl_KS_fluesse, 1);
    form.choose(&C::Strombegrenzschalter_ks, with_limiter);
    EXPECT_FALSE(form.is_open(&C::Tk2)) << "index 0 of the list would open it";
}

TEST(StateTable, far_from_the_generator_the_steady_current_loses_its_text_alone) {
    ShortCircuitForm form = filled();
    form.choose(&C::generatornah, generator_far);
    EXPECT_THAT(closed(form), ElementsAre("IK"));
    EXPECT_EQ(form.content().IK, (Entry{"", 1.5}));
    for (const Vicinity open : {generator_near, Vicinity{}}) {
        form.choose(&C::generatornah, open);
        EXPECT_THAT(closed(form), IsEmpty());
        form.choose(&C::generatornah, generator_far);
    }
    form.choose(&C::Strombegrenzschalter_ks, without_limiter);
    EXPECT_TRUE(form.is_open(&C::IK)) << "each choice acts alone";
}

TEST(StateTable, flows_beyond_their_number_are_gone) {
    ShortCircuitForm form = filled();
    form.choose(&C::Anzahl_KS_fluesse, 2);
    EXPECT_THAT(closed(form), ElementsAre("Tk3"));
    expect_gone(form, {&C::Tk3});
    form.choose(&C::Anzahl_KS_fluesse, 1);
    EXPECT_THAT(closed(form), UnorderedElementsAre("Tk2", "Tk3"));
    expect_gone(form, {&C::Tk2, &C::Tk3});
    for (const int open : {3, 0}) {
        form.choose(&C::Anzahl_KS_fluesse, static_cast<std::int16_t>(open));
        EXPECT_THAT(closed(form), IsEmpty());
        expect_gone(form, {&C::Tk2, &C::Tk3});
    }
}

TEST(StateTable, conductor_and_equipment_exclude_each_other) {
    ShortCircuitForm form = filled();
    form.choose(&C::Leiter_Bmittel, bare_conductor);
    EXPECT_THAT(closed(form), ElementsAre("Ithr"));
    EXPECT_TRUE(form.conductor_page_is_open());
    expect_gone(form, {&C::Ithr});

    form.choose(&C::Leiter_Bmittel, equipment);
    EXPECT_THAT(closed(form), UnorderedElementsAre("theta_b", "theta_e"));
    EXPECT_FALSE(form.conductor_page_is_open());
    expect_gone(form, {&C::Ithr, &C::theta_b, &C::theta_e});  // the section stays

    form.choose(&C::Leiter_Bmittel, 0);
    EXPECT_TRUE(form.conductor_page_is_open());
    EXPECT_THAT(closed(form), UnorderedElementsAre("theta_b", "theta_e")) << "none are opened";
}

struct MaterialRow {
    std::int16_t index;
    const char *name, *c, *alpha20, *kappa20, *rho;
    float values[4];
};
constexpr MaterialRow material_rows[] = {
    {1, " Kupfer", "390", "0,0039", "56", "8900", {390, 0.0039F, 56, 8900}},
    {2,
     " Aluminium, Aluminiumlegierung (AlMgSi),Al/St, AlMgSi/St",
     "910",
     "0,004",
     "34,8",
     "2700",
     {910, 0.004F, 34.8F, 2700}},
    {3, " Stahl", "480", "0,0045", "7,25", "7850", {480, 0.0045F, 7.25F, 7850}},
    {4,
     " Aluminium ummantelter Stahl 20 SA",
     "518",
     "0,0036",
     "11,79",
     "6590",
     {518, 0.0036F, 11.79F, 6590}},
    {5,
     " Aluminium ummantelter Stahl 27 SA",
     "551",
     "0,0036",
     "15,66",
     "5910",
     {551, 0.0036F, 15.66F, 5910}},
    {6,
     " Aluminium ummantelter Stahl 30 SA",
     "566",
     "0,0038",
     "17,4",
     "5610",
     {566, 0.0038F, 17.4F, 5610}},
    {7,
     " Aluminium ummantelter Stahl 40 SA",
     "630",
     "0,004",
     "23,2",
     "4640",
     {630, 0.004F, 23.2F, 4640}},
};

TEST(MaterialList, writes_texts_with_a_comma_and_32_bit_numbers) {
    ShortCircuitForm form;
    for (const auto& [index, name, c, alpha20, kappa20, rho, values] : material_rows) {
        EXPECT_EQ(conductor_materials()[static_cast<std::size_t>(index)].name.de, name);
        form.choose(&C::Leitermaterial_ks, index);
        const C& content = form.content();
        EXPECT_EQ(content.Leitermaterial_ks, index);
        EXPECT_EQ(content.waermekapaz, (Entry{c, values[0]}));
        EXPECT_EQ(content.Tk20_ks, (Entry{alpha20, values[1]}));
        EXPECT_EQ(content.kappa20_ks, (Entry{kappa20, values[2]}));
        EXPECT_EQ(content.Dichte_rho, (Entry{rho, values[3]}));
    }
    const Entry kept = form.content().waermekapaz;
    form.choose(&C::Leitermaterial_ks, 0);
    EXPECT_EQ(form.content().waermekapaz, kept) << "index 0 leaves the values alone";
    EXPECT_EQ(conductor_materials()[0].name.de,
              " Benutzerdefinierte Werteeingabe oder aus Seildatenbank eingelesen");
}

void type_by_hand(ShortCircuitForm& form, NumberKey box, const char* text) {
    form.typed_into(box);
    form.change(box, text, {LangId::German, DecimalSeparator::Point});
}

TEST(MaterialList, goes_to_index_0_when_a_value_is_typed_by_hand) {
    for (const NumberKey box : {&C::waermekapaz, &C::kappa20_ks, &C::Tk20_ks, &C::Dichte_rho}) {
        ShortCircuitForm form;
        form.choose(&C::Leitermaterial_ks, 1);
        type_by_hand(form, box, "100");
        EXPECT_EQ(form.content().Leitermaterial_ks, 0) << name_of(box);
        form.choose(&C::Leitermaterial_ks, 1);
        EXPECT_EQ(form.content().Leitermaterial_ks, 1) << "the mark is cleared";
    }
}

TEST(MaterialList, other_values_stay_when_one_is_typed) {
    ShortCircuitForm form;
    form.choose(&C::Leitermaterial_ks, 1);
    type_by_hand(form, &C::kappa20_ks, "58");
    EXPECT_EQ(form.content().kappa20_ks.value, 58);
    EXPECT_EQ(form.content().waermekapaz.text, "390");
    EXPECT_EQ(form.content().Tk20_ks.text, "0,0039");
    EXPECT_EQ(form.content().Dichte_rho.text, "8900");
}

TEST(MaterialList, stays_when_a_box_changes_otherwise) {
    ShortCircuitForm form;
    form.choose(&C::Leitermaterial_ks, 1);
    form.change(&C::kappa20_ks, "58", {LangId::German, DecimalSeparator::Point});
    EXPECT_EQ(form.content().Leitermaterial_ks, 1);
    type_by_hand(form, &C::A_Leiter, "240");  // not a value of the material
    EXPECT_EQ(form.content().Leitermaterial_ks, 1);
}

TEST(TakeOver, fills_the_labels_and_the_values_of_the_layers) {
    ShortCircuitForm form;
    form.choose(&C::Leitermaterial_ks, 1);
    EXPECT_THAT(form.take_over(record_264_34(), {LangId::German, DecimalSeparator::Comma}),
                IsEmpty());
    const C& c = form.content();
    EXPECT_EQ(c.werkstoff_ks, "Al/St");
    EXPECT_EQ(c.Nennquerschnitt_ks, "264-AL1/34-ST1A");
    EXPECT_EQ(c.Norm_ks, "EN 50182");
    EXPECT_EQ(c.Leitermaterial_ks, 0);
    EXPECT_EQ(c.A_Leiter, (Entry{"263,7", 263.7F}));
    EXPECT_EQ(c.waermekapaz, (Entry{"898", 898}));  // rounded as it is shown
    EXPECT_EQ(c.kappa20_ks, (Entry{"35,38", 35.38F}));
    EXPECT_EQ(c.Tk20_ks, (Entry{"0,004", 0.004F}));
    EXPECT_EQ(c.Dichte_rho, (Entry{"2703", 2703}));
    const auto label = [&](ShortCircuitKey key) {
        return label_text(c, key, DecimalSeparator::Comma);
    };
    EXPECT_EQ(label(&C::Norm_ks), "EN 50182");
    EXPECT_EQ(label(&C::Normjahr_ks), "2001");
    EXPECT_EQ(label(&C::Normmonat_ks), "05");
    EXPECT_EQ(label(&C::Seilquerschnitt_ks), "297,7");
    EXPECT_EQ(label(&C::Mantelquerschnitt_ks), "263,7");
}

TEST(TakeOver, without_a_sheath_a_dash_is_shown) {
    ConductorData record = record_264_34();
    record.Mantelquerschnitt_db = {};
    ShortCircuitForm form;
    form.take_over(record, {LangId::German, DecimalSeparator::Point});
    EXPECT_EQ(label_text(form.content(), &C::Mantelquerschnitt_ks, DecimalSeparator::Point), " - ");
    EXPECT_EQ(form.content().A_Leiter.text, "0.0");
}

TEST(TakeOver, refused_values_are_told_and_no_input) {
    ConductorData record = record_264_34();
    record.c_leiter20_db.value = 6000;
    record.DC_Resist_Leiter_db.value = 5;  // 200 m/(ohm·mm²)
    ShortCircuitForm form;
    const auto refused = form.take_over(record, {LangId::German, DecimalSeparator::Point});
    ASSERT_THAT(refused, SizeIs(2));
    EXPECT_EQ(refused[0].box, &C::waermekapaz);
    EXPECT_EQ(refused[1].box, &C::kappa20_ks);
    EXPECT_EQ(form.content().waermekapaz, Entry{});
    EXPECT_EQ(form.content().Dichte_rho.value, 2703) << "the others are taken over";
}

TEST(TakeOver, without_a_resistivity_there_is_no_conductivity) {
    ConductorData record = record_264_34();
    record.DC_Resist_Leiter_db = {};
    ShortCircuitForm form;
    EXPECT_THAT(form.take_over(record, {LangId::German, DecimalSeparator::Point}), IsEmpty());
    EXPECT_FALSE(form.content().kappa20_ks.given());
}

TEST(Respell, typed_numbers_follow_the_separator) {
    ShortCircuitForm form = copper_far();
    const C before = form.content();
    form.respell(DecimalSeparator::Point, DecimalSeparator::Comma);
    EXPECT_EQ(form.content().Kappa, (Entry{"1,8", 1.8F}));
    EXPECT_EQ(form.content().Tk20_ks, before.Tk20_ks) << "the material's comma is no number here";
    form.respell(DecimalSeparator::Comma, DecimalSeparator::Point);
    EXPECT_EQ(form.content().Kappa, before.Kappa);
}

TEST(Labels, are_empty_without_a_record) {
    for (const ShortCircuitKey key :
         {ShortCircuitKey(&C::werkstoff_ks), ShortCircuitKey(&C::Normjahr_ks),
          ShortCircuitKey(&C::Normmonat_ks), ShortCircuitKey(&C::Seilquerschnitt_ks),
          ShortCircuitKey(&C::Mantelquerschnitt_ks)})
        EXPECT_EQ(label_text({}, key, DecimalSeparator::Point), "");
}

TEST(NewCase, is_asked_for_in_both_languages) {
    EXPECT_THAT(new_case_question(LangId::German).lines,
                ElementsAre("Alle ungespeicherten Daten der aktuellen Berechnung gehen verloren! ",
                            "Wollen Sie wirklich eine neue Berechnung durchfuehren ?"));
    const Box english = new_case_question(LangId::English);
    EXPECT_THAT(english.lines,
                ElementsAre("All unsaved input data of this calculation will be lost! ",
                            "Do you really want to start new calculation ?"));
    EXPECT_EQ(english.buttons, Buttons::YesNo);
    EXPECT_EQ(english.icon, Icon::Question);
}

TEST(Fields, have_names_that_are_found_in_any_spelling) {
    EXPECT_THAT(short_circuit_fields(), SizeIs(34));
    for (const ShortCircuitField& field : short_circuit_fields()) {
        EXPECT_EQ(find_short_circuit_field(field.name), &field);
        EXPECT_EQ(name_of(field.key), field.name);
    }
    for (const char* spelling : {"TK1", "Tk1", "TK20_ks", "datum_ks", "Werkstoff_ks"})
        EXPECT_NE(find_short_circuit_field(spelling), nullptr) << spelling;
    EXPECT_EQ(find_short_circuit_field("Tk4"), nullptr);
    EXPECT_EQ(find_short_circuit_field(""), nullptr);
}

}  // namespace
}  // namespace zel
