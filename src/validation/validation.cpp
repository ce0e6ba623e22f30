#include "validation/validation.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "platform/errors.h"

namespace zel {
namespace {

Verdict verdict_on(const PublishedFigure& figure, const Recalculated& computed) {
    if (!computed.value) return Verdict::Fails;
    if (!figure.corrected)
        return figure.tolerance.holds(*computed.value, figure.value) ? Verdict::Holds
                                                                     : Verdict::Fails;
    const bool as_printed = figure.tolerance.holds(*computed.value, figure.value);
    return !as_printed && figure.tolerance.holds(*computed.value, *figure.corrected)
               ? Verdict::Misprint
               : Verdict::Fails;
}

std::optional<double> less(const Recalculated& a, const Recalculated& b) {
    if (!a.value || !b.value) return std::nullopt;
    return *a.value - *b.value;
}

/// What `work` gives; what it refuses is told by the row that asks for it.
template <class Work>
auto at_row(const Reason& place, Work work) {
    try {
        return work();
    } catch (const InputError& error) {
        throw InputError(at(place, error.reason()));
    }
}

CheckedSource checked(const PublishedSource& source, const ValidationTables& tables,
                      Recalculation& recalculation) {
    CheckedSource checked = {
        &source,
        at_row(source.place, [&] { return recalculation.inputs_of(source.calculation); }),
        Recalculation::changes_in(source.calculation.changes),
        {}};
    for (const PublishedFigure& figure : tables.figures) {
        if (figure.source != &source) continue;
        const Recalculated computed = at_row(figure.place, [&] {
            return recalculation.calculate(with(source.calculation, figure.changes),
                                           *figure.quantity);
        });
        checked.figures.push_back({&figure, Recalculation::changes_in(figure.changes), computed,
                                   verdict_on(figure, computed)});
    }
    return checked;
}

bool belongs_to(const LibraryConductor& conductor, const RatedFamily& family) {
    const CalcCase& c = conductor.c;
    const std::int16_t layers = c.DrahtlagenzahlLeiter_db;
    return c.Dauerstrombelastbarkeit_db.value > 0 && c.Norm_db == family.standard &&
           c.conductor_type_db == family.kind && conductor.conductor_material == family.material &&
           conductor.source.find(family.source) != std::string::npos &&
           layers >= family.least_layers && layers <= family.most_layers;
}

const RatedLimit* limit_of(const ValidationTables& tables, const RatedFamily& family,
                           Method method) {
    const auto row =
        std::find_if(tables.limits.begin(), tables.limits.end(), [&](const RatedLimit& limit) {
            return limit.family == family.key && limit.method == method;
        });
    return row == tables.limits.end() ? nullptr : &*row;
}

/// Relative to the printed current, which a deviation of 0 meets.
bool within(const std::optional<Tolerance>& limit, double deviation) {
    return !limit || limit->holds(1 + deviation, 1);
}

CheckedRating rated_by(Method method, const RatedFamily& family,
                       const std::vector<const LibraryConductor*>& members,
                       const ValidationTables& tables, Recalculation& recalculation) {
    CheckedRating rating;
    rating.family = &family;
    rating.method = method;
    rating.limit = limit_of(tables, family, method);
    std::vector<double> deviations;
    for (const LibraryConductor* conductor : members) {
        const Recalculated found = recalculation.rating(family.case_file, *conductor, method);
        if (!found.value) {
            if (!rating.refused) rating.refused = found.why;
            continue;
        }
        const double deviation = *found.value / conductor->c.Dauerstrombelastbarkeit_db.value - 1;
        if (deviations.empty() || std::abs(deviation) > std::abs(rating.worst)) {
            rating.worst = deviation;
            rating.worst_conductor = conductor->c.Bezeichnung1_db;
        }
        deviations.push_back(deviation);
    }
    rating.count = deviations.size();
    if (rating.count > 0) {
        const auto n = static_cast<double>(rating.count);
        for (const double deviation : deviations) rating.mean += deviation / n;
        double squares = 0;
        for (const double deviation : deviations)
            squares += (deviation - rating.mean) * (deviation - rating.mean) / n;
        rating.spread = std::sqrt(squares);
    }
    if (rating.limit == nullptr) return rating;
    const bool holds = rating.count == members.size() && rating.count > 0 &&
                       within(rating.limit->mean, rating.mean) &&
                       within(rating.limit->worst, rating.worst);
    rating.verdict = holds ? Verdict::Holds : Verdict::Fails;
    return rating;
}

void rate_families(Validation& validation, Recalculation& recalculation) {
    std::set<const LibraryConductor*> taken;
    for (const RatedFamily& family : validation.tables.families) {
        std::vector<const LibraryConductor*> members;
        for (const LibraryConductor& conductor : recalculation.conductors())
            if (belongs_to(conductor, family) && taken.insert(&conductor).second)
                members.push_back(&conductor);
        CheckedFamily& checked = validation.families.emplace_back();
        checked.family = &family;
        checked.inputs = recalculation.inputs_of({family.case_file, {}, {}});
        checked.conductors = members.size();
        for (const Method method : {Method::TB601, Method::TB207, Method::Webs, Method::Kirn})
            checked.methods.push_back(
                rated_by(method, family, members, validation.tables, recalculation));
    }
    for (const LibraryConductor& conductor : recalculation.conductors())
        if (conductor.c.Dauerstrombelastbarkeit_db.value > 0 && !taken.contains(&conductor))
            validation.outside_families.push_back(full_name(conductor));
}

SizedOddity sized(const KeptOddity& oddity, Recalculation& recalculation) {
    return at_row(oddity.place, [&] {
        return SizedOddity{&oddity, recalculation.inputs_of(oddity.letter),
                           recalculation.calculate(oddity.letter, *oddity.letter_quantity),
                           recalculation.calculate(oddity.physics, *oddity.physics_quantity)};
    });
}

}  // namespace

std::string_view name_of(Verdict verdict) {
    switch (verdict) {
        case Verdict::Holds: return "holds";
        case Verdict::Misprint: return "misprint";
        case Verdict::Fails: return "fails";
        case Verdict::NoTest: break;
    }
    return "no test";
}

std::optional<double> CheckedFigure::difference() const {
    if (!computed.value) return std::nullopt;
    return *computed.value - figure->value;
}

std::optional<double> SizedOddity::difference() const { return less(letter, physics); }

std::size_t Validation::count(Verdict verdict) const {
    std::size_t found = 0;
    for (const CheckedSource& source : sources)
        for (const CheckedFigure& figure : source.figures) found += figure.verdict == verdict;
    for (const CheckedFamily& family : families)
        for (const CheckedRating& rating : family.methods) found += rating.verdict == verdict;
    return found;
}

bool Validation::holds() const {
    return count(Verdict::Fails) == 0 && outside_families.empty() &&
           std::all_of(oddities.begin(), oddities.end(),
                       [](const SizedOddity& oddity) { return oddity.difference().has_value(); });
}

Validation validate(Files& files, CaseStore& cases, const std::string& folder, LangId lang) {
    Validation validation;
    validation.tables = read_validation_tables(files, folder);
    Recalculation recalculation(files, cases, folder, lang);
    for (const PublishedSource& source : validation.tables.sources)
        validation.sources.push_back(checked(source, validation.tables, recalculation));
    rate_families(validation, recalculation);
    for (const KeptOddity& oddity : validation.tables.oddities)
        validation.oddities.push_back(sized(oddity, recalculation));
    return validation;
}

}  // namespace zel
