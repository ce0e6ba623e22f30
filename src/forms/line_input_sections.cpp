#include <array>

#include "forms/line_form.h"
#include "workflow/rules/derived.h"
#include "workflow/run/page_change.h"

namespace zel::forms {
namespace {

using C = CalcCase;

constexpr MethodSet Kirn = methods(Method::Kirn);
constexpr MethodSet sun_position = methods(Method::Webs, Method::Kirn);
constexpr MethodSet absorption = methods(Method::TB601, Method::TB207, Method::TBB);

constexpr Text second_angle = {
    "Hinter der Einheit steht der zweite Winkel, der der Gegenrichtung.",
    "Behind the unit stands the second angle, of the opposite direction."};

/// The names of bundles of 1 to 8 sub-conductors.
std::span<const Choice> bundle_sizes() {
    static const auto sizes = [] {
        std::array<Choice, 8> made{};
        for (std::int16_t n = 1; n <= 8; ++n)
            made[static_cast<std::size_t>(n - 1)] = {n, bundle_name(n)};
        return made;
    }();
    return sizes;
}

Row row(const char* control, const FieldKey& key, MethodSet read_by = every_method,
        Text hint = {}) {
    return {.control = control, .field = &field_of(key), .read_by = read_by, .hint = hint};
}

std::vector<Row> geography() {
    return {
        row("Text3", &C::Hoehe_ueber_NN_db),
        row("Text27", &C::Winkel_S_S_db, every_method, second_angle),
        row("Text25", &C::geogr_Breite_db, sun_position),
        row("Text24", &C::geo_laeng_db, sun_position,
            {"Östliche Länge zählt negativ.\nFür Leitungen mit größerer Ausdehnung genügt ein Mittelwert.",
             "East counts negative.\nFor a line of some extent a mean value is enough."}),
        row("Text26", &C::geo_laeng_zeit_db, sun_position,
            {"Längengrad, auf den sich die örtliche Standardzeit bezieht.\nBsp. MEZ => -15° (= 15°Ost)",
             "Longitude to which the local standard time refers.\ne.g. CET => -15° (= 15° east)"}),
    };
}

std::vector<Row> surroundings() {
    return {
        row("Text11", &C::Windgeschwindigkeit_db, every_method,
            {"auf Leiterhöhe", "at conductor height"}),
        row("Text1", &C::Winkel_W_S_db, every_method, second_angle),
        row("Text19", &C::Umgebungstemperatur_db),
        row("Text36", &C::Bodentemp_db, Kirn),
        row("Text37", &C::Bodenart_db, Kirn),
        row("Text14", &C::Globalstrahlung_db),
        row("Text43", &C::Bewoelkungsgrad_db, Kirn),
    };
}

std::vector<Row> line() {
    return {
        row("Text44", &C::Feldlaenge_db, Kirn),
        row("Text45", &C::Hoehendifferenz_db, Kirn,
            {"der Aufhängepunkte", "of the suspension points"}),
        row("Text17", &C::Netzfrequenz_db),
        row("Text2", &C::Emissionsverhaeltnis_db),
        row("Text31", &C::Absorptionsverhaeltnis_db, absorption),
        {.control = "Combo3",
         .field = &field_of(&C::Anzahl_Teilleiter_db),
         .choices = bundle_sizes()},
    };
}

}  // namespace

const std::vector<Section>& input_sections() {
    static const std::vector<Section> sections = {
        {input_page,
         {"Projekt", "Project"},
         {row("Text4", &C::Projekt_db), row("Text20", &C::Bearbeiter_db),
          row("Text21", &C::Datum_db), row("Text22", &C::Abteilung_db)}},
        {input_page, {"Geographie", "Geography"}, geography()},
        {input_page,
         {"Datum und Uhrzeit", "Date and time"},
         {row("Text30", &C::Tag_db, sun_position), row("Text29", &C::Monat_db, sun_position),
          row("Text28", &C::Stunden_db, sun_position),
          row("Text15", &C::Minuten_db, sun_position)}},
        {input_page, {"Umgebung", "Surroundings"}, surroundings()},
        {input_page, {"Leitung", "Overhead line"}, line()},
        // Of these the mode of calculation takes one as given.
        {input_page,
         {"Vorgabe", "Given value"},
         {row("Text16", &C::Leitertemp_db), row("Text18", &C::Stromstaerke_db),
          row("Text39", &C::Stromstaerke_Buendel)}},
        {input_page,
         {"Messwerte", "Measured values"},
         {row("Messwert_Strom_db", &C::Messwert_Strom_db),
          row("Messwert_Temperatur_db", &C::Messwert_Temperatur_db)}},
    };
    return sections;
}

}  // namespace zel::forms
