#include "cli/process.h"

#include <sys/wait.h>

#include <cstdlib>

#include "fakes/scratch_folder.h"

namespace zel {
namespace {

std::string quoted(const std::string& word) {
    std::string out = "'";
    for (const char c : word) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

}  // namespace

ProcessResult run_zel(const std::vector<std::string>& arguments, const std::string& directory,
                      const std::string& input, const std::string& home,
                      const std::string& program) {
    const ScratchFolder scratch;
    const std::string own_home = home.empty() ? scratch.file("home") : home;
    scratch.write("in", input);
    std::string command =
        "cd " + quoted(directory) + " && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " +
        "-u XDG_DATA_HOME -u XDG_CONFIG_HOME HOME=" + quoted(own_home) + " " + quoted(program);
    for (const std::string& argument : arguments) {
        command += ' ';
        command += quoted(argument);
    }
    command += " < " + quoted(scratch.file("in")) + " > " + quoted(scratch.file("out")) + " 2> " +
               quoted(scratch.file("err"));
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, scratch.read("out"), scratch.read("err")};
}

}  // namespace zel
