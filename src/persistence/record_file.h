#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/case_store.h"
#include "platform/message_box.h"
#include "platform/text/number_text.h"
#include "steady/case/field.h"

// Records and files of named values: one reader and one writer over the descriptions of records.

namespace zel {

/// A typed text that its field refused, with what is told about it.
struct RefusedText {
    std::string field;
    Box box;
};

/// Gives a record the named values of a file. What is read of each kind of field stands here; a
/// record adds in which order it takes them and by which rules.
class RecordReader {
public:
    virtual ~RecordReader() = default;
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;

    /// Takes all values and gives the texts that were refused, which count as no input. Missing
    /// keys and empty texts of numbers are "no input".
    ///
    /// Throws `InputError` naming the key where it is none of the record, where a value is of the
    /// wrong kind, and where a number is none that the field can have.
    std::vector<RefusedText> read(const FlatObject& values);

protected:
    explicit RecordReader(DecimalSeparator separator) : separator_(separator) {}

    /// The members of `values` in the order in which they are taken.
    [[nodiscard]] virtual std::vector<const FlatMember*> in_order(const FlatObject& values) = 0;
    /// The field of a key; nothing where it is none of the record.
    [[nodiscard]] virtual std::optional<FieldOf> find(std::string_view key) = 0;

    /// A number for a field that is typed.
    virtual std::optional<Box> take(const FieldOf& field, Entry& place, double number) = 0;
    /// A text for a field that is typed, not empty.
    virtual std::optional<Box> take(const FieldOf& field, Entry& place,
                                    const std::string& text) = 0;
    /// A number for a field of whole numbers.
    virtual void take(const FieldOf& field, std::int16_t& place, double number) = 0;

    /// Why `text` is no number.
    [[nodiscard]] virtual Reason no_number(const std::string& text) const;

    /// The field of a key, or `InputError`.
    [[nodiscard]] FieldOf known(std::string_view key);
    [[nodiscard]] double number_of(const std::string& text, std::string_view key) const;
    [[noreturn]] static void refuse(std::string_view key, const Reason& reason);
    [[nodiscard]] DecimalSeparator separator() const { return separator_; }

private:
    void set(const FieldOf& field, std::string& place, const FlatMember& member);
    void set(const FieldOf& field, Entry& place, const FlatMember& member);
    void set(const FieldOf& field, std::int16_t& place, const FlatMember& member);
    void set(const FieldOf& field, bool& place, const FlatMember& member);
    void set(const FieldOf& field, double& place, const FlatMember& member);
    [[nodiscard]] std::optional<double> number_in(const FlatMember& member) const;

    DecimalSeparator separator_;
    std::vector<RefusedText> refused_;
};

/// The named values of those of `fields` that have input and are not what they are in a new record,
/// `start`. What was typed as a number is a number here, with the digits that the field can hold.
[[nodiscard]] FlatObject written(const std::vector<FieldOf>& fields,
                                 const std::vector<FieldOf>& start);

/// The named values of a record, from which its reader makes the same record under any separator.
template <class Record>
[[nodiscard]] FlatObject values_of(Record record) {
    Record start;
    return written(fields_of(record), fields_of(start));
}

}  // namespace zel
