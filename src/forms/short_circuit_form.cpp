#include "forms/short_circuit_form.h"

#include "short_circuit/input_check.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel::forms {
namespace {

const ShortCircuitKey& key(const Row& row) { return key_of<ShortCircuitCase>(*row.field); }

/// Whether nothing stands in the row's field but the 0 of a new record.
bool is_zero(const ShortCircuitCase& c, const Row& row) {
    const auto* number = std::get_if<RecordNumberKey>(&key(row));
    return number != nullptr && c.**number == 0;
}

std::string with_unit(const std::string& text, const Row& row, LangId lang) {
    const std::string unit(row.field->unit_in(lang));
    return text.empty() || unit.empty() ? text : text + " " + unit;
}

}  // namespace

std::span<const Section> ShortCircuitRecord::sections() const { return short_circuit_sections(); }

std::string ShortCircuitRecord::plain_text(const Row& row) const {
    const ShortCircuitCase& c = form_.content();
    if (const auto* box = std::get_if<NumberKey>(&key(row))) return (c.**box).text;
    if (row.is_list()) {
        const int index = chosen(row);
        return index == 0 ? std::string()
                          : std::string(
                                row.choices[static_cast<std::size_t>(index)].text.in(locale_.lang));
    }
    return label_text(c, key(row), locale_.separator);
}

std::string ShortCircuitRecord::shown(const Row& row) const {
    std::string text = plain_text(row);
    if (!row.field->of_record) return text;
    return is_zero(form_.content(), row) ? without_outer_blanks(text)
                                         : with_unit(text, row, locale_.lang);
}

std::string ShortCircuitRecord::listed(const Row& row) const {
    return with_unit(without_outer_blanks(plain_text(row)), row, locale_.lang);
}

int ShortCircuitRecord::chosen(const Row& row) const {
    return form_.content().*std::get<ListKey>(key(row));
}

InputState ShortCircuitRecord::state(const Row& row) const {
    bool open = true;
    if (const auto* box = std::get_if<NumberKey>(&key(row))) open = form_.is_open(*box);
    if (const auto* list = std::get_if<ListKey>(&key(row))) open = form_.is_open(*list);
    return {open, open};
}

std::optional<Refusal> ShortCircuitRecord::enter(const Row& row, std::string_view text) {
    if (const auto* field = std::get_if<TextKey>(&key(row))) {
        form_.write(*field, text);
        return std::nullopt;
    }
    auto refusal = form_.change(std::get<NumberKey>(key(row)), text, locale_);
    if (!refusal) return std::nullopt;
    return Refusal{std::move(refusal->box), refusal->text_stays};
}

void ShortCircuitRecord::choose(const Row& row, int index) {
    form_.choose(std::get<ListKey>(key(row)), static_cast<std::int16_t>(index));
}

void ShortCircuitRecord::typed_into(const Row& row) {
    if (const auto* box = std::get_if<NumberKey>(&key(row))) form_.typed_into(*box);
}

const Limits* ShortCircuitRecord::limits(const Row& row) const {
    const auto* box = std::get_if<NumberKey>(&key(row));
    return box == nullptr ? nullptr : &limits_of(*box);
}

std::vector<NumberSpan> ShortCircuitRecord::allowed(const Row& row) const {
    return common(Record::allowed(row), allowed_by_checks(form_.content(), key(row)));
}

std::vector<Complaint> ShortCircuitRecord::complaints() const {
    std::vector<Complaint> found;
    ShortCircuitCase c = form_.content();
    for (ShortCircuitRefusal& refusal : all_refusals(c)) {
        const ShortCircuitField& field = field_of(refusal.focus);
        add_once(found, {&field, refusal.page, is_empty(field.of(c)), std::move(refusal.box)});
    }
    return found;
}

}  // namespace zel::forms
