#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "platform/settings_store.h"
#include "platform/text/text.h"
#include "steady/case/calc_case.h"

namespace zel {

/// The choices that hold for the whole program. Numbers with two values are 1 and 2 or -1 (yes)
/// and 0 (no), as the table of the settings says.
struct ProgramSettings {
    std::int16_t startfenster = 0;
    std::int16_t Druckvorschau = 0;  // reports go to the preview first: 1 on, 2 off
    std::int16_t Vollbildmodus = 0;  // windows: 1 maximised, 2 normal
    std::int16_t Accessformat = 0;
    std::int16_t Excel_Leiterdaten_Merker = 0;  // workbook with conductor columns: 1 yes, 2 no
    std::int16_t Formel_merker = 0;             // skin effect of Webs: 1 ABB, 2 Kiessling
    std::int16_t Gravi_merker = 0;    // g: 1 is 9.80665, 2 is 9.78, 3 is 9.83 m/s², others 0
    std::int16_t wi_v_wi_merker = 0;  // warn below the minima for surveying a span: -1 or 0
    std::int16_t Mess_merker = 0;     // fields for measured values on Form1: -1 or 0
    std::int16_t wzsz_merker = 0;     // summer time counts in the sun height: 1 yes, 2 no
    std::int16_t Excel_Zelle_Array_Schreiben_Merker = 0;  // write results: 1 by cell, 2 as array
    std::int16_t Messzyklusdauer = 0;                     // minutes
    std::int16_t MUCOM = 0;                               // port of the anemometer
    std::int16_t MGCOM = 0;                               // port of the radiation meter

    std::string Port1_dev, Port2_dev, Port3_dev, Port4_dev;  // devices of the ports 1 to 4
    std::string MUCOM_line;  // baud rate and framing of the anemometer, see `port_line`
    std::string MGCOM_line;  // of the radiation meter

    std::string Berechnungsdaten;           // calculation database
    std::string worstcasedatenVORV81;       // quick-access database
    std::string Standardfalldaten;          // standard-case database
    std::string Seildatenbanknamepluspfad;  // program file of the conductor application
    std::string Einseil1_dat;               // exchange file with it
    std::string DeviceName;                 // chosen printer

    std::int16_t LangId_screen = 0;  // 1 German, 2 English
    std::int16_t LangId_print = 0;   // 1 German, 2 English, 3 French, 4 Spanish
    std::int16_t ShowDialog = 0;     // ask for the language at start: -1 or 0

    // These are not kept from run to run.
    std::int16_t cigre_TKW_merker = 1;  // TB 207 transient with the temperature coefficient of
                                        // the heat capacity: 1 with, 2 without
    std::int16_t Punkt_Komma_Format_merker = 2;  // the system's separator: 1 comma, 2 point
    int frm_excel_IO_height = 10700;             // twips

    /// The gravitational constant of the calculations, m/s²; 0 where `Gravi_merker` is none of its
    /// three values.
    [[nodiscard]] double g() const;

    friend bool operator==(const ProgramSettings&, const ProgramSettings&) = default;
};

/// Of lists in the language of reports, which have German and English texts only.
[[nodiscard]] constexpr LangId language_of_lists(const ProgramSettings& settings) {
    return settings.LangId_print == 1 ? LangId::German : LangId::English;
}

using NumberMember = std::int16_t ProgramSettings::*;
using TextMember = std::string ProgramSettings::*;

/// In which of the two stores a setting stands.
enum class SettingsHome : std::uint8_t { Shared, User };

/// How a setting goes to its store and comes back.
enum class Keeping : std::uint8_t {
    Kept,
    WrittenOnly,   // never read
    StandardOnly,  // never read, and written only where it has its standard value
};

/// A file name, in the data folder.
struct InDataFolder {
    std::string_view name;
};

/// What a missing or unusable value stands for. The value of another setting must be read before.
using SettingDefault =
    std::variant<std::monostate, std::int16_t, NumberMember, InDataFolder, std::string_view>;

struct SettingRow {
    SettingsHome home;
    std::string_view section;
    std::string_view key;
    std::variant<NumberMember, TextMember> member;
    SettingDefault fallback{};                // a text without one is empty
    std::span<const std::int16_t> offered{};  // by the controls; empty where any number is
    Text meaning;                             // with the values
    Keeping keeping = Keeping::Kept;
    bool others_are_fallback = false;  // a number that is not offered counts as missing
    bool is_path = true;               // of a text: one too short for a path counts as missing
    bool is_port_line = false;         // a text that `port_line` reads
};

/// All settings, in the order in which they are read.
[[nodiscard]] std::span<const SettingRow> setting_rows();

/// The row of a kept setting by its key, without regard to case; null where there is none.
[[nodiscard]] const SettingRow* find_setting(std::string_view key);

/// A text as the settings take it from a store: its first 511 characters, without the blanks around
/// them.
[[nodiscard]] std::string as_read(std::string_view text);

/// A text read from a store counts as missing where it begins with "kein Eintrag gefunden" or is
/// shorter than 2 characters.
[[nodiscard]] bool is_missing_path(std::string_view text);

/// The settings over their two stores: read at start-up, then in memory, and each change written at
/// once. A write that fails is not reported; the value holds for this run all the same.
class Settings {
public:
    /// Reads every setting but those of `Keeping::WrittenOnly` and `StandardOnly`.
    Settings(SettingsStore& shared, SettingsStore& user, std::string data_folder);

    [[nodiscard]] const ProgramSettings& now() const { return now_; }

    void set(NumberMember member, std::int16_t value);
    void set(TextMember member, const std::string& value);
    /// Sets a value that is not written.
    void set_for_this_run(NumberMember member, std::int16_t value) { now_.*member = value; }
    void set_excel_height(int twips) { now_.frm_excel_IO_height = twips; }

    /// Reads one setting anew, as a form does that shows what the file holds when it opens.
    void reread(NumberMember member);
    void reread_all();

    /// The store of the user, where more than settings is kept.
    [[nodiscard]] SettingsStore& user_store() const { return *user_; }

    /// Writes as `set` does, but throws `OutputError` where the value cannot be written.
    void write(const SettingRow& row, std::string_view value);

    /// What stands in the store, without the blanks around it; nothing where the key is missing.
    [[nodiscard]] std::optional<std::string> stored(const SettingRow& row) const;

private:
    [[nodiscard]] SettingsStore& store(const SettingRow& row) const;
    void read(const SettingRow& row);

    SettingsStore* shared_;
    SettingsStore* user_;
    std::string data_folder_;
    ProgramSettings now_;
};

/// The present value of the row's setting as text.
[[nodiscard]] std::string text_of(const ProgramSettings& settings, const SettingRow& row);

/// The standard settings: sets and writes them in their order. The separator and
/// `Excel_Leiterdaten_Merker` stay as they are.
void set_standard_settings(Settings& settings);

/// The case calculates with the present settings for g, the skin effect of Webs and summer time.
void take_settings(MethodSelection& selection, const ProgramSettings& settings);

/// What is to be written for a value that a user gives to the setting of `row`: a whole number that
/// the setting has, or a text that is read back as it is. Throws `InputError` naming key and limit.
[[nodiscard]] std::string setting_entry(const SettingRow& row, std::string_view value);

}  // namespace zel
