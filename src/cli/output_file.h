#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/case_command.h"
#include "workflow/run/notes.h"

namespace zel {

/// The file that a command makes of a case, and what is told of it.
class OutputFile {
public:
    OutputFile(const CaseWords& words, const std::string& path) : words_(words), path_(path) {}

    void write(std::string_view bytes);
    /// Of paper.
    void write(std::string_view bytes, std::size_t sheets);

    /// "file" is null where a run ended before it was written.
    [[nodiscard]] std::string document(const std::vector<Note>& notes,
                                       const std::vector<Message>& messages,
                                       std::string_view program_end) const;
    /// Nothing of a file that was not written.
    [[nodiscard]] std::string page(const std::vector<Note>& notes) const;

private:
    const CaseWords& words_;
    const std::string& path_;
    bool written_ = false;
    std::optional<std::size_t> sheets_{};
};

}  // namespace zel
