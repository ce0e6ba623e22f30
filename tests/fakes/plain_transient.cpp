#include "fakes/plain_transient.h"

#include <cmath>
#include <memory>
#include <optional>

#include "tb601_transient/tb601/tb601_balance.h"
#include "tb601_transient/transient/start_table.h"

namespace zel {
namespace {

struct Numbers {
    double threshold, step_of_kind_2, tolerance;
};

constexpr Numbers numbers_of(bool tb601) {
    return tb601 ? Numbers{0.01, 0.1, 0.2} : Numbers{0.02, 0.01, 0.1};
}

/// The temperature after `te` seconds; nothing after `limit` steps.
std::optional<double> after(const PlainModel& model, double I, double T0, double te,
                            double threshold, double step, int limit, std::int16_t& direction) {
    const double F0 = model.F(I, T0);
    direction = F0 > threshold ? row_heats : F0 < -threshold ? row_cools : row_at_rest;
    if (direction == row_at_rest) return T0;
    const double dT = F0 > 0 ? step : -step;
    double T = T0;
    double t = 0;
    int steps = 0;
    while (t < te) {
        if (steps == limit) return std::nullopt;
        T = T + dT;
        const double MC = model.MC(T);
        const double F = model.F(I, T);
        if (F * F0 < 0)
            t = te;
        else
            t = t + std::abs(MC * dT / F);
        ++steps;
    }
    return T;
}

bool kind_2(TransientRow& row, double T0, const Numbers& n, const PlainModel& model) {
    row.Temp = *after(model, row.Strom, T0, 60 * row.Min + row.Sec, n.threshold, n.step_of_kind_2,
                      -1, row.Direction);
    return row.Temp >= -273.15;
}

bool kind_3(TransientRow& row, double T0, const PlainModel& model) {
    const double F0 = model.F(row.Strom, T0);
    double t = 0;
    double T = T0;
    int steps = 0;
    if (F0 != 0) row.Direction = F0 < 0 ? row_cools : row_heats;
    if (F0 < 0 && row.Temp >= T0) return false;
    if (F0 > 0 && row.Temp < T0) return false;
    while ((F0 < 0 && T > row.Temp) || (F0 > 0 && T < row.Temp)) {
        if (steps == 36500) return false;
        const double MC = model.MC(T);
        const double F = model.F(row.Strom, T);
        t = t + 0.2;
        T = T + F * 0.2 / MC;
        ++steps;
    }
    if (steps == 36500 || T < -273.15) return false;
    const double minutes = std::floor(t / 60);
    row.Min = static_cast<std::int16_t>(minutes);
    row.Sec = static_cast<std::int16_t>(std::nearbyint(t - 60 * minutes));
    return true;
}

/// One round over `I_it` and `Temp_it`; nothing where the target is out of reach.
std::optional<double> round_tb207(double* I, const double* T, double target) {
    const double difference = std::abs(target - T[1]);
    if (T[0] <= target && target <= T[1]) {
        I[2] = I[1];
        I[1] = (I[0] + I[1]) / 2;
    } else if (T[1] <= target && target <= T[2]) {
        I[0] = I[1];
        I[1] = (I[1] + I[2]) / 2;
    } else if (!(T[0] <= target && target <= T[2])) {
        return std::nullopt;
    }
    return difference;
}

std::optional<double> round_tb601(double* I, const double* T, double target, double former) {
    for (int k = 0; k < 3; ++k)
        if (std::abs(target - T[k]) < 0.2) {
            I[1] = I[k];
            return std::abs(target - T[k]);
        }
    if ((T[0] <= target && target <= T[1]) || (T[1] <= target && target <= T[2]))
        return round_tb207(I, T, target);
    if (T[0] - 0.1 <= target && T[2] + 0.1 >= target) return former;
    return std::nullopt;
}

bool kind_1(TransientRow& row, double T0, double Is, double section, bool tb601,
            const PlainModel& model) {
    const Numbers n = numbers_of(tb601);
    const double te = 60 * row.Min + row.Sec;
    const double target = row.Temp;
    row.Direction = T0 < target ? row_heats : T0 > target ? row_cools : row_at_rest;
    double I[3] = {0, Is / 2, Is};
    if (T0 == target) {
        I[0] = Is - 1;
        I[1] = Is;
        I[2] = Is + 1;
    } else if (T0 < target) {
        const StartCurrents start = TS_InitialCurrents(section, te);
        I[1] = start.middle;
        I[2] = start.high;
    }
    double difference = INFINITY;
    int rounds = 0;
    while (difference > n.tolerance && rounds < 100) {
        double T[3];
        for (int k = 0; k < 3; ++k) {
            std::int16_t direction = 0;
            const auto reached = after(model, I[k], T0, te, n.threshold, 0.2, 30000, direction);
            if (!reached) return false;
            T[k] = *reached;
        }
        const auto round =
            tb601 ? round_tb601(I, T, target, difference) : round_tb207(I, T, target);
        if (!round) return false;
        difference = *round;
        ++rounds;
    }
    const bool found = tb601 ? difference <= 0.2 : rounds < 100;
    if (found) row.Strom = I[1];
    return found;
}

}  // namespace

PlainModel plain_tb207(const SteadyInputBlock& params, const TransientInput& input) {
    const auto state = std::make_shared<SteadyStateBlock>();
    return {
        [=](double I, double T) {
            state->current = I;
            state->temperature = T;
            TS_CigreTB207_Heat_Balance(*state, params);
            return (state->terms.PJ + state->terms.PS) - (state->terms.PC + state->terms.PR);
        },
        [=](double T) {
            ConductorMass record = input.mass;
            record.Theta = T;
            return TS_F02_CigreTB207_MC_Theta(record, params.method, input.cigre_TKW_merker).value;
        }};
}

PlainModel plain_tb601(TB601Records records, const TransientInput& input) {
    const auto kept = std::make_shared<TB601Records>(records);
    return {[=](double I, double T) {
                TB601State& state = kept->state;
                state.I = I;
                state.T = T;
                // What failed keeps its last value.
                if (ST_CigreTB601_Heat_Balance(kept->params, state)) state.T = T;
                return (state.terms.PJ + state.terms.PS) - (state.terms.PC + state.terms.PR);
            },
            [=](double T) {
                ConductorMass record = input.mass;
                record.Theta = T;
                return TS_F02_CigreTB601_MC_Theta(record, input.cigre_TKW_merker).value;
            }};
}

void plain_run(Zustand16& rows, const TransientInput& input, double section, bool tb601,
               const PlainModel& model) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        TransientRow& row = rows[i];
        if (row.Merker == 0) continue;
        const double T0 = i == 0 ? input.start.temperature : rows[i - 1].Temp;
        const bool done = row.Merker == 1   ? kind_1(row, T0, input.Is, section, tb601, model)
                          : row.Merker == 2 ? kind_2(row, T0, numbers_of(tb601), model)
                                            : kind_3(row, T0, model);
        if (!done) {
            row.Failed = 1;
            return;
        }
    }
}

}  // namespace zel
