#include "persistence/conductor_table.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "persistence/exchange_record.h"
#include "persistence/named_columns.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr std::string_view conductor_material_column = "conductor_material";
constexpr std::string_view core_material_column = "core_material";
constexpr std::string_view mass_column = "mass_kg_per_km";
constexpr std::string_view strength_column = "rated_strength_kN";
constexpr std::string_view confirmed_column = "confirmed";
constexpr std::string_view source_column = "source";
constexpr std::string_view other_columns[] = {
    conductor_material_column, core_material_column, mass_column,
    strength_column,           confirmed_column,     source_column};

/// The columns that are fields of a case.
const std::vector<FieldKey>& field_columns() {
    static const std::vector<FieldKey> keys = [] {
        std::vector<FieldKey> made;
        for (const RecordField& row : record_fields()) made.push_back(row.field);
        for (const OfferField& row : offer_fields()) made.push_back(row.field);
        return made;
    }();
    return keys;
}

constexpr Entry CalcCase::*temperatures_and_coefficients[] = {
    &CalcCase::Seiltemperatur_max_db,
    &CalcCase::TACR1_db,
    &CalcCase::TACR2_db,
    &CalcCase::TACR3_db,
    &CalcCase::TACR4_db,
    &CalcCase::TACR5_db,
    &CalcCase::TACR6_db,
    &CalcCase::KniepunktTemperatur_db,
    &CalcCase::beta_leiter20_db,
    &CalcCase::beta_traeger20_db,
    &CalcCase::T_Koeff_DC_Resist_Leiter_linear_db,
    &CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db,
    &CalcCase::T_Koeff_DC_Resist_traeger_linear_db,
    &CalcCase::T_Koeff_DC_Resist_traeger_quadrat_db,
};

double least_of(Entry CalcCase::*field) {
    const bool may_be_negative = std::find(std::begin(temperatures_and_coefficients),
                                           std::end(temperatures_and_coefficients),
                                           field) != std::end(temperatures_and_coefficients);
    return may_be_negative ? -std::numeric_limits<double>::infinity() : 0;
}

struct WholeRange {
    std::int16_t CalcCase::*field;
    std::int16_t least;
    std::int16_t most;
};
constexpr WholeRange codes[] = {
    {&CalcCase::conductor_type_db, 1, 4},       {&CalcCase::conductor_shape_db, 1, 2},
    {&CalcCase::Normmonat_db, 0, 12},           {&CalcCase::GMR_Merker_db, 0, 1},
    {&CalcCase::ACDC_R_Option_Merker_db, 0, 2},
};

WholeRange range_of(std::int16_t CalcCase::*field) {
    const auto* const found =
        std::find_if(std::begin(codes), std::end(codes),
                     [&](const WholeRange& row) { return row.field == field; });
    return found == std::end(codes) ? WholeRange{field, 0, std::numeric_limits<std::int16_t>::max()}
                                    : *found;
}

class TableReader {
public:
    TableReader(const NamedColumns& table, std::span<const Material> materials,
                DecimalSeparator separator)
        : table_(table), materials_(materials), separator_(separator) {}

    LibraryConductor conductor(const CsvRow& row) const {
        LibraryConductor made;
        (void)table_.needed_text(row, "Bezeichnung1_db");
        (void)table_.needed_text(row, "conductor_type_db");
        (void)table_.needed_text(row, "conductor_shape_db");
        for (const FieldKey& key : field_columns())
            std::visit([&](auto field) { take(row, made.c, field); }, key);
        made.mass = table_.number(row, mass_column, 0, separator_);
        made.strength = table_.number(row, strength_column, 0, separator_);
        made.confirmed = table_.text(row, confirmed_column);
        made.source = table_.text(row, source_column);
        made.conductor_material = table_.text(row, conductor_material_column);
        made.core_material = table_.text(row, core_material_column);
        if (const auto* material = named(row, conductor_material_column))
            complete_conductor(made.c, *material);
        if (const auto* material = named(row, core_material_column))
            complete_core(made.c, *material);
        add_usual_offers(made.c, separator_);
        judge(row, made);
        return made;
    }

private:
    void take(const CsvRow& row, CalcCase& c, std::string CalcCase::*field) const {
        c.*field = table_.text(row, name_of(field));
    }
    void take(const CsvRow& row, CalcCase& c, Entry CalcCase::*field) const {
        c.*field = table_.number(row, name_of(field), least_of(field), separator_);
    }
    void take(const CsvRow& row, CalcCase& c, std::int16_t CalcCase::*field) const {
        const WholeRange range = range_of(field);
        c.*field = table_.whole_number(row, name_of(field), range.least, range.most);
    }
    template <class Other>
    static void take(const CsvRow& /*row*/, CalcCase& /*c*/, Other CalcCase::* /*field*/) {}

    [[nodiscard]] const Material* named(const CsvRow& row, std::string_view column) const {
        const std::string name = table_.text(row, column);
        if (name.empty()) return nullptr;
        const auto found = std::find_if(materials_.begin(), materials_.end(),
                                        [&](const Material& m) { return m.name == name; });
        if (found != materials_.end()) return &*found;
        std::string known;
        for (const Material& material : materials_)
            known += (known.empty() ? "" : ", ") + material.name;
        table_.refuse(row, column, "unknown material \"" + name + "\", known are " + known);
    }

    void judge(const CsvRow& row, const LibraryConductor& conductor) const {
        try {
            (void)written_record(conductor.c);
        } catch (const InputError& error) {
            table_.refuse(row, "Bezeichnung1_db",
                          conductor.c.Bezeichnung1_db + ": " + error.what());
        }
        if (!conductor.confirmed.empty()) return;
        for (const std::string& finding : implausible_figures(conductor.c, LangId::English))
            table_.refuse(row, "Bezeichnung1_db",
                          conductor.c.Bezeichnung1_db + ": " + finding +
                              "; a text in the column confirmed lets it stand");
    }

    const NamedColumns& table_;
    std::span<const Material> materials_;
    DecimalSeparator separator_;
};

void check_columns(const NamedColumns& table, const std::string& file) {
    for (const std::string& column : table.columns()) {
        const CaseField* field = find_case_field(column);
        const auto& keys = field_columns();
        const bool known =
            (field != nullptr && std::find(keys.begin(), keys.end(), field->key) != keys.end()) ||
            std::find(std::begin(other_columns), std::end(other_columns), column) !=
                std::end(other_columns);
        if (!known) throw InputError(file + ": unknown column \"" + column + "\"");
    }
}

void check_names(const NamedColumns& table, const std::vector<LibraryConductor>& conductors) {
    for (std::size_t i = 0; i < conductors.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (same_name(conductors[i], conductors[j]))
                table.refuse(table.rows()[i], "Bezeichnung1_db",
                             full_name(conductors[i]) + " stands in line " +
                                 std::to_string(table.rows()[j].line) + " too");
}

/// The shortest text that reads back to the same double.
std::string exact(double value) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), end.ptr};
}

std::string cell_of(const std::string& text) { return text; }
std::string cell_of(const Entry& entry) { return entry.given() ? exact(entry.value) : ""; }
std::string cell_of(std::int16_t number) { return number == 0 ? "" : std::to_string(number); }
template <class Other>
std::string cell_of(Other /*no column*/) {
    return {};
}

}  // namespace

std::vector<LibraryConductor> read_conductors(std::string_view text, const std::string& file,
                                              std::span<const Material> materials,
                                              DecimalSeparator separator) {
    const NamedColumns table(text, file);
    check_columns(table, file);
    const TableReader reader(table, materials, separator);
    std::vector<LibraryConductor> conductors;
    for (const CsvRow& row : table.rows()) conductors.push_back(reader.conductor(row));
    check_names(table, conductors);
    return conductors;
}

std::string conductor_table(std::span<const LibraryConductor> conductors) {
    std::vector<std::string> head;
    for (const FieldKey& key : field_columns()) head.emplace_back(name_of(key));
    head.insert(head.end(), std::begin(other_columns), std::end(other_columns));
    std::string text = csv_line(head);
    for (const LibraryConductor& conductor : conductors) {
        std::vector<std::string> cells;
        for (const FieldKey& key : field_columns())
            cells.push_back(
                std::visit([&](auto field) { return cell_of(conductor.c.*field); }, key));
        for (const std::string& cell :
             {conductor.conductor_material, conductor.core_material, cell_of(conductor.mass),
              cell_of(conductor.strength), conductor.confirmed, conductor.source})
            cells.push_back(cell);
        text += csv_line(cells);
    }
    return text;
}

}  // namespace zel
