#include "persistence/exchange_record.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

#include "platform/errors.h"
#include "platform/rounding.h"
#include "platform/text/windows_1252.h"

namespace zel {
namespace {

using enum RecordType;

constexpr RecordField fields[] = {
    {&CalcCase::Bezeichnung1_db, 0, Text, 50},
    {&CalcCase::Bezeichnung2_db, 50, Text, 50},
    {&CalcCase::Norm_db, 100, Text, 50},
    {&CalcCase::Normjahr_db, 150, Int16, 2},
    {&CalcCase::Normmonat_db, 152, Int16, 2},
    {&CalcCase::conductor_type_db, 154, Single, 4},
    {&CalcCase::conductor_shape_db, 158, Single, 4},
    {&CalcCase::Seilquerschnitt_db, 162, Single, 4},
    {&CalcCase::Seildurchmesser_db, 166, Single, 4},
    {&CalcCase::Dauerstrombelastbarkeit_db, 178, Single, 4},
    {&CalcCase::Seiltemperatur_max_db, 182, Single, 4},
    {&CalcCase::Anmerkung_db, 186, Text, 250},
    {&CalcCase::GMR_db, 440, Single, 4},
    {&CalcCase::ACR_Frequenz_Remox_db, 444, Single, 4},
    {&CalcCase::ACR1_db, 448, Single, 4},
    {&CalcCase::TACR1_db, 452, Single, 4},
    {&CalcCase::ACR2_db, 456, Single, 4},
    {&CalcCase::TACR2_db, 460, Single, 4},
    {&CalcCase::ACR3_db, 464, Single, 4},
    {&CalcCase::TACR3_db, 468, Single, 4},
    {&CalcCase::ACR4_db, 472, Single, 4},
    {&CalcCase::TACR4_db, 476, Single, 4},
    {&CalcCase::ACR5_db, 480, Single, 4},
    {&CalcCase::TACR5_db, 484, Single, 4},
    {&CalcCase::ACR6_db, 488, Single, 4},
    {&CalcCase::TACR6_db, 492, Single, 4},
    {&CalcCase::DCR_20_db, 496, Single, 4},
    {&CalcCase::DrahtzahlLeiter_db, 504, Int16, 2},
    {&CalcCase::DrahtdurchmesserLeiter_db, 506, Single, 4},
    {&CalcCase::DrahtlagenzahlLeiter_db, 510, Int16, 2},
    {&CalcCase::Mantelquerschnitt_db, 512, Single, 4},
    {&CalcCase::Dichte_Leiterwerkstoff1_db, 516, Double, 8},
    {&CalcCase::c_leiter20_db, 524, Double, 8},
    {&CalcCase::beta_leiter20_db, 532, Double, 8},
    {&CalcCase::DC_Resist_Leiter_db, 540, Single, 4},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, 544, Double, 8},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, 552, Single, 4},
    {&CalcCase::DrahtzahlTraeger_db, 556, Int16, 2},
    {&CalcCase::DrahtdurchmesserTraeger_db, 558, Single, 4},
    {&CalcCase::KerndurchmesserTraeger_db, 562, Single, 4},
    {&CalcCase::KernquerschnittTraeger_db, 566, Single, 4},
    {&CalcCase::Dichte_traegerwerkstoff1_db, 570, Double, 8},
    {&CalcCase::c_traeger20_db, 578, Double, 8},
    {&CalcCase::beta_traeger20_db, 586, Double, 8},
    {&CalcCase::DC_Resist_traeger_db, 594, Single, 4},
    {&CalcCase::T_Koeff_DC_Resist_traeger_linear_db, 598, Double, 8},
    {&CalcCase::T_Koeff_DC_Resist_traeger_quadrat_db, 606, Single, 4},
};

constexpr zel::Text no_number = {"an Byte {0} des Satzes steht keine Zahl",
                                 "no number stands at byte {0} of the record"};
constexpr zel::Text no_code = {
    "{0} an Byte {1} des Satzes ist keine ganze Zahl von -32768 bis 32767",
    "{0} at byte {1} of the record is no whole number from -32768 to 32767"};
constexpr zel::Text too_long = {"der Text hat {0} Zeichen, ein Satz fasst {1}",
                                "the text has {0} characters, a record holds {1}"};
constexpr zel::Text beyond_range = {
    "die Zahl liegt außerhalb des Bereichs der {0}-Bit-Zahl im Satz",
    "the number is beyond the range of the record's {0}-bit float"};

[[noreturn]] void refuse(const RecordField& row, const Reason& reason) {
    throw InputError(at(std::string(name_of(row.field)), reason));
}

/// The number whose bytes, little end first, begin at `bytes`.
template <class Number, class Bits>
Number number_at(const char* bytes) {
    Bits bits = 0;
    for (std::size_t i = 0; i < sizeof(Bits); ++i)
        bits = static_cast<Bits>(bits | static_cast<Bits>(static_cast<unsigned char>(bytes[i]))
                                            << (8 * i));
    return std::bit_cast<Number>(bits);
}

template <class Number, class Bits>
void put_number(char* bytes, Number number) {
    const auto bits = std::bit_cast<Bits>(number);
    for (std::size_t i = 0; i < sizeof(Bits); ++i)
        bytes[i] = static_cast<char>(static_cast<unsigned char>(bits >> (8 * i)));
}

double read_number(const RecordField& row, const std::string& record) {
    const char* bytes = record.data() + row.offset;
    if (row.type == Int16) return number_at<std::int16_t, std::uint16_t>(bytes);
    const double number = row.type == Single
                              ? static_cast<double>(number_at<float, std::uint32_t>(bytes))
                              : number_at<double, std::uint64_t>(bytes);
    if (!std::isfinite(number)) refuse(row, Reason(no_number, {std::to_string(row.offset)}));
    return number;
}

/// Gives the members of `c` what the rows of `record` hold.
class RecordReader {
public:
    RecordReader(const RecordField& row, const std::string& record, DecimalSeparator separator,
                 CalcCase& c)
        : row_(row), record_(record), separator_(separator), c_(c) {}

    void operator()(std::string CalcCase::*field) const {
        constexpr std::string_view fill("\0 ", 2);
        const std::string_view bytes(record_.data() + row_.offset, row_.width);
        const std::size_t last = bytes.find_last_not_of(fill);
        c_.*field =
            utf8_of_windows_1252(bytes.substr(0, last == std::string_view::npos ? 0 : last + 1));
    }

    void operator()(Entry CalcCase::*field) const {
        const double number = read_number(row_, record_);
        c_.*field = {masked(number, field_of(row_.field).mask, separator_), number};
    }

    void operator()(std::int16_t CalcCase::*field) const {
        const double number = read_number(row_, record_);
        const auto code = round_to_int16(number);
        if (!code)
            refuse(row_, Reason(no_code, {plain_number(number, DecimalSeparator::Point),
                                          std::to_string(row_.offset)}));
        c_.*field = *code;
    }

    template <class Other>
    void operator()(Other CalcCase::* /*field*/) const {}  // the record has none

private:
    const RecordField& row_;
    const std::string& record_;
    DecimalSeparator separator_;
    CalcCase& c_;
};

/// Puts the members of `c` into the bytes of `record`.
class RecordWriter {
public:
    RecordWriter(const RecordField& row, std::string& record, const CalcCase& c)
        : row_(row), record_(record), c_(c) {}

    void operator()(std::string CalcCase::*field) const {
        std::string text;
        try {
            text = windows_1252_of(c_.*field);
        } catch (const InputError& error) {
            refuse(row_, error.reason());
        }
        if (text.size() > row_.width)
            refuse(row_,
                   Reason(too_long, {std::to_string(text.size()), std::to_string(row_.width)}));
        text.resize(row_.width, ' ');
        record_.replace(row_.offset, row_.width, text);
    }

    void operator()(Entry CalcCase::*field) const {
        const Entry& entry = c_.*field;
        put(entry.given() ? entry.value : 0);
    }

    void operator()(std::int16_t CalcCase::*field) const { put(c_.*field); }

    template <class Other>
    void operator()(Other CalcCase::* /*field*/) const {}

private:
    void put(double number) const {
        char* bytes = record_.data() + row_.offset;
        const double limit = row_.type == Single ? std::numeric_limits<float>::max()
                                                 : std::numeric_limits<double>::max();
        if (!(std::abs(number) <= limit))
            refuse(row_, Reason(beyond_range, {std::to_string(8 * row_.width)}));
        if (row_.type == Int16)
            put_number<std::int16_t, std::uint16_t>(bytes, static_cast<std::int16_t>(number));
        else if (row_.type == Single)
            put_number<float, std::uint32_t>(bytes, static_cast<float>(number));
        else
            put_number<double, std::uint64_t>(bytes, number);
    }

    const RecordField& row_;
    std::string& record_;
    const CalcCase& c_;
};

CalcCase case_with(const ConductorData& conductor) {
    CalcCase c;
    static_cast<ConductorData&>(c) = conductor;
    return c;
}

}  // namespace

std::span<const RecordField> record_fields() { return fields; }

ConductorData read_record(std::string_view bytes, DecimalSeparator separator) {
    std::string record(bytes.substr(0, record_size));
    record.resize(record_size, '\0');
    CalcCase c;
    for (const RecordField& row : fields)
        std::visit(RecordReader(row, record, separator, c), row.field);
    return c;
}

std::string written_record(const ConductorData& conductor) {
    return written_record(case_with(conductor));
}

std::string written_record(const CalcCase& c) {
    std::string record(record_size, '\0');
    for (const RecordField& row : fields) std::visit(RecordWriter(row, record, c), row.field);
    return record;
}

void copy_record_fields(const ConductorData& from, ConductorData& to) {
    const CalcCase source = case_with(from);
    CalcCase target = case_with(to);
    for (const RecordField& row : fields)
        std::visit([&](auto field) { target.*field = source.*field; }, row.field);
    for (const auto field :
         {&CalcCase::radialthermalconductivity_unter_KPT_db, &CalcCase::KniepunktTemperatur_db,
          &CalcCase::radialthermalconductivity_ueber_KPT_db})
        if ((target.*field).assumed) target.*field = {};
    to = target;
}

}  // namespace zel
