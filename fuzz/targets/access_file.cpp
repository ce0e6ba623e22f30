#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <chrono>

#include "adapters/access/access_store.h"
#include "fakes/access_file.h"
#include "fuzz.h"
#include "platform/errors.h"

// A byte for the version of an Access file, and changes of a sound file: the place of a byte in two
// bytes, times 8 and more by the low bits of a third, and the byte. The reader, a process of its
// own, may die of it; what it is given to use of memory and time holds.

namespace zel::fuzz {
namespace {

constexpr int rows_of_sound_file = 8;

const std::string& sound_file(std::uint8_t version) {
    using namespace access_file;
    static const std::array<std::string, 3> files = [] {
        Table table = {"T",
                       {{"a", Type::Boolean},
                        {"b", Type::Long},
                        {"c", Type::Double},
                        {"d", Type::Date},
                        {"e", Type::Currency},
                        {"f", Type::Text, 50},
                        {"g", Type::Memo}},
                       {}};
        for (int row = 0; row < rows_of_sound_file; ++row)
            table.rows.push_back({double(row % 2), double(row), row / 3.0, 46194.5 + row, 12.5,
                                  "Zeile " + std::to_string(row), std::string(40, 'm')});
        table.moved = true;
        return std::array{bytes_of({table}, Version::Jet3), bytes_of({table}, Version::Jet4),
                          bytes_of({table}, Version::Ace)};
    }();
    return files[version % files.size()];
}

/// A file in memory with a path of its own.
class MemoryFile {
public:
    explicit MemoryFile(const std::string& bytes) : number_(::memfd_create("access", MFD_CLOEXEC)) {
        if (::write(number_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            std::abort();
    }
    ~MemoryFile() { ::close(number_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(number_); }

private:
    int number_;
};

}  // namespace
}  // namespace zel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    using namespace std::chrono_literals;
    fuzz::Input input(data, size);
    std::string bytes = fuzz::sound_file(input.byte());
    const bool sound = input.empty();
    while (!input.empty()) {
        std::size_t block = input.byte();
        block = block * 256 + input.byte();
        const std::uint8_t place = input.byte();
        bytes[(block * 8 + place % 8) % bytes.size()] = static_cast<char>(input.byte());
    }
    const fuzz::MemoryFile file(bytes);
    const std::chrono::milliseconds limit = sound ? 20s : 2s;
    const auto begin = std::chrono::steady_clock::now();
    int rows = 0;
    try {
        const auto database = AccessStore(ZEL_ACCESS_READER, limit).open(file.path());
        for (const TableInfo& table : database->tables())
            database->each_row(table.name, table.columns, [&](RowKey, const TableRow& row) {
                fuzz::require(row.size() == table.columns.size(), "a row has its columns");
                ++rows;
                return true;
            });
    } catch (const InputError& error) {
        const std::string_view told = error.what();
        fuzz::require(told.starts_with(file.path() + ": ") &&
                          told.find("is missing") == std::string_view::npos,
                      "a failure names the file:", told);
    }
    if (sound) fuzz::require(rows == fuzz::rows_of_sound_file, "a sound file has its rows");
    // Some seconds more for a machine that is busy.
    fuzz::require(std::chrono::steady_clock::now() - begin < limit + 5s,
                  "the reader keeps to its time");
    return 0;
}
