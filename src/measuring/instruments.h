#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <string>

#include "measuring/telegrams.h"
#include "platform/clock.h"
#include "platform/sensor_port.h"

// The anemometer and the radiation meter, behind serial ports or simulated.

namespace zel::measuring {

/// What the instruments tell at the moment.
struct Readings {
    double Windrichtung = 0;         // degrees, clockwise from north, as the anemometer delivers it
    double Windgeschwindigkeit = 0;  // m/s
    double Lufttemperatur = 0;       // °C
    std::int16_t Globalstrahlung = 0;  // W/m²
};

enum class InstrumentState : std::uint8_t {
    Waiting,  // nothing has come yet
    Sending,
    Silent,   // nothing has come for a while
    Rubbish,  // nothing that can be read has come, or not for a while
    Gone,     // the device is not there
};

struct InstrumentStatus {
    InstrumentState state = InstrumentState::Waiting;
    std::size_t telegrams = 0;  // taken
    std::size_t dropped = 0;
    bool overdue = false;  // has told nothing for too long

    [[nodiscard]] bool gives_nothing() const { return overdue || state == InstrumentState::Gone; }
};

/// An instrument that tells nothing for so long is silent.
inline constexpr std::chrono::milliseconds longest_silence{3000};

/// Both instruments. Each of the two calls of a tick is over at once.
class Instruments {
public:
    virtual ~Instruments() = default;
    /// Before the first tick of a cycle. Throws `InputError`, with both closed, where an instrument
    /// is not there.
    virtual void open() = 0;
    virtual void close() = 0;

    /// Brings wind and air temperature up to date; what has not come stays.
    virtual void S63_Einlesen_Ultrasonic(Readings& readings) = 0;
    /// Brings the radiation up to date. Throws `PlatformError` (`Overflow`) where it has no number.
    virtual void S64_Einlesen_GM33(Readings& readings) = 0;

    [[nodiscard]] virtual InstrumentStatus anemometer() const = 0;
    [[nodiscard]] virtual InstrumentStatus radiation_meter() const = 0;
};

/// A serial port that an instrument sends to.
struct Connection {
    std::string device;
    PortLine line;
};

/// What a telegram was good for.
enum class Taken : std::uint8_t { Dropped, PassedOver, Measured };

/// One instrument on a port. A device that goes is opened again when it comes back.
class SerialInstrument {
public:
    SerialInstrument(SensorPorts& ports, Connection connection, const Clock& clock,
                     TelegramCutter::Kind kind)
        : ports_(ports), connection_(std::move(connection)), clock_(clock), cutter_(kind) {}

    void open();  // throws `InputError`
    void close();
    /// Hands what has come in to `take`. Only what it has measured keeps the instrument from being
    /// silent.
    void read(const std::function<Taken(std::string_view)>& take);
    [[nodiscard]] InstrumentStatus status() const;

private:
    void come_back();

    SensorPorts& ports_;
    Connection connection_;
    const Clock& clock_;
    TelegramCutter cutter_;
    std::unique_ptr<SensorPort> port_;
    std::chrono::milliseconds last_{};  // telegram, or the opening
    std::size_t telegrams_ = 0;
    std::size_t dropped_before_ = 0;  // this cycle
    std::size_t dropped_till_last_ = 0;
};

class SerialInstruments : public Instruments {
public:
    SerialInstruments(SensorPorts& ports, const Connection& anemometer,
                      const Connection& radiation_meter, const Clock& clock)
        : anemometer_(ports, anemometer, clock, TelegramCutter::Kind::Wind),
          radiation_meter_(ports, radiation_meter, clock, TelegramCutter::Kind::Line) {}

    void open() override;
    void close() override;
    void S63_Einlesen_Ultrasonic(Readings& readings) override;
    void S64_Einlesen_GM33(Readings& readings) override;
    [[nodiscard]] InstrumentStatus anemometer() const override { return anemometer_.status(); }
    [[nodiscard]] InstrumentStatus radiation_meter() const override {
        return radiation_meter_.status();
    }

private:
    SerialInstrument anemometer_;
    SerialInstrument radiation_meter_;
};

/// A steady wind with gusts, and a radiation that climbs by 1 W/m² a tick; always the same.
class SimulatedInstruments : public Instruments {
public:
    void open() override { tick_ = 0; }
    void close() override {}
    void S63_Einlesen_Ultrasonic(Readings& readings) override;
    void S64_Einlesen_GM33(Readings& readings) override { S64_Einlesen_GM33_vorführ(readings); }
    [[nodiscard]] InstrumentStatus anemometer() const override { return status(); }
    [[nodiscard]] InstrumentStatus radiation_meter() const override { return status(); }

private:
    static void S64_Einlesen_GM33_vorführ(Readings& readings);
    [[nodiscard]] InstrumentStatus status() const {
        return {tick_ == 0 ? InstrumentState::Waiting : InstrumentState::Sending, tick_, 0};
    }

    std::size_t tick_ = 0;
};

}  // namespace zel::measuring
