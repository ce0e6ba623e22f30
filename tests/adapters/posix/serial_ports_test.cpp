#include "adapters/posix/serial_ports.h"

#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

#include "fakes/scripted_dialogs.h"

namespace zel {
namespace {

/// A pseudo-terminal; what is written here comes in at its port.
class SerialPortsTest : public testing::Test {
protected:
    SerialPortsTest() : instrument(::posix_openpt(O_RDWR | O_NOCTTY)) {
        EXPECT_EQ(::grantpt(instrument), 0);
        EXPECT_EQ(::unlockpt(instrument), 0);
        device = ::ptsname(instrument);
    }
    ~SerialPortsTest() override { unplug(); }
    void send(const std::string& bytes) const {
        EXPECT_EQ(::write(instrument, bytes.data(), bytes.size()),
                  static_cast<ssize_t>(bytes.size()));
    }
    void unplug() {
        if (instrument >= 0) ::close(instrument);
        instrument = -1;
    }

    int instrument;
    std::string device;
    SerialPorts ports;
};

TEST_F(SerialPortsTest, give_bytes_as_they_come_and_never_wait) {
    const auto port = ports.open(device, {19200, 8, Parity::None, 1});
    EXPECT_EQ(port->read(), "");
    send("412\r\n\x03\x02\xFF");
    EXPECT_EQ(port->read(), "412\r\n\x03\x02\xFF");
    EXPECT_EQ(port->read(), "");
    termios settings{};
    ASSERT_EQ(::tcgetattr(instrument, &settings), 0);
    EXPECT_EQ(::cfgetispeed(&settings), speed_t{B19200});
}

TEST_F(SerialPortsTest, tell_that_the_device_has_gone) {
    const auto port = ports.open(device, {});
    unplug();
    EXPECT_THROW((void)port->read(), PlatformError);
}

TEST_F(SerialPortsTest, refuse_what_is_no_port_and_what_is_open) {
    EXPECT_EQ(refusal_of([&] { return ports.open("/nowhere/tty", {}); }),
              "/nowhere/tty: No such file or directory");
    EXPECT_EQ(refusal_of([&] { return ports.open("/dev/null", {}); }),
              "/dev/null: is no serial port");
    const auto port = ports.open(device, {});
    EXPECT_EQ(refusal_of([&] { return ports.open(device, {}); }), device + ": is already open");
}

}  // namespace
}  // namespace zel
