#include <cmath>
#include <vector>

#include "fuzz.h"
#include "measuring/telegrams.h"

// A byte for the instrument, one for the length of pieces, and what comes in at a port.

namespace zel::fuzz {
namespace {

using measuring::TelegramCutter;

struct Heard {
    std::vector<std::string> telegrams;
    std::size_t dropped = 0;

    friend bool operator==(const Heard&, const Heard&) = default;
};

Heard heard(const std::string& bytes, std::size_t piece, TelegramCutter::Kind kind) {
    Heard all;
    TelegramCutter cutter(kind);
    for (std::size_t at = 0; at < bytes.size(); at += piece)
        cutter.feed(std::string_view(bytes).substr(at, piece), [&](std::string_view telegram) {
            all.telegrams.emplace_back(telegram);
            return telegram.size() % 2 == 0;
        });
    all.dropped = cutter.dropped();
    return all;
}

void look_at(const std::string& telegram) {
    if (const auto wind = measuring::read_wind_telegram(telegram)) {
        const auto& direction = wind->Windrichtung;
        require(!direction || (*direction >= 0 && *direction <= 360), "a direction:", telegram);
        const auto& speed = wind->Windgeschwindigkeit;
        require(!speed || (*speed >= 0 && std::isfinite(*speed)), "a speed:", telegram);
        const auto& air = wind->Lufttemperatur;
        require(!air || std::isfinite(*air), "an air temperature:", telegram);
        // The smallest change of a byte is found by the checksum.
        if (telegram.size() > 9 && telegram.front() == '$') {
            std::string wrong = telegram;
            wrong[7] = static_cast<char>(wrong[7] ^ 1);
            require(!measuring::read_wind_telegram(wrong), "a wrong byte is found:", telegram);
        }
    }
    if (const auto radiation = measuring::read_radiation_line(telegram))
        require(measuring::read_radiation_line(std::to_string(*radiation)) == radiation,
                "a radiation comes back:", telegram);
}

}  // namespace
}  // namespace zel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    using measuring::TelegramCutter;
    fuzz::Input input(data, size);
    const auto kind = input.flag() ? TelegramCutter::Kind::Wind : TelegramCutter::Kind::Line;
    const auto piece = static_cast<std::size_t>(input.place(64));
    const std::string bytes = input.rest();
    const fuzz::Heard all = fuzz::heard(bytes, piece, kind);
    fuzz::require(fuzz::heard(bytes, 1, kind) == all, "pieces do not count:", bytes);
    for (const std::string& telegram : all.telegrams) {
        fuzz::require(telegram.size() <= TelegramCutter::longest && !telegram.empty(),
                      "a telegram has its length:", telegram);
        fuzz::look_at(telegram);
    }
    fuzz::look_at(bytes);
    return 0;
}
