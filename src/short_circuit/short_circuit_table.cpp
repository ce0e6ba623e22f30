#include "short_circuit/short_circuit_table.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zel {
namespace {

/// In the order of the columns, spelled as the tables spell them.
constexpr std::array<std::string_view, 34> record_columns = {"Projekt_ks",
                                                             "Datum_ks",
                                                             "Bearbeiter_ks",
                                                             "Abteilung_ks",
                                                             "Frequenz_ks",
                                                             "Strombegrenzschalter_ks",
                                                             "Ith",
                                                             "T_k",
                                                             "generatornah",
                                                             "IK2",
                                                             "IK",
                                                             "Kappa",
                                                             "Anzahl_KS_fluesse",
                                                             "TK1",
                                                             "TK2",
                                                             "TK3",
                                                             "Leiter_Bmittel",
                                                             "Tkr",
                                                             "Ithr",
                                                             "theta_b",
                                                             "theta_e",
                                                             "A_Leiter",
                                                             "Leitermaterial_ks",
                                                             "Dichte_rho",
                                                             "waermekapaz",
                                                             "TK20_ks",
                                                             "kappa20_ks",
                                                             "Werkstoff_ks",
                                                             "Nennquerschnitt_ks",
                                                             "Norm_ks",
                                                             "Normjahr_ks",
                                                             "Normmonat_ks",
                                                             "Seilquerschnitt_ks",
                                                             "Mantelquerschnitt_ks"};

/// Columns that are kept free, numbered on from the first one of each kind.
struct Reserve {
    int first;
    int last;
    std::string_view ending;
    ColumnType type;
};
constexpr std::int16_t reserve_length = 100;
constexpr Reserve reserves[] = {{11, 16, "_double", ColumnType::Double},
                                {17, 30, "_single", ColumnType::Single},
                                {31, 40, "_Text", ColumnType::Text},
                                {41, 126, "_single", ColumnType::Single}};
/// The numbers of those that stay Null.
constexpr std::array left_null = {11, 16, 17, 18};

std::string name_of(int number, const Reserve& reserve) {
    return "Reserve_" + std::to_string(number) + std::string(reserve.ending);
}

/// The fields of `c` in the order of the columns, under the columns' names.
std::vector<FieldOf> stored_fields(ShortCircuitCase& c) {
    std::vector<FieldOf> fields;
    for (const std::string_view column : record_columns) {
        const ShortCircuitField& field = *find_short_circuit_field(column);
        fields.push_back({std::string(column), &field, field.of(c)});
    }
    return fields;
}

}  // namespace

const TableFormat& short_circuit_tables() {
    static const TableFormat format = [] {
        TableFormat made = {.columns = {},
                            .list_columns = {"Projekt_ks", "Datum_ks", "Bearbeiter_ks",
                                             "Abteilung_ks", "Leiter_Bmittel", "Werkstoff_ks"},
                            .create = KS81_Tabellenfelder_erzeugen_u_hinzufuegen,
                            .markers = {"Projekt_ks", "Datum_ks", "Bearbeiter_ks", "Abteilung_ks"},
                            .markers_lead = false,
                            .fewest_columns = 0};
        ShortCircuitCase c;
        for (const FieldOf& field : stored_fields(c)) made.columns.push_back(column_of(field));
        for (const Reserve& reserve : reserves)
            for (int number = reserve.first; number <= reserve.last; ++number)
                made.columns.push_back(
                    {name_of(number, reserve), reserve.type,
                     reserve.type == ColumnType::Text ? reserve_length : std::int16_t{0}});
        return made;
    }();
    return format;
}

void KS81_Tabellenfelder_erzeugen_u_hinzufuegen(Database& database, const std::string& table) {
    database.create_table(table, short_circuit_tables().columns);
}

std::vector<NamedValue> KS82_Tabellendaten_speichern(ShortCircuitCase c,
                                                     std::vector<CutText>& cut) {
    std::vector<NamedValue> values = column_values(stored_fields(c), cut);
    for (const Reserve& reserve : reserves)
        for (int number = reserve.first; number <= reserve.last; ++number) {
            if (std::find(left_null.begin(), left_null.end(), number) != left_null.end()) continue;
            const ColumnValue value = reserve.type == ColumnType::Text     ? ColumnValue("")
                                      : reserve.type == ColumnType::Single ? ColumnValue(0.0F)
                                                                           : ColumnValue(0.0);
            values.emplace_back(name_of(number, reserve), value);
        }
    return values;
}

ShortCircuitFile KS72_Daten_einlesen(const StoredRow& row, const Locale& locale) {
    FlatObject values;
    for (const ShortCircuitField& field : short_circuit_fields()) {
        if (field.kind == FieldKind::Text) {
            values.push_back({std::string(field.name), row.trimmed(field.name)});
            continue;
        }
        const auto number = row.number(field.name);
        // A number that no entry of a list stands for is no choice.
        if (number && field.kind == FieldKind::List &&
            !(*number >= 0 && *number <= field.last_index && *number == std::floor(*number)))
            continue;
        if (number) values.push_back({std::string(field.name), *number});
    }
    return read_short_circuit_case(values, locale);
}

}  // namespace zel
