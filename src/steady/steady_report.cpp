#include "steady/steady_report.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/errors.h"

namespace zel {
namespace {

using enum SteadyCause;

struct FailureRow {
    SteadyCause cause;
    std::string_view procedure;
    std::string_view status;         // in message mode 1
    std::string_view silent_status;  // in mode 2
    const BoxText* box = nullptr;    // shown before the message of the failed iteration
    bool of_evaluation = false;
};

constexpr std::string_view solver = "ST_00_CigreTB207_temp_strom_steady_state";
constexpr std::string_view joule = "ST_F01_CigreTB207_PJ_steady";
constexpr std::string_view solar = "ST_F02_CigreTB207_PS_steady";
constexpr std::string_view convection = "ST_F03_CigreTB207_PC_steady";
constexpr std::string_view convection_and_blank = "ST_F03_CigreTB207_PC_steady ";
constexpr std::string_view radiation = "ST_F04_CigreTB207_PR_steady";
constexpr std::string_view busbar_joule = "ST_F01_TBB_PJ_steady";
constexpr std::string_view busbar_solar = "ST_F02_CigreTBB_PS_steady";
constexpr std::string_view busbar_convection = "ST_F03_TBB_PC_steady";
constexpr std::string_view busbar_radiation = "ST_F04_TBB_PR_steady";
constexpr std::string_view undefined_mode = "ST_00_CigreTB207_temp_strom_steady_state: err01 ";
constexpr std::string_view too_hot = "ST_00_CigreTB207_temp_strom_steady_state: err02 ";
constexpr std::string_view solver_and_blank = "ST_00_CigreTB207_temp_strom_steady_state ";

constexpr Text convection_title = {"Funktion: ST_F03_CigreTB207_PC_steady",
                                   " ST_F03_CigreTB207_PC_steady"};

// The text says 50000, the limit is 90 000. Both stand.
constexpr BoxText reynolds_box = {
    Icon::Question,
    convection_title,
    {"Reynoldszahl ist größer als 50000.\n"
     "Dieser Wert befindet sich außerhalb des in Cigre TB 207 definierten Bereiches für laminare "
     "Strömungen.\n"
     "Bitte verringern sie den  zugrundeliegende Wert der Windgeschwindigkeit.\n"
     "und starten die Berechnung mit korrigierten Werten neu !\n"
     "oder führen sie alternativ die Berechnung mit Webs oder Cigre TB 601 durch !\n"
     "Wollen Sie das Programm abbrechen bzw. beenden? ",
     "Reynolds number is bigger than 50000 .\n"
     "This value is beyond the defined range of Cigre TB 207.\n"
     "for perpenticular flow / high windspeeds.\n"
     "Please reduce windspeed in your input data \n"
     "and start a new caculation with adjusted values !\n"
     "or use Webs or Cigre TB 601 for this calculation !\n"
     "Do you want to close the application ?"},
    Buttons::YesNo,
    Answer::No};

constexpr BoxText grashof_prandtl_box = {
    Icon::Warning,
    convection_title,
    {"Produkt aus Prandtl- u. Grashofzahl ist größer als 10^6 .\n"
     "Dieser Wert befindet sich außerhalb des in Cigre TB 207 definierten Bereiches.\n"
     "Bitte überprüfen Sie ihre Eingabedaten auf Realitätsnähe\n"
     "und starten die Berechnung mit korrigierten Werten neu !",
     "The product from Prandtl & Grashof numbers is bigger than 10^6 .\n"
     "This value is beyond the defined range of Cigre TB 207.\n"
     "Please check your input data "}};

constexpr BoxText busbar_frequency_box = {
    Icon::Stop,
    {"Falsche Eingabe", "Input incorrecht !"},
    {"Berechnungen für Kreisringstromschienen können nur für Netzfrequenzen \n"
     "von 50 Hz bis 60 Hz oder Gleichstrom 0 Hz durchgeführt werden.\n"
     "Bitte koorigieren sie die Eingabe der Netzfrquenz.",
     "Calculations for tubular busbars can only be carried out\n"
     "for frequencies from 50Hz - 60 Hz and 0 Hz (DC): \n"
     "Please correcht your input for frequency "}};

constexpr BoxText iteration_box = {Icon::Warning, {"{0}"}, no_result_lines};

// No numbered statements are kept: the row in the text is 0.
constexpr BoxText fault_box = {
    Icon::Stop, {"Funktion: {0}", " {0}"}, {"Error {1} in row 0 occured."}};

constexpr BoxText busbar_fault_box = {Icon::Stop, {" {0}"}, fault_box.lines};

constexpr std::array failures = {
    FailureRow{JouleBracketing, joule, joule, joule, nullptr, true},
    FailureRow{ReynoldsTooLarge, convection, convection_and_blank, convection, &reynolds_box, true},
    FailureRow{GrashofPrandtlTooLarge, convection, convection_and_blank, convection,
               &grashof_prandtl_box, true},
    FailureRow{JouleFault, joule, joule, joule, &fault_box, true},
    FailureRow{SolarFault, solar, solar, solar, &fault_box, true},
    FailureRow{ConvectionFault, convection, convection, convection, &fault_box, true},
    FailureRow{RadiationFault, radiation, radiation, radiation, &fault_box, true},
    FailureRow{BusbarFrequency, busbar_joule, busbar_joule, busbar_joule, &busbar_frequency_box,
               true},
    FailureRow{BusbarJouleFault, busbar_joule, busbar_joule, busbar_joule, &busbar_fault_box, true},
    FailureRow{BusbarSolarFault, busbar_solar, busbar_solar, busbar_solar, &busbar_fault_box, true},
    FailureRow{BusbarConvectionFault, busbar_convection, busbar_convection, busbar_convection,
               &busbar_fault_box, true},
    FailureRow{BusbarRadiationFault, busbar_radiation, busbar_radiation, busbar_radiation,
               &busbar_fault_box, true},
    FailureRow{ModeUndefined, solver, undefined_mode, undefined_mode, &undefined_mode_box},
    FailureRow{CurrentAllAbove, solver, too_hot, too_hot},
    FailureRow{CurrentAllBelow, solver, solver, solver},
    FailureRow{CurrentNotReached, solver, solver, solver_and_blank},
    FailureRow{TemperatureAllAbove, solver, solver, solver},
    FailureRow{TemperatureAllBelow, solver, solver, solver},
    FailureRow{TemperatureNotReached, solver, solver, solver},
};

const FailureRow& row_of(SteadyCause cause) {
    return *std::find_if(failures.begin(), failures.end(),
                         [cause](const FailureRow& row) { return row.cause == cause; });
}

void show(const FailureRow& row, ArithmeticFault fault, const Reporting& reporting) {
    if (row.box != nullptr) {
        const Box box = box_in(reporting.lang, *row.box,
                               {row.procedure, std::to_string(static_cast<int>(fault))});
        if (reporting.dialogs.show(box) == Answer::Yes)
            throw ProgramEnd("ended by the answer to: " + box.lines.front());
    }
    if (fault == ArithmeticFault::None && row.cause != ModeUndefined)
        ST_MSG_iteration_failed(row.procedure, reporting);
}

}  // namespace

std::string_view Rechenfehler_Text(SteadyCause cause, RunMode Meldung_merker) {
    if (cause == None) return {};
    const FailureRow& row = row_of(cause);
    return Meldung_merker == RunMode::Silent ? row.silent_status : row.status;
}

std::string_view report(const SteadyFailure& failure, const Reporting& reporting) {
    if (!failure) return {};
    const FailureRow& row = row_of(failure.cause);
    const RunMode mode = reporting.Meldung_merker;
    const bool defined_mode = mode == RunMode::Messages || mode == RunMode::Silent;
    const std::string_view status = Rechenfehler_Text(failure.cause, mode);
    if (mode == RunMode::Messages) show(row, failure.fault, reporting);
    if (!defined_mode || failure.cause == ModeUndefined) reporting.Excel_close();
    if (failure.cause == ModeUndefined || (!defined_mode && !row.of_evaluation))
        throw ProgramEnd(std::string(status));
    return status;
}

void ST_MSG_iteration_failed(std::string_view title, const Reporting& reporting) {
    reporting.dialogs.show(box_in(reporting.lang, iteration_box, {title, "TB207"}));
}

}  // namespace zel
