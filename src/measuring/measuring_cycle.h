#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <vector>

#include "measuring/evaluation.h"
#include "measuring/instruments.h"

namespace zel::measuring {

/// A measuring cycle: samples of both instruments every 550 ms for a time, and then their means. It
/// does what is due whenever it is asked to go on; who watches it shows what it holds.
class MeasuringCycle {
public:
    static constexpr std::chrono::milliseconds tick{550};
    /// What the window's cycle takes, whatever length was chosen.
    static constexpr std::chrono::milliseconds one_minute{60000};

    explicit MeasuringCycle(const Clock& clock) : clock_(clock) {}

    /// `S61_Messzyklus_starten`: opens the instruments, which live as long as the cycle runs, and
    /// begins. Throws `InputError` where one is not there.
    void S61_Messzyklus_starten(Instruments& instruments, std::chrono::milliseconds length);
    /// Takes the samples that are due, and ends the cycle where its time is over. Throws
    /// `PlatformError` where an instrument gives no number; the cycle has then ended.
    void go_on();
    /// Ends the cycle with what it has.
    void stop();

    [[nodiscard]] bool runs() const { return instruments_ != nullptr; }
    /// Of this cycle, or of the last one.
    [[nodiscard]] std::span<const MeasurementSample> samples() const { return samples_; }
    [[nodiscard]] const Readings& readings() const { return readings_; }
    /// Whole minutes of this cycle at its last sample.
    [[nodiscard]] int Minuten() const;
    [[nodiscard]] std::chrono::milliseconds remaining() const;
    /// Of the cycle that has ended; nothing where it ended before its first sample.
    [[nodiscard]] const std::optional<CycleMeans>& means() const { return means_; }
    /// Samples of this cycle during which an instrument gave nothing, so that old values stood.
    [[nodiscard]] std::size_t stale_samples() const { return stale_samples_; }

    /// `longest_cycle` keeps the samples of a cycle within some 10 MB.
    static constexpr std::chrono::milliseconds longest_cycle{24 * 60 * one_minute};

private:
    void S62_Timer_Ereignis();
    void end();
    [[nodiscard]] std::chrono::milliseconds gone() const;

    const Clock& clock_;
    Instruments* instruments_ = nullptr;  // while it runs
    std::chrono::milliseconds begin_{};
    std::chrono::milliseconds length_{};
    std::vector<MeasurementSample> samples_;
    Readings readings_;
    std::optional<CycleMeans> means_;
    std::size_t stale_samples_ = 0;
    double angle_ = 0;  // kept from cycle to cycle
};

}  // namespace zel::measuring
