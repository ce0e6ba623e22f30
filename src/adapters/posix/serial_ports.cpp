#include "adapters/posix/serial_ports.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "adapters/posix/descriptor.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text no_port = {"{0}: ist keine serielle Schnittstelle", "{0}: is no serial port"};
constexpr Text in_use = {"{0}: ist bereits geöffnet", "{0}: is already open"};
constexpr Text gone = {"das Gerät ist nicht mehr da", "the device is not there any more"};

constexpr std::size_t most_at_once = 65536;  // bytes: a flood waits in the system, which stops it

struct Rate {
    int baud;
    speed_t code;
};
constexpr Rate rates[] = {{1200, B1200},   {2400, B2400},   {4800, B4800},   {9600, B9600},
                          {19200, B19200}, {38400, B38400}, {57600, B57600}, {115200, B115200}};

[[noreturn]] void refuse(const std::string& device, int error) {
    throw InputError(at(device, system_reason(error)), posix_fault(error), device);
}

class SerialPort : public SensorPort {
public:
    explicit SerialPort(int descriptor) : descriptor_(descriptor) {}
    ~SerialPort() override { ::close(descriptor_); }
    SerialPort(const SerialPort&) = delete;
    SerialPort& operator=(const SerialPort&) = delete;

    [[nodiscard]] int descriptor() const { return descriptor_; }

    std::string read() override {
        std::string bytes;
        std::array<char, 4096> block{};
        while (bytes.size() < most_at_once) {
            const ssize_t count = ::read(descriptor_, block.data(), block.size());
            if (count > 0) {
                bytes.append(block.data(), static_cast<std::size_t>(count));
                continue;
            }
            if (count < 0 && errno == EINTR) continue;
            // What came before the device went is worth to be read.
            const bool nothing = count < 0 && errno == EAGAIN;
            if (bytes.empty() && (!nothing || hung_up()))
                throw PlatformError(PlatformFault::DeviceFailed, Reason(gone));
            break;
        }
        return bytes;
    }

private:
    [[nodiscard]] bool hung_up() const {
        pollfd asked = {descriptor_, 0, 0};
        return ::poll(&asked, 1, 0) > 0 && (asked.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
    }

    int descriptor_;
};

/// Bytes as they come; without a byte a call does not wait but fails.
void set_line(const SerialPort& port, const std::string& device, const PortLine& line) {
    termios settings{};
    if (::tcgetattr(port.descriptor(), &settings) != 0) refuse(device, errno);
    ::cfmakeraw(&settings);
    settings.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS);
    settings.c_cflag |= CLOCAL | CREAD | (line.data_bits == 7 ? CS7 : CS8);
    settings.c_iflag &= ~static_cast<tcflag_t>(IGNPAR | INPCK);
    // A byte of wrong parity is read as 0, for which its telegram is dropped.
    if (line.parity != Parity::None) {
        settings.c_cflag |= PARENB;
        settings.c_iflag |= INPCK;
    }
    if (line.parity == Parity::Odd) settings.c_cflag |= PARODD;
    if (line.stop_bits == 2) settings.c_cflag |= CSTOPB;
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
    for (const auto& [baud, code] : rates)
        if (baud == line.baud) {
            ::cfsetispeed(&settings, code);
            ::cfsetospeed(&settings, code);
        }
    if (::tcsetattr(port.descriptor(), TCSANOW, &settings) != 0) refuse(device, errno);
}

}  // namespace

std::unique_ptr<SensorPort> SerialPorts::open(const std::string& device, const PortLine& line) {
    const int descriptor = ::open(device.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) refuse(device, errno);
    auto port = std::make_unique<SerialPort>(descriptor);
    if (::isatty(descriptor) != 1) throw InputError(Reason(no_port, {device}));
    // The lock goes with the descriptor.
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) throw InputError(Reason(in_use, {device}));
    set_line(*port, device, line);
    return port;
}

}  // namespace zel
