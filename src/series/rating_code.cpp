#include "series/rating_code.h"

#include <algorithm>

namespace zel {
namespace {

using enum RatingCode;

constexpr RatingCodeText codes[] = {
    {TooHot,
     "too_hot",
     {"die Zustandsänderung endet über 500 °C, wo die Daten keines Leiters gelten",
      "the change of state ends above 500 °C, where the data of no conductor hold"}},
    {WindFolded,
     "wind_folded",
     {"der Windwinkel ist durch Subtraktion gefaltet und nicht der spitze zwischen Wind und Leitung",
      "the wind angle is folded by subtraction and is not the acute one between wind and line"}},
    {TargetMissed,
     "target_missed",
     {"der gefundene Strom führt zu einer anderen als der gegebenen Temperatur",
      "the current found leads to another temperature than the given one"}},
    {TatlRises,
     "tatl_rises",
     {"die Belastbarkeit ist höher als die für eine kürzere Zeit",
      "the rating is above that for a shorter time"}},
    {TatlBelowPatl,
     "tatl_below_patl",
     {"die Belastbarkeit auf Zeit liegt unter der dauernden",
      "the temporary rating is below the permanent one"}},
    {CurrentNegative,
     "current_negative",
     {"ohne Strom heißer als die Grenztemperatur: der Betrag des negativen Stroms ist der, der die "
      "überschüssige Wärme erzeugte",
      "hotter than the limit without any current: the size of the negative current is that which "
      "would give the heat in excess"}},
    {Rated, "ok", {"berechnet", "rated"}},
    {MissingInput, "missing_input", {"eine Eingabe fehlt", "an input is missing"}},
    {OutsideLimits,
     "outside_limits",
     {"eine Eingabe liegt außerhalb ihrer Grenzen", "an input is outside its limits"}},
    {ConductorUnfit,
     "conductor_unfit",
     {"das Verfahren gilt nicht für diesen Leiter, oder Leiterdaten fehlen",
      "the method is not one for this conductor, or data of the conductor are missing"}},
    {ModeUndefined,
     "mode_undefined",
     {"Strom und Temperatur sind beide gegeben oder keines von beiden",
      "both or neither of current and temperature are given"}},
    {HotterWithoutCurrent,
     "hotter_without_current",
     {"der Leiter ist ohne Strom heißer als die Grenztemperatur",
      "the conductor is hotter than the limit without any current"}},
    {CurrentTooLarge,
     "current_too_large",
     {"der gesuchte Strom liegt über 99999 A", "the current sought is above 99999 A"}},
    {TemperatureTooHigh,
     "temperature_too_high",
     {"die gesuchte Temperatur liegt über 500 °C", "the temperature sought is above 500 °C"}},
    {TemperatureTooLow,
     "temperature_too_low",
     {"die gesuchte Temperatur liegt unter dem Suchbereich",
      "the temperature sought is below the range of the search"}},
    {NotConverged,
     "not_converged",
     {"die Berechnung fand kein genaues Ergebnis", "the calculation found no exact result"}},
    {OutsideCorrelation,
     "outside_correlation",
     {"Wind oder Auftrieb liegen außerhalb des Bereichs des Verfahrens",
      "wind or buoyancy are beyond the range of the method"}},
    {FrequencyImpossible,
     "frequency_impossible",
     {"das Verfahren gilt nicht für diese Frequenz", "the method is not one for this frequency"}},
    {Fault,
     "arithmetic_fault",
     {"Überlauf, Division durch 0 oder ein ungültiges Argument",
      "overflow, division by zero or an invalid argument"}},
    {TooManySteps,
     "too_many_steps",
     {"die Zeit ist für die Berechnung zu lang", "the time is too long for the calculation"}},
    {TargetOutOfReach,
     "target_out_of_reach",
     {"die Grenztemperatur liegt außerhalb dessen, was die Startströme erreichen",
      "the limit temperature is beyond what the start currents reach"}},
    {PreloadTooHigh,
     "preload_too_high",
     {"das Ergebnis liegt unter der Vorlast", "the result is below the preload"}},
    {TransientFailed,
     "transient_failed",
     {"die Zustandsänderung ergab kein Ergebnis, oder eine vor ihr keines",
      "the change of state, or one before it, gave no result"}},
    {Ended,
     "ended",
     {"das Verfahren bricht bei diesen Eingaben ab", "the method breaks off at these inputs"}},
};

}  // namespace

std::span<const RatingCodeText> rating_codes() { return codes; }

const RatingCodeText* find_code(std::int32_t code) {
    const auto* const row =
        std::find_if(std::begin(codes), std::end(codes), [code](const RatingCodeText& each) {
            return static_cast<std::int32_t>(each.code) == code;
        });
    return row == std::end(codes) ? nullptr : row;
}

std::string_view name_of(RatingCode code) {
    return find_code(static_cast<std::int32_t>(code))->name;
}

RatingCode code_of(const SteadyFailure& failure) {
    switch (failure.cause) {
        case SteadyCause::None: return Rated;
        case SteadyCause::JouleBracketing:
        case SteadyCause::CurrentNotReached:
        case SteadyCause::TemperatureNotReached: return NotConverged;
        case SteadyCause::ReynoldsTooLarge:
        case SteadyCause::GrashofPrandtlTooLarge: return OutsideCorrelation;
        case SteadyCause::JouleFault:
        case SteadyCause::SolarFault:
        case SteadyCause::ConvectionFault:
        case SteadyCause::RadiationFault:
        case SteadyCause::BusbarJouleFault:
        case SteadyCause::BusbarSolarFault:
        case SteadyCause::BusbarConvectionFault:
        case SteadyCause::BusbarRadiationFault: return RatingCode::Fault;
        case SteadyCause::BusbarFrequency: return FrequencyImpossible;
        case SteadyCause::ModeUndefined: return RatingCode::ModeUndefined;
        case SteadyCause::CurrentAllAbove: return HotterWithoutCurrent;
        case SteadyCause::CurrentAllBelow: return CurrentTooLarge;
        case SteadyCause::TemperatureAllAbove: return TemperatureTooHigh;
        case SteadyCause::TemperatureAllBelow: return TemperatureTooLow;
    }
    return Ended;
}

RatingCode code_of(const Tb601Failure& failure) {
    switch (failure.cause) {
        case Tb601Cause::None: return Rated;
        case Tb601Cause::Fault: return RatingCode::Fault;
        case Tb601Cause::SingleLayer: return ConductorUnfit;
        case Tb601Cause::SmoothReynolds:
        case Tb601Cause::StrandedReynolds:
        case Tb601Cause::RoughReynolds:
        case Tb601Cause::GrashofPrandtlTooLarge: return OutsideCorrelation;
        case Tb601Cause::ModeUndefined: return RatingCode::ModeUndefined;
        case Tb601Cause::CurrentAllAbove: return HotterWithoutCurrent;
        case Tb601Cause::CurrentAllBelow: return CurrentTooLarge;
        case Tb601Cause::CurrentNotReached:
        case Tb601Cause::TemperatureNotReached: return NotConverged;
        case Tb601Cause::TemperatureAllAbove: return TemperatureTooHigh;
        case Tb601Cause::TemperatureAllBelow: return TemperatureTooLow;
    }
    return Ended;
}

RatingCode code_of(TransientExcelEnd end) {
    switch (end) {
        case TransientExcelEnd::Found: return Rated;
        case TransientExcelEnd::TooManySteps: return TooManySteps;
        case TransientExcelEnd::OutOfBracket: return TargetOutOfReach;
        case TransientExcelEnd::TooManyRounds: return NotConverged;
        case TransientExcelEnd::Fault: return RatingCode::Fault;
    }
    return Ended;
}

}  // namespace zel
