#include "library/short_circuit_series.h"

#include <algorithm>
#include <cmath>

#include "platform/errors.h"
#include "series/series_run.h"
#include "short_circuit/short_circuit_file.h"
#include "short_circuit/short_circuit_run.h"

namespace zel::library {
namespace {

constexpr std::size_t elements_of_a_block = 64;
constexpr Locale plain = {LangId::English, DecimalSeparator::Point};

constexpr Text fixed_refused = {"eine Zahl des Falls liegt außerhalb ihrer Grenzen",
                                "a number of the case is outside its limits"};

using Result = ShortCircuitResult;

template <double Result::*member>
double direct(const Result& result) {
    return result.*member;
}
template <double CurrentFlow::*member, std::size_t flow>
double of_flow(const Result& result) {
    return result.flows[flow].*member;
}
template <std::int16_t Result::*member>
double verdict(const Result& result) {
    return result.*member;
}

constexpr ShortCircuitNumber numbers[] = {
    {"I_th", direct<&Result::I_th>},
    {"T_k", direct<&Result::T_k>},
    {"I_th1", of_flow<&CurrentFlow::I_th, 0>},
    {"I_th2", of_flow<&CurrentFlow::I_th, 1>},
    {"I_th3", of_flow<&CurrentFlow::I_th, 2>},
    {"m1", of_flow<&CurrentFlow::m, 0>},
    {"n1", of_flow<&CurrentFlow::n, 0>},
    {"m2", of_flow<&CurrentFlow::m, 1>},
    {"n2", of_flow<&CurrentFlow::n, 1>},
    {"m3", of_flow<&CurrentFlow::m, 2>},
    {"n3", of_flow<&CurrentFlow::n, 2>},
    {"K", direct<&Result::K>},
    {"S_thr", direct<&Result::S_thr>},
    {"S_th", direct<&Result::S_th>},
    {"S_zul", direct<&Result::S_zul>},
    {"verdict_Betriebsmittel", verdict<&Result::verdict_Betriebsmittel>},
    {"verdict_Leiter", verdict<&Result::verdict_Leiter>},
};

/// The named values of one element after the other.
class Element {
public:
    Element(const NamedCase& named, std::span<const NamedColumn> columns)
        : columns_(columns), values_(named.values()) {
        for (const NamedColumn& column : columns) {
            NamedCase probe(Area::ShortCircuit);
            probe.set(column.name, 0.0);
            const std::string& key = probe.values().front().key;
            std::erase_if(values_, [&](const FlatMember& member) { return member.key == key; });
            keys_.push_back(key);
        }
        fixed_ = values_.size();
        for (const std::string& key : keys_) values_.push_back({key, 0.0});
    }

    /// Where a number is refused, `why` gets the input and what refuses it; null where nobody asks.
    RatingCode rate(std::size_t i, Result& result, std::string* why = nullptr) {
        const auto refused = [&](RatingCode code, std::string_view input, const std::string& text) {
            if (why != nullptr) *why = std::string(input) + ": " + text;
            return code;
        };
        for (std::size_t k = 0; k < columns_.size(); ++k) {
            const double number = columns_[k].numbers[i];
            if (!std::isfinite(number))
                return refused(std::isnan(number) ? RatingCode::MissingInput
                                                  : RatingCode::OutsideLimits,
                               keys_[k], exact_number(number));
            values_[fixed_ + k].value = number;
        }
        try {
            const ShortCircuitFile file = read_short_circuit_case(values_, plain);
            if (!file.refused.empty())
                return refused(RatingCode::OutsideLimits, file.refused.front().field,
                               joined(file.refused.front().box.lines, " "));
            const ShortCircuitRun run = RunShortCircuit(file.form.content(), plain.separator);
            if (run.refusal) {
                const std::string_view input = name_of(run.refusal->focus);
                return refused(is_given(input) ? RatingCode::OutsideLimits
                                               : RatingCode::MissingInput,
                               input, joined(run.refusal->box.lines, " "));
            }
            result = run.result;
            return RatingCode::Rated;
        } catch (const InputError& error) {  // a list has no such entry
            if (why != nullptr) *why = error.told(plain.lang);
            return RatingCode::OutsideLimits;
        }
    }

private:
    [[nodiscard]] bool is_given(std::string_view input) const {
        return std::ranges::any_of(values_,
                                   [&](const FlatMember& value) { return value.key == input; });
    }

    std::span<const NamedColumn> columns_;
    FlatObject values_;
    std::vector<std::string> keys_;
    std::size_t fixed_ = 0;
};

}  // namespace

std::span<const ShortCircuitNumber> short_circuit_numbers() { return numbers; }

void rate_short_circuit(const NamedCase& named, std::span<const NamedColumn> columns,
                        std::size_t count, unsigned threads, std::span<const Strided<double>> out,
                        const Strided<std::int32_t>& code) {
    if (!read_short_circuit_case(named.values(), plain).refused.empty())
        throw InputError(Reason(fixed_refused));
    in_blocks(count, elements_of_a_block, threads, [&](std::size_t first, std::size_t end) {
        Element element(named, columns);
        for (std::size_t i = first; i < end; ++i) {
            Result result;
            const RatingCode found = element.rate(i, result);
            code.set(i, number_of(found));
            for (std::size_t k = 0; k < out.size(); ++k)
                out[k].set(i, has_value(found) ? numbers[k].of(result) : no_number);
        }
    });
}

std::string why_no_short_circuit(const NamedCase& named, std::span<const NamedColumn> columns,
                                 std::size_t i) {
    Result result;
    std::string why;
    (void)Element(named, columns).rate(i, result, &why);
    return why;
}

}  // namespace zel::library
