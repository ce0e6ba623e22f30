#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <optional>

#include "adapters/access/jet_file.h"
#include "adapters/access/wire.h"

// Reads an Access file for the program that started it, question by question (wire.h). It may die
// of what stands in the file, and is limited so that nothing else does.

#if defined(__has_feature)
#if __has_feature(address_sanitizer) && !defined(__SANITIZE_ADDRESS__)
#define __SANITIZE_ADDRESS__ 1  // as g++ has it
#endif
#endif

namespace zel::access {
namespace {

constexpr unsigned longest_work = 20;  // s, of one question, and of the processor altogether

void limit(__rlimit_resource what, rlim_t most) {
    const rlimit both = {most, most};
    (void)::setrlimit(what, &both);
}

void limit_everything() {
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CPU, longest_work);
#ifndef __SANITIZE_ADDRESS__  // which reserves far more
    limit(RLIMIT_AS, rlim_t{1} << 30U);
#endif
}

/// False at the end of the channel.
bool read_whole(char* bytes, std::size_t length) {
    while (length > 0) {
        const ssize_t got = ::read(channel_number, bytes, length);
        if (got <= 0) return false;
        bytes += got;
        length -= static_cast<std::size_t>(got);
    }
    return true;
}

std::optional<std::string> next_question() {
    MessageLength length = 0;
    char head[sizeof length];
    if (!read_whole(head, sizeof head)) return std::nullopt;
    std::memcpy(&length, head, sizeof length);
    if (length > full_answer) return std::nullopt;
    std::string question(length, '\0');
    if (!read_whole(question.data(), length)) return std::nullopt;
    return question;
}

bool send(const Message& answer) {
    const auto length = static_cast<MessageLength>(answer.bytes().size());
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    bytes += answer.bytes();
    for (std::size_t sent = 0; sent < bytes.size();) {
        const ssize_t took = ::write(channel_number, bytes.data() + sent, bytes.size() - sent);
        if (took <= 0) return false;
        sent += static_cast<std::size_t>(took);
    }
    return true;
}

Message beginning(Outcome answer) { return Message().number(static_cast<std::uint64_t>(answer)); }

Message tables(JetFile& file) {
    Message answer = beginning(Outcome::Done);
    answer.number(file.tables().size());
    for (const JetTable& table : file.tables()) {
        const auto columns = table.columns();
        answer.text(table.name()).number(table.rows()).number(columns.size());
        for (const std::string& column : columns) answer.text(column);
    }
    return answer;
}

Message rows(JetFile& file, MessageParts& question) {
    JetTable& table = file.tables().at(question.number());
    const std::uint64_t from = question.number();
    const std::uint64_t most = question.number();
    std::vector<std::uint64_t> columns(question.number(most_columns));
    const std::uint64_t there = table.columns().size();
    for (std::uint64_t& column : columns) column = question.number(there - 1);
    Message found;
    std::uint64_t count = 0;
    bool more = table.go(from);
    for (; more && count < most && found.bytes().size() < full_answer; more = table.next()) {
        found.number(table.key());
        for (const std::uint64_t column : columns) found.cell(table.cell(column));
        ++count;
    }
    Message answer = beginning(Outcome::Done);
    answer.number(more ? 1 : 0).number(count);
    return answer.append(found);
}

Message answer_to(const std::string& bytes, std::optional<JetFile>& file) {
    try {
        if (!file) file.emplace();
        MessageParts question(bytes);
        return question.number() == static_cast<std::uint64_t>(Question::Tables)
                   ? tables(*file)
                   : rows(*file, question);
    } catch (const Outcome& failure) {
        return beginning(failure);
    }
}

int serve() {
    std::optional<JetFile> file;
    auto question = next_question();
    if (!question) {
        std::fputs("zel-access-reader: zel starts it to read an Access file\n", stderr);
        return 2;
    }
    for (; question; question = next_question()) {
        // Who asked may be gone while this never ends.
        ::alarm(longest_work);
        if (!send(answer_to(*question, file))) return 1;
        ::alarm(0);
    }
    return 0;
}

}  // namespace
}  // namespace zel::access

int main() {
    zel::access::limit_everything();
    return zel::access::serve();
}
