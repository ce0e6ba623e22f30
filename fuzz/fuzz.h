#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

// What the fuzz targets share. A target is one `LLVMFuzzerTestOneInput`: with libFuzzer it is fed
// what may break it (preset `fuzz`), and with `replay_main.cpp` it is a test that runs the seeds.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace zel::fuzz {

/// Ends the run where a property does not hold; the input is then kept as a finding.
inline void require(bool holds, std::string_view what, std::string_view seen = "") {
    if (holds) return;
    std::fprintf(stderr, "broken property: %.*s %.*s\n", static_cast<int>(what.size()), what.data(),
                 static_cast<int>(seen.size()), seen.data());
    std::abort();
}

/// The bytes of an input, taken from its beginning. What it lacks is zero, or empty.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(size, '\0') {
        if (size > 0) std::memcpy(rest_.data(), data, size);
    }

    std::uint8_t byte() {
        if (at_ == rest_.size()) return 0;
        return static_cast<std::uint8_t>(rest_[at_++]);
    }
    bool flag() { return (byte() & 1U) != 0; }
    /// From 1 to `most`.
    int place(int most) { return 1 + byte() % most; }
    /// Up to the next `end`, which is passed over.
    std::string until(char end) {
        const std::size_t found = std::min(rest_.find(end, at_), rest_.size());
        std::string part = rest_.substr(at_, found - at_);
        at_ = std::min(found + 1, rest_.size());
        return part;
    }
    std::string line() { return until('\n'); }
    std::string rest() { return rest_.substr(std::exchange(at_, rest_.size())); }
    [[nodiscard]] bool empty() const { return at_ == rest_.size(); }

private:
    std::string rest_;
    std::size_t at_ = 0;
};

}  // namespace zel::fuzz
