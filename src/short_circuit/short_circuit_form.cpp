#include "short_circuit/short_circuit_form.h"

#include <algorithm>
#include <array>

#include "platform/rounding.h"
#include "short_circuit/conductor_materials.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel {
namespace {

using C = ShortCircuitCase;

constexpr std::array<NumberKey, 4> material_boxes = {&C::waermekapaz, &C::kappa20_ks, &C::Tk20_ks,
                                                     &C::Dichte_rho};

bool is_material(NumberKey box) {
    return std::find(material_boxes.begin(), material_boxes.end(), box) != material_boxes.end();
}

/// Whether a conductor's record brought anything.
bool has_record(const C& c) {
    const C none;
    const auto fields = short_circuit_fields();
    return std::any_of(fields.begin(), fields.end(), [&](const ShortCircuitField& field) {
        return field.of_record &&
               std::visit([&](auto member) { return c.*member != none.*member; }, field.key);
    });
}

template <class Member>
bool has(const std::vector<Member>& members, Member member) {
    return std::find(members.begin(), members.end(), member) != members.end();
}

}  // namespace

bool ShortCircuitForm::is_open(NumberKey box) const { return !has(state_.closed_boxes, box); }

bool ShortCircuitForm::is_open(ListKey list) const { return !has(state_.closed_lists, list); }

void ShortCircuitForm::choose(ListKey list, std::int16_t index) {
    content_.*list = index;
    apply_choice(content_, state_, list, index);
    if (list == &C::Leitermaterial_ks) write_material(index);
}

void ShortCircuitForm::write_material(std::int16_t index) {
    typed_into_.reset();
    if (index == 0) return;
    const ConductorMaterial& material = conductor_materials()[static_cast<std::size_t>(index)];
    const auto set = [&](NumberKey box, std::string_view text) {
        // No material breaks a limit.
        enter(content_.*box, box, text, {LangId::German, DecimalSeparator::Comma});
    };
    set(&C::waermekapaz, material.waermekapaz);
    set(&C::Tk20_ks, material.Tk20_ks);
    set(&C::kappa20_ks, material.kappa20_ks);
    set(&C::Dichte_rho, material.Dichte_rho);
}

void ShortCircuitForm::typed_into(NumberKey box) {
    if (is_material(box)) typed_into_ = box;
}

std::optional<NumberRefusal> ShortCircuitForm::change(NumberKey box, std::string_view text,
                                                      const Locale& locale) {
    if (typed_into_ == box) {
        content_.Leitermaterial_ks = 0;
        typed_into_.reset();
    }
    return enter(content_.*box, box, text, locale);
}

void ShortCircuitForm::respell(DecimalSeparator from, DecimalSeparator to) {
    zel::respell(fields_of(content_), from, to);
}

std::vector<RefusedNumber> ShortCircuitForm::take_over(const ConductorData& record,
                                                       const Locale& locale) {
    content_.werkstoff_ks = without_outer_blanks(record.Bezeichnung1_db);
    content_.Nennquerschnitt_ks = without_outer_blanks(record.Bezeichnung2_db);
    content_.Norm_ks = without_outer_blanks(record.Norm_db);
    content_.Normjahr_ks = record.Normjahr_db;
    content_.Normmonat_ks = record.Normmonat_db;
    content_.Seilquerschnitt_ks = narrowed_to_single(record.Seilquerschnitt_db.value);
    content_.Mantelquerschnitt_ks = narrowed_to_single(record.Mantelquerschnitt_db.value);
    choose(&C::Leitermaterial_ks, 0);
    const double resistivity = narrowed_to_single(record.DC_Resist_Leiter_db.value);
    const struct {
        NumberKey box;
        double value;
    } values[] = {
        // The record of a one-material conductor holds its section as that of the layers.
        {&C::A_Leiter, content_.Mantelquerschnitt_ks},
        {&C::waermekapaz, record.c_leiter20_db.value},
        {&C::kappa20_ks, (1 / resistivity) * 1000},  // infinite at 0, which shows as no text
        {&C::Tk20_ks, record.T_Koeff_DC_Resist_Leiter_linear_db.value / 1000},
        {&C::Dichte_rho, record.Dichte_Leiterwerkstoff1_db.value},
    };
    std::vector<RefusedNumber> refused;
    for (const auto& [box, value] : values)
        if (auto refusal = change(box, masked(value, field_of(box).mask, locale.separator), locale))
            refused.push_back({box, std::move(*refusal)});
    return refused;
}

std::string label_text(const ShortCircuitCase& c, const ShortCircuitKey& key,
                       DecimalSeparator separator) {
    if (const auto* text = std::get_if<TextKey>(&key)) return c.**text;
    if (!has_record(c)) return {};
    const std::string_view mask = field_of(key).mask;
    if (const auto* whole = std::get_if<ListKey>(&key)) return masked(c.**whole, mask, separator);
    if (c.Mantelquerschnitt_ks == 0 && key == ShortCircuitKey(&C::Mantelquerschnitt_ks))
        return " - ";
    return masked(c.*std::get<RecordNumberKey>(key), mask, separator);
}

Box new_case_question(LangId lang) {
    constexpr BoxText question = {
        Icon::Question,
        {"Neu", "New"},
        {"Alle ungespeicherten Daten der aktuellen Berechnung gehen verloren! \n"
         "Wollen Sie wirklich eine neue Berechnung durchfuehren ?",
         "All unsaved input data of this calculation will be lost! \n"
         "Do you really want to start new calculation ?"},
        Buttons::YesNo,
        Answer::No};
    return box_in(lang, question);
}

Box conductor_database_not_started() {
    constexpr BoxText told = {Icon::Stop,
                              {" Fehler bei Programmstart..."},
                              {"Für das Seildatenbank-Programm wurde bisher kein Pfad festgelegt.\n"
                               "Sie müssen zunächst einen Pfad im Menü festlegen !\n"
                               " oder :\n"
                               "Unter dem festgelegten Pfad befindet sich \n"
                               "kein entsprechendes Programm mehr.\n"
                               "Legen Sie bitte den Pfad neu fest !"}};
    return box_in(LangId::German, told);
}

}  // namespace zel
