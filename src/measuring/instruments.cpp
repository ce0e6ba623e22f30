#include "measuring/instruments.h"

#include <cmath>
#include <limits>

#include "platform/errors.h"

namespace zel::measuring {
namespace {

constexpr Text overflow = {"die Globalstrahlung wird größer als 32767 W/m²",
                           "the global radiation becomes greater than 32767 W/m²"};

template <class Value, class Told>
void take_over(Value& value, const std::optional<Told>& told) {
    if (told) value = *told;
}

}  // namespace

void SerialInstrument::open() {
    cutter_.reset();
    port_ = ports_.open(connection_.device, connection_.line);
    last_ = clock_.elapsed();
    telegrams_ = 0;
    dropped_before_ = dropped_till_last_ = cutter_.dropped();
}

void SerialInstrument::close() { port_.reset(); }

void SerialInstrument::come_back() {
    try {
        port_ = ports_.open(connection_.device, connection_.line);
        cutter_.reset();
    } catch (const PlatformError&) {  // is tried again at the next tick
    }
}

void SerialInstrument::read(const std::function<Taken(std::string_view)>& take) {
    if (!port_) come_back();
    if (!port_) return;
    try {
        cutter_.feed(port_->read(), [&](std::string_view telegram) {
            const Taken taken = take(telegram);
            if (taken != Taken::Measured) return taken == Taken::PassedOver;
            ++telegrams_;
            last_ = clock_.elapsed();
            dropped_till_last_ = cutter_.dropped();
            return true;
        });
    } catch (const PlatformError&) {
        port_.reset();
    }
}

InstrumentStatus SerialInstrument::status() const {
    InstrumentStatus status = {InstrumentState::Sending, telegrams_,
                               cutter_.dropped() - dropped_before_,
                               clock_.elapsed() - last_ >= longest_silence};
    if (!port_)
        status.state = InstrumentState::Gone;
    else if (cutter_.dropped() > dropped_till_last_ && (status.overdue || telegrams_ == 0))
        status.state = InstrumentState::Rubbish;
    else if (status.overdue)
        status.state = InstrumentState::Silent;
    else if (telegrams_ == 0)
        status.state = InstrumentState::Waiting;
    return status;
}

void SerialInstruments::open() {
    anemometer_.open();
    try {
        radiation_meter_.open();
    } catch (...) {
        anemometer_.close();
        throw;
    }
}

void SerialInstruments::close() {
    anemometer_.close();
    radiation_meter_.close();
}

void SerialInstruments::S63_Einlesen_Ultrasonic(Readings& readings) {
    anemometer_.read([&](std::string_view telegram) {
        const auto told = read_wind_telegram(telegram);
        if (!told) return Taken::Dropped;
        take_over(readings.Windrichtung, told->Windrichtung);
        take_over(readings.Windgeschwindigkeit, told->Windgeschwindigkeit);
        take_over(readings.Lufttemperatur, told->Lufttemperatur);
        return told->Windgeschwindigkeit ? Taken::Measured : Taken::PassedOver;
    });
}

void SerialInstruments::S64_Einlesen_GM33(Readings& readings) {
    radiation_meter_.read([&](std::string_view line) {
        const auto told = read_radiation_line(line);
        take_over(readings.Globalstrahlung, told);
        return told ? Taken::Measured : Taken::Dropped;
    });
}

void SimulatedInstruments::S63_Einlesen_Ultrasonic(Readings& readings) {
    const auto t = static_cast<double>(tick_++);
    constexpr std::size_t gust_every = 40;  // ticks
    constexpr std::size_t gust_length = 8;
    const bool gust = tick_ % gust_every >= gust_every - gust_length;
    readings.Windrichtung = 240 + 15 * std::sin(t / 9);
    readings.Windgeschwindigkeit = 3.2 + 0.4 * std::sin(t / 5) + (gust ? 2.5 : 0);
    readings.Lufttemperatur = 18.5 + 0.3 * std::sin(t / 30);
}

void SimulatedInstruments::S64_Einlesen_GM33_vorführ(Readings& readings) {
    if (readings.Globalstrahlung == std::numeric_limits<std::int16_t>::max())
        throw PlatformError(PlatformFault::Overflow, Reason(overflow));
    ++readings.Globalstrahlung;
}

}  // namespace zel::measuring
