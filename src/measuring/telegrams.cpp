#include "measuring/telegrams.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <vector>

#include "platform/rounding.h"

namespace zel::measuring {
namespace {

constexpr char stx = '\x02';
constexpr char etx = '\x03';
constexpr double full_circle = 360;

bool is_digit(char c) { return c >= '0' && c <= '9'; }
/// ASCII, and what "W/m²" and "°" are made of in UTF-8 and in Latin-1.
bool is_text(char c) {
    constexpr std::string_view beyond_ascii = "\xC2\xB2\xB0";
    return (c >= ' ' && c < '\x7F') || c == '\t' || beyond_ascii.find(c) != std::string_view::npos;
}

/// Nothing where the text is no number, or not that alone.
std::optional<double> number(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    if (text.empty() || !(is_digit(text[0]) || text[0] == '-' || text[0] == '.'))
        return std::nullopt;
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || rest != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::vector<std::string_view> parts(std::string_view text, char separator) {
    std::vector<std::string_view> found;
    while (true) {
        const auto end = text.find(separator);
        found.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return found;
        text.remove_prefix(end + 1);
    }
}

unsigned exclusive_or(std::string_view text) {
    return std::accumulate(text.begin(), text.end(), 0U, [](unsigned sum, char c) {
        return sum ^ static_cast<unsigned char>(c);
    });
}

/// Whether the two digits are the checksum of `text`, or of that and the `framing` byte.
bool checks(std::string_view digits, std::string_view text, char framing = '\0') {
    unsigned told = 0;
    const char* end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, told, 16);
    if (digits.size() != 2 || error != std::errc() || rest != end) return false;
    const unsigned own = exclusive_or(text);
    return told == own || told == (own ^ static_cast<unsigned char>(framing));
}

struct SpeedUnit {
    std::string_view letter;
    double meters_per_second;
};
constexpr SpeedUnit speed_units[] = {{"M", 1}, {"N", 1852.0 / 3600}, {"K", 1 / 3.6}};

std::optional<WindTelegram> wind(std::string_view direction, std::string_view speed,
                                 std::string_view unit) {
    const auto* const known = std::find_if(std::begin(speed_units), std::end(speed_units),
                                           [&](const SpeedUnit& u) { return u.letter == unit; });
    const auto value = number(speed);
    if (known == std::end(speed_units) || !value || *value < 0) return std::nullopt;
    WindTelegram told;
    told.Windgeschwindigkeit = *value * known->meters_per_second;
    if (direction.empty()) return told;
    told.Windrichtung = number(direction);
    if (!told.Windrichtung || *told.Windrichtung < 0 || *told.Windrichtung > full_circle)
        return std::nullopt;
    return told;
}

std::optional<WindTelegram> transducers(const std::vector<std::string_view>& fields) {
    constexpr std::size_t group = 4;  // type, value, unit, name
    if (fields.size() % group != 1) return std::nullopt;
    WindTelegram told;
    for (std::size_t i = 1; i < fields.size(); i += group) {
        if (fields[i] != "C" || fields[i + 2] != "C" || fields[i + 1].empty()) continue;
        told.Lufttemperatur = number(fields[i + 1]);
        if (!told.Lufttemperatur) return std::nullopt;
        return told;
    }
    return told;
}

std::optional<WindTelegram> read_sentence(std::string_view telegram) {
    constexpr std::size_t behind_text = 3;  // "*hh"
    if (telegram.size() < behind_text + 1) return std::nullopt;
    const std::string_view text = telegram.substr(1, telegram.size() - behind_text - 1);
    const std::string_view check = telegram.substr(telegram.size() - behind_text);
    if (check[0] != '*' || !checks(check.substr(1), text)) return std::nullopt;
    const auto fields = parts(text, ',');
    constexpr std::size_t address = 5;  // two letters of the talker, three of the sentence
    if (fields[0].size() != address) return WindTelegram{};
    const std::string_view sentence = fields[0].substr(2);
    if (sentence == "XDR") return transducers(fields);
    if (sentence != "MWV") return WindTelegram{};
    if (fields.size() != 6 || (fields[2] != "R" && fields[2] != "T") || fields[5] != "A")
        return std::nullopt;
    return wind(fields[1], fields[3], fields[4]);
}

constexpr std::string_view no_fault = "00";

std::optional<WindTelegram> read_comma_telegram(std::string_view text, std::string_view check) {
    const auto fields = parts(text, ',');
    if (!checks(check, text, etx) || fields.size() != 6 || fields[0].size() != 1 ||
        fields[4] != no_fault || !fields[5].empty())
        return std::nullopt;
    return wind(fields[1], fields[2], fields[3]);
}

std::optional<WindTelegram> read_blank_telegram(std::string_view text, std::string_view check) {
    const auto fields = parts(text, ' ');
    if (!checks(check, text, stx) || fields.size() != 4 || fields[3] != no_fault)
        return std::nullopt;
    auto told = wind(fields[1], fields[0], "M");
    if (!told) return std::nullopt;
    told->Lufttemperatur = number(fields[2]);
    return told->Lufttemperatur ? told : std::nullopt;
}

}  // namespace

std::optional<WindTelegram> read_wind_telegram(std::string_view telegram) {
    if (telegram.starts_with('$')) return read_sentence(telegram);
    if (!telegram.starts_with(stx)) return std::nullopt;
    telegram.remove_prefix(1);
    const auto end = telegram.find(etx);
    if (end != std::string_view::npos)
        return read_comma_telegram(telegram.substr(0, end), telegram.substr(end + 1));
    const auto star = telegram.find('*');
    if (star == std::string_view::npos) return std::nullopt;
    return read_blank_telegram(telegram.substr(0, star), telegram.substr(star + 1));
}

std::optional<std::int16_t> read_radiation_line(std::string_view line) {
    if (!std::all_of(line.begin(), line.end(), is_text)) return std::nullopt;
    const auto begins_number = [&](std::size_t at) {
        return at < line.size() &&
               (is_digit(line[at]) ||
                (line[at] == '.' && at + 1 < line.size() && is_digit(line[at + 1])));
    };
    std::size_t at = 0;
    while (at < line.size() && !begins_number(at)) ++at;
    if (at == line.size()) return std::nullopt;
    if (at > 0 && line[at - 1] == '-') --at;
    double value = 0;
    const auto [rest, error] = std::from_chars(line.data() + at, line.data() + line.size(), value);
    return error == std::errc() ? round_to_int16(value) : std::nullopt;
}

bool TelegramCutter::begins(char byte) const {
    return kind_ == Kind::Wind && (byte == '$' || byte == stx);
}

bool TelegramCutter::ends(char byte) const {
    if (byte == '\n' || (byte == '\r' && kind_ == Kind::Line)) return true;
    return byte == etx && telegram_.starts_with(stx) && telegram_.ends_with('\r');
}

void TelegramCutter::drop() {
    ++dropped_;
    telegram_.clear();
}

void TelegramCutter::reset() {
    telegram_.clear();
    collecting_ = noise_ = false;
    joining_ = true;
}

void TelegramCutter::feed(std::string_view bytes,
                          const std::function<bool(std::string_view)>& take) {
    for (const char byte : bytes) {
        if (begins(byte)) {
            if (collecting_) drop();  // half a telegram
            telegram_ = byte;
            collecting_ = true;
            joining_ = noise_ = false;
        } else if (ends(byte)) {
            if (telegram_.ends_with('\r')) telegram_.pop_back();
            if (joining_ || noise_ || telegram_.empty()) {
                telegram_.clear();
            } else if (take(telegram_)) {
                telegram_.clear();
            } else {
                drop();
            }
            collecting_ = joining_ = noise_ = false;
        } else if (noise_) {
            continue;
        } else if (kind_ == Kind::Wind && !collecting_ && !joining_) {
            if (byte == '\r' || byte == ' ' || byte == etx) continue;
            drop();
            noise_ = true;
        } else if (telegram_.size() == longest) {
            drop();
            noise_ = true;
            collecting_ = joining_ = false;
        } else {
            telegram_ += byte;
        }
    }
}

}  // namespace zel::measuring
