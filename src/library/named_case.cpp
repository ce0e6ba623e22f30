#include "library/named_case.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <mutex>

#include "adapters/json/flat_json.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/system_facts.h"
#include "adapters/posix/text_file.h"
#include "persistence/case_file.h"
#include "platform/errors.h"
#include "shell/program_texts.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel::library {
namespace {

constexpr Locale plain = {LangId::English, DecimalSeparator::Point};

constexpr Text no_such_field = {"kein Feld heißt so", "no field has this name"};
constexpr Text of_lines_only = {"einen Leiter aus der Sammlung nimmt nur der Fall einer Leitung",
                                "a conductor of the library goes into the case of a line only"};
constexpr Text no_conductors = {
    "conductors.csv fehlt; ZEL_DATA kann den Ordner nennen, in dem sie steht",
    "conductors.csv is missing; ZEL_DATA can name the folder where it stands"};

/// Where the shipped conductors stand: a build and an installation have them at share/zel, one to
/// three folders above this library.
std::string shipped_folder() {
    if (const char* named = std::getenv("ZEL_DATA")) return named;  // NOLINT(concurrency-mt-unsafe)
    Dl_info info{};
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): any place of this library
    if (dladdr(reinterpret_cast<const void*>(&open_conductors), &info) == 0)
        throw InputError(Reason(no_conductors));
    const std::string folder = folder_above(info.dli_fname, "share/zel/conductors.csv");
    if (folder.empty()) throw InputError(Reason(no_conductors));
    return folder + "/share/zel";
}

/// By which a file that was changed is told; all of nothing where it is missing.
struct FileStamp {
    std::string path;
    std::filesystem::file_time_type changed{};
    std::uintmax_t size = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

FileStamp stamp_of(const std::string& path) {
    std::error_code missing;
    const auto changed = std::filesystem::last_write_time(path, missing);
    if (missing) return {path};
    return {path, changed, std::filesystem::file_size(path, missing)};
}

}  // namespace

std::shared_ptr<const ConductorLibrary> open_conductors() {
    static PosixFiles files;
    static std::mutex one_at_a_time;
    static std::shared_ptr<const ConductorLibrary> library;
    static std::vector<FileStamp> stamps;
    const LibraryPlaces places = {shipped_folder(),
                                  program_paths(system_facts()).data_folder + "/conductors.csv"};
    const std::vector<FileStamp> present = {stamp_of(places.shipped_file()),
                                            stamp_of(places.materials_file()),
                                            stamp_of(places.own_file)};
    const std::lock_guard lock(one_at_a_time);
    if (!library || stamps != present) {
        library = std::make_shared<ConductorLibrary>(files, places, plain.separator);
        stamps = present;
    }
    return library;
}

std::string NamedCase::field_name(std::string_view name) const {
    if (area_ == Area::ShortCircuit) {
        if (const auto* field = find_short_circuit_by_any_name(name))
            return std::string(field->name);
    } else {
        CalcCase any;
        if (const auto* field = find_by_any_name(name)) return std::string(field->name);
        if (find_field(any, name)) return std::string(name);
    }
    throw InputError(at(std::string(name), no_such_field));
}

void NamedCase::set(std::string_view name, FlatValue value) {
    const std::string key = field_name(name);
    const auto former = std::find_if(values_.begin(), values_.end(),
                                     [&](const FlatMember& member) { return member.key == key; });
    if (former != values_.end())
        former->value = std::move(value);
    else
        values_.push_back({key, std::move(value)});
}

void NamedCase::unset(std::string_view name) {
    std::erase_if(values_, [key = field_name(name)](const FlatMember& m) { return m.key == key; });
}

void NamedCase::read_json(std::string_view json) {
    FlatObject values = parse_flat_json(json);
    for (const FlatMember& member : values) (void)field_name(member.key);
    for (FlatMember& member : values) set(member.key, std::move(member.value));
}

void NamedCase::read_file(const std::string& path) {
    const std::string json = read_text_file(path);
    try {
        read_json(json);
    } catch (const InputError& error) {
        throw InputError(at(path, error.reason()));
    }
}

void NamedCase::set_conductor(const std::string& record_or_name) {
    if (area_ != Area::Line) throw InputError(Reason(of_lines_only));
    PosixFiles files;
    conductor_ = choose_conductor(*open_conductors(), files, record_or_name, plain.separator);
}

CalcCase NamedCase::line() const {
    CaseFile file = read_case(values_, plain);
    if (!file.refused.empty()) {
        const auto& [field, box] = file.refused.front();
        throw InputError(at(field, Reason(in_one_line(joined(box.lines, "\n")))));
    }
    if (conductor_) (void)take(*conductor_, file.c, plain);
    return std::move(file.c);
}

}  // namespace zel::library
