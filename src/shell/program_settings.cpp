#include "shell/program_settings.h"

#include <algorithm>
#include <array>

#include "platform/errors.h"
#include "platform/rounding.h"
#include "platform/text/number_text.h"
#include "steady/constants.h"

namespace zel {
namespace {

using S = ProgramSettings;
using enum SettingsHome;

constexpr std::array<std::int16_t, 2> one_or_two = {1, 2};
constexpr std::array<std::int16_t, 2> yes_or_no = {-1, 0};
constexpr std::array<std::int16_t, 3> one_to_three = {1, 2, 3};
constexpr std::array<std::int16_t, 4> one_to_four = {1, 2, 3, 4};
constexpr std::array<std::int16_t, 3> cycle_minutes = {5, 10, 15};

constexpr std::int16_t fallback(int value) { return static_cast<std::int16_t>(value); }

constexpr std::string_view usual_line = "9600 8N1";  // baud rate and frame

constexpr std::string_view nothing_found = "kein Eintrag gefunden";
constexpr std::size_t shortest_path = 2;
constexpr std::size_t longest_text = 511;  // characters: a longer one is read cut off

// LangId stands before LangId_print, whose default it is.
constexpr SettingRow rows[] = {
    {User,
     "MultiLang",
     "LangId",
     &S::LangId_screen,
     fallback(1),
     one_or_two,
     {"Sprache der Fenster: 1 Deutsch, 2 Englisch", "language of the windows: 1 German, 2 English"},
     Keeping::Kept,
     true},
    {User,
     "MultiLang",
     "ShowDialog",
     &S::ShowDialog,
     fallback(-1),
     yes_or_no,
     {"Sprache beim Start erfragen: -1 ja, 0 nein", "ask for the language at start: -1 yes, 0 no"}},
    {Shared,
     "Seildatei",
     "Seildatenbanknamepluspfad",
     &S::Seildatenbanknamepluspfad,
     {},
     {},
     {"Programmdatei der Seildatenbank", "program file of the conductor database"}},
    {Shared,
     "Seildatei",
     "Einseil1_dat",
     &S::Einseil1_dat,
     {},
     {},
     {"Austauschdatei mit der Seildatenbank", "exchange file with the conductor database"}},
    {Shared,
     "VOR",
     "Berechnungsdaten",
     &S::Berechnungsdaten,
     InDataFolder{"zel01.mdb"},
     {},
     {"Datenbank der Berechnungsdaten", "calculation database"}},
    {Shared,
     "VOR",
     "startfenster",
     &S::startfenster,
     fallback(1),
     one_or_two,
     {"Fenster beim Start: 1 Startfenster, 2 Messwertaufnahme",
      "window at start: 1 start window, 2 measuring window"}},
    {Shared,
     "VOR",
     "Druckvorschau",
     &S::Druckvorschau,
     fallback(1),
     one_or_two,
     {"Berichte zuerst in die Vorschau: 1 ja, 2 nein",
      "reports go to the preview first: 1 yes, 2 no"}},
    {Shared,
     "VOR",
     "Vollbildmodus",
     &S::Vollbildmodus,
     fallback(1),
     one_or_two,
     {"Fenster: 1 Vollbild, 2 normal", "windows: 1 maximised, 2 normal"}},
    {User,
     "MultiLang",
     "LangId_print",
     &S::LangId_print,
     &S::LangId_screen,
     one_to_four,
     {"Sprache der Berichte: 1 Deutsch, 2 Englisch, 3 Französisch, 4 Spanisch",
      "language of reports: 1 German, 2 English, 3 French, 4 Spanish"}},
    {Shared,
     "VOR",
     "worstcasedatenVORV81",
     &S::worstcasedatenVORV81,
     InDataFolder{"worstcas.mdb"},
     {},
     {"Datenbank der Schnellzugriff-Tabelle", "quick-access database"}},
    {Shared,
     "VOR",
     "Standardfalldaten",
     &S::Standardfalldaten,
     InDataFolder{"stcas.mdb"},
     {},
     {"Datenbank der Standardfälle", "standard-case database"}},
    {Shared,
     "VOR",
     "Accessformat",
     &S::Accessformat,
     fallback(2),
     {},
     {"Format der Datenbanken, nur aufbewahrt", "format of databases, kept"}},
    {Shared,
     "VOR",
     "Excel_Leiterdaten_Merker",
     &S::Excel_Leiterdaten_Merker,
     fallback(2),
     one_or_two,
     {"Leiterdaten in Arbeitsmappen: 1 mit, 2 ohne",
      "conductor columns in workbooks: 1 with, 2 without"}},
    {Shared,
     "VOR",
     "Formel_merker",
     &S::Formel_merker,
     fallback(2),
     one_or_two,
     {"AC-Widerstand nach Webs: 1 ABB, 2 Kiessling", "AC resistance by Webs: 1 ABB, 2 Kiessling"}},
    {Shared,
     "VOR",
     "Gravi_merker",
     &S::Gravi_merker,
     fallback(1),
     one_to_three,
     {"Erdbeschleunigung: 1 9,80665, 2 9,78, 3 9,83 m/s²",
      "gravitational constant: 1 9.80665, 2 9.78, 3 9.83 m/s²"}},
    {Shared,
     "VOR",
     "wi_v_wi_merker",
     &S::wi_v_wi_merker,
     fallback(-1),
     yes_or_no,
     {"Mindestwerte für Nachvermessung melden: -1 ja, 0 nein",
      "warn below the minima for span measuring: -1 yes, 0 no"}},
    {Shared,
     "VOR",
     "Mess_merker",
     &S::Mess_merker,
     fallback(0),
     yes_or_no,
     {"Felder für Messwerte: -1 ja, 0 nein", "fields for measured values: -1 yes, 0 no"}},
    {Shared,
     "VOR",
     "wzsz_merker",
     &S::wzsz_merker,
     fallback(2),
     one_or_two,
     {"Sommerzeit im Sonnenstand nach Webs: 1 ja, 2 nein",
      "summer time in the sun height of Webs: 1 yes, 2 no"}},
    {Shared,
     "VOR",
     "Excel_Zelle_Array_Schreiben_Merker",
     &S::Excel_Zelle_Array_Schreiben_Merker,
     fallback(2),
     one_or_two,
     {"Ergebnisse in Arbeitsmappen: 1 zellenweise, 2 als Array",
      "results into workbooks: 1 cell by cell, 2 as an array"}},
    {Shared,
     "VOR",
     "Messzyklusdauer",
     &S::Messzyklusdauer,
     fallback(15),
     cycle_minutes,
     {"Messzyklus: 5, 10 oder 15 Minuten", "measuring cycle: 5, 10 or 15 minutes"}},
    {Shared,
     "VOR",
     "MUCOM",
     &S::MUCOM,
     fallback(2),
     one_to_four,
     {"Schnittstelle des Anemometers: 1 bis 4", "port of the anemometer: 1 to 4"}},
    {Shared,
     "VOR",
     "MGCOM",
     &S::MGCOM,
     fallback(1),
     one_to_four,
     {"Schnittstelle des Strahlungsmessers: 1 bis 4", "port of the radiation meter: 1 to 4"}},
    {Shared,
     "VOR",
     "Port1_dev",
     &S::Port1_dev,
     std::string_view("/dev/ttyUSB0"),
     {},
     {"Gerät der Schnittstelle 1 (USB)", "device of port 1 (USB)"}},
    {Shared,
     "VOR",
     "Port2_dev",
     &S::Port2_dev,
     std::string_view("/dev/ttyS0"),
     {},
     {"Gerät der Schnittstelle 2 (COM 1)", "device of port 2 (COM 1)"}},
    {Shared,
     "VOR",
     "Port3_dev",
     &S::Port3_dev,
     std::string_view("/dev/ttyS1"),
     {},
     {"Gerät der Schnittstelle 3 (COM 2)", "device of port 3 (COM 2)"}},
    {Shared,
     "VOR",
     "Port4_dev",
     &S::Port4_dev,
     std::string_view("/dev/ttyS2"),
     {},
     {"Gerät der Schnittstelle 4 (COM 3)", "device of port 4 (COM 3)"}},
    {Shared,
     "VOR",
     "MUCOM_line",
     &S::MUCOM_line,
     usual_line,
     {},
     {"Baudrate und Rahmen des Anemometers: 9600 8N1",
      "baud rate and frame of the anemometer: 9600 8N1"},
     Keeping::Kept,
     false,
     true,
     true},
    {Shared,
     "VOR",
     "MGCOM_line",
     &S::MGCOM_line,
     usual_line,
     {},
     {"Baudrate und Rahmen des Strahlungsmessers: 9600 8N1",
      "baud rate and frame of the radiation meter: 9600 8N1"},
     Keeping::Kept,
     false,
     true,
     true},
    {Shared,
     "Printer",
     "DeviceName",
     &S::DeviceName,
     {},
     {},
     {"gewählter Drucker", "chosen printer"},
     Keeping::Kept,
     false,
     false},
    {Shared,
     "VOR",
     "cigre_TKW_merker",
     &S::cigre_TKW_merker,
     fallback(1),
     one_or_two,
     {},
     Keeping::StandardOnly},
    {Shared,
     "VOR",
     "Punkt_Komma_Format_merker",
     &S::Punkt_Komma_Format_merker,
     {},
     one_or_two,
     {},
     Keeping::WrittenOnly},
};

/// The first `most` characters of a text in UTF-8, none of them in part.
std::string_view cut_off(std::string_view text, std::size_t most) {
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool starts = (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U;
        if (starts && ++characters > most) return text.substr(0, i);
    }
    return text;
}

/// A number with either separator, rounded to a whole one.
std::optional<std::int16_t> number_in(std::string_view text) {
    auto number = parse_number(text, DecimalSeparator::Point);
    if (!number) number = parse_number(text, DecimalSeparator::Comma);
    return number ? round_to_int16(*number) : std::nullopt;
}

template <class Member>
const SettingRow& row_of(Member member) {
    return *std::find_if(std::begin(rows), std::end(rows), [&](const SettingRow& row) {
        const Member* own = std::get_if<Member>(&row.member);
        return own != nullptr && *own == member;
    });
}

bool is_offered(const SettingRow& row, std::int16_t number) {
    return std::find(row.offered.begin(), row.offered.end(), number) != row.offered.end();
}

std::int16_t default_number(const SettingRow& row, const ProgramSettings& settings) {
    if (const auto* number = std::get_if<std::int16_t>(&row.fallback)) return *number;
    if (const auto* other = std::get_if<NumberMember>(&row.fallback)) return settings.**other;
    return 0;
}

struct StandardRow {
    NumberMember member;
    std::int16_t value;
};

}  // namespace

std::span<const SettingRow> setting_rows() { return rows; }

const SettingRow* find_setting(std::string_view key) {
    const auto* found = std::find_if(std::begin(rows), std::end(rows), [&](const SettingRow& row) {
        return row.keeping == Keeping::Kept && same_name(row.key, key);
    });
    return found == std::end(rows) ? nullptr : found;
}

std::string as_read(std::string_view text) {
    return without_outer_blanks(cut_off(text, longest_text));
}

bool is_missing_path(std::string_view text) {
    const bool is_short = cut_off(text, shortest_path - 1) == text;
    return is_short || text.starts_with(nothing_found);
}

double ProgramSettings::g() const { return gravity(Gravi_merker); }

Settings::Settings(SettingsStore& shared, SettingsStore& user, std::string data_folder)
    : shared_(&shared), user_(&user), data_folder_(std::move(data_folder)) {
    reread_all();
}

SettingsStore& Settings::store(const SettingRow& row) const {
    return row.home == Shared ? *shared_ : *user_;
}

std::optional<std::string> Settings::stored(const SettingRow& row) const {
    const auto text = store(row).read(row.section, row.key);
    if (!text) return std::nullopt;
    return as_read(*text);
}

void Settings::read(const SettingRow& row) {
    const std::string text = stored(row).value_or("");
    if (const auto* member = std::get_if<NumberMember>(&row.member)) {
        auto number = number_in(text);
        if (number && row.others_are_fallback && !is_offered(row, *number)) number.reset();
        now_.** member = number.value_or(default_number(row, now_));
        return;
    }
    std::string& value = now_.*std::get<TextMember>(row.member);
    value = row.is_path && is_missing_path(text) ? std::string() : text;
    const auto* file = std::get_if<InDataFolder>(&row.fallback);
    if (value.empty() && file != nullptr) value = data_folder_ + "/" + std::string(file->name);
    const auto* usual = std::get_if<std::string_view>(&row.fallback);
    if (value.empty() && usual != nullptr) value = *usual;
}

void Settings::reread_all() {
    for (const SettingRow& row : rows)
        if (row.keeping == Keeping::Kept) read(row);
}

void Settings::reread(NumberMember member) { read(row_of(member)); }

void Settings::set(NumberMember member, std::int16_t value) {
    now_.*member = value;
    const SettingRow& row = row_of(member);
    if (row.keeping == Keeping::StandardOnly && value != default_number(row, now_)) return;
    try {
        store(row).write(row.section, row.key, std::to_string(value));
    } catch (const OutputError&) {  // not reported: the value holds for this run
    }
}

void Settings::set(TextMember member, const std::string& value) {
    now_.*member = value;
    const SettingRow& row = row_of(member);
    try {
        store(row).write(row.section, row.key, value);
    } catch (const OutputError&) {
    }
}

void Settings::write(const SettingRow& row, std::string_view value) {
    store(row).write(row.section, row.key, value);
    read(row);
}

std::string text_of(const ProgramSettings& settings, const SettingRow& row) {
    if (const auto* member = std::get_if<NumberMember>(&row.member))
        return std::to_string(settings.**member);
    return settings.*std::get<TextMember>(row.member);
}

void set_standard_settings(Settings& settings) {
    constexpr StandardRow standard[] = {
        {&S::Gravi_merker, 1},
        {&S::Formel_merker, 2},
        {&S::wzsz_merker, 2},
        {&S::cigre_TKW_merker, 1},
        {&S::Excel_Zelle_Array_Schreiben_Merker, 2},
        {&S::wi_v_wi_merker, -1},
        {&S::Mess_merker, 0},
    };
    for (const auto& [member, value] : standard) settings.set(member, value);
}

void take_settings(MethodSelection& selection, const ProgramSettings& settings) {
    selection.Gravi_merker1_db = settings.Gravi_merker;
    selection.Formel_merker1_db = settings.Formel_merker;
    selection.wzsz_merker_db = settings.wzsz_merker;
}

}  // namespace zel
