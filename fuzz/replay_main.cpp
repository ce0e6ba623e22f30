#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include "fuzz.h"

// Runs a fuzz target over the files in the folders that are its further arguments, and then over as
// many changed ones as the first says: the same ones in every run. The environment variable
// ZEL_FUZZ_CHANGED asks for another number. An input that breaks the target is kept as
// "broken_input" in the working folder. Exit status 2 where there is no file.

namespace {

namespace fs = std::filesystem;

std::string input;  // that is run

void keep_input(int signal) {
    const int file = ::open("broken_input", O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (file < 0 || ::write(file, input.data(), input.size()) < 0) _exit(1);
    constexpr std::string_view told = "kept as broken_input\n";
    (void)!::write(STDERR_FILENO, told.data(), told.size());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void run() {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

std::vector<std::string> seeds_in(const std::vector<fs::path>& folders) {
    std::vector<fs::path> files;
    for (const fs::path& folder : folders)
        if (fs::is_directory(folder))
            for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::vector<std::string> seeds;
    for (const fs::path& file : files) {
        std::ifstream stream(file, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(stream),
                           std::istreambuf_iterator<char>());
    }
    return seeds;
}

/// One of `seeds` with up to four changes: a byte, a bit, a stretch that is gone, that stands
/// twice, or that comes from another one.
std::string changed(const std::vector<std::string>& seeds, std::mt19937& random) {
    const auto below = [&](std::size_t end) { return end == 0 ? 0 : random() % end; };
    std::string text = seeds[below(seeds.size())];
    for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
        const std::size_t at = below(text.size());
        const std::size_t length = 1 + below(std::size_t{1} << below(6));
        const std::string& other = seeds[below(seeds.size())];
        switch (below(5)) {
            case 0: text.insert(at, 1, static_cast<char>(random())); break;
            case 1:
                if (!text.empty()) text[at] = static_cast<char>(text[at] ^ (1 << below(8)));
                break;
            case 2: text.erase(at, length); break;
            case 3: text.insert(below(text.size()), text.substr(at, length)); break;
            default: text.insert(at, other.substr(below(other.size()), length));
        }
    }
    return text;
}

}  // namespace

int main(int count, char** words) {
    if (count < 3) return 2;
    for (const int signal : {SIGABRT, SIGSEGV, SIGFPE, SIGILL, SIGBUS})
        std::signal(signal, keep_input);
    const char* const asked = std::getenv("ZEL_FUZZ_CHANGED");
    const long changes = std::atol(asked == nullptr ? words[1] : asked);
    const std::vector<std::string> seeds = seeds_in({words + 2, words + count});
    if (seeds.empty()) return 2;
    for (const std::string& seed : seeds) {
        input = seed;
        run();
    }
    std::mt19937 random(19);
    for (long done = 0; done < changes; ++done) {
        input = changed(seeds, random);
        run();
    }
    std::printf("%zu seeds, %ld changed ones\n", seeds.size(), changes);
}
