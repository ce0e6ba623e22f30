#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

// What the instruments send, telegram by telegram.

namespace zel::measuring {

/// What a telegram of an anemometer tells; nothing stands for what it does not hold.
struct WindTelegram {
    std::optional<double> Windrichtung;         // degrees, clockwise from north
    std::optional<double> Windgeschwindigkeit;  // m/s
    std::optional<double> Lufttemperatur;       // °C

    friend bool operator==(const WindTelegram&, const WindTelegram&) = default;
};

/// Reads a telegram without its line end. Nothing where it is to be dropped: a wrong or missing
/// checksum, a status that tells of a fault, a number or a unit that is none.
///
///     $--MWV,214.8,R,3.1,M,A*hh           NMEA 0183: direction, reference R or T, speed, its unit
///                                         (M m/s, N knots, K km/h), status A; XOR between $ and *
///     $--XDR,C,12.1,C,ID*hh               the first transducer C in C is the air temperature
///     <STX>N,214,003.10,M,00,<ETX>hh      XOR between STX and ETX, with or without the ETX
///     <STX>03.1 214 +12.1 00*hh           m/s; XOR up to the *, with or without the STX
///
/// A sentence of another kind with its checksum right tells nothing. Without wind an instrument may
/// leave out the direction.
[[nodiscard]] std::optional<WindTelegram> read_wind_telegram(std::string_view telegram);

/// The radiation of a line of text, W/m²: its first number, with a decimal point, rounded to a
/// whole one. Nothing where it has none from -32768 to 32767, or is no text.
[[nodiscard]] std::optional<std::int16_t> read_radiation_line(std::string_view line);

/// Cuts telegrams out of the bytes of a port and counts what is dropped. It keeps no more than the
/// longest telegram.
class TelegramCutter {
public:
    enum class Kind : std::uint8_t {
        Wind,  // begins with $ or STX, ends with a line feed, or with a carriage return and ETX
        Line,  // ends with a carriage return or a line feed
    };
    /// Longer ones are dropped. The longest sentence of NMEA 0183 has 82 characters.
    static constexpr std::size_t longest = 128;

    explicit TelegramCutter(Kind kind) : kind_(kind) {}

    /// Hands each whole telegram in `bytes`, and what waits from before, to `take`, which is false
    /// where it drops it.
    void feed(std::string_view bytes, const std::function<bool(std::string_view)>& take);
    /// The port was closed: what waits is forgotten. The telegram that the next bytes are the end
    /// of is passed over and not counted.
    void reset();

    [[nodiscard]] std::size_t dropped() const { return dropped_; }

private:
    [[nodiscard]] bool begins(char byte) const;
    [[nodiscard]] bool ends(char byte) const;
    void drop();

    Kind kind_;
    std::string telegram_;
    bool collecting_ = false;
    bool joining_ = true;  // in the middle of what was sent before
    bool noise_ = false;   // in what was counted already
    std::size_t dropped_ = 0;
};

}  // namespace zel::measuring
