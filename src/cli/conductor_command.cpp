#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "adapters/json/flat_json.h"
#include "cli/case_listing.h"
#include "cli/commands.h"
#include "forms/line_form.h"
#include "persistence/case_file.h"
#include "persistence/exchange_record.h"
#include "platform/errors.h"
#include "program/conductor_source.h"
#include "program/stores.h"
#include "workflow/rules/steady_check.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr const char* conductor_notes =
    "\n"
    "A NAME is a designation such as 264-AL1/34-ST1A or 265/35, or both of them. An exchange\n"
    "RECORD has 714 bytes; docs/conductors.md tells its layout. Own conductors stand in\n"
    "conductors.csv in the data folder, in the form of the shipped library.\n";

constexpr Text no_exchange_file = {
    "keine Austauschdatei ist eingestellt (Einseil1_dat); nennen Sie eine mit -o RECORD",
    "no exchange file is set (Einseil1_dat); name one with -o RECORD"};
constexpr Text not_in_record = {"weggelassen, weil ein Satz es nicht enthält: {0}",
                                "left out, a record does not hold it: {0}"};

struct ListWords : CommonOptions {
    std::string find{};  // words of the designation; empty for all
    std::string sort{};  // key of a column; empty for the order of the library
};

struct ConductorWords : CommonOptions {
    std::string what{};  // a name, a record or a case file
    std::string path{};  // the record that is written
};

CalcCase case_with(const ConductorData& conductor) {
    CalcCase c;
    static_cast<ConductorData&>(c) = conductor;
    return c;
}

std::string fragment_text(const CalcCase& c) { return print_flat_json(values_of(c)); }

// ---- conductor list

struct ListColumn {
    std::string_view key;  // of --sort
    Text head;
    std::string (*text)(const LibraryConductor&);
    bool number;
};

template <auto field>
std::string text_of_field(const LibraryConductor& conductor) {
    return (conductor.c.*field).text;
}

constexpr ListColumn list_columns[] = {
    {"name",
     {"Bezeichnung 1", "Designation 1"},
     [](const LibraryConductor& l) { return l.c.Bezeichnung1_db; },
     false},
    {"second-name",
     {"Bezeichnung 2", "Designation 2"},
     [](const LibraryConductor& l) { return l.c.Bezeichnung2_db; },
     false},
    {"type",
     {"Art", "Type"},
     [](const LibraryConductor& l) { return std::to_string(l.c.conductor_type_db); },
     true},
    {"area", {"Querschnitt mm²", "Area mm²"}, text_of_field<&CalcCase::Seilquerschnitt_db>, true},
    {"diameter",
     {"Durchmesser mm", "Diameter mm"},
     text_of_field<&CalcCase::Seildurchmesser_db>,
     true},
    {"resistance", {"R20 Ω/km", "R20 Ω/km"}, text_of_field<&CalcCase::DCR_20_db>, true},
    {"current",
     {"Dauerstrom A", "Rated A"},
     text_of_field<&CalcCase::Dauerstrombelastbarkeit_db>,
     true},
    {"origin",
     {"Herkunft", "Origin"},
     [](const LibraryConductor& l) { return l.own ? std::string("[own]") : l.source; },
     false},
};

double number_in(const ListColumn& column, const LibraryConductor& conductor,
                 DecimalSeparator separator) {
    return parse_number(column.text(conductor), separator).value_or(-1);
}

void sort_by(std::vector<const LibraryConductor*>& list, const std::string& key,
             DecimalSeparator separator) {
    const auto* const column =
        std::find_if(std::begin(list_columns), std::end(list_columns),
                     [&](const ListColumn& candidate) { return candidate.key == key; });
    std::stable_sort(list.begin(), list.end(), [&](const auto* a, const auto* b) {
        return column->number
                   ? number_in(*column, *a, separator) < number_in(*column, *b, separator)
                   : text_before(column->text(*a), column->text(*b));
    });
}

std::string list_text(const std::vector<const LibraryConductor*>& list, LangId lang) {
    std::vector<std::array<std::string, std::size(list_columns)>> rows(list.size() + 1);
    std::array<std::size_t, std::size(list_columns)> widths{};
    for (std::size_t column = 0; column < std::size(list_columns); ++column) {
        rows[0][column] = list_columns[column].head.in(lang);
        for (std::size_t i = 0; i < list.size(); ++i)
            rows[i + 1][column] = printable(list_columns[column].text(*list[i]));
        for (const auto& row : rows)
            widths[column] = std::max(widths[column], width_of(row[column]));
    }
    std::string text;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::string gap(widths[column] - width_of(row[column]), ' ');
            line += list_columns[column].number ? gap + row[column] : row[column] + gap;
            line += "  ";
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

ordered_json json_of(const LibraryConductor& conductor, LangId lang) {
    ordered_json entry = {{"name", conductor.c.Bezeichnung1_db},
                          {"second_name", conductor.c.Bezeichnung2_db},
                          {"own", conductor.own}};
    entry.update(ordered_json::parse(fragment_text(conductor.c)));
    if (conductor.mass.given()) entry["mass_kg_per_km"] = conductor.mass.value;
    if (conductor.strength.given()) entry["rated_strength_kN"] = conductor.strength.value;
    entry["source"] = conductor.source;
    ordered_json missing = ordered_json::object();
    for (const Method method : all_methods) {
        const auto items = missing_for(conductor.c, method, lang);
        if (!items.empty()) missing[std::string(key_of(method))] = items;
    }
    entry["cannot_run"] = std::move(missing);
    return entry;
}

// ---- conductor show, pick, write

/// A figure of a record that means something only where another one is there, and may be 0 then.
struct Companion {
    Entry CalcCase::*field;
    Entry CalcCase::*other;
};
constexpr Companion companions[] = {
    {&CalcCase::TACR1_db, &CalcCase::ACR1_db},
    {&CalcCase::TACR2_db, &CalcCase::ACR2_db},
    {&CalcCase::TACR3_db, &CalcCase::ACR3_db},
    {&CalcCase::TACR4_db, &CalcCase::ACR4_db},
    {&CalcCase::TACR5_db, &CalcCase::ACR5_db},
    {&CalcCase::TACR6_db, &CalcCase::ACR6_db},
    {&CalcCase::beta_leiter20_db, &CalcCase::c_leiter20_db},
    {&CalcCase::beta_traeger20_db, &CalcCase::c_traeger20_db},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, &CalcCase::DC_Resist_Leiter_db},
    {&CalcCase::T_Koeff_DC_Resist_traeger_quadrat_db, &CalcCase::DC_Resist_traeger_db},
};

bool is_known(const CalcCase& c, Entry CalcCase::*field, const LibraryConductor* known) {
    if (known != nullptr) return (known->c.*field).given();
    const auto* const companion =
        std::find_if(std::begin(companions), std::end(companions),
                     [&](const Companion& row) { return row.field == field; });
    return (c.*field).value != 0 ||
           (companion != std::end(companions) && (c.*companion->other).value != 0);
}

/// `c`, the conductor of a record, with the figures that its 32-bit numbers stand for; those that
/// nobody knows, 0 in a record, are without input.
CalcCase figures_known(const CalcCase& c, const LibraryConductor* known,
                       DecimalSeparator separator) {
    CalcCase shown = c;
    for (const RecordField& row : record_fields()) {
        const auto* const field = std::get_if<Entry CalcCase::*>(&row.field);
        if (field == nullptr) continue;
        Entry& entry = shown.**field;
        if (!is_known(c, *field, known))
            entry = {};
        else if (row.type == RecordType::Single)
            entry.text =
                masked(decimal_of_single(entry.value), field_of(row.field).mask, separator);
    }
    return shown;
}

std::string show_text(const CalcCase& c, const LibraryConductor* known, LangId lang) {
    constexpr Text origin = {"Quelle: {0}\n", "Source: {0}\n"};
    constexpr Text cannot_run = {"{0} kann nicht rechnen: {1}\n", "{0} cannot run: {1}\n"};
    std::string text = case_listing(c, forms::conductor_sections(), lang, "-");
    if (known != nullptr && !known->source.empty())
        text += "\n" + fill(origin.in(lang), {printable(known->source)});
    text += "\n";
    for (const Method method : all_methods) {
        if (!is_for_kind(c, method)) continue;
        const auto items = missing_for(c, method, lang);
        if (!items.empty())
            text += fill(cannot_run.in(lang), {name_of(method), joined(items, "; ")});
    }
    return text;
}

int write_and_tell(const ConductorData& conductor, const std::string& path,
                   const CommonOptions& options) {
    const std::string record = written_record(conductor);
    PosixFiles().write(path, record);
    if (options.json)
        return print_or_fail(fragment_text(case_with(read_record(record, options.separator))));
    return print_or_fail(printable(conductor.Bezeichnung1_db) + " -> " + printable(path) + "\n");
}

/// A fragment may be a whole case: what has no place in a record is left out, and told.
ConductorData conductor_of_fragment(const std::string& path, const CommonOptions& options) {
    const FlatObject values = JsonCaseStore().load(path);
    const auto in_record = [](const std::string& name) {
        return std::any_of(record_fields().begin(), record_fields().end(),
                           [&](const RecordField& row) { return name_of(row.field) == name; });
    };
    try {
        CaseFile file = read_case(values, options);
        std::string left_out;
        for (const FlatMember& member : values)
            if (!in_record(member.key)) left_out += (left_out.empty() ? "" : ", ") + member.key;
        if (!left_out.empty())
            Console::tell_reason(path + ": " +
                                 fill(not_in_record.in(options.lang), {shortened(left_out, 1000)}));
        for (const RefusedText& refused : file.refused)
            if (in_record(refused.field))
                throw InputError(at(refused.field, refused.box.lines.front()));
        (void)written_record(file.c);
        return std::move(file.c);
    } catch (const InputError& error) {
        throw InputError(at(path, error.reason()));
    }
}

int list(const ListWords& words) {
    PosixFiles files;
    const ConductorLibrary library = open_library(files, words);
    std::vector<const LibraryConductor*> list;
    for (const LibraryConductor& conductor : library.conductors())
        if (matches(conductor, words.find)) list.push_back(&conductor);
    if (!words.sort.empty()) sort_by(list, words.sort, words.separator);
    if (!words.json) return print_or_fail(printable(list_text(list, words.lang)));
    ordered_json conductors = ordered_json::array();
    for (const LibraryConductor* conductor : list)
        conductors.push_back(json_of(*conductor, words.lang));
    return print_or_fail(json_text({{"conductors", std::move(conductors)}}));
}

/// The one of the settings, which is made where it belongs to this program and is missing.
std::string exchange_file() {
    ProgramStores stores;
    provide_exchange_file(stores);
    std::string path = stores.settings().now().Einseil1_dat;
    if (path.empty()) throw InputError(Reason(no_exchange_file));
    return path;
}

int pick(const ConductorWords& words) {
    PosixFiles files;
    const ConductorLibrary library = open_library(files, words);
    const LibraryConductor& found = find_conductor(library.conductors(), words.what);
    return write_and_tell(found.c, words.path.empty() ? exchange_file() : words.path, words);
}

int show(const ConductorWords& words) {
    const ChosenConductor chosen = choose_conductor(words.what, words);
    CalcCase c = case_with(chosen.data);
    const LibraryConductor* known = chosen.known ? &*chosen.known : nullptr;
    if (words.json) return print_or_fail(fragment_text(c));
    if (known != nullptr) (void)take_offers(c, known->c, words);
    return print_or_fail(
        printable(show_text(figures_known(c, known, words.separator), known, words.lang)));
}

int write(const ConductorWords& words) {
    return write_and_tell(conductor_of_fragment(words.what, words), words.path, words);
}

}  // namespace

void add_conductor(CommandLine& line) {
    CLI::App& conductor =
        line.add_group("conductor", "The library of conductors, and records", conductor_notes);
    const auto add = [&]<class Words>(const char* name, const char* description,
                                      int (*run)(const Words&)) {
        const auto command = line.add<Words>(conductor, name, description, run);
        command.app.footer(conductor_notes);
        add_output(command.app, command.words);
        add_language(command.app, command.words.lang, command.words.separator);
        return command;
    };
    std::vector<std::string> keys;
    for (const ListColumn& column : list_columns) keys.emplace_back(column.key);
    const auto listed = add("list", "The conductors of the library", list);
    listed.app
        .add_option("--find", listed.words.find, "Only those with these words in their designation")
        ->option_text("WORDS");
    listed.app.add_option("--sort", listed.words.sort, "Order by this column")
        ->check(CLI::IsMember(keys))
        ->option_text("COLUMN");

    const auto picked = add("pick", "Write a conductor of the library as a record", pick);
    picked.app.add_option("NAME", picked.words.what, "Designation of the conductor")->required();
    picked.app
        .add_option("-o", picked.words.path,
                    "The record; without it the exchange file of the settings")
        ->option_text("RECORD");
    const auto shown =
        add("show", "The conductor of a record, with --json as part of a case file", show);
    shown.app.add_option("RECORD", shown.words.what, "The record, or the name of a conductor")
        ->required();
    const auto written = add("write", "Write the conductor of a case file as a record", write);
    written.app
        .add_option("FRAGMENT", written.words.what, "Case file (JSON) or a part of one, or -")
        ->required();
    written.app.add_option("-o", written.words.path, "The record")
        ->required()
        ->option_text("RECORD");
}

}  // namespace zel
