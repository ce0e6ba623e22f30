#include <CLI/CLI.hpp>
#include <array>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

#include "cli/batch_command.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "platform/errors.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr const char* about =
    "Thermal rating of bare overhead-line conductors and tubular busbars:\n"
    "the current that a conductor may carry at a given temperature, or the\n"
    "temperature that it takes at a given current. And whether a bare conductor or a\n"
    "piece of equipment withstands a short circuit thermally.\n";

constexpr const char* exit_statuses =
    "Exit status: 0 done; 1 a selected method or a change of state failed, or a typed\n"
    "text was refused and counts as no input; 2 the input was refused, nothing was\n"
    "calculated; 3 the calculation had to end the program.";

constexpr const char* steady_notes =
    "\n"
    "The case says which of the two is given: the conductor temperature\n"
    "(Leitertemp_Merker_db -1, with Leitertemp_db), and the current is sought; or the\n"
    "current (Stromstaerke_Merker_db -1, with Stromstaerke_db; for a whole bundle also\n"
    "Stromstaerkebuendel_Merker_db -1, with Stromstaerke_Buendel), and the temperature\n"
    "is sought. Each selected method gives one result line.\n"
    "\n"
    "A case file is one JSON object of the fields of a case, such as\n"
    "  {\"Windgeschwindigkeit_db\": 0.6, \"Seildurchmesser_db\": \"22.4\", ...}\n"
    "A number is taken as it stands, a text is read as typed, with the separator of\n"
    "--decimal. See examples/ for whole cases and docs/case-files.md for every field.\n"
    "\n"
    "With --json standard output is one JSON document with full precision and with all\n"
    "messages; without it, messages go to standard error.\n";

constexpr const char* transient_notes =
    "\n"
    "The case is rated as by \"zel steady\"; from that steady state its changes of state\n"
    "are followed, one after the other: Z1_merker_db to Z6_merker_db say what is sought\n"
    "in each (1 the current, 2 the temperature, 3 the time), Zn_Strom_db (A, of one\n"
    "sub-conductor), Zn_TEMP_db (°C), Zn_min_db and Zn_sec_db give the other two. By\n"
    "Cigre TB 207 or the busbar method where one of them is selected, else by TB 601.\n"
    "\n"
    "See examples/transient-twin-264-34.json. Output and messages are as of \"zel steady\".\n";

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
    "messages; without it, messages go to standard error. The texts of the checks and the\n"
    "result are German in both languages.\n";

void add_language(CLI::App& command, CommonOptions& options) {
    const std::map<std::string, LangId> languages = {{"de", LangId::German},
                                                     {"en", LangId::English}};
    const std::map<std::string, DecimalSeparator> separators = {{"point", DecimalSeparator::Point},
                                                                {"comma", DecimalSeparator::Comma}};
    command
        .add_option_function<std::string>(
            "--lang",
            [=, &options](const std::string& name) {
                options.lang = languages.at(name);
                options.lang_given = true;
            },
            "Language of texts and messages (default: en)")
        ->check(CLI::IsMember({"de", "en"}))
        ->option_text("de|en");
    command
        .add_option_function<std::string>(
            "--decimal",
            [=, &options](const std::string& name) {
                options.separator = separators.at(name);
                options.separator_given = true;
            },
            "Decimal separator of typed and shown numbers (default: point)")
        ->check(CLI::IsMember({"point", "comma"}))
        ->option_text("point|comma");
}

void add_output(CLI::App& command, CommonOptions& options) {
    command.add_flag("--json", options.json, "Write one JSON document to standard output");
    command.add_flag("--silent", options.silent, "No messages; failures are in the status texts");
}

void add_conductor_option(CLI::App& command, CommonOptions& options) {
    command
        .add_option("--conductor", options.conductor,
                    "Take the conductor from an exchange record or from the library")
        ->option_text("RECORD|NAME");
}

/// The command that the words of the user choose, ready to be carried out.
using Command = std::function<int()>;

constexpr const char* batch_notes =
    "\n"
    "Calculates each active row of an xlsx workbook and writes the results beside it, in place.\n"
    "Cell B2 of its sheet fixed_input says what it is; \"zel template\" makes an empty one, and\n"
    "docs/workbooks.md tells what each cell holds. A workbook that is refused, and one whose run\n"
    "breaks off, is left as it was. It must not be open in a spreadsheet program meanwhile.\n"
    "\n"
    "Exit status: 0 done; 1 a result could not be calculated, or not all rows were; 2 the workbook\n"
    "was refused and is as it was; 3 a calculation had to end the program.";

constexpr const char* template_notes =
    "\n"
    "KIND is steady-fix (all rows have the conductor of the sheet fixed_input), steady-var (each\n"
    "row has its own conductor; run it with --conductor-columns on) or transient (PATL and TATL).\n"
    "The workbook is labelled in the language of --lang. A file of that name is replaced.";

/// `chosen` becomes the command of the workbooks that the command line has.
void add_workbooks(CLI::App& app, CommonOptions& options, Command& chosen) {
    CLI::App* batch = app.add_subcommand("batch", "Calculate the rows of a workbook in place");
    const auto job = std::make_shared<BatchOptions>();
    batch->add_option("WORKBOOK", job->workbook, "Workbook (xlsx)")->required();
    batch
        ->add_option_function<std::string>(
            "--conductor-columns",
            [job](const std::string& choice) { job->conductor_columns = choice == "on"; },
            "Whether each row of a steady workbook has its own conductor (default: the setting)")
        ->check(CLI::IsMember({"on", "off"}))
        ->option_text("on|off");
    batch
        ->add_option_function<std::string>(
            "--write", [job](const std::string& choice) { job->write_by_cell = choice == "cell"; },
            "Whether a wrong row of a transient workbook keeps the results of the rows before it "
            "(cell) or none (array) (default: the setting)")
        ->check(CLI::IsMember({"cell", "array"}))
        ->option_text("cell|array");
    batch->footer(batch_notes);
    add_output(*batch, options);
    add_language(*batch, options);
    add_conductor_option(*batch, options);
    batch->callback([&, job] { chosen = [&, job] { return batch_command(*job, options); }; });

    CLI::App* empty = app.add_subcommand("template", "Write an empty workbook to fill in");
    const auto wanted = std::make_shared<TemplateOptions>();
    empty->add_option("KIND", wanted->kind, "What it is for")
        ->required()
        ->check(CLI::IsMember({"steady-fix", "steady-var", "transient"}))
        ->option_text("steady-fix|steady-var|transient REQUIRED");
    empty->add_option("-o", wanted->path, "File to be written")
        ->required()
        ->option_text("FILE.xlsx REQUIRED");
    empty->footer(template_notes);
    add_language(*empty, options);
    add_conductor_option(*empty, options);
    empty->callback(
        [&, wanted] { chosen = [&, wanted] { return template_command(*wanted, options); }; });
}

constexpr const char* settings_notes =
    "\n"
    "The settings are shared with the conductor database in the file flb_8261.ini; the languages\n"
    "belong to the user alone. \"list\" shows both files, all keys, values and meanings. A key may be\n"
    "written in capital or small letters. A value takes effect at the next start of the windows.\n";

/// "settings list", "settings get KEY" and "settings set KEY VALUE"; `chosen` becomes the one that
/// the command line has.
void add_settings(CLI::App& app, CommonOptions& options, Command& chosen) {
    CLI::App* settings = app.add_subcommand("settings", "Read and write the persisted settings");
    settings->require_subcommand(1);
    settings->footer(settings_notes);
    const auto add = [&](const char* name, const char* description) {
        CLI::App* command = settings->add_subcommand(name, description);
        command->add_flag("--json", options.json, "Write one JSON document to standard output");
        return command;
    };
    const auto words = std::make_shared<std::array<std::string, 2>>();
    auto& [key, value] = *words;
    CLI::App* list = add("list", "All settings with their values and meanings");
    add_language(*list, options);
    list->callback([&] { chosen = [&] { return settings_list_command(options); }; });
    CLI::App* get = add("get", "The value of one setting");
    get->add_option("KEY", key, "Name of the setting")->required();
    get->callback(
        [&, words] { chosen = [&, words] { return settings_get_command((*words)[0], options); }; });
    CLI::App* set = add("set", "Change one setting");
    set->add_option("KEY", key, "Name of the setting")->required();
    set->add_option("VALUE", value, "New value")->required();
    set->callback([&, words] {
        chosen = [&, words] { return settings_set_command((*words)[0], (*words)[1], options); };
    });
}

constexpr const char* conductor_notes =
    "\n"
    "A NAME is a designation such as 264-AL1/34-ST1A or 265/35, or both of them. An exchange\n"
    "RECORD has 714 bytes; docs/conductors.md tells its layout. Own conductors stand in\n"
    "conductors.csv in the data folder, in the form of the shipped library.\n";

/// "conductor list", "pick", "show" and "write"; `chosen` becomes the one that the command line
/// has.
void add_conductor(CLI::App& app, CommonOptions& options, Command& chosen) {
    CLI::App* conductor = app.add_subcommand("conductor", "The library of conductors, and records");
    conductor->require_subcommand(1);
    conductor->footer(conductor_notes);
    const auto add = [&](const char* name, const char* description) {
        CLI::App* command = conductor->add_subcommand(name, description);
        command->footer(conductor_notes);
        add_output(*command, options);
        add_language(*command, options);
        return command;
    };
    const auto wanted = std::make_shared<ConductorListing>();
    CLI::App* list = add("list", "The conductors of the library");
    list->add_option("--find", wanted->find, "Only those with these words in their designation")
        ->option_text("WORDS");
    list->add_option("--sort", wanted->sort, "Order by this column")
        ->check(CLI::IsMember(conductor_sort_keys()))
        ->option_text("COLUMN");
    list->callback(
        [&, wanted] { chosen = [&, wanted] { return conductor_list_command(*wanted, options); }; });

    const auto words = std::make_shared<std::array<std::string, 2>>();
    auto& [what, record] = *words;
    const auto choose = [&](CLI::App* command, auto carry_out) {
        command->callback([&, words, carry_out] {
            chosen = [&, words, carry_out] { return carry_out((*words)[0], (*words)[1]); };
        });
    };
    CLI::App* pick = add("pick", "Write a conductor of the library as a record");
    pick->add_option("NAME", what, "Designation of the conductor")->required();
    pick->add_option("-o", record, "The record; without it the exchange file of the settings")
        ->option_text("RECORD");
    choose(pick, [&](const std::string& name, const std::string& path) {
        return conductor_pick_command(name, path, options);
    });
    CLI::App* show = add("show", "The conductor of a record, with --json as part of a case file");
    show->add_option("RECORD", what, "The record, or the name of a conductor")->required();
    choose(show, [&](const std::string& name, const std::string& /*path*/) {
        return conductor_show_command(name, options);
    });
    CLI::App* write = add("write", "Write the conductor of a case file as a record");
    write->add_option("FRAGMENT", what, "Case file (JSON) or a part of one, or -")->required();
    write->add_option("-o", record, "The record")->required()->option_text("RECORD");
    choose(write, [&](const std::string& fragment, const std::string& path) {
        return conductor_write_command(fragment, path, options);
    });
}

/// Reads the words of the user. Gives what is done instead of a command where they are wrong or
/// want help.
std::optional<Command> parse(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        std::ostringstream help;
        std::ostringstream refusal;
        const bool wanted = app.exit(error, help, refusal) == 0;
        if (!wanted) Console::tell_reason(refusal.str());
        if (wanted && !print(help.str())) return [] { return exit_failed; };
        return [wanted] { return wanted ? exit_done : exit_refused; };
    }
    if (app.get_subcommands().empty())
        return [help = app.help()] {
            Console::tell_reason("a command is needed\n\n" + help);
            return exit_refused;
        };
    return std::nullopt;
}

/// Reads the command line. A wrong one is told on standard error, help is printed; both give the
/// exit status through `command`.
Command read_command_line(int& argc, char** argv, CommonOptions& options) {
    CLI::App app(std::string(short_name.en) + " - " + std::string(long_title.en) + "\n\n" + about,
                 "zel");
    app.set_version_flag("--version", std::string(short_name.en));
    app.footer(std::string("\n\"zel COMMAND --help\" tells the options of a command.\n\n") +
               exit_statuses);
    app.require_subcommand(0, 1);

    std::string case_path;
    CLI::App* steady = app.add_subcommand("steady", "Rate a case: steady current or temperature");
    steady->add_option("CASE", case_path, "Case file (JSON), or - for standard input")->required();
    steady->footer(steady_notes + std::string("\n") + exit_statuses);
    add_output(*steady, options);
    add_language(*steady, options);
    add_conductor_option(*steady, options);

    bool series = false;
    CLI::App* transient =
        app.add_subcommand("transient", "Follow a case through its changes of state");
    transient->add_option("CASE", case_path, "Case file (JSON), or - for standard input")
        ->required();
    transient->add_flag("--series", series, "Tell the temperature over time too");
    transient->footer(transient_notes + std::string("\n") + exit_statuses);
    add_output(*transient, options);
    add_language(*transient, options);
    add_conductor_option(*transient, options);

    CLI::App* short_circuit =
        app.add_subcommand("short-circuit", "Judge a case: thermal short-circuit strength");
    short_circuit->add_option("CASE", case_path, "Case file (JSON), or - for standard input")
        ->required();
    short_circuit->footer(short_circuit_notes + std::string("\n") + exit_statuses);
    add_output(*short_circuit, options);
    add_language(*short_circuit, options);

    CLI::App* desktop = app.add_subcommand("desktop", "Open the windows");
    desktop->add_option("CASE", case_path, "Case file (JSON) to start with");
    add_language(*desktop, options);
    desktop->footer(
        "\nEnds with 0 when the windows are closed, with 1 without a display, with 2 where the case\n"
        "is refused, and with 3 where a calculation had to end the program.");

    Command chosen;
    add_workbooks(app, options, chosen);
    add_settings(app, options, chosen);
    add_conductor(app, options, chosen);

    if (auto instead = parse(app, argc, argv)) return *instead;
    if (chosen) return chosen;
    if (steady->parsed()) return [=, &options] { return steady_command(case_path, options); };
    if (transient->parsed())
        return [=, &options] { return transient_command(case_path, series, options); };
    if (short_circuit->parsed())
        return [=, &options] { return short_circuit_command(case_path, options); };
    return [=, &argc, &options] { return desktop_command(argc, argv, case_path, options); };
}

}  // namespace
}  // namespace zel

int main(int argc, char** argv) {
    zel::CommonOptions options;
    try {
        return zel::read_command_line(argc, argv, options)();
    } catch (const zel::InputError& error) {
        zel::Console::tell_reason(error.what());
        return zel::exit_refused;
    } catch (const zel::OutputError& error) {
        zel::Console::tell_reason(error.what());
        return zel::exit_refused;
    } catch (const std::exception& error) {
        zel::Console::tell_reason(std::string("unexpected failure: ") + error.what());
        return zel::exit_failed;
    }
}
