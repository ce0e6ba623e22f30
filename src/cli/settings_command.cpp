#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "platform/errors.h"
#include "platform/text/listing.h"
#include "program/console.h"
#include "program/stores.h"
#include "shell/program_settings.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr const char* settings_notes =
    "\n"
    "The settings are shared with the conductor database in the file flb_8261.ini; the languages\n"
    "belong to the user alone. \"list\" shows both files, all keys, values and meanings. A key may be\n"
    "written in capital or small letters. A value takes effect at the next start of the windows.\n";

constexpr Text no_such_setting = {
    "{0} ist keine Einstellung, die gespeichert wird. Die Einstellungen sind {1}",
    "{0} is no setting that is kept. The settings are {1}"};

struct SettingsWords : CommonOptions {
    std::string key{};
    std::string value{};
};

const SettingRow& row_named(const std::string& key) {
    if (const SettingRow* row = find_setting(key)) return *row;
    std::string keys;
    for (const SettingRow& row : setting_rows())
        if (row.keeping == Keeping::Kept) keys += (keys.empty() ? "" : ", ") + std::string(row.key);
    throw InputError(Reason(no_such_setting, {in_quotes(key), keys}));
}

ordered_json json_of(const SettingRow& row, const Settings& settings) {
    ordered_json entry = {{"section", row.section}, {"key", row.key}};
    if (const auto* number = std::get_if<NumberMember>(&row.member))
        entry["value"] = settings.now().**number;
    else
        entry["value"] = text_of(settings.now(), row);
    entry["stored"] = settings.stored(row).has_value();
    return entry;
}

std::string listing_of(const Settings& settings, const ProgramPaths& paths, LangId lang) {
    Listing listing;
    for (const SettingsHome home : {SettingsHome::Shared, SettingsHome::User}) {
        listing.add_caption(printable(home == SettingsHome::Shared ? paths.shared_settings_file
                                                                   : paths.user_settings_file));
        for (const SettingRow& row : setting_rows()) {
            if (row.home != home || row.keeping != Keeping::Kept) continue;
            const std::string value = printable(text_of(settings.now(), row));
            listing.add(row.key, value + "   (" + std::string(row.meaning.in(lang)) + ")");
        }
    }
    return listing.text();
}

int list(const SettingsWords& words) {
    ProgramStores stores;
    const Settings settings = stores.settings();
    if (!words.json) return print_or_fail(listing_of(settings, stores.paths, words.lang));
    ordered_json rows = ordered_json::array();
    for (const SettingRow& row : setting_rows())
        if (row.keeping == Keeping::Kept) rows.push_back(json_of(row, settings));
    return print_or_fail(json_text({{"settings", std::move(rows)}}));
}

int get(const SettingsWords& words) {
    ProgramStores stores;
    const Settings settings = stores.settings();
    const SettingRow& row = row_named(words.key);
    return print_or_fail(words.json ? json_text(json_of(row, settings))
                                    : printable(text_of(settings.now(), row)) + "\n");
}

int set(const SettingsWords& words) {
    const SettingRow& row = row_named(words.key);
    const std::string entered = setting_entry(row, words.value);
    ProgramStores stores;
    Settings settings = stores.settings();
    try {
        start_companion_once(stores);  // a file without its keys would keep the windows shut
        settings.write(row, entered);
    } catch (const OutputError& error) {
        throw InputError(error.reason(), error.fault());
    }
    return words.json ? print_or_fail(json_text(json_of(row, settings))) : exit_done;
}

}  // namespace

void add_settings(CommandLine& line) {
    CLI::App& settings =
        line.add_group("settings", "Read and write the persisted settings", settings_notes);
    const auto add = [&](const char* name, const char* description,
                         int (*run)(const SettingsWords&)) {
        const auto command = line.add<SettingsWords>(settings, name, description, run);
        add_json_option(command.app, command.words);
        add_language(command.app, command.words.lang, command.words.separator);
        return command;
    };
    (void)add("list", "All settings with their values and meanings", list);
    const auto one = add("get", "The value of one setting", get);
    one.app.add_option("KEY", one.words.key, "Name of the setting")->required();
    const auto changed = add("set", "Change one setting", set);
    changed.app.add_option("KEY", changed.words.key, "Name of the setting")->required();
    changed.app.add_option("VALUE", changed.words.value, "New value")->required();
}

}  // namespace zel
