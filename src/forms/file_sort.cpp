#include "forms/file_sort.h"

#include <algorithm>

#include "platform/errors.h"
#include "platform/text/text.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel::forms {
namespace {

constexpr struct {
    std::string_view ending;
    FileSort sort;
} endings[] = {{".xlsx", FileSort::Workbook},
               {".mdb", FileSort::Database},
               {".accdb", FileSort::Database},
               {".sqlite", FileSort::Database},
               {".db", FileSort::Database}};

}  // namespace

FileSort sort_of(const std::string& path, CaseStore& cases) {
    for (const auto& [ending, sort] : endings)
        if (has_ending(path, ending)) return sort;
    try {
        const FlatObject values = cases.load(path);
        const bool short_circuit =
            std::any_of(values.begin(), values.end(), [](const FlatMember& member) {
                return find_short_circuit_field(member.key) != nullptr;
            });
        return short_circuit ? FileSort::ShortCircuitCase : FileSort::LineCase;
    } catch (const InputError&) {
        return FileSort::UnreadableCase;
    }
}

}  // namespace zel::forms
