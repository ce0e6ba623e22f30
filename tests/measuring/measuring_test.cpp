#include <gtest/gtest.h>

#include <random>

#include "fakes/memory_canvas.h"
#include "fakes/scripted_ports.h"
#include "fakes/test_data.h"
#include "measuring/measuring_cycle.h"
#include "measuring/trace.h"

namespace zel::measuring {
namespace {

using nlohmann::json;
using namespace std::chrono_literals;

json rows(const char* name) { return test_data("measuring").at(name); }

void expect_number(const std::optional<double>& actual, const json& expected, double near = 1e-9) {
    ASSERT_EQ(actual.has_value(), !expected.is_null());
    if (actual) {
        EXPECT_NEAR(*actual, expected.get<double>(), near);
    }
}

TEST(Telegrams, tell_wind_and_air_temperature_or_are_dropped) {
    for (const json& row : rows("telegrams")) {
        SCOPED_TRACE(row.dump());
        const auto told = read_wind_telegram(row[0].get<std::string>());
        ASSERT_EQ(told.has_value(), !row[1].is_null());
        if (!told) continue;
        expect_number(told->Windrichtung, row[1].value("direction", json()));
        expect_number(told->Windgeschwindigkeit, row[1].value("speed", json()));
        expect_number(told->Lufttemperatur, row[1].value("temperature", json()));
    }
}

TEST(Telegrams, of_the_radiation_meter_are_lines_with_a_number) {
    for (const json& row : rows("radiation")) {
        SCOPED_TRACE(row.dump());
        const auto told = read_radiation_line(row[0].get<std::string>());
        expect_number(told, row[1]);
    }
}

TEST(Telegrams, are_cut_out_of_the_bytes_of_a_port) {
    for (const json& row : rows("streams")) {
        SCOPED_TRACE(row.at("why"));
        const bool wind = row["kind"] == "wind";
        TelegramCutter cutter(wind ? TelegramCutter::Kind::Wind : TelegramCutter::Kind::Line);
        std::size_t taken = 0;
        for (const std::string bytes : row.at("bytes"))
            cutter.feed(bytes, [&](std::string_view telegram) {
                const bool good = wind ? read_wind_telegram(telegram).has_value()
                                       : read_radiation_line(telegram).has_value();
                taken += good ? 1 : 0;
                return good;
            });
        EXPECT_EQ(taken, row.at("taken"));
        EXPECT_EQ(cutter.dropped(), row.at("dropped"));
    }
}

TEST(Lines, have_rate_bits_parity_and_stop_bits) {
    constexpr const char* parities = "NEO";
    for (const json& row : rows("lines")) {
        const auto line = port_line(row[0].get<std::string>());
        json told;
        if (line)
            told = {line->baud, line->data_bits,
                    std::string(1, parities[static_cast<int>(line->parity)]), line->stop_bits};
        EXPECT_EQ(told, row[1]) << row[0];
    }
}

std::vector<MeasurementSample> samples_of(const json& list) {
    std::vector<MeasurementSample> samples;
    for (const json& row : list) {
        MeasurementSample sample;
        sample.Windrichtung = row[0];
        sample.Windgeschwindigkeit = row[1];
        if (row.size() > 2) sample.Lufttemperatur = row[2];
        if (row.size() > 3) sample.Globalstrahlung = row[3];
        samples.push_back(sample);
    }
    return samples;
}

TEST(Evaluation, gives_the_means_of_the_samples) {
    for (const json& row : rows("evaluation")) {
        SCOPED_TRACE(row.at("why"));
        double angle = 0;
        if (row.contains("before"))
            (void)S65_Auswerten_Messzyklus(samples_of(row["before"]), angle);
        const auto means = S65_Auswerten_Messzyklus(samples_of(row.at("samples")), angle);
        if (row.contains("kept")) expect_number(means.Windrichtung_Mittel, row["kept"], 1e-6);
        if (row.contains("vector")) expect_number(means.vector_mean_direction, row["vector"]);
        if (row.contains("speed")) {
            EXPECT_EQ(means.Windgeschw_Mittel, row["speed"]);
        }
        if (row.contains("temperature")) {
            EXPECT_EQ(means.Lufttemp_Mittel, row["temperature"]);
        }
        if (row.contains("radiation")) {
            EXPECT_EQ(means.Globalstrahlung_Mittel, row["radiation"]);
        }
    }
}

TEST(Evaluation, extrapolates_two_meters_per_second) {
    for (const json& row : rows("heights")) {
        const double height = row[0];
        EXPECT_EQ(is_too_low(height), row[1].is_null()) << height;
        if (row[1].is_null()) continue;
        EXPECT_NEAR(S66_Hochrechnung_wind_v(2, height), row[1], 1e-12) << height;
    }
}

class Cycle : public testing::Test {
protected:
    Cycle() { ports.waiting = {{"wind", ""}, {"sun", ""}}; }

    void start(std::chrono::milliseconds length = MeasuringCycle::one_minute) {
        cycle.S61_Messzyklus_starten(instruments, length);
    }
    /// Time goes by in the steps of a window's timer.
    void pass(
        std::chrono::milliseconds time, const std::function<void()>& each = [] {}) {
        for (const auto end = clock.gone + time; clock.gone < end && cycle.runs();) {
            clock.gone += 50ms;
            each();
            cycle.go_on();
        }
    }
    void send_both() {
        ports.waiting["wind"] += "\n$WIMWV,270,R,4.0,M,A*3F\r\n";
        ports.waiting["sun"] += "\n500\n";
    }

    ScriptedClock clock;
    ScriptedPorts ports;
    SerialInstruments instruments{ports, {"wind", {}}, {"sun", {19200}}, clock};
    MeasuringCycle cycle{clock};
};

TEST_F(Cycle, of_one_minute_takes_109_samples) {
    start();
    EXPECT_EQ(ports.opened.back(), (std::pair<std::string, PortLine>("sun", {19200})));
    pass(2min, [this] { send_both(); });
    ASSERT_TRUE(cycle.means());
    EXPECT_EQ(cycle.means()->Anzahl, 109U);
    EXPECT_EQ(cycle.means()->Windgeschw_Mittel, 4);
    EXPECT_EQ(cycle.means()->Globalstrahlung_Mittel, 500);
    EXPECT_EQ(time_text(cycle.means()->start), "12:00:00");
    EXPECT_EQ(time_text(cycle.means()->end), "12:00:59");
    EXPECT_EQ(clock.gone, 60s);
}

TEST_F(Cycle, takes_what_was_due_where_nobody_asked) {
    SimulatedInstruments simulated;
    cycle.S61_Messzyklus_starten(simulated, 700s);
    clock.gone = 699s;
    cycle.go_on();
    EXPECT_TRUE(cycle.runs());
    EXPECT_EQ(cycle.samples().front().Globalstrahlung, 1);
    EXPECT_EQ(cycle.Minuten(), 11);
    clock.gone = 800s;
    cycle.go_on();
    EXPECT_EQ(cycle.means()->Anzahl, 1272U);
    EXPECT_EQ(cycle.means()->Globalstrahlung_Mittel, 636);
}

TEST_F(Cycle, before_its_first_sample_gives_nothing) {
    start();
    pass(500ms);
    cycle.stop();
    EXPECT_FALSE(cycle.runs());
    EXPECT_FALSE(cycle.means());
}

TEST_F(Cycle, is_not_begun_without_its_instruments) {
    ports.waiting.erase("sun");
    EXPECT_THROW(start(), InputError);
    EXPECT_FALSE(cycle.runs());
}

TEST_F(Cycle, tells_what_an_instrument_does) {
    const auto state = [this] { return instruments.anemometer().state; };
    start();
    pass(1s);
    EXPECT_EQ(state(), InstrumentState::Waiting);
    ports.waiting["sun"] = "cut off\nwatts\n";
    pass(550ms);
    EXPECT_EQ(instruments.radiation_meter().state, InstrumentState::Rubbish);
    EXPECT_FALSE(instruments.radiation_meter().gives_nothing()) << "it may just have begun";
    EXPECT_EQ(cycle.samples().back().Windgeschwindigkeit, 0);
    pass(1500ms);
    EXPECT_EQ(state(), InstrumentState::Silent);
    pass(1s, [this] { send_both(); });
    EXPECT_EQ(state(), InstrumentState::Sending);
    pass(3s, [this] { ports.waiting["wind"] = "rubbish\n"; });
    EXPECT_EQ(state(), InstrumentState::Rubbish);
    EXPECT_GT(instruments.anemometer().dropped, 4U);
    EXPECT_EQ(cycle.samples().back().Windgeschwindigkeit, 4) << "the last value stays";
    ports.waiting.erase("wind");
    pass(1s);
    EXPECT_EQ(state(), InstrumentState::Gone);
    const auto stale = cycle.stale_samples();
    EXPECT_GT(stale, 0U);
    send_both();
    pass(1s, [this] { send_both(); });
    EXPECT_EQ(state(), InstrumentState::Sending);
    EXPECT_EQ(cycle.stale_samples(), stale) << "it is there again at the next tick";
}

TEST_F(Cycle, counts_an_anemometer_that_tells_no_wind_as_silent) {
    start();
    pass(1s, [this] { send_both(); });
    pass(4s, [this] { ports.waiting["wind"] += "$WIXDR,C,+12.1,C,TEMP*6B\r\n"; });
    EXPECT_EQ(cycle.readings().Lufttemperatur, 12.1);
    EXPECT_EQ(instruments.anemometer().dropped, 0U);
    EXPECT_EQ(instruments.anemometer().state, InstrumentState::Silent);
    EXPECT_TRUE(instruments.anemometer().gives_nothing());
}

TEST_F(Cycle, stands_five_minutes_of_noise) {
    std::mt19937 random(20261122);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same each time
    start(5min);
    pass(6min, [&] {
        for (const char* device : {"wind", "sun"})
            for (int i = 0; i < 48; ++i)  // 9600 baud
                ports.waiting[device] += static_cast<char>(random() & 0xFFU);
    });
    EXPECT_EQ(cycle.means()->Anzahl, 545U);
    EXPECT_EQ(instruments.anemometer().telegrams, 0U);
    EXPECT_GT(instruments.anemometer().dropped, 1000U);
}

TEST(Traces, show_the_last_minutes_and_where_a_cycle_begins) {
    Trace trace;
    MeasurementSample sample;
    for (int tick = 0; tick < 700; ++tick) {
        if (tick == 600) trace.interrupt();
        sample.Windgeschwindigkeit = tick == 650 ? 9 : 3;
        trace.add(tick * MeasuringCycle::tick, sample);
    }
    MemoryCanvas canvas;
    trace.draw(canvas, {0, 0, 6000, 4000}, {LangId::German, DecimalSeparator::Comma});
    EXPECT_EQ(canvas.boxes.size(), 4U);
    ASSERT_EQ(canvas.paths.size(), 8U);
    EXPECT_EQ(canvas.texts[1].text, "3,0 m/s … 9,0 m/s");
    EXPECT_EQ(canvas.paths[0].points.size(), 446U);  // of 5 minutes less the new cycle
    EXPECT_EQ(canvas.paths[1].points.size(), 100U);
    for (std::size_t i = 0; i < canvas.paths.size(); ++i)
        for (const CanvasPoint& point : canvas.paths[i].points)
            EXPECT_TRUE(canvas.boxes[i / 2].holds(point)) << i;
}

TEST(Telegrams, are_never_longer_than_the_longest) {
    std::mt19937 random(7);  // NOLINT(cert-msc32-c,cert-msc51-cpp)
    for (const auto kind : {TelegramCutter::Kind::Wind, TelegramCutter::Kind::Line}) {
        TelegramCutter cutter(kind);
        std::size_t seen = 0;
        for (int i = 0; i < 2'000'000; ++i) {
            // Signs that begin and end telegrams come more often than by chance.
            constexpr std::string_view likely = "$\x02\x03\r\n*,0";
            const char byte = random() % 64 != 0 ? 'A' : likely[random() % likely.size()];
            cutter.feed({&byte, 1}, [&](std::string_view telegram) {
                seen = std::max(seen, telegram.size());
                return false;
            });
        }
        EXPECT_LE(seen, TelegramCutter::longest);
        EXPECT_GT(seen, TelegramCutter::longest / 2);
    }
}

}  // namespace
}  // namespace zel::measuring
