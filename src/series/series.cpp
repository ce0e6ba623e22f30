#include "series/series.h"

#include <algorithm>
#include <cmath>

#include "platform/errors.h"
#include "platform/text/text.h"
#include "series/series_run.h"

namespace zel {
namespace {

// Long enough that a thread is worth it, short enough for all processors.
constexpr std::size_t elements_of_a_block = 512;

constexpr Text set_twice = {"{0} setzt ein Feld, das schon eine andere Spalte setzt",
                            "{0} sets a field that another column sets already"};
constexpr Text no_sun = {
    "{0}: auf ebenem Boden gemessen, braucht sie Breite, Länge und Zeit des Orts",
    "{0}: as it falls on level ground, it needs latitude, longitude and time of the place"};

bool is_radiation(const SeriesColumn& column) {
    const auto fields = column.input.fields();
    return fields.size() == 1 && fields.front() == FieldKey(&CalcCase::Globalstrahlung_db);
}

void write(const RatedNumber& rated, const CalcCase& c, const SteadySeries& out, std::size_t i) {
    out.code.set(i, number_of(rated.code));
    out.current.set(i, of_bundle(rated.current, c));
    out.conductor_current.set(i, rated.current);
    out.temperature.set(i, rated.temperature);
    out.angle.set(i, rated.angle);
}

}  // namespace

SeriesInputs::SeriesInputs(const CalcCase& its_base, std::vector<SeriesColumn> its_columns,
                           std::size_t its_count)
    : base(its_base), columns(std::move(its_columns)), count(its_count) {
    std::stable_partition(columns.begin(), columns.end(),
                          [](const SeriesColumn& column) { return !column.input.is_derived(); });
    for (const SeriesColumn& column : columns)
        for (const FieldKey& field : column.input.fields()) {
            if (std::find(varying_.begin(), varying_.end(), field) != varying_.end())
                throw InputError(Reason(set_twice, {column.input.name()}));
            varying_.push_back(field);
        }
    put_constants();
}

void SeriesInputs::put_constants() {
    if (count == 0) return;
    SeriesElement element{base};
    std::erase_if(columns, [&](const SeriesColumn& column) {
        if (column.numbers.stride != 0 || column.input.fields().size() != 1) return false;
        if (column.input.is_derived()) return false;  // reads what may change
        if (is_radiation(column)) return false;       // the sun may change it
        if (column.input.put(element, column.numbers[0]) != RatingCode::Rated) return false;
        std::erase(varying_, column.input.fields().front());
        return true;
    });
    base = element.c;
}

RatingCode SeriesInputs::put(SeriesElement& element, std::size_t i, Method method,
                             Radiation radiation, const SeriesColumn** culprit) const {
    const auto refuse = [&](const SeriesColumn& column, RatingCode code) {
        if (culprit != nullptr) *culprit = &column;
        return code;
    };
    for (const SeriesColumn& column : columns) {
        const RatingCode code = column.input.put(element, column.numbers[i]);
        if (code != RatingCode::Rated) return refuse(column, code);
    }
    if (radiation != Radiation::Horizontal || takes_the_sun(method)) return RatingCode::Rated;
    for (const SeriesColumn& column : columns) {
        if (!is_radiation(column)) continue;
        const RatingCode code = put_horizontal(element, column.numbers[i]);
        if (code != RatingCode::Rated) return refuse(column, code);
    }
    return RatingCode::Rated;
}

void rate_steady(const SeriesInputs& inputs, Method method, const SeriesOptions& options,
                 const SteadySeries& out) {
    in_blocks(inputs.count, elements_of_a_block, options.threads,
              [&](std::size_t first, std::size_t end) {
                  const SilentRun run(options);
                  CaseRater rater(inputs.base, method, inputs.varying(), run.session);
                  for (std::size_t i = first; i < end; ++i) {
                      const RatingCode code =
                          inputs.put(rater.element(), i, method, options.radiation);
                      write(code == RatingCode::Rated ? rater.rate() : RatedNumber{code},
                            rater.element().c, out, i);
                  }
              });
}

std::string refusal_of(const SeriesInputs& inputs, Method method, const SeriesOptions& options,
                       std::size_t i, LangId lang) {
    const SilentRun run({});
    CaseRater rater(inputs.base, method, inputs.varying(), run.session);
    const SeriesColumn* culprit = nullptr;
    const RatingCode code = inputs.put(rater.element(), i, method, options.radiation, &culprit);
    if (culprit != nullptr && code == RatingCode::MissingInput && is_radiation(*culprit) &&
        !std::isnan(culprit->numbers[i]))
        return fill(no_sun.in(lang), {culprit->input.name()});
    if (culprit != nullptr)
        return std::string(culprit->input.name()) + ": " +
               std::string(find_code(number_of(code))->text.in(lang));
    const auto* check = rater.refusal();
    return check == nullptr ? std::string() : in_one_line(joined(check->box(lang).lines, "\n"));
}

}  // namespace zel
