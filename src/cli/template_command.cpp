#include "cli/commands.h"
#include "excel_batch/template_design.h"
#include "platform/errors.h"
#include "program/conductor_source.h"
#include "program/console.h"
#include "program/stores.h"

namespace zel {
namespace {

using excel_batch::WorkbookKind;

constexpr const char* template_notes =
    "\n"
    "KIND is steady-fix (all rows have the conductor of the sheet fixed_input), steady-var (each\n"
    "row has its own conductor; run it with --conductor-columns on) or transient (PATL and TATL).\n"
    "The workbook is labelled in the language of --lang. A file of that name is replaced.";

struct TemplateWords : CommonOptions {
    WorkbookKind kind{};
    std::string path{};
};

int write_template(const TemplateWords& words) {
    std::optional<CalcCase> conductor;
    if (!words.conductor.empty()) {
        Console console(words);
        take_conductor(conductor.emplace(), words.conductor, words, console);
        // A cell cannot say that its number is assumed: the knee point stays to be filled in.
        if (conductor->KniepunktTemperatur_db.assumed) conductor->KniepunktTemperatur_db = {};
    }
    XlsxStore().create(words.path, excel_batch::template_design(words.kind, words.lang, conductor),
                       excel_batch::template_title(words.kind, words.lang));
    return exit_done;
}

}  // namespace

void add_template(CommandLine& line) {
    const auto [command, words] =
        line.add<TemplateWords>("template", "Write an empty workbook to fill in", write_template);
    add_choice<WorkbookKind>(command, "KIND", words.kind,
                             {{"steady-fix", WorkbookKind::SteadyFix},
                              {"steady-var", WorkbookKind::SteadyVar},
                              {"transient", WorkbookKind::Transient}},
                             "What it is for")
        ->required()
        ->option_text("steady-fix|steady-var|transient REQUIRED");
    command.add_option("-o", words.path, "File to be written")
        ->required()
        ->option_text("FILE.xlsx REQUIRED");
    command.footer(template_notes);
    add_language(command, words.lang, words.separator);
    add_conductor_option(command, words);
}

}  // namespace zel
