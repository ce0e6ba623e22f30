#include "tb601_transient/transient/transient_excel.h"

#include "platform/errors.h"
#include "tb601_transient/transient/start_table.h"
#include "tb601_transient/transient/transient_models.h"
#include "tb601_transient/transient/transient_report.h"
#include "tb601_transient/transient/transient_stepping.h"

namespace zel {
namespace {

constexpr SearchRule excel_rule = {{0.01, 0.1, 400000}, static_cast<double>(0.2F), true};

TransientExcelEnd end_of(SearchEnd end) {
    switch (end) {
        case SearchEnd::Found: return TransientExcelEnd::Found;
        case SearchEnd::TooManySteps: return TransientExcelEnd::TooManySteps;
        case SearchEnd::OutOfBracket: return TransientExcelEnd::OutOfBracket;
        case SearchEnd::TooManyRounds: return TransientExcelEnd::TooManyRounds;
        case SearchEnd::Fault: break;
    }
    return TransientExcelEnd::Fault;
}

}  // namespace

TransientExcelResult TS_S01_CigreTB601_temp_strom_transient_state_Excel(
    const TransientExcelInput& input, TB601Records& records, TransientSlots& slots) {
    float& slot = slots.at(static_cast<std::size_t>(input.slot));
    const ArithmeticScope arithmetic;
    Tb601Model model(records, input.mass, input.cigre_TKW_merker, nullptr);
    const double duration = static_cast<double>(input.duration);
    const double I1 = static_cast<double>(input.I1);
    const StartCurrents factors = excel_start_factors(records.params.AreaOuter, duration);
    Bracket<Tb601Model> bracket(I1, factors.middle * I1, factors.high * I1);
    int rounds = 0;
    SearchEnd end = SearchEnd::Found;
    try {
        end = search_current(
            model, bracket, rounds, input.start_temperature, duration, excel_rule, arithmetic,
            [&](Bracket<Tb601Model>& b, double former) {
                return narrow_tb601(b, input.target, 0.2F, former);
            },
            [](double, double, double) {});
    } catch (const UnknownConductorType&) {
        throw ProgramEnd(std::string(unknown_type_status));
    }
    if (end == SearchEnd::Fault) return {TransientExcelEnd::Fault, arithmetic.fault(), "Error"};
    const TransientExcelEnd result = end_of(end);
    slot = end == SearchEnd::Found ? static_cast<float>(bracket.it[1].I)
                                   : static_cast<float>(static_cast<int>(result));
    if (arithmetic.fault() != ArithmeticFault::None)
        return {TransientExcelEnd::Fault, arithmetic.fault(), "Error"};
    return {result, ArithmeticFault::None, {}};
}

}  // namespace zel
