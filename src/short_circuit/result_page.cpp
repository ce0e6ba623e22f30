#include "short_circuit/result_page.h"

#include <array>
#include <cstddef>

#include "platform/text/listing.h"

namespace zel {
namespace {

constexpr std::string_view flow_caption = "Zwischenergebnisse nach EN 60865-1 ; Abschnitt 3.2.2";
constexpr std::string_view equipment_caption =
    "Zwischenergebnisse nach EN 60865-1 ; Abschnitt 3.2.4.1";
constexpr std::string_view conductor_caption =
    "Zwischenergebnisse nach EN 60865-1 ; Abschnitt 3.2.4.2";

constexpr std::string_view kA = "kA";
constexpr std::string_view factor_mask = "####0.0##";
constexpr std::string_view density_mask = "###0.0#";
constexpr std::string_view density_unit = "A/qmm";

std::string_view yes_no(bool yes) { return yes ? "ja" : "nein"; }

struct FlowRow {
    std::size_t flow;
    double CurrentFlow::*value;
    std::string_view label;
    std::string_view printed_label;
    std::string_view mask;
    std::string_view unit;
};

// The third current has one digit fewer than the others.
constexpr FlowRow flow_rows[] = {
    {0, &CurrentFlow::m, "1. Stromfluss, Faktor m:", "1. Stromfluss, Faktor m:", factor_mask, ""},
    {0, &CurrentFlow::n, "Faktor n :", "Faktor n:", factor_mask, ""},
    {0, &CurrentFlow::I_th, "I_th1 :", "I_th1:", "#####0.0#", kA},
    {1, &CurrentFlow::m, "2. Stromfluss, Faktor m:", "2. Stromfluss, Faktor m:", factor_mask, ""},
    {1, &CurrentFlow::n, "Faktor n :", "Faktor n:", factor_mask, ""},
    {1, &CurrentFlow::I_th, "I_th2 :", "I_th2:", "#####0.0#", kA},
    {2, &CurrentFlow::m, "3. Stromfluss, Faktor m:", "3. Stromfluss, Faktor m:", factor_mask, ""},
    {2, &CurrentFlow::n, "Faktor n :", "Faktor n:", factor_mask, ""},
    {2, &CurrentFlow::I_th, "I_th3 :", "I_th3:", "####0.0#", kA},
};

VerdictGroup flow_group(const ShortCircuitCase& c, const ShortCircuitResult& result,
                        DecimalSeparator separator) {
    VerdictGroup group{flow_caption, {}, std::size(flow_rows)};
    for (const auto& [flow, value, label, printed_label, mask, unit] : flow_rows) {
        const bool there = static_cast<std::int16_t>(flow) < c.Anzahl_KS_fluesse;
        group.rows.push_back(
            {label, there ? masked(result.flows[flow].*value, mask, separator) : std::string(),
             unit, printed_label});
    }
    group.rows.push_back({"thermisch gleichwertiger Kurzzeitstrom I_th :",
                          masked(result.I_th, "####0.0#", separator), kA,
                          "thermisch gleichwertiger Kurzzeitstrom I_th:"});
    group.rows.push_back({"Kurzschlußstromdauer T_k :", masked(result.T_k, "####0.0#", separator),
                          "s", "Kurzschlußstromdauer T_k:"});
    return group;
}

VerdictGroup conductor_group(const ShortCircuitResult& result, DecimalSeparator separator) {
    const auto shown = [&](double value) { return masked(value, density_mask, separator); };
    return {
        conductor_caption,
        {{"Faktor K zur Berechnung von S_thr :", shown(result.K), "As^0.5/qmm", "Faktor k:", false},
         {"Bemessungs-Kurzzeitstromdichte S_thr :", shown(result.S_thr), density_unit, "S_thr:"},
         {"thermisch gleichwertige Kurzzeitstromdichte S_th :", shown(result.S_th), density_unit,
          "S_th:"},
         {"S_thr * SQR(T_kr / T_k)  :", shown(result.S_zul), density_unit,
          "S_thr * SQR(T_kr/ T_k):"},
         {"S_th <= S_thr * SQR(T_kr / T_k) :", std::string(yes_no(!(result.S_th > result.S_zul))),
          "", "S_th <= S_thr *SQR(T_kr/ T_k):"}}};
}

VerdictGroup equipment_group(const ShortCircuitCase& c, const ShortCircuitResult& result,
                             DecimalSeparator separator) {
    if (result.T_k <= c.Tkr.value)
        return {equipment_caption,
                {{"T_k <= T_kr :", "ja", "", "T_k <= T_kr:"},
                 {"I_th <= Ithr :", std::string(yes_no(!(result.I_th > c.Ithr.value))), "",
                  "I_th <= I_thr:"}}};
    const double w = admissible_current(c, result.T_k);
    return {equipment_caption,
            {{"Tk <= Tkr :", "nein", "", "T_k <= T_kr:"},
             {"I_thr * SQR(T_kr / T_k) :", masked(w, "###0.0#", separator), kA,
              "I_thr * SQR(T_kr / T_k):"},
             {"I_th <= I_thr * SQR(T_kr / T_k) :", std::string(yes_no(w >= result.I_th)), "",
              "I_th <= I_thr * SQR(T_kr / T_k):"}}};
}

std::string_view verdict_of(const ShortCircuitResult& result) {
    if (result.verdict_Leiter == withstands) return "Der Leiter ist thermisch kurzschlußfest !";
    if (result.verdict_Leiter == does_not_withstand)
        return "Der Leiter ist thermisch nicht kurzschlußfest !";
    if (result.verdict_Betriebsmittel == withstands)
        return "Das Betriebsmittel ist thermisch kurzschlußfest !";
    if (result.verdict_Betriebsmittel == does_not_withstand)
        return "Das Betriebsmittel ist thermisch nicht kurzschlußfest !";
    return {};
}

}  // namespace

VerdictPage KS_Ergebnisanzeige(const ShortCircuitCase& c, const ShortCircuitResult& result,
                               DecimalSeparator separator) {
    VerdictPage page;
    page.verdict = verdict_of(result);
    page.withstands =
        result.verdict_Leiter == withstands || result.verdict_Betriebsmittel == withstands;
    if (c.Strombegrenzschalter_ks == without_limiter)
        page.groups.push_back(flow_group(c, result, separator));
    if (result.verdict_Leiter != 0) page.groups.push_back(conductor_group(result, separator));
    if (result.verdict_Betriebsmittel != 0)
        page.groups.push_back(equipment_group(c, result, separator));
    return page;
}

std::string result_text(const VerdictPage& page) {
    Listing listing;
    for (const VerdictGroup& group : page.groups) {
        listing.add_caption(group.caption);
        for (const VerdictRow& row : group.rows)
            if (!row.value.empty())
                listing.add(row.label,
                            row.unit.empty() ? row.value : row.value + " " + std::string(row.unit));
    }
    return std::string(page.verdict) + "\n" + listing.text();
}

}  // namespace zel
