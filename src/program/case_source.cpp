#include "program/case_source.h"

#include "persistence/case_file.h"
#include "platform/errors.h"
#include "program/conductor_source.h"
#include "program/stores.h"
#include "workflow/rules/entry_rules.h"
#include "workflow/rules/transient_cells.h"

namespace zel {
namespace {

LoadedCase case_in(const std::string& path, const CommonOptions& options, Console& console) {
    const FlatObject values = JsonCaseStore().load(path);
    const EntryRule rule = [&](Entry& field, Entry CalcCase::*key, std::string_view typed) {
        return enter(field, key, typed, options);
    };
    const CellRule cell_rule = [&](CalcCase& c, StateCellPlace place, std::string_view typed) {
        return read_cell(c, place, typed, options);
    };
    try {
        CaseFile file = read_case(values, options.separator, rule, cell_rule);
        for (const RefusedText& refused : file.refused) {
            if (options.silent)
                Console::tell_reason(path + ": " + refused.field + ": " +
                                     refused.box.lines.front());
            else
                console.show(refused.box, refused.field);
        }
        return {std::move(file.c), !file.refused.empty()};
    } catch (const InputError& error) {
        throw InputError(path + ": " + error.what());
    }
}

}  // namespace

LoadedCase load_case(const std::string& path, const CommonOptions& options, Console& console) {
    LoadedCase loaded = case_in(path, options, console);
    if (!options.conductor.empty()) take_conductor(loaded.c, options.conductor, options, console);
    return loaded;
}

}  // namespace zel
