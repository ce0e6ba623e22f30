#include "persistence/database/case_table.h"

#include <algorithm>
#include <cmath>

#include "platform/rounding.h"
#include "shell/case_settings.h"
#include "shell/program_texts.h"
#include "steady/case/case_fields.h"
#include "steady/case/method.h"
#include "steady/case/state_change.h"
#include "workflow/rules/derived.h"

namespace zel {
namespace {

constexpr int first_reserve_text = 139;
constexpr int first_reserve_number = 149;
constexpr int columns_of_table = 180;
constexpr std::size_t fewest_columns = 178;  // of a table of version 2.1 and later
constexpr std::int16_t reserve_length = 100;

constexpr BoxText no_method_stored = {
    Icon::None,
    short_name,
    {"Sie haben einen Datensatz aus früheren Versionen von ZEL bzw. VOR eingelesen (VOR 2.5 - "
     "3.5).\n"
     "Das Berechnungsverfahren wurde in diesen Versionen nicht mit abgespeichert\n"
     "und muß neu ausgewählt werden.\n"
     "Treffen Sie Ihre Auswahl des Berechnungsverfahrens bitte nach dem Einlesen.\n"
     "Bitte beachten Sie, daß evtl. nach Einlesen zusätzliche Eingabedaten ergänzt werden müssen\n"
     "Sie werden bei Bedarf mit einer entsprechenden Fehlermeldung darauf hingewiesen.\n"
     "Bitte beachten Sie, daß bei Auswahl des CIGRE-Verfahrens zusätzliche Eingabedaten\n"
     "für das Leiterseil benötigt werden. Diese müssen Sie in der Seildatenbank eingeben\n"
     "und das Seil erneut ins Berechnungsprogramm übernehmen.",
     "You have read in a data file of former Versions of the application ZEL / VOR (VOR 2.5 - "
     "3.5).\n"
     "The method of calculation wasn't saved, you have to select it one more time\n"
     "Do this after the read-in of this data file.\n"
     "Eventually you have to add more input values.\n"
     "You will see this by detailed occurring error messages."}};

/// Which methods use a field; a row without methods reads what is marked so.
struct Use {
    MethodSet methods = every_method;
    bool without_method = true;
};

constexpr Use sun = {methods(Method::Webs, Method::Kirn)};
constexpr Use kirn = {methods(Method::Kirn)};
constexpr Use frequency = {methods(Method::TB601, Method::TB207, Method::Webs, Method::TBB)};
constexpr Use absorption = {methods(Method::TB601, Method::TB207, Method::TBB), false};
constexpr Use tb601 = {methods(Method::TB601), false};

struct UsedField {
    FieldKey field;
    Use use;
};

using C = CalcCase;
constexpr UsedField used_fields[] = {
    {&C::geogr_Breite_db, sun},
    {&C::geo_laeng_db, sun},
    {&C::geo_laeng_zeit_db, sun},
    {&C::Tag_db, sun},
    {&C::Monat_db, sun},
    {&C::Stunden_db, sun},
    {&C::Minuten_db, sun},
    {&C::Bodentemp_db, kirn},
    {&C::Bodenart_db, kirn},
    {&C::Bewoelkungsgrad_db, kirn},
    {&C::Feldlaenge_db, kirn},
    {&C::Hoehendifferenz_db, kirn},
    {&C::Netzfrequenz_db, frequency},
    {&C::Absorptionsverhaeltnis_db, absorption},
    {&C::GMR_db, tb601},
    {&C::GMR_Merker_db, tb601},
    {&C::ACR_Frequenz_Remox_db, tb601},
    {&C::ACR1_db, tb601},
    {&C::TACR1_db, tb601},
    {&C::ACR2_db, tb601},
    {&C::TACR2_db, tb601},
    {&C::ACR3_db, tb601},
    {&C::TACR3_db, tb601},
    {&C::ACR4_db, tb601},
    {&C::TACR4_db, tb601},
    {&C::ACR5_db, tb601},
    {&C::TACR5_db, tb601},
    {&C::ACR6_db, tb601},
    {&C::TACR6_db, tb601},
    {&C::radialthermalconductivity_unter_KPT_db, tb601},
    {&C::KniepunktTemperatur_db, tb601},
    {&C::radialthermalconductivity_ueber_KPT_db, tb601},
};

/// Without input they hold this number.
constexpr FieldKey marked_when_empty[] = {&C::Umgebtemp_merker1_db, &C::Umgebtemp_merker2_db};

bool stands_in(std::span<const FieldKey> keys, const FieldKey& key) {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

class CaseReader {
public:
    CaseReader(const StoredRow& row, CalcCase& c, Settings& settings, const Session& session)
        : row_(row), c_(c), settings_(settings), session_(session) {}

    void read() {
        read_methods();
        if (selected_ == 0) session_.tell(box_in(session_.lang, no_method_stored));
        for (const CaseField& field : case_fields()) read(field);
        read_currents();
        MethodSelection stored = c_;
        adopt_settings(stored, settings_, session_);
        static_cast<MethodSelection&>(c_) = stored;
        // The changes of state that stay were typed for the bundle as it was.
        if (sharing_conductors(c_) != sharing_before_)
            share_bundle_currents(c_, session_.separator);
        read_states();
    }

private:
    void read_methods() {
        for (const Method method : all_methods) {
            const bool chosen = row_.number(name_of(FieldKey(flag_of(method)))) == 1.0;
            c_.*flag_of(method) = chosen ? 1 : 0;
            if (chosen) selected_ |= methods(method);
        }
    }

    [[nodiscard]] bool is_used(const FieldKey& key) const {
        if ((key == FieldKey(&C::GMR_db) || key == FieldKey(&C::GMR_Merker_db)) &&
            !has_radius(row_.whole("conductor_type_db")))
            return false;
        for (const auto& [field, use] : used_fields)
            if (field == key)
                return selected_ == 0 ? use.without_method : (selected_ & use.methods) != 0;
        return true;
    }

    /// A tube has no geometric mean radius of its own.
    static bool has_radius(std::int16_t type) {
        return type == homogeneous_conductor || type == steel_cored_conductor ||
               type == composite_core_conductor;
    }

    void read(const CaseField& field) {
        if (field.column == ColumnType::None) return;
        std::visit([&](auto member) { take(field, c_.*member, is_used(field.key)); }, field.key);
    }

    void take(const CaseField& field, std::string& place, bool /*used*/) {
        place = row_.trimmed(field.name);
    }
    void take(const CaseField& field, Entry& place, bool used) {
        if (field.key == FieldKey(&C::Messwert_Strom_db) ||
            field.key == FieldKey(&C::Messwert_Temperatur_db))
            return take_measured(field, place);
        place = used ? stored_entry(row_, field.name, field, session_.separator) : Entry{};
    }
    /// Only where the fields for measured values are shown. 9999 is what an empty one holds.
    void take_measured(const CaseField& field, Entry& place) {
        if (settings_.now().Mess_merker != -1) return;
        const Entry stored = stored_entry(row_, field.name, field, session_.separator);
        const bool empty = !stored.given() || stored.value == empty_mark;
        place = empty ? Entry{{}, empty_mark} : stored;
    }
    void take(const CaseField& field, std::int16_t& place, bool used) {
        if (std::any_of(std::begin(all_methods), std::end(all_methods),
                        [&](Method method) { return field.key == FieldKey(flag_of(method)); }))
            return;
        if (stands_in(marked_when_empty, field.key))
            place = row_.whole(field.name, empty_mark);
        else if (field.key == FieldKey(&C::Anzahl_Teilleiter_db))
            place = row_.whole(field.name, 1);
        else if (field.key == FieldKey(&C::GMR_Merker_db))
            place = used ? row_.whole(field.name, 1) : std::int16_t{0};
        else
            place = used ? row_.whole(field.name) : std::int16_t{0};
    }
    static void take(const CaseField& /*field*/, bool& /*place*/, bool /*used*/) {}
    static void take(const CaseField& /*field*/, double& /*place*/, bool /*used*/) {}

    /// The flags of the mode, of which the last in this order wins, and the current of the bundle,
    /// which has no column.
    void read_currents() {
        if (c_.Anzahl_Teilleiter_db < 1 || c_.Anzahl_Teilleiter_db > 8) c_.Anzahl_Teilleiter_db = 1;
        c_.Leitertemp_Merker_db = c_.Stromstaerke_Merker_db = c_.Stromstaerkebuendel_Merker_db =
            false;
        if (row_.flag("Leitertemp_Merker_db")) c_.Leitertemp_Merker_db = true;
        if (row_.flag("Stromstaerke_Merker_db")) {
            c_.Leitertemp_Merker_db = false;
            c_.Stromstaerke_Merker_db = true;
        }
        if (row_.flag("Stromstaerkebuendel_Merker_db")) {
            c_.Leitertemp_Merker_db = false;
            c_.Stromstaerke_Merker_db = c_.Stromstaerkebuendel_Merker_db = true;
        }
        c_.Stromstaerke_Buendel = {};
        if (!c_.Stromstaerke_db.given()) return;
        const double current = c_.Stromstaerke_db.value * c_.Anzahl_Teilleiter_db;
        c_.Stromstaerke_Buendel = {plain_number(current, session_.separator), current};
    }

    void read_states() {
        for (std::size_t number = 0; number < c_.Z.size(); ++number) {
            StateChange read;
            const auto kind = row_.number(name_of(number, nullptr));
            if (!kind || *kind != std::floor(*kind)) return;
            read.merker = round_to_int16(*kind).value_or(row_unused);
            if (!is_in_use(read)) return;
            for (const auto& field : state_fields()) {
                const auto* cell = std::get_if<StateCell>(&field.key);
                if (cell == nullptr || !takes_input(read.merker, *cell)) continue;
                read.** cell =
                    stored_entry(row_, name_of(number, *cell), field, session_.separator);
            }
            if (read.Strom.given())
                show_bundle_current(read, sharing_conductors(c_), session_.separator);
            c_.Z[number] = read;
        }
    }

    const StoredRow& row_;
    CalcCase& c_;
    Settings& settings_;
    const Session& session_;
    const int sharing_before_ = sharing_conductors(c_);
    MethodSet selected_ = 0;
};

/// An order of writing: the methods first.
bool is_method(const FieldOf& field) {
    return field.name.starts_with("rechnung_") && field.name.ends_with("_merker_db");
}

}  // namespace

const TableFormat& case_tables() {
    static const TableFormat format = [] {
        TableFormat made = {
            .columns = {},
            .list_columns = {"Projekt_db", "Datum_db", "Bearbeiter_db", "Abteilung_db",
                             "Bezeichnung1_db", "Bezeichnung2_db", "rechnung_cigre601_merker_db",
                             "rechnung_cigre207_merker_db", "rechnung_TBB_merker_db",
                             "rechnung_webs_merker_db", "rechnung_kirn_merker_db"},
            .create = S30_Access_Tabelle_anlegen,
            .markers = {"Projekt_db", "Datum_db", "Bearbeiter_db", "Abteilung_db"},
            .markers_lead = true,
            .fewest_columns = fewest_columns};
        CalcCase c;
        for (const FieldOf& field : fields_of(c))
            if (field.info->column != ColumnType::None) made.columns.push_back(column_of(field));
        for (int column = first_reserve_text; column < columns_of_table; ++column) {
            const bool text = column < first_reserve_number;
            made.columns.push_back(
                {"Reserve_" + std::to_string(column) + (text ? "_Text" : "_single"),
                 text ? ColumnType::Text : ColumnType::Single,
                 text ? reserve_length : std::int16_t{0}});
        }
        return made;
    }();
    return format;
}

void S30_Access_Tabelle_anlegen(Database& database, const std::string& table) {
    database.create_table(table, case_tables().columns);
}

std::vector<NamedValue> S30_Access_Daten_speichern(CalcCase c, std::vector<CutText>& cut) {
    S_Stromstaerke_buendel(c, DecimalSeparator::Point);
    for (StateChange& row : c.Z)
        if (row.merker == row_unused) row = {};
    std::vector<NamedValue> values;
    auto fields = fields_of(c);
    std::stable_partition(fields.begin(), fields.end(), is_method);
    for (NamedValue& value : column_values(fields, cut)) {
        const auto state = value.first.size() > 2 && value.first[0] == 'Z' && value.first[2] == '_'
                               ? static_cast<std::size_t>(value.first[1] - '1')
                               : c.Z.size();
        const bool unused = state < c.Z.size() && c.Z[state].merker == row_unused;
        const auto* whole = std::get_if<std::int16_t>(&value.second);
        const bool empty =
            whole != nullptr && *whole == empty_mark && value.first.starts_with("Umgebtemp_merker");
        if (!unused && !empty) values.push_back(std::move(value));
    }
    return values;
}

void S30_Access_Daten_einlesen(const StoredRow& row, CalcCase& c, Settings& settings,
                               const Session& session) {
    CaseReader(row, c, settings, session).read();
}

}  // namespace zel
