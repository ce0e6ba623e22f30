#include "platform/sensor_port.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zel {
namespace {

constexpr std::array rates = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};

std::optional<Parity> parity_of(char letter) {
    switch (letter) {
        case 'N':
        case 'n': return Parity::None;
        case 'E':
        case 'e': return Parity::Even;
        case 'O':
        case 'o': return Parity::Odd;
        default: return std::nullopt;
    }
}

}  // namespace

std::optional<PortLine> port_line(std::string_view text) {
    PortLine line;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, line.baud);
    if (error != std::errc() || std::find(rates.begin(), rates.end(), line.baud) == rates.end())
        return std::nullopt;
    const std::string_view frame(rest, static_cast<std::size_t>(end - rest));
    if (frame.size() != 4 || frame[0] != ' ') return std::nullopt;  // " 8N1"
    const auto parity = parity_of(frame[2]);
    line.data_bits = frame[1] - '0';
    line.stop_bits = frame[3] - '0';
    if (!parity || line.data_bits < 7 || line.data_bits > 8 || line.stop_bits < 1 ||
        line.stop_bits > 2)
        return std::nullopt;
    line.parity = *parity;
    return line;
}

std::string port_rates() {
    std::string list;
    for (const int rate : rates) list += (list.empty() ? "" : ", ") + std::to_string(rate);
    return list;
}

}  // namespace zel
