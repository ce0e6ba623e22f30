#include "persistence/exchange_record.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "fakes/scripted_dialogs.h"
#include "fakes/test_data.h"

namespace zel {
namespace {

using testing::HasSubstr;

constexpr auto Point = DecimalSeparator::Point;

ConductorData read(const std::string& bytes) { return read_record(bytes, Point); }

/// A record of zero bytes with `bytes` at `offset`.
std::string record_with(std::size_t offset, const std::string& bytes) {
    std::string record(record_size, '\0');
    return record.replace(offset, bytes.size(), bytes);
}

// Floats of the record that no field stands for.
constexpr std::size_t gaps[] = {170, 174, 436, 500};

// Bytes worked out by hand from the sign, exponent and fraction of each number.
const std::string single_1 = std::string("\x00\x00\x80\x3F", 4);
const std::string single_22_4 = "\x33\x33\xB3\x41";                  // 22.4 = 1.4 * 2^4
const std::string single_0_1095 = "\x89\x41\xE0\x3D";                // 0.1095 = 1.752 * 2^-4
const std::string double_4_03 = "\x1F\x85\xEB\x51\xB8\x1E\x10\x40";  // 4.03 = 1.0075 * 2^2
const std::string double_2703 = std::string("\x00\x00\x00\x00\x00\x1E\xA5\x40", 8);

template <class Number>
std::string bytes_of(Number number) {
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

// tests/data/exchange_record.json holds of every field its first byte, its type, and the length of
// a text, the whole number or what 1.2345678 is shown as.
TEST(ExchangeRecord, has_its_fields_at_their_bytes) {
    const nlohmann::json data = test_data("exchange_record");
    std::size_t fields = 0;
    for (const CaseField& field : case_fields()) {
        EXPECT_EQ(data.contains(field.name), field.of_record || field.name == "GMR_db");
        if (!data.contains(field.name)) continue;
        ++fields;
        const nlohmann::json& row = data.at(std::string(field.name));
        const std::string type = row[1];
        const std::string bytes = type == "text"     ? std::string(row[2].get<std::size_t>(), 'x')
                                  : type == "int16"  ? bytes_of(row[2].get<std::int16_t>())
                                  : type == "single" ? bytes_of(1.2345678F)
                                                     : bytes_of(1.2345678);
        const std::string record = record_with(row[0], bytes);
        CalcCase c;
        static_cast<ConductorData&>(c) = read(record);
        if (const auto* text = std::get_if<std::string CalcCase::*>(&field.key))
            EXPECT_EQ(c.*(*text), bytes) << row;
        else if (const auto* entry = std::get_if<Entry CalcCase::*>(&field.key))
            EXPECT_EQ((c.*(*entry)).text, row[2]) << field.name;
        else
            EXPECT_EQ(c.*std::get<std::int16_t CalcCase::*>(field.key), row[2]) << field.name;
        // Nothing else was read, and it is written where it was.
        std::string written = written_record(c);
        EXPECT_EQ(read(written), static_cast<ConductorData&>(c)) << field.name;
        const std::string empty = written_record(read(""));
        const std::size_t begin = row[0];
        written.replace(begin, bytes.size(), empty, begin, bytes.size());
        EXPECT_EQ(written, empty) << field.name;
    }
    EXPECT_EQ(fields, data.size());
}

TEST(ExchangeRecord, reads_each_type_from_its_bytes) {
    EXPECT_EQ(read(record_with(150, "\xD1\x07")).Normjahr_db, 2001);
    EXPECT_EQ(read(record_with(150, "\xFF\xFF")).Normjahr_db, -1);
    EXPECT_EQ(read(record_with(154, single_1)).conductor_type_db, 1);
    EXPECT_EQ(read(record_with(166, single_22_4)).Seildurchmesser_db,
              (Entry{"22.4", 22.399999618530273}));
    EXPECT_EQ(read(record_with(496, single_0_1095)).DCR_20_db,
              (Entry{"0.1095", 0.10949999839067459}));
    EXPECT_EQ(read(record_with(544, double_4_03)).T_Koeff_DC_Resist_Leiter_linear_db,
              (Entry{"4.03", 4.03}));
    EXPECT_EQ(read(record_with(516, double_2703)).Dichte_Leiterwerkstoff1_db,
              (Entry{"2703", 2703}));
    EXPECT_EQ(read(record_with(606, single_1)).T_Koeff_DC_Resist_traeger_quadrat_db.value, 1);
    EXPECT_EQ(
        read_record(record_with(166, single_22_4), DecimalSeparator::Comma).Seildurchmesser_db.text,
        "22,4");
}

TEST(ExchangeRecord, reads_nothing_of_floats_without_a_field_and_of_the_end) {
    std::string record(record_size, '\0');
    for (const std::size_t gap : gaps) record.replace(gap, 4, single_1);
    for (std::size_t i = 610; i < record_size; ++i) record[i] = '\x7F';
    EXPECT_EQ(read(record), read(std::string(record_size, '\0')));
}

TEST(ExchangeRecord, texts_are_of_windows_1252_without_what_fills_them_up) {
    EXPECT_EQ(read(record_with(0, "Gr\xF6\xDF"
                                  "e \x80 5   "))
                  .Bezeichnung1_db,
              "Größe € 5");
    EXPECT_EQ(read(record_with(50, std::string("ab \0 \0", 6))).Bezeichnung2_db, "ab");
    EXPECT_EQ(read(record_with(100, std::string(50, ' '))).Norm_db, "");
    EXPECT_EQ(read(record_with(100, " EN")).Norm_db, " EN");  // only trailing blanks are cut
    EXPECT_EQ(read(record_with(186, std::string(250, 'x'))).Anmerkung_db.size(), 250U);
}

TEST(ExchangeRecord, a_short_one_is_zero_where_it_ends_and_a_long_one_ends_too) {
    const std::string whole = written_record(read(record_with(496, single_0_1095)));
    EXPECT_EQ(read(whole.substr(0, 498)).DCR_20_db.value, std::ldexp(0x4189, -149));
    EXPECT_EQ(read(whole.substr(0, 496)).DCR_20_db, (Entry{"0.0", 0}));
    EXPECT_EQ(read(""), read(std::string(record_size, '\0')));
    EXPECT_EQ(read("264-AL1").Bezeichnung1_db, "264-AL1");
    EXPECT_EQ(read("").conductor_type_db, 0);
    EXPECT_FALSE(read("").KniepunktTemperatur_db.given());
    EXPECT_EQ(read(whole + std::string(1000, 'x')), read(whole));
}

TEST(ExchangeRecord, refuses_what_is_no_number) {
    const std::string infinity("\x00\x00\x80\x7F", 4);
    const std::string not_a_number("\x00\x00\xC0\x7F", 4);
    const std::string single_40000("\x00\x40\x1C\x47", 4);  // 40000 = 1.220703125 * 2^15
    EXPECT_EQ(refusal_of([&] { return read(record_with(496, infinity)); }),
              "DCR_20_db: no number stands at byte 496 of the record");
    EXPECT_THAT(refusal_of([&] { return read(record_with(166, not_a_number)); }),
                HasSubstr("Seildurchmesser_db"));
    EXPECT_EQ(
        refusal_of([&] { return read(record_with(154, single_40000)); }),
        "conductor_type_db: 40000 at byte 154 of the record is no whole number from -32768 to "
        "32767");
}

TEST(ExchangeRecord, is_written_with_blanks_behind_texts_and_zeros_where_nothing_stands) {
    ConductorData c;
    c.Bezeichnung1_db = "Größe";
    c.Seildurchmesser_db = {"22.4", 22.4};
    c.Dichte_Leiterwerkstoff1_db = {"", 2703};  // a former value of an emptied field
    const std::string record = written_record(c);
    ASSERT_EQ(record.size(), 714U);
    EXPECT_EQ(record.substr(0, 50), "Gr\xF6\xDF"
                                    "e" +
                                        std::string(45, ' '));
    EXPECT_EQ(record.substr(166, 4), single_22_4);
    EXPECT_EQ(record.substr(516, 8), std::string(8, '\0'));
    for (const std::size_t gap : gaps) EXPECT_EQ(record.substr(gap, 4), std::string(4, '\0'));
    EXPECT_EQ(record.substr(610), std::string(104, '\0'));
}

TEST(ExchangeRecord, comes_back_as_it_was_written) {
    CalcCase c;
    double number = 0.5;
    for (const RecordField& row : record_fields()) {
        number += 1;
        if (const auto* text = std::get_if<std::string CalcCase::*>(&row.field))
            c.** text = "ä" + std::to_string(row.offset);
        if (const auto* whole = std::get_if<std::int16_t CalcCase::*>(&row.field))
            c.** whole = static_cast<std::int16_t>(number);
        if (const auto* entry = std::get_if<Entry CalcCase::*>(&row.field))
            c.** entry = {masked(number, field_of(row.field).mask, Point), number};
    }
    EXPECT_EQ(read(written_record(c)), static_cast<ConductorData&>(c));
}

TEST(ExchangeRecord, refuses_to_write_what_does_not_fit) {
    ConductorData c;
    c.Bezeichnung1_db = std::string(51, 'x');
    EXPECT_EQ(refusal_of([&] { return written_record(c); }),
              "Bezeichnung1_db: the text has 51 characters, a record holds 50");
    c.Bezeichnung1_db = "Ω";
    EXPECT_EQ(refusal_of([&] { return written_record(c); }),
              "Bezeichnung1_db: the character \"Ω\" is not in the code page Windows-1252");
    c.Bezeichnung1_db = std::string(49, 'x') + "ü";
    c.DCR_20_db = {"4e38", 4e38};
    EXPECT_EQ(refusal_of([&] { return written_record(c); }),
              "DCR_20_db: the number is beyond the range of the record's 32-bit float");
}

TEST(ExchangeRecord, leaves_what_it_does_not_hold_when_it_is_copied) {
    ConductorData from;
    from.GMR_db = {"9", 9};
    ConductorData to;
    to.KniepunktTemperatur_db = {"100", 100};
    to.radialthermalconductivity_unter_KPT_db = {"2", 2};
    to.radialthermalconductivity_ueber_KPT_db = {"1", 1};
    ConductorData expected = to;
    expected.GMR_db = from.GMR_db;
    copy_record_fields(from, to);
    EXPECT_EQ(to, expected);
}

}  // namespace
}  // namespace zel
