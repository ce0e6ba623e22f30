#include "workflow/rules/derived.h"

#include <array>
#include <cmath>

#include "steady/constants.h"

namespace zel {
namespace {

constexpr std::array bundle_names = {
    Text{"Einzel-Leiter", "single conductor"}, Text{"Doppel-Leiter", "2-conductor-bundle"},
    Text{"3er-Leiter", "3-conductor-bundle"},  Text{"4er-Leiter", "4-conductor-bundle"},
    Text{"5er-Leiter", "5-conductor-bundle"},  Text{"6er-Leiter", "6-conductor-bundle"},
    Text{"7er-Leiter", "7-conductor-bundle"},  Text{"8er-Leiter", "8-conductor-bundle"},
};

}  // namespace

Text bundle_name(int n) {
    if (n < 1 || n > static_cast<int>(bundle_names.size())) return {};
    return bundle_names[static_cast<std::size_t>(n - 1)];
}

void S_Stromstaerke_buendel(CalcCase& c, DecimalSeparator separator) {
    const int n = c.Anzahl_Teilleiter_db;
    if (c.Stromstaerke_Merker_db && !c.Stromstaerkebuendel_Merker_db) {
        const double current = c.Stromstaerke_db.value * n;
        c.Stromstaerke_Buendel = {plain_number(current, separator), current};
    }
    if (const auto current = share_of_bundle(c)) {
        const char* mask = *current >= 100 ? "####0.00" : "##0.00";
        c.Stromstaerke_db = {masked(*current, mask, separator), *current};
    }
}

std::optional<double> share_of_bundle(const CalcCase& c) {
    const int n = c.Anzahl_Teilleiter_db;
    if (!c.Stromstaerkebuendel_Merker_db || n < 1 || n > 19) return std::nullopt;
    return c.Stromstaerke_Buendel.value / n;
}

CalcCase without_derived_current(CalcCase c) {
    if (c.Stromstaerkebuendel_Merker_db)
        c.Stromstaerke_db = {};
    else if (c.Stromstaerke_Merker_db)
        c.Stromstaerke_Buendel = {};
    return c;
}

double fold_angle(double Winkel_W_S, double Winkel_S_S) {
    const double delta = std::abs(Winkel_W_S - Winkel_S_S);
    if (delta <= 90) return delta;
    if (delta <= 180) return delta - 90;
    if (delta <= 270) return delta - 180;
    if (delta <= 360) return delta - 270;
    return delta;
}

double S_Winkel_Wind_Leiter(const CalcCase& c) {
    return fold_angle(c.Winkel_W_S_db.value, c.Winkel_S_S_db.value);
}

std::optional<double> emissivity_from_age(double age) {
    if (!(age >= 0)) return std::nullopt;
    return 0.3 + (0.6 * age) / (1 + age);
}

}  // namespace zel
