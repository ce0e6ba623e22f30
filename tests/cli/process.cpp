#include "cli/process.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace zel {
namespace {

std::string quoted(const std::string& word) {
    std::string out = "'";
    for (const char c : word) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

std::string content_of(const std::filesystem::path& path) {
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

/// A folder of its own for each process, gone at its end.
class Scratch {
public:
    Scratch() {
        std::string name = testing::TempDir() + "zel_cli_XXXXXX";
        path_ = mkdtemp(name.data());
    }
    ~Scratch() { std::filesystem::remove_all(path_); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    [[nodiscard]] std::filesystem::path file(const char* name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

}  // namespace

ProcessResult run_zel(const std::vector<std::string>& arguments, const std::string& directory,
                      const std::string& input, const std::string& home) {
    const Scratch scratch;
    const std::string own_home = home.empty() ? scratch.file("home").string() : home;
    std::ofstream(scratch.file("in")) << input;
    std::string command =
        "cd " + quoted(directory) + " && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " +
        "-u XDG_DATA_HOME -u XDG_CONFIG_HOME HOME=" + quoted(own_home) + " " + quoted(ZEL_PROGRAM);
    for (const std::string& argument : arguments) {
        command += ' ';
        command += quoted(argument);
    }
    command += " < " + quoted(scratch.file("in")) + " > " + quoted(scratch.file("out")) + " 2> " +
               quoted(scratch.file("err"));
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, content_of(scratch.file("out")),
            content_of(scratch.file("err"))};
}

}  // namespace zel
