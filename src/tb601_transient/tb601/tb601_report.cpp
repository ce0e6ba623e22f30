#include "tb601_transient/tb601/tb601_report.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/errors.h"
#include "steady/steady_report.h"

namespace zel {
namespace {

using enum Tb601Cause;

constexpr Text convection_title = {"Funktion: ST_F03_CigreTB601_PC_steady"};

constexpr BoxText range_box = {
    Icon::Warning,
    convection_title,
    {"{0}\n"
     "Dieser Wert befindet sich außerhalb des in Cigre TB 601 definierten Bereiches.\n"
     "Bitte überprüfen Sie ihre Eingabedaten auf Realitätsnähe\n"
     "und starten die Berechnung mit korrigierten Werten neu !\n"
     " \n"
     "Wollen Sie das Programm abbrechen bzw. beenden? ",
     "{0}\n"
     "This value is beyond the defined range of Cigre TB 601.\n"
     "Please check your input data \n"
     "and start a new caculation with adjusted values !\n"
     "Do you want to close the application ?"},
    Buttons::YesNo,
    Answer::No};

constexpr Text above_200000 = {"Reynoldszahl ist größer als 200000.",
                               "Reynolds Number is bigger than 200000."};
constexpr Text above_50000 = {"Reynoldszahl ist größer als 50000.",
                              "Reynolds number is bigger than 50000 ."};
constexpr Text above_10_12 = {"Produkt aus Prandtl- u. Grashofzahl ist größer als 10^12 .",
                              "The product from Prandtl & Grashof numbers is bigger than 10^12 ."};

constexpr BoxText rough_reynolds_box = {
    Icon::Warning,
    convection_title,
    {"Reynoldszahl ist größer als 50000.\n"
     "Dieser Wert befindet sich außerhalb des in Cigre TB 601 definierten Bereiches für laminare "
     "Strömungen.\n"
     "Bitte verringern sie den  zugrundeliegende Wert der Windgeschwindigkeit.\n"
     "und starten die Berechnung mit korrigierten Werten neu !\n"
     "oder führen sie alternativ die Berechnung mit Webs oder Cigre TB 207 durch !\n"
     " \n"
     "Wollen Sie das Programm abbrechen bzw. beenden? ",
     "Reynolds number is bigger than 50000 .\n"
     "This value is beyond the defined range of Cigre TB 601.\n"
     "for perpenticular flow / high windspeeds.\n"
     "Please reduce windspeed in your input data \n"
     "and start a new caculation with adjusted values !\n"
     "or use Webs or Cigre TB 207 for this calcukation !\n"
     "Do you want to close the application ?"},
    Buttons::YesNo,
    Answer::No};

// The last two German sentences and the last two English ones stand in one line each.
constexpr BoxText single_layer_box = {
    Icon::Stop,
    {"Function ST_F01_CigreTB601_PJ_steady"},
    {"Die Berechnung nach Cigre TB 601 kann mit vorliegendem Programm nicht für hohe Stromstärke \n"
     "und Seilen mit Stahlkern und nur einer Lage Leiterdraht durchgeführt werden, \n"
     "die gemachten Vereinfachung gelten nicht für diese Seilkonfiguration"
     "Diese werden in der Praxis zudem nicht für hohe Ströme verwendet !+ Chr(10) + Chr(13)"
     "Die Berechnung wird an dieser Stelle abgebrochen !",
     "The calculation by Cigre TB601 cannot succeed within this application for high current "
     "densities\n"
     "and steel-reinforced conductors with only one conductor layer!\n"
     "These kind of conductors are not used in reality for overhead lines with high currents"
     "For this reason the calculation is interrupted !"}};

constexpr BoxText no_result_box = {Icon::Stop, {"{0}"}, no_result_lines};

struct FailureRow {
    Tb601Cause cause;
    const BoxText* box;
    Text place;                      // what fills the place in the box
    std::string_view status;         // in message mode 1
    std::string_view silent_status;  // in mode 2
};

constexpr std::string_view convection = "ST_F03_CigreTB601_PC_steady";
constexpr std::string_view convection_and_blank = "ST_F03_CigreTB601_PC_steady ";
constexpr std::string_view solver = "ST_00_CigreTB601_temp_strom_steady_state";
constexpr std::string_view undefined_mode = "ST_00_CigreTB601_temp_strom_steady_state: err01 ";
constexpr std::string_view too_hot = "ST_00_CigreTB601_temp_strom_steady_state: err02 ";
constexpr std::string_view single_layer =
    "ErrHandler_ST_F01_CigreTB601_PJ_steady  Error_conductor_type2_und_Anzahl_Alu_layer_1";

constexpr std::array failures = {
    FailureRow{SingleLayer, &single_layer_box, {}, single_layer, single_layer},
    FailureRow{SmoothReynolds, &range_box, above_200000, convection_and_blank, convection},
    FailureRow{StrandedReynolds, &range_box, above_50000, convection_and_blank, convection},
    FailureRow{RoughReynolds, &rough_reynolds_box, {}, convection_and_blank, convection},
    FailureRow{GrashofPrandtlTooLarge, &range_box, above_10_12, convection_and_blank, convection},
    FailureRow{ModeUndefined, &undefined_mode_box, {solver}, undefined_mode, undefined_mode},
    FailureRow{CurrentAllAbove,
               &no_result_box,
               {"ST_00_CigreTB601_temp_strom_steady_state - 001"},
               too_hot,
               too_hot},
    FailureRow{CurrentAllBelow,
               &no_result_box,
               {"ST_00_CigreTB601_temp_strom_steady_state - 002"},
               "ST_00_CigreTB601_temp_strom_steady_state: Iteration does not converge 01",
               "ST_00_CigreTB601_temp_strom_steady_state:: Iteration does not converge 01\""},
    FailureRow{CurrentNotReached,
               &no_result_box,
               {"ST_00_CigreTB601_temp_strom_steady_state - 003"},
               solver,
               "ST_00_CigreTB601_temp_strom_steady_state "},
    FailureRow{TemperatureAllAbove,
               &no_result_box,
               {"ST_00_CigreTB601_temp_strom_steady_state - 004"},
               solver,
               solver},
    FailureRow{TemperatureAllBelow,
               &no_result_box,
               {"ST_00_CigreTB601_temp_strom_steady_state - 005"},
               "ST_00_CigreTB601_temp_strom_steady_state: Iteration does not converge 02",
               solver},
    FailureRow{TemperatureNotReached,
               &no_result_box,
               {"ST_00_CigreTB601_temp_strom_steady_state - 006"},
               "ST_00_CigreTB601_temp_strom_steady_state: Iteration does not converge 03",
               solver},
};

std::string_view name_of(Tb601Procedure procedure) {
    switch (procedure) {
        case Tb601Procedure::SteadyState: return solver;
        case Tb601Procedure::JouleHeating: return "ST_F01_CigreTB601_PJ_steady";
        case Tb601Procedure::Resistance: return "ST_F01_CigreTB601_Resistance";
        case Tb601Procedure::SkinEffect: return "ST_F06_CigreTB601_skin_effect_factor_601";
        case Tb601Procedure::MagneticHeating:
            return "ST_F08_CigreTB601_magnetic_heating_factor_einfach";
        case Tb601Procedure::SolarHeating: return "ST_F02_CigreTB601_PS_steady";
        case Tb601Procedure::SurfaceTemperature:
            return "ST_S09_CigreTB601_Tsurface_conductor_temperature_distribution";
        case Tb601Procedure::Convection: return convection;
        case Tb601Procedure::Radiation: return "ST_F04_CigreTB601_PR_steady";
    }
    return solver;
}

FailureRow row_of(const Tb601Failure& failure) {
    if (failure.cause == Fault) {
        const std::string_view name = name_of(failure.procedure);
        return {Fault, &no_result_box, {name}, name, name};
    }
    return *std::find_if(failures.begin(), failures.end(),
                         [&](const FailureRow& row) { return row.cause == failure.cause; });
}

void show(const FailureRow& row, const Reporting& reporting) {
    const Box box = box_in(reporting.lang, *row.box, {row.place.in(reporting.lang), "TB601"});
    const Answer answer = reporting.dialogs.show(box);
    if (box.buttons == Buttons::YesNo && answer != Answer::No)
        throw ProgramEnd("ended by the answer to: " + box.lines.front());
}

}  // namespace

std::string_view tb601_abort_text(const Tb601Failure& failure, RunMode Meldung_merker) {
    if (!failure) return {};
    const FailureRow row = row_of(failure);
    return Meldung_merker == RunMode::Messages ? row.status : row.silent_status;
}

std::string_view report(const Tb601Failure& failure, const Reporting& reporting) {
    if (!failure) return {};
    const RunMode mode = reporting.Meldung_merker;
    const bool defined_mode = mode == RunMode::Messages || mode == RunMode::Silent;
    const std::string_view status = tb601_abort_text(failure, mode);
    if (mode == RunMode::Messages) show(row_of(failure), reporting);
    if (!defined_mode || failure.cause == ModeUndefined) {
        reporting.Excel_close();
        throw ProgramEnd(std::string(status));
    }
    return status;
}

}  // namespace zel
