#include "measuring/evaluation.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "platform/rounding.h"

namespace zel::measuring {
namespace {

constexpr double pi = 3.141592654;        // of the cycle's own mean
constexpr double reference_height = 2.4;  // m
constexpr double exponent = 0.4;
constexpr double least_base = -1e-6;       // what -2.4 at 32 bits gives is above it
constexpr double least_steadiness = 1e-6;  // of the mean vector to the mean speed

struct WindVector {
    double x = 0;
    double y = 0;
};

/// East is x and north is y, with the bearing as a mathematical angle.
WindVector sum_of_winds(std::span<const MeasurementSample> samples) {
    WindVector sum;
    for (const MeasurementSample& sample : samples) {
        double a = 360 - sample.Windrichtung + 90;
        if (a >= 360) a = a - 360;
        a = a * pi / 180;
        sum.x += std::cos(a) * sample.Windgeschwindigkeit;
        sum.y += std::sin(a) * sample.Windgeschwindigkeit;
    }
    return sum;
}

std::optional<double> vector_mean_direction(std::span<const MeasurementSample> samples) {
    double east = 0;
    double north = 0;
    double speeds = 0;
    for (const MeasurementSample& sample : samples) {
        const double bearing = sample.Windrichtung * std::numbers::pi / 180;
        east += std::sin(bearing) * sample.Windgeschwindigkeit;
        north += std::cos(bearing) * sample.Windgeschwindigkeit;
        speeds += sample.Windgeschwindigkeit;
    }
    if (std::hypot(east, north) <= least_steadiness * speeds) return std::nullopt;
    double direction = std::atan2(east, north) * 180 / std::numbers::pi;
    if (direction < 0) direction += 360;
    return direction < 360 ? direction : 0;
}

template <class Value>
double mean(std::span<const MeasurementSample> samples, Value MeasurementSample::*value) {
    double sum = 0;
    for (const MeasurementSample& sample : samples) sum += sample.*value;
    return sum / static_cast<double>(samples.size());
}

template <class... Numbers>
std::string text(const char* form, Numbers... numbers) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, form, numbers...);
    return buffer;
}

}  // namespace

std::string date_text(const CalendarTime& time) {
    return text("%02d.%02d.%04d", time.day, time.month, time.year);
}

std::string time_text(const CalendarTime& time) {
    return text("%02d:%02d:%02d", time.hour, time.minute, time.second);
}

std::string moment_text(const CalendarTime& time) {
    return date_text(time) + " " + time_text(time);
}

CycleMeans S65_Auswerten_Messzyklus(std::span<const MeasurementSample> samples, double& angle) {
    CycleMeans means;
    means.start = samples.front().time;
    means.end = samples.back().time;
    means.Anzahl = samples.size();
    const WindVector sum = sum_of_winds(samples);
    if (sum.x > 0) angle = std::atan(sum.y / sum.x);
    angle = angle * 180 / pi;
    means.Windrichtung_Mittel = 450 - angle;
    if (means.Windrichtung_Mittel < 0) means.Windrichtung_Mittel += 360;
    means.vector_mean_direction = vector_mean_direction(samples);
    means.Windgeschw_Mittel =
        narrowed_to_single(mean(samples, &MeasurementSample::Windgeschwindigkeit));
    means.Lufttemp_Mittel = narrowed_to_single(mean(samples, &MeasurementSample::Lufttemperatur));
    // The mean of numbers of 16 bits is one.
    means.Globalstrahlung_Mittel =
        round_to_int16(mean(samples, &MeasurementSample::Globalstrahlung)).value_or(0);
    return means;
}

bool is_too_low(double Hoehendifferenz) {
    return (Hoehendifferenz + reference_height) / reference_height <= least_base;
}

double least_height() { return -reference_height; }

double S66_Hochrechnung_wind_v(double Windgeschw_Mittel, double Hoehendifferenz) {
    const double base = (Hoehendifferenz + reference_height) / reference_height;
    return Windgeschw_Mittel * std::pow(std::max(base, 0.0), exponent);
}

}  // namespace zel::measuring
