#include <algorithm>
#include <cstring>

#include "library/short_circuit_series.h"
#include "library/zel_objects.h"
#include "series/series.h"

// Arrays of the C interface.

using namespace zel;
using namespace zel::library;

namespace {

constexpr Text wrong_area = {"der Fall ist einer des anderen Bereichs",
                             "the case is one of the other area"};
constexpr Text no_such_method = {"kein Verfahren hat diese Nummer", "no method has this number"};

zel_options options_or_usual(const zel_options* options) {
    return options != nullptr ? *options : zel_options{};
}

SeriesOptions series_options(const zel_options& options) {
    return {options.threads, options.heat_capacity, options.radiation};
}

CalcCase line_case(const zel_case& it, zel_given given) {
    if (it.named.area() != Area::Line) throw InputError(Reason(wrong_area));
    CalcCase c = it.named.line();
    if (given == ZEL_AS_IN_CASE) return c;
    c.Leitertemp_Merker_db = given == ZEL_TEMPERATURE_GIVEN;
    c.Stromstaerke_Merker_db = given != ZEL_TEMPERATURE_GIVEN;
    c.Stromstaerkebuendel_Merker_db = given == ZEL_BUNDLE_CURRENT_GIVEN;
    return c;
}

SeriesInputs inputs_of(const zel_case* it, zel_given given, const zel_column* columns,
                       size_t column_count, size_t count) {
    std::vector<SeriesColumn> taken;
    for (size_t k = 0; k < column_count; ++k)
        taken.push_back(
            {SeriesInput(given_text(columns[k].name)), {columns[k].numbers, columns[k].stride}});
    return {line_case(*it, given), std::move(taken), count};
}

Method method_of(zel_method method) {
    for (const Method each : all_methods)
        if (static_cast<int>(each) == static_cast<int>(method)) return each;
    throw InputError(Reason(no_such_method));
}

std::vector<NamedColumn> named_columns(const zel_column* columns, size_t column_count) {
    std::vector<NamedColumn> taken;
    for (size_t k = 0; k < column_count; ++k)
        taken.push_back(
            {std::string(given_text(columns[k].name)), {columns[k].numbers, columns[k].stride}});
    return taken;
}

Strided<double> place(const zel_numbers& out) { return {out.numbers, out.stride}; }
Strided<std::int32_t> place(const zel_codes& out) { return {out.codes, out.stride}; }

}  // namespace

zel_status zel_case_selects(const zel_case* it, zel_method method, int* yes) {
    return guarded([&] {
        const CalcCase c = line_case(*it, ZEL_AS_IN_CASE);
        *yes = is_selected(c, method_of(method)) ? 1 : 0;
    });
}

zel_status zel_rate_steady(const zel_case* it, const zel_options* given_options, zel_method method,
                           const zel_column* columns, size_t column_count, size_t count,
                           const zel_steady* out) {
    return guarded([&] {
        const zel_options options = options_or_usual(given_options);
        rate_steady(inputs_of(it, options.given, columns, column_count, count), method_of(method),
                    series_options(options),
                    {place(out->current), place(out->conductor_current), place(out->temperature),
                     place(out->wind_angle), place(out->code)});
    });
}

zel_status zel_rate_tatl(const zel_case* it, const zel_options* given_options,
                         const zel_column* columns, size_t column_count, size_t count,
                         const zel_tatl* out) {
    return guarded([&] {
        const zel_options options = options_or_usual(given_options);
        rate_tatl(inputs_of(it, ZEL_TEMPERATURE_GIVEN, columns, column_count, count),
                  series_options(options),
                  {place(out->patl), place(out->tatl), place(out->wind_angle),
                   place(out->patl_code), place(out->tatl_code)});
    });
}

zel_status zel_rate_transient(const zel_case* it, const zel_options* given_options,
                              zel_method method, const zel_column* columns, size_t column_count,
                              size_t count, const zel_state_change out[ZEL_STATE_CHANGES]) {
    static_assert(ZEL_STATE_CHANGES == state_change_count);
    return guarded([&] {
        const zel_options options = options_or_usual(given_options);
        std::array<StateSeries, state_change_count> rows;
        for (std::size_t row = 0; row < rows.size(); ++row)
            rows[row] = {place(out[row].current), place(out[row].temperature),
                         place(out[row].duration), place(out[row].code)};
        rate_transient(inputs_of(it, options.given, columns, column_count, count),
                       method_of(method), series_options(options), rows);
    });
}

size_t zel_short_circuit_result_count(void) { return short_circuit_numbers().size(); }

const char* zel_short_circuit_result_name(size_t index) {
    return index < short_circuit_numbers().size() ? short_circuit_numbers()[index].name.data()
                                                  : nullptr;
}

zel_status zel_rate_short_circuit(const zel_case* it, const zel_options* given_options,
                                  const zel_column* columns, size_t column_count, size_t count,
                                  const zel_numbers* out, zel_codes code) {
    return guarded([&] {
        if (it->named.area() != Area::ShortCircuit) throw InputError(Reason(wrong_area));
        std::vector<Strided<double>> places;
        for (size_t k = 0; k < short_circuit_numbers().size(); ++k) places.push_back(place(out[k]));
        rate_short_circuit(it->named, named_columns(columns, column_count), count,
                           options_or_usual(given_options).threads, places, place(code));
    });
}

zel_status zel_explain(const zel_case* it, const zel_options* given_options, zel_method method,
                       const zel_column* columns, size_t column_count, size_t index,
                       zel_language language, char* text, size_t size) {
    return guarded([&] {
        if (size == 0) return;
        const auto of_line = [&] {
            const zel_options options = options_or_usual(given_options);
            return refusal_of(inputs_of(it, options.given, columns, column_count, index + 1),
                              method_of(method), series_options(options), index,
                              language == ZEL_GERMAN ? LangId::German : LangId::English);
        };
        const std::string why =
            it->named.area() == Area::Line
                ? of_line()
                : why_no_short_circuit(it->named, named_columns(columns, column_count), index);
        text[why.copy(text, size - 1)] = '\0';
    });
}
