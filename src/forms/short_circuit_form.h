#pragma once

#include "forms/form.h"
#include "platform/text/locale.h"
#include "short_circuit/short_circuit_form.h"

// The form of a short-circuit case. The texts of its checks are German in every language, so that
// in English the hint of an input tells what they call it.

namespace zel::forms {

/// A short-circuit case behind its form. A row that is closed is not needed either.
class ShortCircuitRecord : public Record {
public:
    ShortCircuitRecord(ShortCircuitForm& form, const Locale& locale)
        : form_(form), locale_(locale) {}

    [[nodiscard]] std::span<const Section> sections() const override;
    /// A list shows its chosen entry, and nothing at index 0.
    [[nodiscard]] std::string shown(const Row& row) const override;
    [[nodiscard]] int chosen(const Row& row) const override;
    [[nodiscard]] InputState state(const Row& row) const override;
    [[nodiscard]] std::string listed(const Row& row) const override;
    [[nodiscard]] LangId language_of_choices(const Row& /*row*/) const override {
        return locale_.lang;
    }
    std::optional<Refusal> enter(const Row& row, std::string_view text) override;
    void choose(const Row& row, int index) override;
    void typed_into(const Row& row) override;
    [[nodiscard]] const Limits* limits(const Row& row) const override;
    [[nodiscard]] std::vector<NumberSpan> allowed(const Row& row) const override;
    /// The boxes are German in every language.
    [[nodiscard]] std::vector<Complaint> complaints() const override;

private:
    [[nodiscard]] std::string plain_text(const Row& row) const;

    ShortCircuitForm& form_;
    const Locale& locale_;
};

/// All sections, page by page. The rows of the conductor's record have no control to type into.
[[nodiscard]] std::span<const Section> short_circuit_sections();

}  // namespace zel::forms
