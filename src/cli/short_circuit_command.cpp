#include "cli/case_output.h"
#include "cli/short_circuit_calculation.h"

namespace zel {
namespace {

constexpr const char* short_circuit_notes =
    "\n"
    "Judges by IEC 865-1 / EN 60865-1 whether a bare conductor or a piece of electrical\n"
    "equipment withstands a short circuit. The currents are given (with current-limiting\n"
    "switchgear: Strombegrenzschalter_ks 2, with Ith and T_k) or computed (1, with IK2,\n"
    "Kappa, Anzahl_KS_fluesse, Tk1 to Tk3, and IK near the generator).\n"
    "\n"
    "A case file is one JSON object, such as\n"
    "  {\"Frequenz_ks\": 50, \"Strombegrenzschalter_ks\": 1, \"IK2\": \"12.5\", ...}\n"
    "Numbers and texts go through the limits of their boxes; a Leitermaterial_ks of 1 to 7\n"
    "fills the values of the material that are not given. See examples/ for whole cases and\n"
    "docs/short-circuit.md for every field and formula.\n"
    "\n"
    "With --json standard output is one JSON document with full precision and with all\n"
    "messages; without it, messages go to standard error. The texts of the checks are German\n"
    "in both languages, and so are \"ja\" and \"nein\" among the results and all of the document.\n";

class ShortCircuitCommand : public ShortCircuitCalculation {
public:
    using ShortCircuitCalculation::ShortCircuitCalculation;

private:
    [[nodiscard]] std::string document(std::string_view /*program_end*/) const override {
        return short_circuit_document(result(), messages());
    }
    [[nodiscard]] std::string page() const override {
        return short_circuit_page(form(), result(), words());
    }
};

}  // namespace

void add_short_circuit(CommandLine& line) {
    const auto [command, words] = line.add<CaseWords>(
        "short-circuit", "Judge a case: thermal short-circuit strength",
        [](const CaseWords& given) { return ShortCircuitCommand(given).run(); });
    add_case_word(command, words);
    add_case_options(command, words, short_circuit_notes);
}

}  // namespace zel
