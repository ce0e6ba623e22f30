#include <algorithm>
#include <array>

#include "adapters/posix/text_file.h"
#include "adapters/xlsx/new_xlsx.h"
#include "cli/batch_command.h"
#include "cli/conductor_source.h"
#include "cli/console.h"
#include "excel_batch/template_design.h"
#include "platform/errors.h"

namespace zel {
namespace {

using excel_batch::WorkbookKind;

struct KindName {
    std::string_view name;
    WorkbookKind kind;
};

constexpr std::array kind_names = {KindName{"steady-fix", WorkbookKind::SteadyFix},
                                   KindName{"steady-var", WorkbookKind::SteadyVar},
                                   KindName{"transient", WorkbookKind::Transient}};

}  // namespace

int template_command(const TemplateOptions& wanted, const CommonOptions& options) {
    const auto* const row = std::find_if(kind_names.begin(), kind_names.end(),
                                         [&](const KindName& k) { return k.name == wanted.kind; });
    const WorkbookKind kind = row->kind;
    std::optional<CalcCase> conductor;
    if (!options.conductor.empty()) {
        Console console(options);
        take_conductor(conductor.emplace(), options.conductor, options, console);
    }
    try {
        write_text_file(wanted.path,
                        new_xlsx(excel_batch::template_design(kind, options.lang, conductor),
                                 excel_batch::template_title(kind, options.lang)));
    } catch (const OutputError& error) {
        Console::tell_reason(error.what());
        return exit_refused;
    }
    return exit_done;
}

}  // namespace zel
