#pragma once

#include <string>
#include <string_view>

#include "cli/commands.h"
#include "program/console.h"
#include "steady/case/method.h"

// What the commands have in common that calculate one case.

namespace zel {

struct CaseWords : CommonOptions {
    std::string case_path{};
};

/// The word CASE.
void add_case_word(CLI::App& command, CaseWords& words);
/// The options of output and language, and `notes` with the exit statuses.
void add_case_options(CLI::App& command, CaseWords& words, const char* notes);

/// "--method", of which something is drawn.
void add_method_option(CLI::App& command, std::optional<Method>& method);

/// One run of such a command.
class CaseRun {
public:
    explicit CaseRun(const CaseWords& words) : words_(words), console_(words) {}
    virtual ~CaseRun() = default;
    CaseRun(const CaseRun&) = delete;
    CaseRun& operator=(const CaseRun&) = delete;

    /// Calculates and prints, and gives the exit status. Where the calculation has to end the
    /// program, that is told, and what was found up to there is printed as a document.
    int run();

protected:
    /// Ends with `printed` or `refused`.
    virtual int calculate() = 0;
    /// For "--json"; `program_end` is the reason of a run that had to end the program.
    [[nodiscard]] virtual std::string document(std::string_view program_end) const = 0;
    /// Inputs and results for a terminal.
    [[nodiscard]] virtual std::string page() const = 0;

    [[nodiscard]] int printed(bool sound) const;
    /// Nothing was calculated because of `box`, which a silent run is told here.
    [[nodiscard]] int refused(const Box& box) const;

    [[nodiscard]] const CaseWords& words() const { return words_; }
    Console& console() { return console_; }
    [[nodiscard]] const std::vector<Message>& messages() const { return console_.messages(); }

private:
    const CaseWords& words_;
    Console console_;
};

}  // namespace zel
