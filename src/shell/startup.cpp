#include "shell/startup.h"

#include <algorithm>
#include <charconv>

#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr int oldest_system = 5;
constexpr int newest_system = 11;

constexpr BoxText system_refused = {
    Icon::Stop,
    short_name,
    {"Das Programm ist auf den Betriebsystemen\n"
     "\n"
     "Microsoft Windows 10 und 11 lauffähig !\n"
     "Das aktuelle Betriebssystem entspricht keinem dieser Systeme\n"
     "das Programm kann daher nicht ordnungsgemäß ausgeführt werden.\n"
     "Bitte fragen Sie beim Programmhersteller unter Angabe ihres \n"
     "Betriebssystemes um ein Update nach!\n"
     "Wenden Sie sich dazu bitte an den Entwickler des Programms.",
     "The application runs on the systems:\n"
     "\n"
     "Microsoft Windows 10 and 11 \n"
     "The currently used systems is none of the above\n"
     "the application can not be started.\n"
     "\n"
     "Please contact the developer of the program\n"
     "for an Update !"}};

constexpr BoxText no_database_path = {
    Icon::None,
    short_name,
    {"Es wurde bisher kein Verzeichnispfad zum Zugriff auf die Seildatenbank festgelegt !\n"
     "Bitte tun Sie dieses im Menüpunkt  "
     "<Einstellungen/Verzeichnispfad der Seildatenbank festlegen>",
     "There is no filepath selected for using the conductor database R-MOX !\n"
     "Please select it unter the menu item:\n"
     "< Settings / Specify path for conductor database (R-MOX)...>"}};

constexpr BoxText no_exchange_file = {
    Icon::None,
    short_name,
    {"Es wurde bisher keine Verbindungsdatei und Pfad zum Datenaustasuch der Programme VOR und "
     "REMOX definiert!\n"
     "Das Programm VOR wird nun beendet, bitte starten Sie zunächst einmalig das Programm REMOX.\n"
     "Hiermit wird automatisch die benötigte Verbindung zwischen den beiden Programmen definiert.",
     "There is no connection file and path defined for communication between ZEL and R-MOX !\n"
     "This application will be closed now, please start the application R-MOX one time.\n"
     "This will auto-define the connection between both applications."}};

/// The dialog asks unless it may be skipped and the user does not want it. False where it was
/// cancelled.
bool choose_language(Settings& settings, const StartupPlatform& platform, bool may_skip_language,
                     LangId& lang) {
    lang = stored_choice(settings.now()).lang;
    if (platform.lang) {
        lang = *platform.lang;
        settings.set_for_this_run(&ProgramSettings::LangId_screen, static_cast<std::int16_t>(lang));
        return true;
    }
    const LanguageChoice marked = stored_choice(settings.now());
    if (!marked.show_dialog && may_skip_language) return true;
    const auto choice = platform.ask_language(marked);
    if (!choice) return false;
    store_choice(settings, *choice);
    lang = choice->lang;
    return true;
}

/// A language that holds for this run only is the default of the reports all the same.
void reread(Settings& settings, LangId lang) {
    settings.reread_all();
    settings.set_for_this_run(&ProgramSettings::LangId_screen, static_cast<std::int16_t>(lang));
    settings.reread(&ProgramSettings::LangId_print);
}

/// False where the program cannot work without what is missing.
bool read_paths(const ProgramSettings& settings, const StartupPlatform& platform,
                Started& started) {
    const auto tell = [&](const BoxText& text) {
        platform.dialogs.show(box_in(started.lang, text));
    };
    if (settings.Seildatenbanknamepluspfad.empty()) tell(no_database_path);
    if (settings.Einseil1_dat.empty()) {
        tell(no_exchange_file);
        return false;
    }
    return true;
}

/// The printer that was chosen in a former run, if it is there still; otherwise that of the system
/// stays the current one.
void choose_printer(Printers& printers, const std::string& name) {
    const std::vector<std::string> installed =
        name.empty() ? std::vector<std::string>() : printers.installed();
    if (std::find(installed.begin(), installed.end(), name) != installed.end())
        printers.prefer(name);
}

}  // namespace

bool runs_on(const std::string& major_version) {
    int major = 0;
    const char* end = major_version.data() + major_version.size();
    const auto [rest, error] = std::from_chars(major_version.data(), end, major);
    return error == std::errc() && rest == end && major >= oldest_system && major <= newest_system;
}

LanguageChoice stored_choice(const ProgramSettings& settings) {
    return {static_cast<LangId>(settings.LangId_screen), settings.ShowDialog != 0};
}

void store_choice(Settings& settings, const LanguageChoice& choice) {
    settings.set(&ProgramSettings::ShowDialog, choice.show_dialog ? -1 : 0);
    settings.set(&ProgramSettings::LangId_screen, static_cast<std::int16_t>(choice.lang));
}

Started S00_Start_Programminitialisierung(Settings& settings, const StartupPlatform& platform,
                                          bool may_skip_language) {
    Started started;
    const auto ended = [&](StartEnd end) {
        started.end = end;
        return started;
    };
    if (!choose_language(settings, platform, may_skip_language, started.lang))
        return ended(StartEnd::LanguageCancelled);
    if (!runs_on(platform.system.major_version)) {
        platform.dialogs.show(box_in(started.lang, system_refused));
        return ended(StartEnd::SystemRefused);
    }
    platform.start_companion();
    reread(settings, started.lang);
    if (!read_paths(settings.now(), platform, started)) return ended(StartEnd::NoExchangeFile);
    settings.set_for_this_run(&ProgramSettings::Punkt_Komma_Format_merker,
                              static_cast<std::int16_t>(platform.separator));
    if (platform.printers != nullptr) choose_printer(*platform.printers, settings.now().DeviceName);
    return started;
}

}  // namespace zel
