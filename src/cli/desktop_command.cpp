#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "adapters/posix/posix_files.h"
#include "cli/commands.h"

// The windows are a program of their own beside this one, so that no other command loads the window
// system. Here the words are read and told about; then the process becomes that program, which
// takes them again, and with it this one's standard input, output and exit status.

namespace zel {
namespace {

/// Gives a status only where there is no such program. The first of `words` is its name, as of
/// every program.
int become_windows(char** words) {
    const std::string program = program_folder() + "/zel-desktop";
    ::execv(program.c_str(), words);
    Console::tell_reason("the windows cannot be opened: " + program + ": " +
                         std::generic_category().message(errno));
    return exit_failed;
}

}  // namespace

void add_desktop(CommandLine& line) {
    const auto [command, words] =
        line.add<DesktopWords>("desktop", "Open the windows", [&line](const DesktopWords&) {
            char** const given = line.words();
            given[1] = given[0];  // in the place of "desktop", which nothing else can precede
            return become_windows(given + 1);
        });
    add_desktop_words(command, words);
}

}  // namespace zel
