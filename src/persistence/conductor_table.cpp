#include "persistence/conductor_table.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

#include "persistence/exchange_record.h"
#include "persistence/named_columns.h"
#include "platform/errors.h"
#include "platform/text/number_text.h"
#include "platform/text/utf8.h"
#include "platform/text/windows_1252.h"

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

constexpr Text unknown_column = {"unbekannte Spalte {0}", "unknown column {0}"};
constexpr Text unknown_material = {"unbekannter Werkstoff {0}, bekannt sind {1}",
                                   "unknown material {0}, known are {1}"};
constexpr Text may_be_confirmed = {"{0}; mit einem Text in der Spalte confirmed bleibt es stehen",
                                   "{0}; a text in the column confirmed lets it stand"};
constexpr Text name_taken = {"{0} steht auch in Zeile {1}", "{0} stands in line {1} too"};

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

/// The names of all columns.
std::vector<std::string> whole_head() {
    std::vector<std::string> head;
    for (const FieldKey& key : field_columns()) head.emplace_back(name_of(key));
    for (const OtherColumn& column : other_columns) head.emplace_back(column.name);
    return head;
}

class TableReader {
public:
    TableReader(const NamedColumns& table, std::span<const Material> materials,
                DecimalSeparator separator)
        : table_(table), materials_(materials), separator_(separator) {}

    LibraryConductor conductor(const CsvRow& row) {
        table_.check(row);
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
        complete(row, made);
        judge(row, made);
        const auto [former, is_new] = lines_.emplace(name_key(made), row.line);
        if (!is_new)
            table_.refuse(
                row, "Bezeichnung1_db",
                Reason(name_taken, {shortened(full_name(made)), std::to_string(former->second)}));
        return made;
    }

    /// What can be read of a row that is refused with `reason`.
    [[nodiscard]] LibraryConductor damaged(CsvRow row, const Reason& reason) const {
        LibraryConductor made;
        made.damage = {reason, whole_line(row)};
        for (std::string& cell : row.cells)
            if (!is_utf8(cell)) cell = utf8_of_windows_1252(cell);
        const auto try_to_take = [&](auto& record, std::string_view column, auto member,
                                     const Bounds& bounds) {
            try {
                take(row, record, column, member, bounds);
            } catch (const InputError&) {  // of the same row: told already
            }
        };
        for (const FieldKey& key : field_columns())
            std::visit(
                [&](auto field) { try_to_take(made.c, name_of(key), field, bounds_of(key)); }, key);
        for (const OtherColumn& column : other_columns)
            std::visit([&](auto member) { try_to_take(made, column.name, member, Bounds{}); },
                       column.member);
        try {
            complete(row, made);
        } catch (const InputError&) {
        }
        return made;
    }

private:
    /// The cells of a row in the columns of a whole table; as it is where it has no such cells.
    [[nodiscard]] std::string whole_line(const CsvRow& row) const {
        if (row.damage != nullptr || row.cells.size() != table_.columns().size())
            return std::string(row.text) + "\n";
        std::vector<std::string> cells;
        for (const std::string& column : whole_head()) cells.push_back(table_.text(row, column));
        return csv_line(cells);
    }

    void complete(const CsvRow& row, LibraryConductor& made) const {
        if (const auto* material = named(row, "conductor_material"))
            complete_conductor(made.c, *material);
        if (const auto* material = named(row, "core_material")) complete_core(made.c, *material);
        add_usual_offers(made.c, separator_);
    }

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
        table_.refuse(row, column, Reason(unknown_material, {in_quotes(name), known}));
    }

    void judge(const CsvRow& row, const LibraryConductor& conductor) const {
        const std::string name = shortened(conductor.c.Bezeichnung1_db);
        try {
            (void)written_record(conductor.c);
        } catch (const InputError& error) {
            table_.refuse(row, "Bezeichnung1_db", at(name, error.reason()));
        }
        if (!conductor.confirmed.empty()) return;
        const auto findings = implausible_figures(conductor.c, LangId::English);
        if (findings.empty()) return;
        Reason finding(findings.front());
        finding.de = implausible_figures(conductor.c, LangId::German).front();
        table_.refuse(row, "Bezeichnung1_db", at(name, filled(may_be_confirmed, finding)));
    }

    const NamedColumns& table_;
    std::span<const Material> materials_;
    DecimalSeparator separator_;
    std::unordered_map<std::string, int> lines_;  // of the names so far
};

void check_columns(const NamedColumns& table, const std::string& file) {
    for (const std::string& column : table.columns()) {
        const CaseField* field = find_case_field(column);
        const auto& keys = field_columns();
        const bool known =
            (field != nullptr && std::find(keys.begin(), keys.end(), field->key) != keys.end()) ||
            std::any_of(std::begin(other_columns), std::end(other_columns),
                        [&](const OtherColumn& other) { return other.name == column; });
        if (!known) throw InputError(at(file, Reason(unknown_column, {in_quotes(column)})));
    }
}

std::string cell_of(const std::string& text) { return text; }
/// What is assumed is no figure of the conductor.
std::string cell_of(const Entry& entry) {
    return entry.given() && !entry.assumed ? exact_number(entry.value) : "";
}
std::string cell_of(std::int16_t number) { return number == 0 ? "" : std::to_string(number); }
template <class Other>
std::string cell_of(Other /*no column*/) {
    return {};
}

}  // namespace

ConductorRows read_rows(std::string_view text, const std::string& file,
                        std::span<const Material> materials, DecimalSeparator separator) {
    const NamedColumns table(text, file);
    check_columns(table, file);
    TableReader reader(table, materials, separator);
    ConductorRows rows;
    rows.sound.reserve(table.rows().size());
    for (const CsvRow& row : table.rows()) try {
            rows.sound.push_back(reader.conductor(row));
        } catch (const InputError& error) {
            rows.damaged.push_back(reader.damaged(row, error.reason()));
        }
    return rows;
}

std::vector<LibraryConductor> read_conductors(std::string_view text, const std::string& file,
                                              std::span<const Material> materials,
                                              DecimalSeparator separator) {
    ConductorRows rows = read_rows(text, file, materials, separator);
    if (!rows.damaged.empty()) throw InputError(rows.damaged.front().damage->reason);
    return std::move(rows.sound);
}

std::string conductor_table(std::span<const LibraryConductor> conductors) {
    std::string text = csv_line(whole_head());
    for (const LibraryConductor& conductor : conductors) {
        if (conductor.damage) {
            text += conductor.damage->text;
            continue;
        }
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
