#pragma once

#include "platform/text/number_text.h"
#include "steady/case/calc_case.h"

namespace zel {

inline Entry typed(double value) { return {plain_number(value, DecimalSeparator::Point), value}; }

/// A complete case for TB 207 whose current is sought: twin bundle of 264-AL1/34-ST1A (EN 50182)
/// at 80 °C, 35 °C ambient, 0.6 m/s across, 900 W/m².
inline CalcCase twin_264_34() {
    CalcCase c;
    c.rechnung_cigre207_merker_db = 1;
    c.Leitertemp_Merker_db = true;
    c.Leitertemp_db = typed(80);
    c.Hoehe_ueber_NN_db = typed(0);
    c.Winkel_S_S_db = typed(0);
    c.Windgeschwindigkeit_db = typed(0.6);
    c.Winkel_W_S_db = typed(90);
    c.Umgebungstemperatur_db = typed(35);
    c.Globalstrahlung_db = typed(900);
    c.Netzfrequenz_db = typed(50);
    c.Emissionsverhaeltnis_db = typed(0.6);
    c.Absorptionsverhaeltnis_db = typed(0.6);
    c.Anzahl_Teilleiter_db = 2;
    c.conductor_type_db = steel_cored_conductor;
    c.conductor_shape_db = 1;
    c.Seilquerschnitt_db = typed(297.7);
    c.Seildurchmesser_db = typed(22.4);
    c.DCR_20_db = typed(0.1095);
    c.DrahtzahlLeiter_db = 24;
    c.DrahtdurchmesserLeiter_db = typed(3.74);
    c.DrahtlagenzahlLeiter_db = 2;
    c.Mantelquerschnitt_db = typed(263.7);
    c.DC_Resist_Leiter_db = typed(28.264);
    c.T_Koeff_DC_Resist_Leiter_linear_db = typed(4.03);
    return c;
}

/// The same case with its sub-conductor current (A) given and the temperature sought.
inline CalcCase twin_264_34_at(double current) {
    CalcCase c = twin_264_34();
    c.Leitertemp_Merker_db = false;
    c.Leitertemp_db = {};
    c.Stromstaerke_Merker_db = true;
    c.Stromstaerke_db = typed(current);
    return c;
}

/// A tube of 120 mm with a wall of 8 mm at 80 °C, 35 °C ambient, 0.6 m/s across, 300 m, 900 W/m²,
/// by the busbar method.
inline CalcCase tube() {
    CalcCase c;
    c.rechnung_TBB_merker_db = 1;
    c.conductor_type_db = tubular_busbar;
    c.Leitertemp_Merker_db = true;
    c.Leitertemp_db = typed(80);
    c.Hoehe_ueber_NN_db = typed(300);
    c.Windgeschwindigkeit_db = typed(0.6);
    c.Umgebungstemperatur_db = typed(35);
    c.Globalstrahlung_db = typed(900);
    c.Netzfrequenz_db = typed(50);
    c.Emissionsverhaeltnis_db = typed(0.5);
    c.Absorptionsverhaeltnis_db = typed(0.6);
    c.Seildurchmesser_db = typed(120);
    c.DrahtdurchmesserLeiter_db = typed(8);
    c.DCR_20_db = typed(99);
    c.DC_Resist_Leiter_db = typed(29.5);
    c.T_Koeff_DC_Resist_Leiter_linear_db = typed(3.6);
    return c;
}

/// `twin_264_34` with what Webs and Kirn read beside: sun across the line at 48.1° north and 11.6°
/// east, on 21 June at 13 o'clock; dry ground of 35 °C, a rise of 10 m in 300 m.
inline CalcCase sunny_264_34() {
    CalcCase c = twin_264_34();
    c.Winkel_S_S_db = typed(90);
    c.geogr_Breite_db = typed(48.1);
    c.geo_laeng_db = typed(-11.6);
    c.geo_laeng_zeit_db = typed(-15);
    c.Tag_db = typed(21);
    c.Monat_db = typed(6);
    c.Stunden_db = typed(13);
    c.Minuten_db = typed(0);
    c.Bodentemp_db = typed(35);
    c.Bodenart_db = typed(0.2);
    c.Bewoelkungsgrad_db = typed(0.75);
    c.Hoehendifferenz_db = typed(10);
    c.Feldlaenge_db = typed(300);
    return c;
}

}  // namespace zel
