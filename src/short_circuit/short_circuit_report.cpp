#include "short_circuit/short_circuit_report.h"

#include <span>
#include <string_view>

#include "reports/report_frame.h"
#include "shell/program_texts.h"
#include "short_circuit/conductor_materials.h"
#include "short_circuit/result_page.h"
#include "short_circuit/short_circuit_fields.h"
#include "short_circuit/short_circuit_form.h"

namespace zel {
namespace {

using C = ShortCircuitCase;

// ---- when a row stands there

bool always(const C& /*c*/) { return true; }
bool is_given(const C& c) { return c.Strombegrenzschalter_ks == with_limiter; }
bool is_computed(const C& c) { return c.Strombegrenzschalter_ks == without_limiter; }
bool is_near(const C& c) { return is_computed(c) && c.generatornah == generator_near; }
bool has_second_flow(const C& c) { return is_computed(c) && c.Anzahl_KS_fluesse >= 2; }
bool has_third_flow(const C& c) { return is_computed(c) && c.Anzahl_KS_fluesse == 3; }
bool is_conductor(const C& c) { return c.Leiter_Bmittel == bare_conductor; }
bool is_equipment(const C& c) { return c.Leiter_Bmittel == equipment; }

// ---- what the page says, row by row

/// The words of a selection by its index.
using Words = std::span<const std::string_view>;
constexpr std::string_view limiter_words[] = {"", "nein", "ja"};
constexpr std::string_view vicinity_words[] = {"", "-nah", "-fern"};
constexpr std::string_view object_words[] = {"", "blanker Leiter", "elektrisches Betriebsmittel"};

struct DataRow {
    PrintText label;
    ShortCircuitKey field;
    std::string_view mask;  // without one the value stands as the form shows it
    std::string_view unit;
    bool (*applies)(const C&) = always;
    Words words{};
};

/// A label whose translations are awaited.
constexpr PrintText awaited(std::string_view german) { return {german, "xxx:", "xxx:", "xxx:"}; }

constexpr PrintText title = {"Thermische Kurzschlußfestigkeit nach IEC 865", "xxx by IEC 865",
                             "xxx selon IEC 865", "xxxx conforme a IEC 865"};
constexpr PrintText sheet_label = {"Blatt {0}/{1}", "page {0}/{1}", "page {0} /{1}",
                                   "pagina {0} / {1}"};

constexpr PrintText project_head = {"Angaben zum Projekt", "project data"};
constexpr PrintText project_labels[] = {{"Projekt:", "Project:", "Projet:", "Proyecto:"},
                                        {"Datum:", "date:", "date:", "fecha:"},
                                        {"Bearbeiter:", "operator:", "opérateur:", "operador:"},
                                        {"Firma/Abteilung:", "Company/depart.:"}};

constexpr std::string_view current_mask = "######0.00";
constexpr std::string_view time_mask = "##0.00#";

constexpr PrintText calculation_head = {"Angaben zur Berechnung", "xxxx data", "xxxx du ligne",
                                        "datos del xxxx"};
constexpr DataRow calculation_rows[] = {
    {{"Frequenz des Stromkreises:", "frequency of the circuit:", "fréquence du circuit:",
      "frecuencia del circuito:"},
     &C::Frequenz_ks,
     "",
     "Hz"},
    {awaited("Strombegrenzende Schaltgeräte:"), &C::Strombegrenzschalter_ks, "", "", always,
     limiter_words},
    {awaited("therm. gleichwertiger Kurzschlußstrom I_th:"), &C::Ith, "", "kA", is_given},
    {awaited("Dauer des Kurzschlußstromes T_k:"), &C::T_k, "", "s", is_given},
    {awaited("Kurzschluß generatornah / generatorfern:"), &C::generatornah, "", "", is_computed,
     vicinity_words},
    {awaited("Faktor kappa:"), &C::Kappa, current_mask, "", is_computed},
    {awaited("Anfangskurzschlußwechselstrom Ik'':"), &C::IK2, current_mask, "kA", is_computed},
    {awaited("Dauerkurzschlußwechselstrom Ik:"), &C::IK, current_mask, "kA", is_near},
    {awaited("Anzahl der Kurzschlußstromflüsse:"), &C::Anzahl_KS_fluesse, "", "", is_computed},
    {awaited("Dauer des 1. Stromflusses T_k1:"), &C::Tk1, time_mask, "s", is_computed},
    {awaited("Dauer des 2. Stromflusses T_k2:"), &C::Tk2, time_mask, "s", has_second_flow},
    {awaited("Dauer des 3. Stromflusses T_k3:"), &C::Tk3, time_mask, "s", has_third_flow},
    {awaited("blanker Leiter / elektrisches Betriebsmittel:"), &C::Leiter_Bmittel, "", "", always,
     object_words},
    {awaited("Bemessungs-Kurzzeit T_kr:"), &C::Tkr, time_mask, "s"},
    {awaited("Bemessungs-Kurzzeitstrom I_thr:"), &C::Ithr, current_mask, "kA", is_equipment},
    {awaited("Temperatur bei Kurzschlußbeginn theta_b:"), &C::theta_b, "", "°C", is_conductor},
    {awaited("-bei Kurzschlußende theta_e:"), &C::theta_e, "", "°C", is_conductor},
};

constexpr std::string_view section_mask = "####0.0###";

constexpr PrintText conductor_head = {"Leiterdaten", "conductor data", "données du conducteur",
                                      "datos del conductor"};
constexpr DataRow conductor_rows[] = {
    {{"Werkstoff:", "material:", "matériau:", "material:"}, &C::werkstoff_ks, "", ""},
    {{"Norm:", "standards:", "normes:", "standard:"}, &C::Norm_ks, "", ""},
    {{"Nennquerschnitt:", "identification:", "identification:", "identificación:"},
     &C::Nennquerschnitt_ks,
     "",
     "qmm"},
    {{"gültig ab (Jahr):", "valid since (year):", "valide depuis (année):", "válido desde (año):"},
     &C::Normjahr_ks,
     "",
     ""},
    {{"Monat:", "month:", "mois:", "mes:"}, &C::Normmonat_ks, "", ""},
    {{"Querschnittsfläche:", "Total cross section area:", "section transversale du câble:",
      "sección transversal de cable:"},
     &C::Seilquerschnitt_ks,
     "",
     "qmm"},
    {{"Mantelquerschnitt:", "covering cross section:", "section de l'enveloppe transversale:",
      "sección transversal de camisa:"},
     &C::Mantelquerschnitt_ks,
     "",
     "qmm"},
    {{"Leitermaterialquerschnitt:", "conductor diameter:", "diamètre du conducteur:",
      "diámetro del conductor:"},
     &C::A_Leiter,
     section_mask,
     "qmm"},
    {{"Leitermaterial:", "xxx:"}, &C::Leitermaterial_ks, "", ""},
    {{"spez. Wärmekapazität:", "spec. capacity of heat:", "capacité de chaleur:",
      "esp. capacidad del calor:"},
     &C::waermekapaz,
     "####",
     "J/(kg*K)"},
    {{"spez. Leitfähigkeit (20°C):", "conductivity at 20°C:", "conductibilité à 20°C:",
      "conductividad con 20°C:"},
     &C::kappa20_ks,
     "#0.0#",
     "10^6/(Ohm*m)"},
    {{"Temperaturkoeffizient (Leiter):", "coefficient of temperature:",
      "coefficient du température:", "coeficiente de temperatura:"},
     &C::Tk20_ks,
     "0.0####",
     "1/K"},
    {{"Dichte:", "density:", "densité:", "densidad:"}, &C::Dichte_rho, "#####", "kg/m^3"},
};

constexpr PrintText verdict_head = {"Berechnungsergebnis", "calculation result"};

constexpr PrintText print_date_label = {
    "Druck-Datum:", "printout date:", "date du impression:", "fecha de imprenta:"};
constexpr PrintText operator_label = {"Bearbeiter(-in):", "operator:", "opérateur:", "operador:"};

// ---- the page

bool is_number(std::string_view value) {
    return value.find_first_of("0123456789") != std::string_view::npos;
}

/// What was typed, without the white space around it that a number may have.
std::string typed(const Entry& entry) {
    constexpr std::string_view white = " \t\n\v\f\r";
    const std::size_t first = entry.text.find_first_not_of(white);
    if (first == std::string::npos) return {};
    return entry.text.substr(first, entry.text.find_last_not_of(white) - first + 1);
}

class ShortCircuitPage {
public:
    ShortCircuitPage(const C& c, const ShortCircuitResult& result, const ReportPrint& print)
        : c_(c),
          page_(KS_Ergebnisanzeige(c, result, print.separator)),
          print_(print),
          say_(print.lang) {}

    template <class Guard>
    Report KS10_tab_print_Kurzschluss_1(const Guard& guard) {
        report_.title = say(title);
        report_.sheet_label = say(sheet_label);
        // In two languages the label of the sheet once more.
        const std::string head = fill(say(project_head), {"1", "1"});
        report_.band = project_band(
            say_, project_labels, {c_.Projekt_ks, c_.Datum_ks, c_.Bearbeiter_ks, c_.Abteilung_ks});
        report_.band->head = head;
        add_data(calculation_head, calculation_rows);
        guard([this] { KS10_tab_print_Kurzschluss_2(); });
        report_.print_date = {say(print_date_label), print_.print_date};
        report_.operator_name = {say(operator_label), c_.Bearbeiter_ks};
        report_.program = program_line(print_.lang, short_circuit_name);
        return std::move(report_);
    }

private:
    /// The second half: the conductor, the verdict and how it came about.
    void KS10_tab_print_Kurzschluss_2() {
        if (is_conductor(c_)) add_data(conductor_head, conductor_rows);
        const std::string head = say(verdict_head);
        report_.blocks.emplace_back(ReportParagraph{std::string(page_.verdict.de), true, head});
        for (const VerdictGroup& group : page_.groups) add_results(group);
    }

    std::string say(const PrintText& text) { return std::string(say_(text)); }

    void add_data(const PrintText& head, std::span<const DataRow> rows) {
        ReportSection section;
        section.head = say(head);
        for (const DataRow& row : rows)
            if (row.applies(c_)) section.rows.push_back(row_of(say(row.label), value_of(row), row));
        report_.blocks.emplace_back(std::move(section));
    }

    /// A value that is not there, or a dash for it, has no unit.
    static ReportRow row_of(std::string label, std::string value, const DataRow& row) {
        const bool is_text = std::holds_alternative<TextKey>(row.field) || !is_number(value);
        const bool has_unit = !value.empty() && value != "-";
        return {std::move(label), std::move(value), std::string(has_unit ? row.unit : ""), is_text};
    }

    [[nodiscard]] std::string value_of(const DataRow& row) const {
        if (row.field == ShortCircuitKey(&C::Leitermaterial_ks))
            return without_outer_blanks(material_of_record(c_.Leitermaterial_ks).de);
        if (field_of(row.field).of_record)
            return without_outer_blanks(label_text(c_, row.field, print_.separator));
        if (const auto* selection = std::get_if<ListKey>(&row.field)) {
            const std::int16_t index = c_.**selection;
            return row.words.empty() ? std::to_string(index)
                                     : std::string(row.words[static_cast<std::size_t>(index)]);
        }
        const Entry& entry = c_.*std::get<NumberKey>(row.field);
        return row.mask.empty() ? typed(entry)
                                : print_.number(decimal_of_single(entry.value), row.mask);
    }

    void add_results(const VerdictGroup& group) {
        ReportSection section;
        section.head = say({group.caption.de, "xxx", "xxx", "xxx"});
        for (const VerdictRow& row : group.rows)
            if (!row.value.empty())
                section.rows.push_back({say(awaited(row.printed_label)), row.value,
                                        std::string(row.unit_printed ? row.unit.de : ""),
                                        !is_number(row.value)});
        report_.blocks.emplace_back(std::move(section));
    }

    const C& c_;
    VerdictPage page_;
    const ReportPrint& print_;
    LabelWriter say_;
    Report report_;
};

}  // namespace

Report KS10_tab_print_Kurzschluss_1(
    const ShortCircuitCase& c, const ShortCircuitResult& result, const ReportPrint& print,
    const std::function<void(const std::function<void()>& work)>& guard) {
    return ShortCircuitPage(c, result, print).KS10_tab_print_Kurzschluss_1(guard);
}

}  // namespace zel
