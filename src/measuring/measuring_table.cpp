#include "measuring/measuring_table.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "steady/case/case_fields.h"

namespace zel::measuring {
namespace {

using R = MeasuredRecord;
using C = CalcCase;

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): a field's name and its member stand once.
#define FIELD(name) \
    MeasuredField { #name, &R::name }

constexpr std::int16_t short_text = 20;

constexpr MeasuredField fields[] = {
    FIELD(Kennung_mw).called("Kennung:", "Identification:").of_length(100),
    FIELD(Datum_mw).called("Datum (TT.MM) :", "Date (DD.MM) :").of_length(short_text),
    FIELD(Uhrzeit_mw).called("Uhrzeit (ss.mm) :", "Time (hh.mm) :").of_length(short_text),
    FIELD(geogr_Breite_mw).called("geographischer Breitengrad :", "Latitude :"),
    FIELD(geo_laeng_mw).called("geographischer Längengrad :", "Longitude :"),
    FIELD(geo_laeng_zeit_mw)
        .called("Längengrad der örtlichen Standardzeit:", "Longitude of the local standard time:"),
    FIELD(Winkel_S_S_mw)
        .called("Winkel zw. Seil- u. Südrichtung :", "Angle between conductor and south :"),
    FIELD(Winkel_W_N_mw)
        .called("Winkel zw. Wind- u. Nordrichtung :", "Angle between wind and north :")
        .shown_by("##0.0#"),
    FIELD(Windgeschwindigkeit_mw)
        .called("Windgeschwindigkeit :", "Wind speed :", "m / s")
        .shown_by("##0.0#"),
    FIELD(Globalstrahlung_mw)
        .called("Globalstrahlung :", "Global radiation :", "W / qm")
        .rounded_to_whole(),
    FIELD(Umgebungstemperatur_mw)
        .called("Umgebungstemperatur :", "Ambient temperature :", "° C")
        .shown_by("#0.0#"),
    FIELD(Bewoelkungsgrad_mw).called("Bewölkungsgrad :", "Clearness ratio :"),
    FIELD(Bodenart_mw).called("Bodenbeschaffenheit (Albedo) :", "Ground reflectivity (albedo) :"),
    FIELD(Start_mw).called("Beginn :", "Start :").of_length(short_text),
    FIELD(Ende_mw).called("Ende :", "End :").of_length(short_text),
    // More than 16 bits hold.
    FIELD(Anzahl_mw)
        .called("Anzahl der Messwerte :", "Number of samples :")
        .in_column(ColumnType::Double),
    FIELD(Wind_Hochrechnung_mw)
        .called("Hochgerechnete Windgeschwindigkeit :", "Extrapolated wind speed :", "m / s")
        .shown_by("##0.0#"),
};

/// A field of the case and the one of the record that goes with it.
struct CaseTwin {
    Entry R::*own;
    Entry C::*of_case;
};
constexpr CaseTwin taken_from_case[] = {
    {&R::geogr_Breite_mw, &C::geogr_Breite_db},
    {&R::geo_laeng_mw, &C::geo_laeng_db},
    {&R::geo_laeng_zeit_mw, &C::geo_laeng_zeit_db},
    {&R::Winkel_S_S_mw, &C::Winkel_S_S_db},
};
constexpr CaseTwin taken_over[] = {
    {&R::Windgeschwindigkeit_mw, &C::Windgeschwindigkeit_db},
    {&R::Winkel_W_N_mw, &C::Winkel_W_S_db},
    {&R::Umgebungstemperatur_mw, &C::Umgebungstemperatur_db},
    {&R::Globalstrahlung_mw, &C::Globalstrahlung_db},
    {&R::Bewoelkungsgrad_mw, &C::Bewoelkungsgrad_db},
    {&R::Bodenart_mw, &C::Bodenart_db},
};
/// The greatest direction that a case may have. What is above it is north.
constexpr double greatest_direction = 359.9;

std::vector<FieldOf> fields_of(R& record) {
    std::vector<FieldOf> all;
    for (const MeasuredField& field : fields)
        all.push_back({std::string(field.name), &field, field.of(record)});
    return all;
}

Entry entry_of(double value, DecimalSeparator separator) {
    return {plain_number(value, separator), value};
}

/// The two numbers of "31.12".
std::pair<Entry, Entry> two_numbers(const std::string& text, DecimalSeparator separator) {
    const auto number = [&](std::string_view digits) -> Entry {
        int value = 0;
        const char* end = digits.data() + digits.size();
        const auto [rest, error] = std::from_chars(digits.data(), end, value);
        if (error != std::errc() || rest != end || value < 0) return {};
        return entry_of(value, separator);
    };
    const auto point = text.find('.');
    if (point == std::string::npos) return {};
    std::pair<Entry, Entry> both = {number(std::string_view(text).substr(0, point)),
                                    number(std::string_view(text).substr(point + 1))};
    if (!both.first.given() || !both.second.given()) return {};
    return both;
}

}  // namespace

std::span<const MeasuredField> measured_fields() { return fields; }

const MeasuredField& field_of(const MeasuredField::Key& key) {
    return *std::find_if(std::begin(fields), std::end(fields),
                         [&](const MeasuredField& field) { return field.key == key; });
}

const TableFormat& measuring_tables() {
    static const TableFormat format = [] {
        TableFormat made = {.columns = {},
                            .list_columns = {"Kennung_mw", "Start_mw", "Windgeschwindigkeit_mw",
                                             "Winkel_W_N_mw", "Umgebungstemperatur_mw",
                                             "Globalstrahlung_mw"},
                            .create =
                                [](Database& database, const std::string& table) {
                                    database.create_table(table, measuring_tables().columns);
                                },
                            .markers = {"Kennung_mw", "Datum_mw", "Uhrzeit_mw"}};
        R record;
        for (const FieldOf& field : fields_of(record)) made.columns.push_back(column_of(field));
        return made;
    }();
    return format;
}

MeasuredRecord measured_record(const CycleMeans& means, double Wind_Hochrechnung,
                               const std::string& Kennung, const CalcCase& c,
                               DecimalSeparator separator) {
    R record;
    const auto number = [separator](double value) { return entry_of(value, separator); };
    record.Kennung_mw = Kennung;
    record.Datum_mw = date_text(means.start).substr(0, 5);
    record.Uhrzeit_mw = time_text(means.start).substr(0, 5);
    std::replace(record.Uhrzeit_mw.begin(), record.Uhrzeit_mw.end(), ':', '.');
    for (const auto& [own, of_case] : taken_from_case) record.*own = c.*of_case;
    if (means.vector_mean_direction) record.Winkel_W_N_mw = number(*means.vector_mean_direction);
    record.Windgeschwindigkeit_mw = number(means.Windgeschw_Mittel);
    record.Globalstrahlung_mw = number(means.Globalstrahlung_Mittel);
    record.Umgebungstemperatur_mw = number(means.Lufttemp_Mittel);
    record.Bewoelkungsgrad_mw =
        c.Bewoelkungsgrad_db.given() ? c.Bewoelkungsgrad_db : number(usual_clearness);
    record.Bodenart_mw = c.Bodenart_db.given() ? c.Bodenart_db : number(usual_albedo);
    record.Start_mw = moment_text(means.start);
    record.Ende_mw = moment_text(means.end);
    record.Anzahl_mw = number(static_cast<double>(means.Anzahl));
    record.Wind_Hochrechnung_mw = number(Wind_Hochrechnung);
    return record;
}

std::vector<NamedValue> row_of(MeasuredRecord record, std::vector<CutText>& cut) {
    return column_values(fields_of(record), cut);
}

MeasuredRecord measured_record(const StoredRow& row, DecimalSeparator separator) {
    R record;
    for (const MeasuredField& field : fields) {
        if (const auto* text = std::get_if<std::string R::*>(&field.key))
            record.** text = row.trimmed(field.name);
        if (const auto* number = std::get_if<Entry R::*>(&field.key))
            record.** number = stored_entry(row, field.name, field, separator);
    }
    return record;
}

void take_over(const StoredRow& row, CalcCase& c, DecimalSeparator separator) {
    for (const auto& [own, of_case] : taken_over)
        c.*of_case = stored_entry(row, field_of(own).name, field_of(own), separator);
    if (c.Winkel_W_S_db.value > greatest_direction) c.Winkel_W_S_db = entry_of(0, separator);
    std::tie(c.Tag_db, c.Monat_db) = two_numbers(row.trimmed("Datum_mw"), separator);
    std::tie(c.Stunden_db, c.Minuten_db) = two_numbers(row.trimmed("Uhrzeit_mw"), separator);
}

}  // namespace zel::measuring
