#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/errors.h"
#include "platform/sensor_port.h"

// Time and serial ports by the script of a test.

namespace zel {

/// Noon of the 22nd of November 2026, and what goes by from then on.
class ScriptedClock : public Clock {
public:
    [[nodiscard]] std::chrono::milliseconds elapsed() const override { return gone; }
    [[nodiscard]] CalendarTime now() const override {
        const auto seconds = static_cast<int>(gone.count() / 1000);
        return {22, 11, 2026, 12 + seconds / 3600, seconds / 60 % 60, seconds % 60};
    }

    std::chrono::milliseconds gone{0};
};

/// Devices by their names, with the bytes that wait in them. One that is not named is not there,
/// or has gone.
class ScriptedPorts : public SensorPorts {
public:
    std::unique_ptr<SensorPort> open(const std::string& device, const PortLine& line) override {
        if (!waiting.contains(device)) throw InputError(device, PlatformFault::DeviceFailed);
        opened.emplace_back(device, line);
        return std::make_unique<Port>(waiting, device);
    }

    std::map<std::string, std::string> waiting;
    std::vector<std::pair<std::string, PortLine>> opened;

private:
    class Port : public SensorPort {
    public:
        Port(std::map<std::string, std::string>& waiting, std::string device)
            : waiting_(waiting), device_(std::move(device)) {}
        std::string read() override {
            const auto found = waiting_.find(device_);
            if (found == waiting_.end()) throw PlatformError(PlatformFault::DeviceFailed, device_);
            return std::exchange(found->second, {});
        }

    private:
        std::map<std::string, std::string>& waiting_;
        std::string device_;
    };
};

}  // namespace zel
