#include "persistence/conductor_link.h"

#include "persistence/exchange_record.h"
#include "shell/program_settings.h"

namespace zel {
namespace {

constexpr BoxText nothing_selected = {
    Icon::Stop,
    {"Keine Seilauswahl erfolgt !", "Conductor data not selected !"},
    {"Es wurde aus der Seildatenbank kein Seil ausgewählt .\n"
     "Bitte wählen Sie zunächst ein Seil aus. ",
     "There is no conductor data selected\n"
     "within the conductor database!\n"
     "Please select a conductor data first !"}};

constexpr Text wrong_choice = {"Falsche Leiterauswahl", " Invalid choice of conductor"};

// The German text ends in a line end that is spelled out.
constexpr BoxText tube_wanted = {
    Icon::Stop,
    wrong_choice,
    {"Es wurde zur Berechnungsmethode für Kreisringstromschienen\n"
     "ein Leiterseil aus der Seildatenbank gewählt !\n"
     "Bitte starten Sie die Seildatenbank erneut und wählen dort eine Kreisring-Stromschiene aus. "
     "+ Chr(13) + Chr(10)",
     "Within the calculation method for tubular busbars\n"
     "you have select an overhead conductor from the conductor database ! (R-MOX) !\n"
     "Please start R-MOX again and select a tubular busbar."}};

constexpr BoxText no_tube_wanted = {
    Icon::Stop,
    wrong_choice,
    {"Es wurde zur Berechnungsmethode für Leiterseile\n"
     "eine Kreisringstromschiene aus der Seildatenbank gewählt !\n"
     "Bitte starten Sie die Seildatenbank erneut und wählen dort ein Leiterseil aus.",
     "Within the calculation method for overhead conductors\n"
     "you have select a tubular busbars from the conductor database ! (R-MOX) !\n"
     "Please start R-MOX again and select an overhead conductor."}};

bool has_conductor_method(const MethodSelection& m) {
    return m.rechnung_cigre601_merker_db == 1 || m.rechnung_cigre207_merker_db == 1 ||
           m.rechnung_webs_merker_db == 1 || m.rechnung_kirn_merker_db == 1;
}

}  // namespace

std::optional<Box> wrong_kind(const MethodSelection& methods, std::int16_t conductor_type_db,
                              LangId lang) {
    const bool is_tube = conductor_type_db == tubular_busbar;
    const bool wants_tube = !has_conductor_method(methods) && methods.rechnung_TBB_merker_db == 1;
    if (is_tube == wants_tube) return std::nullopt;
    return box_in(lang, wants_tube ? tube_wanted : no_tube_wanted);
}

std::variant<ConductorData, Box> exchanged_conductor(Files& files, const std::string& exchange_file,
                                                     const Locale& locale) {
    const std::string bytes =
        files.exists(exchange_file) ? files.content(exchange_file) : std::string();
    if (bytes.empty()) return box_in(locale.lang, nothing_selected);
    return read_record(bytes, locale.separator);
}

std::optional<Box> take_over_conductor(CalcCase& c, Files& files, const std::string& exchange_file,
                                       const Locale& locale) {
    const auto found = exchanged_conductor(files, exchange_file, locale);
    if (const Box* box = std::get_if<Box>(&found)) return *box;
    const auto& conductor = std::get<ConductorData>(found);
    if (auto box = wrong_kind(c, conductor.conductor_type_db, locale.lang)) return box;
    copy_record_fields(conductor, c);
    return std::nullopt;
}

bool is_this_program(std::string_view path) {
    return path.substr(path.find_last_of('/') + 1) == "zel";
}

bool lacks_companion_files(const SettingsStore& shared_settings) {
    const auto path_of = [&](std::string_view key) {
        const std::string path = as_read(shared_settings.read(link_section, key).value_or(""));
        return is_missing_path(path) ? std::string() : path;
    };
    const std::string program = path_of(program_key);
    return path_of(exchange_key).empty() && (program.empty() || is_this_program(program));
}

std::string exchange_file_in(const std::string& companion_folder) {
    return companion_folder + "/einseil1.dat";
}

void create_companion_files(Files& files, const std::string& companion_folder,
                            const std::string& program_file, SettingsStore& shared_settings) {
    const std::string exchange_file = exchange_file_in(companion_folder);
    files.update(exchange_file, [](const std::string& present) { return present; });
    shared_settings.write(link_section, program_key, program_file);
    shared_settings.write(link_section, exchange_key, exchange_file);
}

}  // namespace zel
