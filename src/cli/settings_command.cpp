#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/program_stores.h"
#include "platform/errors.h"
#include "platform/text/listing.h"
#include "shell/program_settings.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

const SettingRow& row_named(const std::string& key) {
    if (const SettingRow* row = find_setting(key)) return *row;
    std::string keys;
    for (const SettingRow& row : setting_rows())
        if (row.keeping == Keeping::Kept) keys += (keys.empty() ? "" : ", ") + std::string(row.key);
    throw InputError("\"" + key + "\" is no setting that is kept. The settings are " + keys);
}

/// Paths may hold bytes that are no UTF-8.
std::string text_of(const ordered_json& document) {
    return document.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
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

int print_all(const std::string& document) {
    if (print(document)) return exit_done;
    Console::tell_reason("standard output cannot be written");
    return exit_failed;
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

}  // namespace

int settings_list_command(const CommonOptions& options) {
    ProgramStores stores;
    const Settings settings = stores.settings();
    if (!options.json) return print_all(listing_of(settings, stores.paths, options.lang));
    ordered_json list = ordered_json::array();
    for (const SettingRow& row : setting_rows())
        if (row.keeping == Keeping::Kept) list.push_back(json_of(row, settings));
    return print_all(text_of({{"settings", std::move(list)}}));
}

int settings_get_command(const std::string& key, const CommonOptions& options) {
    ProgramStores stores;
    const Settings settings = stores.settings();
    const SettingRow& row = row_named(key);
    return print_all(options.json ? text_of(json_of(row, settings))
                                  : text_of(settings.now(), row) + "\n");
}

int settings_set_command(const std::string& key, const std::string& value,
                         const CommonOptions& options) {
    const SettingRow& row = row_named(key);
    const std::string entered = setting_entry(row, value);
    ProgramStores stores;
    Settings settings = stores.settings();
    try {
        start_companion_once(stores);  // a file without its keys would keep the windows shut
        settings.write(row, entered);
    } catch (const OutputError& error) {
        throw InputError(error.what(), error.fault());
    }
    return options.json ? print_all(text_of(json_of(row, settings))) : exit_done;
}

}  // namespace zel
