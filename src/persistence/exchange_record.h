#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/text/number_text.h"
#include "steady/case/case_fields.h"

// The record of one conductor by which the conductor database and this program exchange it: 714
// bytes, packed, little-endian. The database writes it, this program takes it over.

namespace zel {

inline constexpr std::size_t record_size = 714;

enum class RecordType : std::uint8_t {
    Text,    // single-byte characters of Windows-1252, filled up with blanks
    Int16,   // signed
    Single,  // IEEE, 32 bits
    Double,  // IEEE, 64 bits
};

/// A field of the record. Once taken over, its float is shown by the mask of the field.
struct RecordField {
    FieldKey field;
    std::size_t offset;
    RecordType type;
    std::size_t width;  // bytes
};

/// The fields of the record by rising offset. The bytes between them are floats that no field of a
/// case stands for, at 170, 174, 436 and 500; from 610 on nothing is read.
[[nodiscard]] std::span<const RecordField> record_fields();

/// The conductor of a record. What a short one lacks is zero; bytes beyond the 714 are not looked
/// at. Trailing blanks and zero bytes of texts are cut; 32-bit floats are widened, so that 0.1095
/// becomes 0.109499998390675. The text of a number is what its mask shows. Fields that a record
/// does not hold are without input. Throws `InputError` naming field and offset where a number is
/// not finite, and where a code is no 16-bit integer.
[[nodiscard]] ConductorData read_record(std::string_view bytes, DecimalSeparator separator);

/// The record of a conductor, 714 bytes. A field without input is 0, and so is everything that no
/// field stands for. Throws `InputError` naming the field where a text is too long or has a
/// character that Windows-1252 lacks, and where a number is beyond the range of a 32-bit float.
[[nodiscard]] std::string written_record(const ConductorData& conductor);
/// The same of the conductor of a case, without a copy of it.
[[nodiscard]] std::string written_record(const CalcCase& c);

/// Gives `to` what a record holds of `from`. The two radial conductivities and the knee point,
/// which it does not hold, stay as they are, unless they were assumed for the former conductor.
void copy_record_fields(const ConductorData& from, ConductorData& to);

}  // namespace zel
