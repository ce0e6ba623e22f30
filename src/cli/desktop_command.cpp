#include "cli/commands.h"

// The windows are a program of their own beside this one, so that no other command loads the window
// system. Here the words are read and told about; then the process becomes that program, which
// takes them again, and with it this one's standard input, output and exit status.

namespace zel {

void add_desktop(CommandLine& line) {
    const auto [command, words] =
        line.add<DesktopWords>("desktop", "Open the windows", [&line](const DesktopWords&) {
            char** const given = line.words();
            given[1] = given[0];  // in the place of "desktop", which nothing else can precede
            constexpr Text failure = {"the windows cannot be opened: {0}"};
            return become_program("zel-desktop", given + 1, failure, LangId::English);
        });
    add_desktop_words(command, words);
}

}  // namespace zel
