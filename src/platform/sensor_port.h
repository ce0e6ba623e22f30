#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// Serial ports that instruments send to.

namespace zel {

enum class Parity : std::uint8_t { None, Even, Odd };

/// How the bits go over the line.
struct PortLine {
    int baud = 9600;
    int data_bits = 8;
    Parity parity = Parity::None;
    int stop_bits = 1;

    friend bool operator==(const PortLine&, const PortLine&) = default;
};

/// A line as the settings write it: "9600 8N1", "19200 7E2". Nothing where the text is none: the
/// rate is one of the usual ones from 1200 to 115200, data bits are 7 or 8, the parity is N, E or
/// O, stop bits are 1 or 2.
[[nodiscard]] std::optional<PortLine> port_line(std::string_view text);

/// The rates that a line may have, for messages: "1200, 2400, ...".
[[nodiscard]] std::string port_rates();

/// An open port.
class SensorPort {
public:
    virtual ~SensorPort() = default;
    /// What has come in since the last call, at most 64 KiB of it; empty where there is nothing.
    /// Never waits. Throws `PlatformError` (`DeviceFailed`) where the device has gone.
    [[nodiscard]] virtual std::string read() = 0;
};

/// Where ports are opened by the names of their devices.
class SensorPorts {
public:
    virtual ~SensorPorts() = default;
    /// Throws `InputError`, naming the device, where it cannot be opened or is no serial port.
    [[nodiscard]] virtual std::unique_ptr<SensorPort> open(const std::string& device,
                                                           const PortLine& line) = 0;
};

}  // namespace zel
