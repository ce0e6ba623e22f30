#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text/locale.h"
#include "platform/text/text.h"
#include "short_circuit/entry.h"
#include "short_circuit/short_circuit_case.h"
#include "short_circuit/state_table.h"

namespace zel {

/// A text that a box refused while the form was filled by something else than typing.
struct RefusedNumber {
    NumberKey box;
    NumberRefusal refusal;
};

/// The case of a form and which of its inputs are open. What an input may hold depends on the
/// choices made before, so everything that fills a case goes through here: windows, files, records.
class ShortCircuitForm {
public:
    [[nodiscard]] const ShortCircuitCase& content() const { return content_; }

    /// Whether the input takes something. The number behind a closed one is 0 as a rule.
    [[nodiscard]] bool is_open(NumberKey box) const;
    [[nodiscard]] bool is_open(ListKey list) const;
    /// Whether the page of the conductor can be reached. What stands on it is kept where not.
    [[nodiscard]] bool conductor_page_is_open() const { return state_.conductor_page_open; }

    /// The entry `index` of a list is chosen. It opens and closes inputs by the state table; of the
    /// material list it writes the texts of the material into the boxes.
    void choose(ListKey list, std::int16_t index);

    void write(TextKey field, std::string_view text) { content_.*field = text; }

    /// The text of a box changes; see `enter` in entry.h. After `typed_into` the list of materials
    /// goes to index 0.
    std::optional<NumberRefusal> change(NumberKey box, std::string_view text, const Locale& locale);

    /// A key was typed into `box`: the next change of one of the material's boxes is made by hand.
    void typed_into(NumberKey box);

    /// Takes over the conductor of a record: the texts for reading, the section of its layers and
    /// the values of its material, not those of the core. The values are rounded as the boxes show
    /// them and go through the entry rules. What was refused is given back. A resistivity of 0
    /// leaves the conductivity without input.
    std::vector<RefusedNumber> take_over(const ConductorData& record, const Locale& locale);

    /// Writes every number that was typed with the separator `from` with the separator `to`. The
    /// numbers themselves do not change.
    void respell(DecimalSeparator from, DecimalSeparator to);

    /// The content of a field that no rule watches: a text, or what a conductor's record brings.
    [[nodiscard]] FieldRef place_of(const Field<ShortCircuitCase>& field) {
        return field.of(content_);
    }

private:
    void write_material(std::int16_t index);

    ShortCircuitCase content_;
    ChoiceState state_;
    std::optional<NumberKey> typed_into_;
};

/// What the label of a field shows that is a text or comes with a conductor's record. Empty as long
/// as there is no record.
[[nodiscard]] std::string label_text(const ShortCircuitCase& c, const ShortCircuitKey& key,
                                     DecimalSeparator separator);

/// Asked before a new case is started; lines and buttons in both languages.
[[nodiscard]] Box new_case_question(LangId lang);

/// Told where the conductor database cannot be started; German in every language.
[[nodiscard]] Box conductor_database_not_started();

}  // namespace zel
