#include "series/series.h"

#include <algorithm>

#include "platform/errors.h"
#include "platform/text/text.h"
#include "series/series_run.h"

namespace zel {
namespace {

// Long enough that a thread is worth it, short enough for all processors.
constexpr std::size_t elements_of_a_block = 512;

constexpr Text set_twice = {"{0} setzt ein Feld, das schon eine andere Spalte setzt",
                            "{0} sets a field that another column sets already"};
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
        if (column.input.put(element, column.numbers[0]) != RatingCode::Rated) return false;
        std::erase(varying_, column.input.fields().front());
        return true;
    });
    base = element.c;
}

RatingCode SeriesInputs::put(SeriesElement& element, std::size_t i,
                             const SeriesColumn** culprit) const {
    for (const SeriesColumn& column : columns) {
        const RatingCode code = column.input.put(element, column.numbers[i]);
        if (code == RatingCode::Rated) continue;
        if (culprit != nullptr) *culprit = &column;
        return code;
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
                      const RatingCode code = inputs.put(rater.element(), i);
                      write(code == RatingCode::Rated ? rater.rate() : RatedNumber{code},
                            rater.element().c, out, i);
                  }
              });
}

std::string refusal_of(const SeriesInputs& inputs, Method method, std::size_t i, LangId lang) {
    const SilentRun run({});
    CaseRater rater(inputs.base, method, inputs.varying(), run.session);
    const SeriesColumn* culprit = nullptr;
    const RatingCode code = inputs.put(rater.element(), i, &culprit);
    if (culprit != nullptr)
        return std::string(culprit->input.name()) + ": " +
               std::string(find_code(number_of(code))->text.in(lang));
    const auto* check = rater.refusal();
    return check == nullptr ? std::string() : in_one_line(joined(check->box(lang).lines, "\n"));
}

}  // namespace zel
