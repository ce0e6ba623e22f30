#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/table_store.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "steady/case/calc_case.h"

// The description of a record: a table with one row per field. Case files, JSON, listings, forms,
// templates and tables read names, kinds, labels and units from it.

namespace zel {

/// What stands behind a number that nobody gave, see `Entry::assumed`.
inline constexpr Text assumed_mark = {"(angenommen)", "(assumed)"};

enum class FieldKind : std::uint8_t {
    Text,    // free text
    Number,  // a double, typed (`Entry`)
    Single,  // the same, held at 32 bits, typed or not
    Whole,   // a whole number of 16 bits
    List,    // the same, an index from 0 to `last_index`
    Flag,    // yes or no
};

/// What is known of a field, whatever the record that it stands in.
struct FieldInfo {
    std::string_view name;  // of its column, and in case files
    /// In plain English, for series and programs; empty where only windows read the field.
    std::string_view english_name{};
    FieldKind kind = FieldKind::Text;
    ColumnType column = ColumnType::Text;
    /// On a form, as it stands there: with its colon. German alone where `en` is empty.
    Text label{};
    std::string_view unit{};
    std::string_view english_unit{};  // where it is spelled in another way, see `unit_in`
    std::string_view mask{};          // by which a number is shown that was not typed
    /// Where it stands without a form around it, as in workbooks; see `long_label_of`.
    Text long_label{};
    std::string_view long_unit{};
    std::int16_t length = 0;      // characters of a text; 0 where they are not limited
    std::int16_t last_index = 0;  // of a list, whose indexes begin at 0
    bool rounded = false;         // what is typed is rounded to a whole number, ties to even
    bool of_record = false;       // comes with the record of a conductor and is not typed
    bool nothing_at_0 = false;    // a 0 says that there is no input

    [[nodiscard]] std::string_view unit_in(LangId lang) const {
        return lang == LangId::English && !english_unit.empty() ? english_unit : unit;
    }
    [[nodiscard]] bool is_number() const {
        return kind == FieldKind::Number || kind == FieldKind::Single;
    }
};

/// The label without the blanks and the colon at its end: "Wind speed".
[[nodiscard]] Text bare_label_of(const FieldInfo& field);

/// What a field is called where no form stands around it: its long label, or the bare one.
[[nodiscard]] Text long_label_of(const FieldInfo& field);
[[nodiscard]] std::string_view long_unit_of(const FieldInfo& field);

/// A field by its member, the key that ties all tables over fields together.
template <class Record>
using KeyOf = std::variant<std::string Record::*, Entry Record::*, std::int16_t Record::*,
                           bool Record::*, double Record::*>;

/// A field of a record by its type.
using FieldRef = std::variant<std::string*, Entry*, std::int16_t*, bool*, double*>;

/// A field as it stands in a record, with its whole name: that of a repeated part bears the number
/// of its row (`Z3_TEMP_db`).
struct FieldOf {
    std::string name;
    const FieldInfo* info;
    FieldRef value;
};

/// Writes a number that was typed with the separator `from` with the separator `to`. A text that is
/// no number stays as it is; the double does not change.
void respell(Entry& field, DecimalSeparator from, DecimalSeparator to);
/// The same of every typed number among `fields`.
void respell(const std::vector<FieldOf>& fields, DecimalSeparator from, DecimalSeparator to);

/// A row of a record's description. It begins with name and member, from which its kind follows,
/// and is made more precise by what is called on it:
///
///     F{"Windgeschwindigkeit_db", &CalcCase::Windgeschwindigkeit_db}
///         .called("Windgeschwindigkeit :", "Wind speed :", "m/s")
template <class Record>
struct Field : FieldInfo {
    using Key = KeyOf<Record>;
    Key key;

    template <class Member>
    constexpr Field(std::string_view its_name, Member member) : key(member) {
        constexpr struct {
            FieldKind kind;
            ColumnType column;
        } usual[] = {{FieldKind::Text, ColumnType::Text},
                     {FieldKind::Number, ColumnType::Single},
                     {FieldKind::Whole, ColumnType::Integer},
                     {FieldKind::Flag, ColumnType::Integer},
                     {FieldKind::Single, ColumnType::Single}};
        name = its_name;
        kind = usual[key.index()].kind;
        column = usual[key.index()].column;
    }

    [[nodiscard]] constexpr Field alias(std::string_view its_name) const {
        return with(&FieldInfo::english_name, its_name);
    }
    [[nodiscard]] constexpr Field called(std::string_view de, std::string_view en = {},
                                         std::string_view its_unit = {}) const {
        return with(&FieldInfo::label, Text{de, en}).with(&FieldInfo::unit, its_unit);
    }
    [[nodiscard]] constexpr Field unit_in_english(std::string_view its_unit) const {
        return with(&FieldInfo::english_unit, its_unit);
    }
    [[nodiscard]] constexpr Field called_alone(std::string_view de, std::string_view en,
                                               std::string_view its_unit = {}) const {
        return with(&FieldInfo::long_label, Text{de, en}).with(&FieldInfo::long_unit, its_unit);
    }
    [[nodiscard]] constexpr Field shown_by(std::string_view its_mask) const {
        return with(&FieldInfo::mask, its_mask);
    }
    [[nodiscard]] constexpr Field of_length(std::int16_t characters) const {
        return with(&FieldInfo::length, characters);
    }
    [[nodiscard]] constexpr Field in_column(ColumnType its_column) const {
        return with(&FieldInfo::column, its_column);
    }
    [[nodiscard]] constexpr Field list_to(std::int16_t last) const {
        return with(&FieldInfo::kind, FieldKind::List).with(&FieldInfo::last_index, last);
    }
    [[nodiscard]] constexpr Field single() const {
        return with(&FieldInfo::kind, FieldKind::Single);
    }
    [[nodiscard]] constexpr Field rounded_to_whole() const {
        return in_column(ColumnType::Integer).with(&FieldInfo::rounded, true);
    }
    [[nodiscard]] constexpr Field from_record() const { return with(&FieldInfo::of_record, true); }
    [[nodiscard]] constexpr Field nothing_as_0() const {
        return with(&FieldInfo::nothing_at_0, true);
    }

    /// The field of `record`.
    [[nodiscard]] FieldRef of(Record& record) const {
        return std::visit([&](auto member) -> FieldRef { return &(record.*member); }, key);
    }

private:
    template <class Value>
    [[nodiscard]] constexpr Field with(Value FieldInfo::*fact, Value value) const {
        Field made = *this;
        made.*fact = value;
        return made;
    }
};

/// The member of `field`, a row of the description of `Record`.
template <class Record>
[[nodiscard]] const KeyOf<Record>& key_of(const FieldInfo& field) {
    return static_cast<const Field<Record>&>(field).key;
}

}  // namespace zel
