#pragma once

#include <cstdint>
#include <optional>

#include "measuring/instruments.h"
#include "platform/message_box.h"
#include "shell/program_settings.h"

// Which instrument hangs on which port.

namespace zel::measuring {

/// The ports that the settings number.
inline constexpr std::int16_t port_count = 4;

/// One of the two instruments as the menu of the ports knows it.
struct PortOwner {
    const char* submenu;
    Text caption;
    const char* item;  // followed by the number of the port
    NumberMember setting;
    TextMember line;
    std::string_view telling_name;  // in the messages
};
/// The anemometer (`MUCOM`) and the radiation meter (`MGCOM`).
inline constexpr std::size_t anemometer_owner = 0;
inline constexpr std::size_t radiation_owner = 1;
[[nodiscard]] const PortOwner& port_owner(std::size_t owner);

/// The captions of the four items run one behind what messages call the ports.
[[nodiscard]] Text port_caption(std::int16_t port);

/// How an item of the menu stands: the port of its own instrument is marked, that of the other one
/// cannot be chosen. A number that no port has marks nothing and closes nothing.
struct PortItem {
    bool marked = false;
    bool open = true;
};
[[nodiscard]] PortItem port_item(std::size_t owner, std::int16_t port,
                                 const ProgramSettings& settings);

/// Asks and, unless the port is taken by the other instrument, stores it; tells what became of it.
void assign_port(std::size_t owner, std::int16_t port, Settings& settings, Dialogs& dialogs,
                 LangId lang);

/// The line of an instrument, whatever its port. Throws `InputError` naming the key of the
/// settings.
[[nodiscard]] PortLine line_of(std::size_t owner, const ProgramSettings& settings);

struct Connections {
    Connection anemometer;
    Connection radiation_meter;
};
/// Devices and lines of both instruments. Throws `InputError`, naming the key of the settings,
/// where one has no port or no line.
[[nodiscard]] Connections connections(const ProgramSettings& settings);

}  // namespace zel::measuring
