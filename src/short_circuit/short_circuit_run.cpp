#include "short_circuit/short_circuit_run.h"

namespace zel {

ShortCircuitRun RunShortCircuit(const ShortCircuitCase& c, DecimalSeparator separator) {
    ShortCircuitRun run;
    run.refusal = first_refusal(c);
    if (!run.refusal) run.refusal = arithmetic_refusal(c);
    if (run.refusal) return run;
    run.result = KS_Auswertung(c);
    run.page = KS_Ergebnisanzeige(c, run.result, separator);
    return run;
}

}  // namespace zel
