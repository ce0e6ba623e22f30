#pragma once

#include "platform/sensor_port.h"

namespace zel {

/// The serial ports of the system, and pseudo-terminals. A device that is open in this program or
/// another one of the user is refused.
class SerialPorts : public SensorPorts {
public:
    [[nodiscard]] std::unique_ptr<SensorPort> open(const std::string& device,
                                                   const PortLine& line) override;
};

}  // namespace zel
