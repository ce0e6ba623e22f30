#include "workflow/run/tatl.h"

#include "workflow/rules/derived.h"

namespace zel {

TatlRating::TatlRating(CalcCase& c, double seconds, const Session& session)
    : c_(c),
      seconds_(static_cast<float>(seconds)),
      mass_(conductor_mass(c)),
      heat_option_(session.cigre_TKW_merker),
      angle_(S_Winkel_Wind_Leiter(c)),
      silent_(silent(session, &memory_)) {}

SteadyResult TatlRating::run_steady() {
    return find_method(Method::TB601)->run(c_, angle_, silent_);
}

SteadyResult TatlRating::permanent() {
    c_.Leitertemp_Merker_db = true;
    c_.Stromstaerke_Merker_db = false;
    return run_steady();
}

Tatl TatlRating::after(double preload, double permanent_current) {
    c_.Leitertemp_Merker_db = false;
    c_.Stromstaerke_Merker_db = true;
    c_.Stromstaerke_db.value = preload;
    Tatl found;
    found.steady = run_steady();
    if (!found.steady.sound()) {
        found.end = TatlEnd::SteadyFailed;
        return found;
    }
    TransientSlots slots{};
    const auto search = TS_S01_CigreTB601_temp_strom_transient_state_Excel(
        {seconds_, *found.steady.temperature_C, static_cast<float>(c_.Leitertemp_db.value),
         static_cast<float>(permanent_current), 0, mass_, heat_option_},
        memory_.tb601, slots);
    found.search = search.end;
    found.value = slots[0];
    if (!search.error_text.empty())
        found.end = TatlEnd::SearchFailed;
    else if (static_cast<double>(found.value * 1.005F) < preload)
        // A failure is told from a current by its size alone.
        found.end = TatlEnd::BelowPreload;
    return found;
}

}  // namespace zel
