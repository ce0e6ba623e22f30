#include <deque>

#include "adapters/access/access_store.h"
#include "adapters/access/reader_process.h"
#include "fuzz.h"
#include "platform/errors.h"
#include "platform/text/utf8.h"

// What a reader of Access files that went wrong may answer: answers with FE FD between them, each
// the bytes of a message. The process is played; this file stands in for reader_process.cpp.

namespace {

std::deque<std::string>& answers() {
    static std::deque<std::string> waiting;
    return waiting;
}

}  // namespace

namespace zel::access {

ReaderProcess::ReaderProcess(const std::string& /*program*/, int /*file*/,
                             std::chrono::milliseconds limit)
    : left_(limit) {}
// There is no process to end.
ReaderProcess::~ReaderProcess() {}  // NOLINT(modernize-use-equals-default)

std::string ReaderProcess::ask(const Message& question) {
    // The question itself is a message.
    MessageParts parts(question.bytes());
    const std::uint64_t kind = parts.number();
    if (kind == static_cast<std::uint64_t>(Question::Rows)) {
        for (int number = 0; number < 3; ++number) (void)parts.number();
        for (std::uint64_t left = parts.number(most_columns); left > 0; --left)
            (void)parts.number(most_columns);
    }
    parts.end();
    if (answers().empty()) throw End::Broken;
    std::string answer = std::move(answers().front());
    answers().pop_front();
    return answer;
}

}  // namespace zel::access

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    std::string text(size, '\0');
    if (size > 0) std::memcpy(text.data(), data, size);
    constexpr std::string_view between = "\xFE\xFD";
    answers().clear();
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(between, at), text.size());
        answers().push_back(text.substr(at, end - at));
        at = end + between.size();
    }
    try {
        const auto database = AccessStore("reader").open("/dev/null");
        for (const TableInfo& table : database->tables()) {
            fuzz::require(is_utf8(table.name), "a name is UTF-8:", table.name);
            RowKey former = -1;
            database->each_row(table.name, table.columns, [&](RowKey key, const TableRow& row) {
                fuzz::require(row.size() == table.columns.size(), "a row has its columns");
                fuzz::require(key > former, "rows stand in their order");
                former = key;
                for (const auto& cell : row)
                    fuzz::require(!cell || is_utf8(*cell), "a cell is UTF-8");
                return true;
            });
            const auto keys = database->rows(table.name);
            if (!keys.empty()) (void)database->row(table.name, keys.front());
        }
    } catch (const InputError& error) {
        fuzz::require(std::string_view(error.what()).starts_with("/dev/null: "),
                      "a failure names the file:", error.what());
    }
    return 0;
}
