#include "short_circuit/short_circuit_report.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

#include "fakes/memory_canvas.h"
#include "fakes/short_circuit_rows.h"
#include "short_circuit/short_circuit_run.h"

// The report by tests/data/short_circuit_report.json, and its values against those of the screen.

namespace zel {
namespace {

using C = ShortCircuitCase;
using nlohmann::json;

constexpr PrintLang languages[] = {PrintLang::German, PrintLang::English, PrintLang::French,
                                   PrintLang::Spanish};

const json& data() {
    static const json all = test_data("short_circuit_report");
    return all;
}

Report report_of(const C& c, PrintLang lang = PrintLang::German,
                 DecimalSeparator separator = DecimalSeparator::Point) {
    return KS10_tab_print_Kurzschluss_1(c, KS_Auswertung(c),
                                        {lang, separator, "22/11/2026 / 09:05"});
}

/// Heads, labels and values in their order.
json lines_of_report(const Report& report) {
    const ProjectBand& band = *report.band;
    json lines = {{report.title}, {fill(report.sheet_label, {"1", "1"})}, {band.head}};
    const auto add = [&](const ReportRow& row) {
        lines.push_back({row.label, row.value, row.unit});
    };
    for (const auto& row : {band.project, band.date, band.operator_name, band.department}) add(row);
    for (const ReportBlock& block : report.blocks)
        if (const auto* section = std::get_if<ReportSection>(&block)) {
            lines.push_back({section->head});
            for (const ReportRow& row : section->rows) add(row);
        } else {
            const auto& paragraph = std::get<ReportParagraph>(block);
            lines.push_back({paragraph.head});
            add({"", paragraph.text});
        }
    add(report.print_date);
    add(report.operator_name);
    return lines;
}

/// The lines that a row of the data expects, with the labels of a language.
json expected_lines(const json& row, PrintLang lang) {
    json lines = json::array();
    for (const json& part : {data()["frame"], row["rows"], data()["footer"]})
        lines.insert(lines.end(), part.begin(), part.end());
    json former = "";
    for (json& line : lines) {
        json& label = line[0];
        if (lang == PrintLang::German || label.get<std::string>().empty()) continue;
        const json texts = data()["texts"].value(label, json{"xxx:", "xxx:", "xxx:"});
        label = texts[static_cast<std::size_t>(lang) - 2];
        if (label.is_null()) label = former;
        former = label;
    }
    return lines;
}

TEST(ShortCircuitReport, says_all_rows_in_four_languages) {
    for (const json& row : data()["reports"]) {
        ShortCircuitTyping typing = base_of(row);
        if (row.contains("record"))
            typing.form.take_over(record_264_34(), {LangId::German, DecimalSeparator::Point});
        change(typing, row);
        typing.form.write(&C::Projekt_ks, "Umspannwerk Süd");
        typing.form.write(&C::Datum_ks, "22.11.2026");
        typing.form.write(&C::Bearbeiter_ks, "Müller");
        typing.form.write(&C::Abteilung_ks, "Netz");
        for (const PrintLang lang : languages) {
            const Report report = report_of(typing.form.content(), lang, row["separator"]);
            const json difference = json::diff(expected_lines(row, lang), lines_of_report(report));
            EXPECT_TRUE(difference.empty()) << row["name"] << difference.dump(1);
        }
    }
}

/// A conductor with or without a record, or equipment, with numbers of up to three places.
C random_case(std::mt19937& random) {
    ShortCircuitTyping typing;
    const auto whole = [&](int from, int to) {
        return static_cast<std::int16_t>(std::uniform_int_distribution(from, to)(random));
    };
    for (const ListKey list : {&C::Strombegrenzschalter_ks, &C::generatornah, &C::Anzahl_KS_fluesse,
                               &C::Leiter_Bmittel, &C::Leitermaterial_ks})
        if (typing.form.is_open(list)) typing.choose(list, whole(1, field_of(list).last_index));
    if (ConductorData record = record_264_34(); whole(0, 1) == 1) {
        if (whole(0, 1) == 1) record.Mantelquerschnitt_db = {};
        typing.form.take_over(record, {LangId::English, DecimalSeparator::Point});
    }
    const auto type = [&](std::initializer_list<NumberKey> boxes, double low, double high) {
        for (const NumberKey box : boxes)
            if (const double value = std::uniform_real_distribution(low, high)(random);
                typing.form.is_open(box))
                typing.type(box, masked(value, "0.###", DecimalSeparator::Point));
    };
    type({&C::Frequenz_ks, &C::IK2, &C::IK, &C::Ith, &C::Ithr}, 10, 99);
    type({&C::Tk1, &C::Tk2, &C::Tk3, &C::T_k, &C::Tkr}, 0.001, 5);
    type({&C::Kappa}, 1.02, 1.99);
    type({&C::theta_b}, -60, 100);
    type({&C::theta_e}, 101, 500);
    type({&C::A_Leiter}, 10, 2000);
    return typing.form.content();
}

/// Expects `printed` to be what the screen shows of a field, rounded.
void expect_as_on_screen(const std::string& printed, const ShortCircuitField& field, const C& c) {
    const auto* box = std::get_if<NumberKey>(&field.key);
    if (box == nullptr) {
        EXPECT_EQ(printed, without_outer_blanks(label_text(c, field.key, DecimalSeparator::Point)));
        return;
    }
    // The texts of a material have a comma.
    const bool comma = (c.**box).text.find(',') != std::string::npos;
    const auto shown =
        parse_number((c.**box).text, comma ? DecimalSeparator::Comma : DecimalSeparator::Point);
    const std::size_t point = std::min(printed.find('.'), printed.size() - 1);
    const double last_place =
        std::pow(10.0, static_cast<double>(point + 1) - static_cast<double>(printed.size()));
    EXPECT_NEAR(parse_number(printed, DecimalSeparator::Point).value(), shown.value(),
                last_place / 1.99)
        << field.name;
}

TEST(ShortCircuitReport, has_the_values_of_the_screen) {
    std::mt19937 random{7};
    std::map<std::string, int> seen;
    for (int i = 0; i < 300; ++i) {
        const C c = random_case(random);
        const ShortCircuitRun run = RunShortCircuit(c, DecimalSeparator::Point);
        if (run.refusal) continue;
        json results;
        for (const json& line : lines_of_report(report_of(c))) {
            if (line[0] == "Berechnungsergebnis") results = json::array();
            if (line[0] == "Druck-Datum:") break;
            if (line.size() > 1 && !results.is_null()) results.push_back(line[1]);
            if (const auto field = data()["fields"].find(line[0]);
                field != data()["fields"].end()) {
                ++seen[*field];
                expect_as_on_screen(line[1], *find_short_circuit_field(field->get<std::string>()),
                                    c);
            }
        }
        json shown = {run.page.verdict.de};
        for (const VerdictGroup& group : run.page.groups)
            for (const VerdictRow& row : group.rows)
                if (!row.value.empty()) shown.push_back(row.value);
        EXPECT_EQ(results, shown);
    }
    for (const json& field : data()["fields"]) EXPECT_GT(seen[field], 20) << field;
}

TEST(ShortCircuitReport, is_one_sheet_with_the_longest_texts_and_the_most_rows) {
    ShortCircuitTyping typing{aluminium_near()};
    for (const ShortCircuitField& field : short_circuit_fields())
        if (const auto* text = std::get_if<TextKey>(&field.key)) {
            std::string longest;
            for (int i = 0; i < field.length; ++i) longest += "Ü";
            typing.form.write(*text, longest);
        }
    for (const PrintLang lang : languages)
        EXPECT_EQ(set_in_sheets(report_of(typing.form.content(), lang), MemoryCanvas()).size(), 1U);
}

}  // namespace
}  // namespace zel
