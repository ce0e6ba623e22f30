#include "program/stores.h"

#include <filesystem>

#include "adapters/ini/profile_text.h"
#include "adapters/json/flat_json.h"
#include "adapters/posix/text_file.h"
#include "adapters/posix/workbook_file.h"
#include "adapters/xlsx/new_xlsx.h"
#include "adapters/xlsx/xlsx_workbook.h"
#include "persistence/conductor_link.h"
#include "platform/errors.h"
#include "program/places.h"

namespace zel {

namespace {

void start_companion(ProgramStores& stores) {
    make_folder(stores.paths.data_folder);
    create_companion_files(stores.disk, stores.paths.companion_folder, program_of_user(),
                           stores.shared);
}

}  // namespace

void start_companion_once(ProgramStores& stores) {
    const auto text = stores.files.read(stores.paths.shared_settings_file);
    // A first start that was killed has named its program alone.
    const bool begun =
        text && is_this_program(profile_value(*text, link_section, program_key).value_or("")) &&
        !profile_value(*text, link_section, exchange_key);
    if (begun || !stores.disk.exists(stores.paths.shared_settings_file)) start_companion(stores);
}

void provide_exchange_file(ProgramStores& stores) {
    if (lacks_companion_files(stores.shared)) start_companion(stores);
}

LibraryPlaces library_places(const ProgramPaths& paths) {
    return {shipped_folder(), paths.data_folder + "/conductors.csv"};
}

bool JsonCaseStore::has(const std::string& path) { return file_exists(path); }

FlatObject JsonCaseStore::load(const std::string& path) {
    const std::string text = read_text_file(path);
    try {
        return parse_flat_json(text);
    } catch (const InputError& error) {
        throw InputError(at(path, error.reason()));
    }
}

std::string JsonCaseStore::text_of(const FlatObject& values) const {
    return print_flat_json(values);
}

void JsonCaseStore::save(const std::string& path, const FlatObject& values) {
    write_text_file(path, text_of(values));
}

void XlsxStore::create(const std::string& path, const WorkbookDesign& design,
                       const std::string& title) {
    write_text_file(path, new_xlsx(design, title));
}

std::unique_ptr<Workbook> XlsxStore::open(const std::string& path) {
    auto file = std::make_shared<WorkbookFile>(path);
    const std::string bytes = file->read();
    return open_xlsx(path, bytes, [file](std::string_view changed) { file->replace(changed); });
}

std::string XlsxStore::real_path(const std::string& path) {
    std::error_code failed;
    const std::filesystem::path real = std::filesystem::weakly_canonical(path, failed);
    return failed ? path : real.string();
}

std::string help_folder() { return library_places({}).shipped_folder + "/help"; }

}  // namespace zel
