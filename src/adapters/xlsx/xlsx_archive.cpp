#include "adapters/xlsx/xlsx_archive.h"

#include <zip.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "adapters/xlsx/xml_tags.h"

namespace zel::xlsx {
namespace {

constexpr zip_uint64_t largest_part = 2ULL << 30U;
// The best compression takes six times as long for a tenth less.
constexpr zip_uint32_t compression_level = 3;

std::string reason_of(zip_error_t& error) {
    std::string reason = zip_error_strerror(&error);
    zip_error_fini(&error);
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

}  // namespace

Archive::Archive(std::string_view bytes) {
    // The library takes it for a new archive.
    if (bytes.empty()) refuse_damaged("is no xlsx file (it is empty)");
    if (is_compound_file(bytes))
        refuse_damaged("is no xlsx file but one of the older kind, or protected by a password");
    zip_error_t error;
    zip_error_init(&error);
    source_ = zip_source_buffer_create(allocated_copy(bytes), bytes.size(), 1, &error);
    if (source_ == nullptr) refuse_damaged(reason_of(error));
    zip_ = zip_open_from_source(source_, ZIP_CHECKCONS, &error);
    if (zip_ == nullptr) {
        zip_source_free(source_);
        refuse_damaged("is no xlsx file (" + reason_of(error) + ")");
    }
    zip_error_fini(&error);
    // Outlives the closing, so that the new bytes can be read from it.
    zip_source_keep(source_);
}

Archive::~Archive() {
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
        refuse_damaged("has no part " + part);
    if (state.size > largest_part) refuse_damaged("its part " + part + " is larger than 2 GiB");
    zip_file_t* file = zip_fopen_index(zip_, state.index, 0);
    if (file == nullptr)
        refuse_damaged("its part " + part + " cannot be read: " + zip_strerror(zip_));
    std::string content(state.size, '\0');
    const zip_int64_t count = zip_fread(file, content.data(), content.size());
    // The checksum is compared at the end of the part.
    char beyond = 0;
    const bool whole =
        count == static_cast<zip_int64_t>(state.size) && zip_fread(file, &beyond, 1) == 0;
    zip_fclose(file);
    if (!whole) refuse_damaged("its part " + part + " is damaged");
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
        refuse_damaged("its part " + part + " cannot be replaced: " + zip_strerror(zip_));
    }
    zip_set_file_compression(zip_, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE,
                             compression_level);
}

void Archive::remove(const std::string& part) {
    const zip_int64_t index = zip_name_locate(zip_, part.c_str(), ZIP_FL_NOCASE);
    if (index >= 0) zip_delete(zip_, static_cast<zip_uint64_t>(index));
}

std::string Archive::close() {
    if (zip_close(zip_) != 0)
        refuse_damaged(std::string("cannot be packed: ") + zip_strerror(zip_));
    zip_ = nullptr;
    zip_stat_t state;
    zip_stat_init(&state);
    if (zip_source_stat(source_, &state) != 0 || zip_source_open(source_) != 0)
        refuse_damaged("cannot be packed");
    std::string bytes(state.size, '\0');
    const bool whole = zip_source_read(source_, bytes.data(), bytes.size()) ==
                       static_cast<zip_int64_t>(state.size);
    zip_source_close(source_);
    if (!whole) refuse_damaged("cannot be packed");
    return bytes;
}

}  // namespace zel::xlsx
