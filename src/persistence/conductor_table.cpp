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

/// A column of what a library says beside the fields of a case.
struct OtherColumn {
    std::string_view name;
    std::variant<std::string LibraryConductor::*, Entry LibraryConductor::*> member;
};

constexpr OtherColumn other_columns[] = {
    {"conductor_material", &LibraryConductor::conductor_material},
    {"core_material", &LibraryConductor::core_material},
    {"mass_kg_per_km", &LibraryConductor::mass},
    {"rated_strength_kN", &LibraryConductor::strength},
    {"confirmed", &LibraryConductor::confirmed},
    {"source", &LibraryConductor::source},
};

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

struct Bounds {
    double least = 0;
    double most = std::numeric_limits<double>::infinity();
};

struct Range {
    FieldKey field;
    Bounds bounds;
};

constexpr double any = -std::numeric_limits<double>::infinity();

// Codes, temperatures and coefficients. Other numbers are 0 or more.
constexpr Range ranges[] = {
    {&CalcCase::conductor_type_db, {1, 4}},
    {&CalcCase::conductor_shape_db, {1, 2}},
    {&CalcCase::Normmonat_db, {0, 12}},
    {&CalcCase::GMR_Merker_db, {0, 1}},
    {&CalcCase::ACDC_R_Option_Merker_db, {0, 2}},
    {&CalcCase::Seiltemperatur_max_db, {any}},
    {&CalcCase::TACR1_db, {any}},
    {&CalcCase::TACR2_db, {any}},
    {&CalcCase::TACR3_db, {any}},
    {&CalcCase::TACR4_db, {any}},
    {&CalcCase::TACR5_db, {any}},
    {&CalcCase::TACR6_db, {any}},
    {&CalcCase::KniepunktTemperatur_db, {any}},
    {&CalcCase::beta_leiter20_db, {any}},
    {&CalcCase::beta_traeger20_db, {any}},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, {any}},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, {any}},
    {&CalcCase::T_Koeff_DC_Resist_traeger_linear_db, {any}},
    {&CalcCase::T_Koeff_DC_Resist_traeger_quadrat_db, {any}},
};

Bounds bounds_of(const FieldKey& field) {
    const auto* const found = std::find_if(std::begin(ranges), std::end(ranges),
                                           [&](const Range& row) { return row.field == field; });
    return found == std::end(ranges) ? Bounds{} : found->bounds;
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
            std::visit([&](auto field) { take(row, made.c, name_of(key), field, bounds_of(key)); },
                       key);
        for (const OtherColumn& column : other_columns)
            std::visit([&](auto member) { take(row, made, column.name, member, {}); },
                       column.member);
        if (const auto* material = named(row, "conductor_material"))
            complete_conductor(made.c, *material);
        if (const auto* material = named(row, "core_material")) complete_core(made.c, *material);
        add_usual_offers(made.c, separator_);
        judge(row, made);
        return made;
    }

private:
    /// No flag comes with a conductor.
    template <class Record, class Value>
    void take(const CsvRow& row, Record& to, std::string_view column, Value Record::*member,
              const Bounds& bounds) const {
        if constexpr (std::is_same_v<Value, std::string>)
            to.*member = table_.text(row, column);
        else if constexpr (std::is_same_v<Value, Entry>)
            to.*member = table_.number(row, column, bounds.least, separator_);
        else if constexpr (std::is_same_v<Value, std::int16_t>)
            to.*member = table_.whole_number(row, column, bounds.least, bounds.most);
    }

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
            std::any_of(std::begin(other_columns), std::end(other_columns),
                        [&](const OtherColumn& other) { return other.name == column; });
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
/// What is assumed is no figure of the conductor.
std::string cell_of(const Entry& entry) {
    return entry.given() && !entry.assumed ? exact(entry.value) : "";
}
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
    for (const OtherColumn& column : other_columns) head.emplace_back(column.name);
    std::string text = csv_line(head);
    for (const LibraryConductor& conductor : conductors) {
        std::vector<std::string> cells;
        for (const FieldKey& key : field_columns())
            cells.push_back(
                std::visit([&](auto field) { return cell_of(conductor.c.*field); }, key));
        for (const OtherColumn& column : other_columns)
            cells.push_back(
                std::visit([&](auto member) { return cell_of(conductor.*member); }, column.member));
        text += csv_line(cells);
    }
    return text;
}

}  // namespace zel
