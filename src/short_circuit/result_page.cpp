#include "short_circuit/result_page.h"

#include <array>
#include <cstddef>

#include "platform/text/listing.h"

namespace zel {
namespace {

constexpr Text flow_caption = {"Zwischenergebnisse nach EN 60865-1 ; Abschnitt 3.2.2",
                               "Intermediate results by EN 60865-1, section 3.2.2"};
constexpr Text equipment_caption = {"Zwischenergebnisse nach EN 60865-1 ; Abschnitt 3.2.4.1",
                                    "Intermediate results by EN 60865-1, section 3.2.4.1"};
constexpr Text conductor_caption = {"Zwischenergebnisse nach EN 60865-1 ; Abschnitt 3.2.4.2",
                                    "Intermediate results by EN 60865-1, section 3.2.4.2"};

constexpr Text kA = {"kA"};
constexpr std::string_view factor_mask = "####0.0##";
constexpr std::string_view density_mask = "###0.0#";
constexpr Text density_unit = {"A/qmm", "A/mm²"};

/// A row that is answered by yes or no.
VerdictRow answer(Text label, bool yes, std::string_view printed_label) {
    return {label, yes ? "ja" : "nein", yes ? Text{"", "(yes)"} : Text{"", "(no)"}, printed_label};
}

struct FlowRow {
    std::size_t flow;
    double CurrentFlow::*value;
    Text label;
    std::string_view printed_label;
    std::string_view mask;
    Text unit;
};

// The third current has one digit fewer than the others.
constexpr FlowRow flow_rows[] = {
    {0,
     &CurrentFlow::m,
     {"1. Stromfluss, Faktor m:", "1st flow, factor m:"},
     "1. Stromfluss, Faktor m:",
     factor_mask,
     {}},
    {0, &CurrentFlow::n, {"Faktor n :", "Factor n :"}, "Faktor n:", factor_mask, {}},
    {0, &CurrentFlow::I_th, {"I_th1 :"}, "I_th1:", "#####0.0#", kA},
    {1,
     &CurrentFlow::m,
     {"2. Stromfluss, Faktor m:", "2nd flow, factor m:"},
     "2. Stromfluss, Faktor m:",
     factor_mask,
     {}},
    {1, &CurrentFlow::n, {"Faktor n :", "Factor n :"}, "Faktor n:", factor_mask, {}},
    {1, &CurrentFlow::I_th, {"I_th2 :"}, "I_th2:", "#####0.0#", kA},
    {2,
     &CurrentFlow::m,
     {"3. Stromfluss, Faktor m:", "3rd flow, factor m:"},
     "3. Stromfluss, Faktor m:",
     factor_mask,
     {}},
    {2, &CurrentFlow::n, {"Faktor n :", "Factor n :"}, "Faktor n:", factor_mask, {}},
    {2, &CurrentFlow::I_th, {"I_th3 :"}, "I_th3:", "####0.0#", kA},
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
    group.rows.push_back({{"thermisch gleichwertiger Kurzzeitstrom I_th :",
                           "Thermal equivalent short-time current I_th :"},
                          masked(result.I_th, "####0.0#", separator),
                          kA,
                          "thermisch gleichwertiger Kurzzeitstrom I_th:"});
    group.rows.push_back(
        {{"Kurzschlußstromdauer T_k :", "Duration of the short-circuit current T_k :"},
         masked(result.T_k, "####0.0#", separator),
         {"s"},
         "Kurzschlußstromdauer T_k:"});
    return group;
}

VerdictGroup conductor_group(const ShortCircuitResult& result, DecimalSeparator separator) {
    const auto shown = [&](double value) { return masked(value, density_mask, separator); };
    return {conductor_caption,
            {{{"Faktor K zur Berechnung von S_thr :", "Factor K to find S_thr :"},
              shown(result.K),
              {"As^0.5/qmm", "As^0.5/mm²"},
              "Faktor k:",
              false},
             {{"Bemessungs-Kurzzeitstromdichte S_thr :",
               "Rated short-time withstand current density S_thr :"},
              shown(result.S_thr),
              density_unit,
              "S_thr:"},
             {{"thermisch gleichwertige Kurzzeitstromdichte S_th :",
               "Thermal equivalent short-time current density S_th :"},
              shown(result.S_th),
              density_unit,
              "S_th:"},
             {{"S_thr * SQR(T_kr / T_k)  :"},
              shown(result.S_zul),
              density_unit,
              "S_thr * SQR(T_kr/ T_k):"},
             answer({"S_th <= S_thr * SQR(T_kr / T_k) :"}, !(result.S_th > result.S_zul),
                    "S_th <= S_thr *SQR(T_kr/ T_k):")}};
}

VerdictGroup equipment_group(const ShortCircuitCase& c, const ShortCircuitResult& result,
                             DecimalSeparator separator) {
    if (result.T_k <= c.Tkr.value)
        return {equipment_caption,
                {answer({"T_k <= T_kr :"}, true, "T_k <= T_kr:"),
                 answer({"I_th <= Ithr :"}, !(result.I_th > c.Ithr.value), "I_th <= I_thr:")}};
    const double w = admissible_current(c, result.T_k);
    return {equipment_caption,
            {answer({"Tk <= Tkr :"}, false, "T_k <= T_kr:"),
             {{"I_thr * SQR(T_kr / T_k) :"},
              masked(w, "###0.0#", separator),
              kA,
              "I_thr * SQR(T_kr / T_k):"},
             answer({"I_th <= I_thr * SQR(T_kr / T_k) :"}, w >= result.I_th,
                    "I_th <= I_thr * SQR(T_kr / T_k):")}};
}

Text verdict_of(const ShortCircuitResult& result) {
    if (result.verdict_Leiter == withstands)
        return {"Der Leiter ist thermisch kurzschlußfest !",
                "The conductor withstands the short circuit thermally !"};
    if (result.verdict_Leiter == does_not_withstand)
        return {"Der Leiter ist thermisch nicht kurzschlußfest !",
                "The conductor does not withstand the short circuit thermally !"};
    if (result.verdict_Betriebsmittel == withstands)
        return {"Das Betriebsmittel ist thermisch kurzschlußfest !",
                "The equipment withstands the short circuit thermally !"};
    if (result.verdict_Betriebsmittel == does_not_withstand)
        return {"Das Betriebsmittel ist thermisch nicht kurzschlußfest !",
                "The equipment does not withstand the short circuit thermally !"};
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

std::string result_text(const VerdictPage& page, LangId lang) {
    Listing listing;
    for (const VerdictGroup& group : page.groups) {
        listing.add_caption(group.caption.in(lang));
        for (const VerdictRow& row : group.rows) {
            const std::string unit(row.unit.in(lang));
            if (!row.value.empty())
                listing.add(row.label.in(lang), unit.empty() ? row.value : row.value + " " + unit);
        }
    }
    return std::string(page.verdict.in(lang)) + "\n" + listing.text();
}

}  // namespace zel
