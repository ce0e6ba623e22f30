#include "adapters/xlsx/xlsx_archive.h"

#include <zip.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "adapters/xlsx/xml_tags.h"

namespace zel::xlsx {
namespace {

constexpr Text not_packed = {"kann nicht gepackt werden", "cannot be packed"};
constexpr Text part_is_damaged = {"ihr Teil {0} ist beschädigt", "its part {0} is damaged"};
constexpr Text is_protected = {"ist durch ein Kennwort geschützt: ohne eines speichern",
                               "is protected by a password: save it without one"};

constexpr zip_uint64_t mebibyte = 1ULL << 20U;
// 100 000 rows of 81 columns unpack to half a gigabyte, 18 times the size of their file where all
// rows are the same.
constexpr zip_uint64_t largest_whole = 1024 * mebibyte;
constexpr zip_uint64_t always_fits = 64 * mebibyte;
constexpr zip_uint64_t largest_ratio = 50;
constexpr std::size_t most_parts = 10000;
// The best compression takes six times as long for a tenth less.
constexpr zip_uint32_t compression_level = 3;

std::string reason_of(zip_error_t& error) {
    const bool no_memory = zip_error_code_zip(&error) == ZIP_ER_MEMORY;
    std::string reason = zip_error_strerror(&error);
    zip_error_fini(&error);
    if (no_memory) throw std::bad_alloc();
    return reason;
}

/// A copy that the library may free: it frees what it replaces.
void* allocated_copy(std::string_view bytes) {
    void* copy = std::malloc(bytes.size());
    if (copy == nullptr) throw std::bad_alloc();
    std::memcpy(copy, bytes.data(), bytes.size());
    return copy;
}

bool is_compound_file(std::string_view bytes) { return bytes.starts_with("\xD0\xCF\x11\xE0"); }

/// Compound files hold streams, whose names stand there in UTF-16.
bool has_stream(std::string_view bytes, std::string_view name) {
    std::string wide;
    for (const char c : name) (wide += c) += '\0';
    return bytes.find(wide) != std::string_view::npos;
}

[[noreturn]] void refuse_compound_file(std::string_view bytes) {
    if (has_stream(bytes, "EncryptedPackage")) refuse_damaged(is_protected);
    if (has_stream(bytes, "Workbook"))
        refuse_damaged(
            {"ist keine xlsx-Datei, sondern eine der älteren Art (xls): als xlsx speichern",
             "is no xlsx file but one of the older kind (xls): save it as xlsx"});
    refuse_damaged(
        {"ist keine xlsx-Datei, sondern eine der älteren Art oder durch ein Kennwort geschützt",
         "is no xlsx file but one of the older kind, or protected by a password"});
}

[[noreturn]] void refuse_parts(std::size_t count) {
    refuse_damaged(
        {"hat {0} Teile, mehr als jede Arbeitsmappe", "has {0} parts, more than any workbook"},
        {std::to_string(count)});
}

/// Before the library makes a list of them, which takes far more memory than they do. Compressed
/// bytes look like the beginning of an entry once in four gigabytes.
void require_few_entries(std::string_view bytes) {
    constexpr std::string_view entry = "PK\1\2";
    std::size_t count = 0;
    for (std::size_t at = bytes.find(entry); at != std::string_view::npos;
         at = bytes.find(entry, at + entry.size()))
        ++count;
    if (count > most_parts) refuse_parts(count);
}

std::string in_mebibytes(zip_uint64_t size) { return std::to_string(size / mebibyte) + " MiB"; }

/// Before anything is unpacked: a small file can hold more than any memory.
void require_sound_sizes(zip* zip, zip_uint64_t file_size) {
    const zip_int64_t count = zip_get_num_entries(zip, 0);
    if (count > static_cast<zip_int64_t>(most_parts)) refuse_parts(static_cast<std::size_t>(count));
    zip_uint64_t whole = 0;
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t state;
        zip_stat_init(&state);
        if (zip_stat_index(zip, static_cast<zip_uint64_t>(i), 0, &state) != 0 ||
            (state.valid & ZIP_STAT_SIZE) == 0)
            refuse_damaged({"ist keine xlsx-Datei (die Größe eines Teils ist unbekannt)",
                            "is no xlsx file (the size of a part is unknown)"});
        if ((state.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 &&
            state.encryption_method != ZIP_EM_NONE)
            refuse_damaged(is_protected);
        if (state.size > largest_whole - whole)
            refuse_damaged({"wird entpackt größer als {0}; mehr wird nicht gelesen",
                            "unpacks to more than {0}, the most that is read"},
                           {in_mebibytes(largest_whole)});
        whole += state.size;
    }
    if (whole > always_fits && whole / largest_ratio > file_size)
        refuse_damaged({"wird entpackt {0} groß, mehr als das {1}-fache ihrer Größe",
                        "unpacks to {0}, more than {1} times its size"},
                       {in_mebibytes(whole), std::to_string(largest_ratio)});
}

}  // namespace

Archive::Archive(std::string_view bytes) {
    // The library takes it for a new archive.
    if (bytes.empty())
        refuse_damaged({"ist keine xlsx-Datei (sie ist leer)", "is no xlsx file (it is empty)"});
    if (is_compound_file(bytes)) refuse_compound_file(bytes);
    require_few_entries(bytes);
    zip_error_t error;
    zip_error_init(&error);
    source_ = zip_source_buffer_create(allocated_copy(bytes), bytes.size(), 1, &error);
    if (source_ == nullptr) refuse_damaged({"{0}", "{0}"}, {reason_of(error)});
    zip_ = zip_open_from_source(source_, ZIP_CHECKCONS, &error);
    if (zip_ == nullptr) {
        zip_source_free(source_);
        refuse_damaged({"ist keine xlsx-Datei ({0})", "is no xlsx file ({0})"}, {reason_of(error)});
    }
    zip_error_fini(&error);
    // Outlives the closing, so that the new bytes can be read from it.
    zip_source_keep(source_);
    try {
        require_sound_sizes(zip_, bytes.size());
        if (has("mimetype") && read("mimetype").find("opendocument") != std::string::npos)
            refuse_damaged(
                {"ist keine xlsx-Datei, sondern eine OpenDocument-Datei (ods): als xlsx speichern",
                 "is no xlsx file but an OpenDocument file (ods): save it as xlsx"});
    } catch (...) {
        discard();
        throw;
    }
}

Archive::~Archive() { discard(); }

void Archive::discard() {
    if (zip_ != nullptr) zip_discard(zip_);
    if (source_ != nullptr) zip_source_free(source_);
}

bool Archive::has(const std::string& part) const {
    return zip_name_locate(zip_, part.c_str(), ZIP_FL_NOCASE) >= 0;
}

std::string Archive::read(const std::string& part) const {
    zip_stat_t state;
    zip_stat_init(&state);
    if (zip_stat(zip_, part.c_str(), ZIP_FL_NOCASE, &state) != 0 ||
        (state.valid & ZIP_STAT_SIZE) == 0)
        refuse_damaged({"hat keinen Teil {0}", "has no part {0}"}, {part});
    zip_file_t* file = zip_fopen_index(zip_, state.index, 0);
    if (file == nullptr)
        refuse_damaged(
            {"ihr Teil {0} kann nicht gelesen werden: {1}", "its part {0} cannot be read: {1}"},
            {part, reason_of(*zip_get_error(zip_))});
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> open(file, zip_fclose);
    std::string content;
    content.reserve(state.size);
    while (content.size() < state.size) {
        const std::size_t before = content.size();
        content.resize(before + std::min<zip_uint64_t>(mebibyte, state.size - before));
        char* const chunk = content.data() + before;
        const std::size_t size = content.size() - before;
        if (zip_fread(file, chunk, size) != static_cast<zip_int64_t>(size))
            refuse_damaged(part_is_damaged, {part});
        // A cell has at most 32767 characters.
        if (size == mebibyte && std::string_view(chunk, size).find('<') == std::string::npos)
            refuse_damaged({"ihr Teil {0} hat eine Strecke von 1 MiB ohne ein Element",
                            "its part {0} has a stretch of 1 MiB without an element"},
                           {part});
    }
    // The checksum is compared at the end of the part.
    char beyond = 0;
    if (zip_fread(file, &beyond, 1) != 0) refuse_damaged(part_is_damaged, {part});
    return content;
}

void Archive::replace(const std::string& part, std::string content) {
    // Replacing an entry would keep the compression level that is the slowest.
    remove(part);
    const std::string& kept = replaced_.emplace_back(std::move(content));
    zip_source_t* source = zip_source_buffer(zip_, kept.data(), kept.size(), 0);
    if (source == nullptr) throw std::bad_alloc();
    const zip_int64_t index =
        zip_file_add(zip_, part.c_str(), source, ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE);
    if (index < 0) {
        zip_source_free(source);
        refuse_damaged(
            {"ihr Teil {0} kann nicht ersetzt werden: {1}", "its part {0} cannot be replaced: {1}"},
            {part, reason_of(*zip_get_error(zip_))});
    }
    // One date for all, the first that an archive knows: the same results give the same file.
    constexpr zip_uint16_t first_of_1980 = (1U << 5U) | 1U;
    zip_file_set_dostime(zip_, static_cast<zip_uint64_t>(index), 0, first_of_1980, 0);
    zip_set_file_compression(zip_, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE,
                             compression_level);
}

void Archive::remove(const std::string& part) {
    const zip_int64_t index = zip_name_locate(zip_, part.c_str(), ZIP_FL_NOCASE);
    if (index >= 0) zip_delete(zip_, static_cast<zip_uint64_t>(index));
}

std::string Archive::close() {
    if (zip_close(zip_) != 0)
        refuse_damaged({"kann nicht gepackt werden: {0}", "cannot be packed: {0}"},
                       {reason_of(*zip_get_error(zip_))});
    zip_ = nullptr;
    zip_stat_t state;
    zip_stat_init(&state);
    if (zip_source_stat(source_, &state) != 0 || zip_source_open(source_) != 0)
        refuse_damaged(not_packed);
    std::string bytes(state.size, '\0');
    const bool whole = zip_source_read(source_, bytes.data(), bytes.size()) ==
                       static_cast<zip_int64_t>(state.size);
    zip_source_close(source_);
    if (!whole) refuse_damaged(not_packed);
    return bytes;
}

}  // namespace zel::xlsx
