#include <algorithm>
#include <limits>

#include "adapters/posix/posix_files.h"
#include "library/short_circuit_series.h"
#include "library/zel_objects.h"
#include "series/rating_code.h"
#include "short_circuit/entry.h"
#include "short_circuit/short_circuit_fields.h"

// Names, cases and options of the C interface.

namespace zel::library {
namespace {

struct LastError {
    std::string de;
    std::string en;
};

LastError& last_error() {
    thread_local LastError error;
    return error;
}

constexpr Text no_such_given = {"so kann nichts gegeben sein", "nothing can be given so"};
constexpr Text no_such_radiation = {"so kann keine Strahlung sein", "no radiation can be so"};
constexpr Text null_text = {"ein Name oder ein Text ist ein Nullzeiger",
                            "a name or a text is a null pointer"};
constexpr Text no_such_index = {"es gibt keinen Eintrag mit dieser Nummer",
                                "there is no entry of this number"};

zel_kind kind_of(const FieldInfo& field) {
    switch (field.kind) {
        case FieldKind::Text: return ZEL_TEXT;
        case FieldKind::Number:
        case FieldKind::Single: return ZEL_NUMBER;
        case FieldKind::Whole:
        case FieldKind::List: return ZEL_WHOLE_NUMBER;
        case FieldKind::Flag: break;
    }
    return ZEL_FLAG;
}

/// What `zel_input` tells, in texts that end where they end.
struct NamedInput {
    std::string name, field, unit, about_de, about_en;
    Limits limits{};
    zel_kind kind = ZEL_DERIVED;
};

/// `label` with its sense, which what is derived says itself.
std::string with_sense(std::string_view label, std::string_view sense) {
    std::string text(label);
    const std::string told = "(" + std::string(sense) + ")";
    if (!sense.empty() && text.find(told) == std::string::npos) text += " " + told;
    return text;
}

NamedInput described(const FieldInfo& field, const Limits& limits) {
    const Text label = long_label_of(field);
    const std::string_view name = field.english_name.empty() ? field.name : field.english_name;
    return {std::string(name),
            std::string(field.name),
            std::string(field.unit_in(LangId::English)),
            with_sense(label.de, sense_of(name).de),
            with_sense(label.in(LangId::English), sense_of(name).in(LangId::English)),
            limits,
            kind_of(field)};
}

std::vector<NamedInput> inputs_of_lines() {
    std::vector<NamedInput> inputs;
    // What has no name for programs is of windows alone.
    for (const CaseField& field : case_fields())
        if (!field.english_name.empty())
            inputs.push_back(described(field, series_limits_of(field)));
    for (const DerivedInput& input : derived_inputs())
        inputs.push_back({std::string(input.name),
                          {},
                          std::string(input.unit),
                          std::string(input.about.de),
                          std::string(input.about.en),
                          input.limits});
    return inputs;
}

std::vector<NamedInput> inputs_of_short_circuits() {
    std::vector<NamedInput> inputs;
    for (const ShortCircuitField& field : short_circuit_fields()) {
        const auto* const number = std::get_if<NumberKey>(&field.key);
        inputs.push_back(described(field, number != nullptr ? limits_of(*number) : Limits()));
    }
    return inputs;
}

const std::vector<NamedInput>& inputs_of(zel_area area) {
    static const std::vector<NamedInput> lines = inputs_of_lines();
    static const std::vector<NamedInput> short_circuits = inputs_of_short_circuits();
    return area == ZEL_SHORT_CIRCUIT ? short_circuits : lines;
}

}  // namespace

void keep_error(const Reason& reason) { last_error() = {reason.de, reason.en}; }

std::string_view given_text(const char* text) {
    if (text == nullptr) throw InputError(Reason(null_text));
    return text;
}

}  // namespace zel::library

using namespace zel;
using namespace zel::library;

const char* zel_version(void) { return ZEL_VERSION; }
int zel_interface(void) { return ZEL_INTERFACE; }

const char* zel_last_error(zel_language language) {
    return language == ZEL_GERMAN ? last_error().de.c_str() : last_error().en.c_str();
}

size_t zel_code_count(void) { return rating_codes().size(); }

zel_status zel_code_at(size_t index, zel_code* code) {
    return guarded([&] {
        if (index >= rating_codes().size()) throw InputError(Reason(no_such_index));
        const RatingCodeText& row = rating_codes()[index];
        *code = {static_cast<std::int32_t>(row.code), row.name.data(), row.text.de.data(),
                 row.text.en.data()};
    });
}

size_t zel_input_count(zel_area area) { return inputs_of(area).size(); }

zel_status zel_input_at(zel_area area, size_t index, zel_input* input) {
    return guarded([&] {
        const auto& inputs = inputs_of(area);
        if (index >= inputs.size()) throw InputError(Reason(no_such_index));
        const NamedInput& it = inputs[index];
        *input = {it.name.c_str(), it.field.c_str(), it.unit.c_str(),     it.limits.low,
                  it.limits.high,  it.kind,          it.about_de.c_str(), it.about_en.c_str()};
    });
}

zel_status zel_conductors(void (*take)(const char* name, void* context), void* context) {
    return guarded([&] {
        const auto library = open_conductors();
        for (const LibraryConductor& conductor : library->conductors())
            take(full_name(conductor).c_str(), context);
    });
}

zel_case* zel_case_new(zel_area area) {
    return new (std::nothrow)
        zel_case{NamedCase(area == ZEL_SHORT_CIRCUIT ? Area::ShortCircuit : Area::Line)};
}

zel_case* zel_case_copy(const zel_case* from) {
    zel_case* copy = nullptr;
    (void)guarded([&] { copy = new zel_case(*from); });
    return copy;
}

void zel_case_free(zel_case* it) { delete it; }

zel_status zel_case_read_file(zel_case* it, const char* path) {
    return guarded([&] { it->named.read_file(std::string(given_text(path))); });
}
zel_status zel_case_read_json(zel_case* it, const char* json) {
    return guarded([&] { it->named.read_json(given_text(json)); });
}
zel_status zel_case_set_number(zel_case* it, const char* name, double number) {
    return guarded([&] { it->named.set(given_text(name), number); });
}
zel_status zel_case_set_text(zel_case* it, const char* name, const char* text) {
    return guarded([&] { it->named.set(given_text(name), std::string(given_text(text))); });
}
zel_status zel_case_set_flag(zel_case* it, const char* name, int yes) {
    return guarded([&] { it->named.set(given_text(name), yes != 0); });
}
zel_status zel_case_unset(zel_case* it, const char* name) {
    return guarded([&] { it->named.unset(given_text(name)); });
}
zel_status zel_case_set_conductor(zel_case* it, const char* record_or_name) {
    return guarded([&] { it->named.set_conductor(std::string(given_text(record_or_name))); });
}

zel_options* zel_options_new(void) { return new (std::nothrow) zel_options; }
void zel_options_free(zel_options* it) { delete it; }

zel_status zel_options_threads(zel_options* it, unsigned threads) {
    it->threads = threads;
    return ZEL_DONE;
}
zel_status zel_options_given(zel_options* it, zel_given given) {
    return guarded([&] {
        if (given < ZEL_AS_IN_CASE || given > ZEL_BUNDLE_CURRENT_GIVEN)
            throw InputError(Reason(no_such_given));
        it->given = given;
    });
}
zel_status zel_options_radiation(zel_options* it, zel_radiation radiation) {
    return guarded([&] {
        switch (radiation) {
            case ZEL_AS_IT_STANDS: it->radiation = Radiation::AsItStands; return;
            case ZEL_HORIZONTAL: it->radiation = Radiation::Horizontal; return;
            case ZEL_MEETS_CONDUCTOR: it->radiation = Radiation::OnConductor; return;
        }
        throw InputError(Reason(no_such_radiation));
    });
}
zel_status zel_options_heat_capacity(zel_options* it, int with_temperature) {
    it->heat_capacity = with_temperature != 0 ? HeatCapacityOption::WithTemperature
                                              : HeatCapacityOption::At20Degrees;
    return ZEL_DONE;
}
