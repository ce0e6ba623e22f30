#include "measuring/measuring_cycle.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace zel::measuring {

void MeasuringCycle::S61_Messzyklus_starten(Instruments& instruments,
                                            std::chrono::milliseconds length) {
    instruments.open();
    instruments_ = &instruments;
    samples_.clear();
    means_.reset();
    stale_samples_ = 0;
    readings_.Globalstrahlung = 0;  // the others stay from cycle to cycle
    length_ = length;
    begin_ = clock_.elapsed();
}

void MeasuringCycle::go_on() {
    if (!runs()) return;
    try {
        const auto due = static_cast<std::size_t>(std::min(gone(), length_) / tick);
        while (samples_.size() < due) S62_Timer_Ereignis();
    } catch (...) {
        end();
        throw;
    }
    if (gone() >= length_) end();
}

void MeasuringCycle::stop() {
    if (runs()) end();
}

void MeasuringCycle::S62_Timer_Ereignis() {
    instruments_->S63_Einlesen_Ultrasonic(readings_);
    instruments_->S64_Einlesen_GM33(readings_);
    if (instruments_->anemometer().gives_nothing() ||
        instruments_->radiation_meter().gives_nothing())
        ++stale_samples_;
    samples_.push_back({clock_.now(), readings_.Windrichtung, readings_.Windgeschwindigkeit,
                        readings_.Lufttemperatur, readings_.Globalstrahlung});
}

void MeasuringCycle::end() {
    std::exchange(instruments_, nullptr)->close();
    if (!samples_.empty()) means_ = S65_Auswerten_Messzyklus(samples_, angle_);
}

std::chrono::milliseconds MeasuringCycle::gone() const { return clock_.elapsed() - begin_; }

int MeasuringCycle::Minuten() const {
    return static_cast<int>(static_cast<std::int64_t>(samples_.size()) * tick / one_minute);
}

std::chrono::milliseconds MeasuringCycle::remaining() const {
    return std::max(length_ - gone(), std::chrono::milliseconds{0});
}

}  // namespace zel::measuring
