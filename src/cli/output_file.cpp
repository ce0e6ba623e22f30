#include "cli/output_file.h"

#include <nlohmann/json.hpp>

#include "adapters/posix/text_file.h"
#include "cli/case_output.h"

namespace zel {
namespace {

constexpr Text file_written = {"{0} geschrieben\n", "{0} written\n"};
constexpr Text sheet_written = {"{0} geschrieben, {1} Blatt\n", "{0} written, {1} sheet\n"};
constexpr Text sheets_written = {"{0} geschrieben, {1} Blatt\n", "{0} written, {1} sheets\n"};

}  // namespace

void OutputFile::write(std::string_view bytes) {
    write_text_file(path_, bytes);
    written_ = true;
}

void OutputFile::write(std::string_view bytes, std::size_t sheets) {
    write(bytes);
    sheets_ = sheets;
}

std::string OutputFile::document(const std::vector<Note>& notes,
                                 const std::vector<Message>& messages,
                                 std::string_view program_end) const {
    nlohmann::ordered_json document = {{"file", nullptr}};
    if (written_) document["file"] = path_;
    if (sheets_) document["sheets"] = *sheets_;
    document["notes"] = json_of(notes);
    document["messages"] = json_of(messages);
    if (!program_end.empty()) document["program_end"] = program_end;
    return json_text(document);
}

std::string OutputFile::page(const std::vector<Note>& notes) const {
    if (!written_) return {};
    const Text& told = !sheets_ ? file_written : *sheets_ == 1 ? sheet_written : sheets_written;
    return fill(told.in(words_.lang), {path_, std::to_string(sheets_.value_or(0))}) +
           notes_text(notes, words_.lang);
}

}  // namespace zel
