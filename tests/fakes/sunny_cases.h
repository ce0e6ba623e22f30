#pragma once

#include "fakes/steady_cases.h"

namespace zel {

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
