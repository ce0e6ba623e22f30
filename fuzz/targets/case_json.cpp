#include "adapters/json/flat_json.h"
#include "fuzz.h"
#include "persistence/case_file.h"
#include "platform/errors.h"
#include "short_circuit/short_circuit_file.h"

// A byte for the separator and the kind of case, and the text of a case file.

namespace zel::fuzz {
namespace {

FlatObject printed_and_read(const FlatObject& values) {
    return parse_flat_json(print_flat_json(values));
}

/// What a case says goes through a file and back, whatever the separator.
template <class Read, class ValuesOf>
void through_file(const FlatObject& values, const Locale& locale, const Read& read,
                  const ValuesOf& values_in) {
    const auto file = read(values, locale);
    const FlatObject saved = values_in(file);
    require(printed_and_read(saved) == saved, "a saved case is read:", print_flat_json(saved));
    for (const auto separator : {DecimalSeparator::Comma, DecimalSeparator::Point}) {
        const auto again = read(saved, {locale.lang, separator});
        require(again.refused.empty(), "a saved case is not refused:", print_flat_json(saved));
        require(values_in(again) == saved, "a saved case is the same:", print_flat_json(saved));
    }
}

}  // namespace
}  // namespace zel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    fuzz::Input input(data, size);
    const std::uint8_t kind = input.byte();
    const Locale locale = {LangId::English,
                           (kind & 1U) != 0 ? DecimalSeparator::Point : DecimalSeparator::Comma};
    try {
        const FlatObject values = parse_flat_json(input.rest());
        fuzz::require(fuzz::printed_and_read(values) == values,
                      "values come back:", print_flat_json(values));
        if ((kind & 2U) == 0)
            fuzz::through_file(values, locale, read_case,
                               [](const CaseFile& file) { return values_of(file.c); });
        else
            fuzz::through_file(
                values, locale, read_short_circuit_case,
                [](const ShortCircuitFile& file) { return values_of(file.form.content()); });
    } catch (const InputError&) {
    }
    return 0;
}
