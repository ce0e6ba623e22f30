#include "program/command_line.h"

#include <csignal>
#include <exception>
#include <new>
#include <sstream>

#include "platform/errors.h"

namespace zel {

void add_desktop_words(CLI::App& command, DesktopWords& words) {
    command.add_option("CASE", words.case_path, "Case file (JSON) to start with");
    add_language(command, words.lang, words.separator);
    command.footer(
        "\nEnds with 0 when the windows are closed, with 1 without a display, with 2 where the case\n"
        "is refused, and with 3 where a calculation had to end the program.");
}

constexpr std::size_t longest_line = 400;  // a word of the user may have any length

std::optional<int> refused_words(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(argc, argv);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        std::ostringstream help;
        std::ostringstream refusal;
        if (app.exit(error, help, refusal) == 0) return print_or_fail(help.str());
        std::string told;
        for (const std::string& line : lines_of(refusal.str()))
            told += (told.empty() ? "" : "\n") + shortened(line, longest_line);
        Console::tell_reason(told);
        return exit_refused;
    }
}

int guarded(const std::function<int()>& body, LangId lang) {
    // A file beyond the size limit of the process is told as what cannot be written.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return body();
    } catch (const InputError& error) {
        Console::tell_reason(error.told(lang));
        return exit_refused;
    } catch (const OutputError& error) {
        Console::tell_reason(error.told(lang));
        return exit_refused;
    } catch (const std::bad_alloc&) {
        constexpr Text no_memory = {"der Speicher reicht nicht", "the memory is not enough"};
        Console::tell_reason(no_memory.in(lang));
        return exit_failed;
    } catch (const std::exception& error) {
        constexpr Text unexpected = {"unerwarteter Fehler: {0}", "unexpected failure: {0}"};
        Console::tell_reason(fill(unexpected.in(lang), {error.what()}));
        return exit_failed;
    }
}

}  // namespace zel
