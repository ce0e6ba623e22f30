#include "cli/json_case_store.h"

#include "adapters/json/flat_json.h"
#include "adapters/posix/text_file.h"
#include "platform/errors.h"

namespace zel {

bool JsonCaseStore::has(const std::string& path) { return file_exists(path); }

FlatObject JsonCaseStore::load(const std::string& path) {
    const std::string text = read_text_file(path);
    try {
        return parse_flat_json(text);
    } catch (const InputError& error) {
        throw InputError(path + ": " + error.what());
    }
}

void JsonCaseStore::save(const std::string& path, const FlatObject& values) {
    write_text_file(path, print_flat_json(values));
}

}  // namespace zel
