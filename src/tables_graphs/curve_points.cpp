#include "tables_graphs/curve_points.h"

#include "platform/text/csv.h"
#include "platform/text/number_text.h"

namespace zel {
namespace {

std::string field(const std::optional<double>& number) {
    return number ? exact_number(*number) : "";
}

}  // namespace

std::string steady_points(const ParameterTable& curves, const CalcCase& c) {
    const double share = curves.stepped == Stepped::Current ? bundle_share(c) : 1;
    std::string lines = csv_line({"method", "wind_m_s", "current_A", "temperature_C"});
    for (std::size_t method = 0; method < curves.methods.size(); ++method)
        for (std::size_t wind = 0; wind < curves.winds.size(); ++wind)
            for (std::size_t step = 0; step < curves.steps.size(); ++step) {
                const std::string stepped = exact_number(curves.steps[step] * share);
                const std::string found = field(curves.at(step, wind, method));
                const bool is_current = curves.stepped == Stepped::Current;
                lines += csv_line({std::string(key_of(curves.methods[method])),
                                   exact_number(curves.winds[wind]), is_current ? stepped : found,
                                   is_current ? found : stepped});
            }
    return lines;
}

std::string transient_points(const std::vector<RowSeries>& series,
                             const std::vector<CurrentStep>& steps) {
    std::string lines = csv_line({"t_s", "temperature_C", "current_A"});
    std::size_t step = 0;  // the first is the level before the start
    for (const RowSeries& row : series) {
        const std::string current = exact_number(steps.at(++step).current);
        for (const auto& [time, temperature] : row.points)
            lines += csv_line({exact_number(time), exact_number(temperature), current});
    }
    return lines;
}

}  // namespace zel
