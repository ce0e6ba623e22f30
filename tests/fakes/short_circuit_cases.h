#pragma once

#include <string>

#include "short_circuit/short_circuit_form.h"

// Cases of the short-circuit area, filled in as a user does.

namespace zel {

/// Fills a form with typed texts; a refused one ends up empty.
class ShortCircuitTyping {
public:
    ShortCircuitTyping& type(NumberKey box, const std::string& text) {
        form.change(box, text, {LangId::English, DecimalSeparator::Point});
        return *this;
    }
    ShortCircuitTyping& choose(ListKey list, std::int16_t index) {
        form.choose(list, index);
        return *this;
    }
    ShortCircuitForm form;
};

/// A copper conductor far from the generator: one flow of a second.
inline ShortCircuitForm copper_far() {
    using C = ShortCircuitCase;
    return ShortCircuitTyping()
        .choose(&C::Strombegrenzschalter_ks, without_limiter)
        .choose(&C::generatornah, generator_far)
        .choose(&C::Anzahl_KS_fluesse, 1)
        .choose(&C::Leiter_Bmittel, bare_conductor)
        .choose(&C::Leitermaterial_ks, 1)
        .type(&C::Frequenz_ks, "50")
        .type(&C::IK2, "20")
        .type(&C::Kappa, "1.8")
        .type(&C::Tk1, "1")
        .type(&C::Tkr, "1")
        .type(&C::theta_b, "80")
        .type(&C::theta_e, "200")
        .type(&C::A_Leiter, "185")
        .form;
}

/// An aluminium conductor near the generator: three flows.
inline ShortCircuitForm aluminium_near() {
    using C = ShortCircuitCase;
    return ShortCircuitTyping()
        .choose(&C::Strombegrenzschalter_ks, without_limiter)
        .choose(&C::generatornah, generator_near)
        .choose(&C::Anzahl_KS_fluesse, 3)
        .choose(&C::Leiter_Bmittel, bare_conductor)
        .choose(&C::Leitermaterial_ks, 2)
        .type(&C::Frequenz_ks, "50")
        .type(&C::IK2, "30")
        .type(&C::IK, "12")
        .type(&C::Kappa, "1.6")
        .type(&C::Tk1, "0.1")
        .type(&C::Tk2, "0.3")
        .type(&C::Tk3, "0.6")
        .type(&C::Tkr, "1")
        .type(&C::theta_b, "80")
        .type(&C::theta_e, "200")
        .type(&C::A_Leiter, "240")
        .form;
}

/// Equipment behind current-limiting switchgear.
inline ShortCircuitForm limited_equipment() {
    using C = ShortCircuitCase;
    return ShortCircuitTyping()
        .choose(&C::Strombegrenzschalter_ks, with_limiter)
        .choose(&C::Leiter_Bmittel, equipment)
        .type(&C::Frequenz_ks, "50")
        .type(&C::Ith, "16")
        .type(&C::T_k, "3")
        .type(&C::Tkr, "1")
        .type(&C::Ithr, "25")
        .form;
}

/// A steel-cored conductor, as the record of one is read.
inline ConductorData record_264_34() {
    ConductorData record;
    record.Bezeichnung1_db = "Al/St  ";
    record.Bezeichnung2_db = "264-AL1/34-ST1A ";
    record.Norm_db = " EN 50182";
    record.Normjahr_db = 2001;
    record.Normmonat_db = 5;
    record.Seilquerschnitt_db = {"297.7", 297.7};
    record.Mantelquerschnitt_db = {"263.7", 263.7};
    record.c_leiter20_db = {"897.6", 897.6};
    record.DC_Resist_Leiter_db = {"28.264", 28.264};
    record.T_Koeff_DC_Resist_Leiter_linear_db = {"4.03", 4.03};
    record.Dichte_Leiterwerkstoff1_db = {"2703", 2703};
    record.c_traeger20_db = {"480", 480};
    return record;
}

}  // namespace zel
