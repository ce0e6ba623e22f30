#include "persistence/exchange_record.h"
#include "fuzz.h"
#include "persistence/record_file.h"
#include "platform/errors.h"

// A byte for the separator, and the bytes of a record.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    fuzz::Input input(data, size);
    const auto separator = input.flag() ? DecimalSeparator::Point : DecimalSeparator::Comma;
    ConductorData conductor;
    try {
        conductor = read_record(input.rest(), separator);
    } catch (const InputError&) {
        return 0;
    }
    // What was read can be written: nothing of it is beyond a record.
    const std::string record = written_record(conductor);
    fuzz::require(record.size() == record_size, "a record has its length");
    const ConductorData again = read_record(record, separator);
    fuzz::require(written_record(again) == record, "a record is written the same again");
    CalcCase before;
    CalcCase after;
    static_cast<ConductorData&>(before) = conductor;
    static_cast<ConductorData&>(after) = again;
    fuzz::require(values_of(before) == values_of(after), "a conductor comes back");
    return 0;
}
