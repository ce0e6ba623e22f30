#include <algorithm>
#include <limits>

#include "adapters/posix/posix_files.h"
#include "library/short_circuit_series.h"
#include "library/zel_objects.h"
#include "series/rating_code.h"
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

constexpr Text no_such_index = {"es gibt keinen Eintrag mit dieser Nummer",
                                "there is no entry of this number"};

const char* text_of(std::string_view literal) { return literal.empty() ? "" : literal.data(); }

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

zel_input described(const FieldInfo& field, const Limits& limits) {
    const Text label = long_label_of(field);
    return {text_of(field.english_name.empty() ? field.name : field.english_name),
            text_of(field.name),
            text_of(field.unit_in(LangId::English)),
            limits.low,
            limits.high,
            kind_of(field),
            text_of(label.de),
            text_of(label.in(LangId::English))};
}

zel_input described(const DerivedInput& input) {
    return {text_of(input.name), "",          text_of(input.unit),     input.limits.low,
            input.limits.high,   ZEL_DERIVED, text_of(input.about.de), text_of(input.about.en)};
}

}  // namespace

void keep_error(const Reason& reason) { last_error() = {reason.de, reason.en}; }

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

size_t zel_input_count(zel_area area) {
    return area == ZEL_SHORT_CIRCUIT ? short_circuit_fields().size()
                                     : case_fields().size() + derived_inputs().size();
}

zel_status zel_input_at(zel_area area, size_t index, zel_input* input) {
    return guarded([&] {
        if (index >= zel_input_count(area)) throw InputError(Reason(no_such_index));
        if (area == ZEL_SHORT_CIRCUIT)
            *input = described(short_circuit_fields()[index], Limits());
        else if (index < case_fields().size())
            *input = described(case_fields()[index], series_limits_of(case_fields()[index]));
        else
            *input = described(derived_inputs()[index - case_fields().size()]);
    });
}

zel_status zel_conductors(void (*take)(const char* name, void* context), void* context) {
    return guarded([&] {
        PosixFiles files;
        const ConductorLibrary library = open_conductors(files);
        for (const LibraryConductor& conductor : library.conductors())
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
    return guarded([&] { it->named.read_file(path); });
}
zel_status zel_case_read_json(zel_case* it, const char* json) {
    return guarded([&] { it->named.read_json(json); });
}
zel_status zel_case_set_number(zel_case* it, const char* name, double number) {
    return guarded([&] { it->named.set(name, number); });
}
zel_status zel_case_set_text(zel_case* it, const char* name, const char* text) {
    return guarded([&] { it->named.set(name, std::string(text)); });
}
zel_status zel_case_set_flag(zel_case* it, const char* name, int yes) {
    return guarded([&] { it->named.set(name, yes != 0); });
}
zel_status zel_case_unset(zel_case* it, const char* name) {
    return guarded([&] { it->named.unset(name); });
}
zel_status zel_case_set_conductor(zel_case* it, const char* record_or_name) {
    return guarded([&] { it->named.set_conductor(record_or_name); });
}

zel_options* zel_options_new(void) { return new (std::nothrow) zel_options; }
void zel_options_free(zel_options* it) { delete it; }

zel_status zel_options_threads(zel_options* it, unsigned threads) {
    it->threads = threads;
    return ZEL_DONE;
}
zel_status zel_options_given(zel_options* it, zel_given given) {
    it->given = given;
    return ZEL_DONE;
}
zel_status zel_options_heat_capacity(zel_options* it, int with_temperature) {
    it->heat_capacity = with_temperature != 0 ? HeatCapacityOption::WithTemperature
                                              : HeatCapacityOption::At20Degrees;
    return ZEL_DONE;
}
