#include "forms/measured_form.h"

namespace zel::forms {
namespace {

using R = measuring::MeasuredRecord;

template <class... Members>
std::vector<Row> rows(Members... members) {
    std::vector<Row> made;
    for (const measuring::MeasuredField* field :
         {&measuring::field_of(measuring::MeasuredField::Key(members))...})
        made.push_back({field->name.data(), field});
    return made;
}

const std::vector<Section>& measured_sections() {
    static const std::vector<Section> sections = {
        {0, {" Angaben zum Meßdatensatz: ", " Data record: "}, rows(&R::Kennung_mw)},
        {0, {" Datum und Uhrzeit: ", " Date and time: "}, rows(&R::Datum_mw, &R::Uhrzeit_mw)},
        {0,
         {"Geographische Angaben :", "Geographic data :"},
         rows(&R::geogr_Breite_mw, &R::geo_laeng_mw, &R::geo_laeng_zeit_mw, &R::Winkel_S_S_mw)},
        {0,
         {" Angaben zur Umgebung :", " Surroundings :"},
         rows(&R::Winkel_W_N_mw, &R::Windgeschwindigkeit_mw, &R::Globalstrahlung_mw,
              &R::Umgebungstemperatur_mw, &R::Bewoelkungsgrad_mw, &R::Bodenart_mw)},
        {0,
         {" Meßzyklus: ", " Measuring cycle: "},
         rows(&R::Start_mw, &R::Ende_mw, &R::Anzahl_mw, &R::Wind_Hochrechnung_mw)},
    };
    return sections;
}

/// It is only read.
class MeasuredForm : public Record {
public:
    explicit MeasuredForm(R record) : record_(std::move(record)) {}

    [[nodiscard]] std::span<const Section> sections() const override { return measured_sections(); }
    [[nodiscard]] std::string shown(const Row& row) const override {
        const auto& key = key_of<R>(*row.field);
        if (const auto* text = std::get_if<std::string R::*>(&key)) return record_.**text;
        const auto* number = std::get_if<Entry R::*>(&key);
        return number != nullptr ? (record_.**number).text : std::string();
    }
    [[nodiscard]] std::string listed(const Row& row) const override {
        const std::string text = shown(row);
        return text.empty() || row.field->unit.empty() ? text
                                                       : text + " " + std::string(row.field->unit);
    }
    [[nodiscard]] int chosen(const Row& /*row*/) const override { return 0; }
    [[nodiscard]] InputState state(const Row& /*row*/) const override { return {false}; }
    [[nodiscard]] LangId language_of_choices(const Row& /*row*/) const override {
        return LangId::German;
    }
    std::optional<Refusal> enter(const Row& /*row*/, std::string_view /*text*/) override {
        return std::nullopt;
    }
    void choose(const Row& /*row*/, int /*index*/) override {}

private:
    R record_;
};

class ShownMeasurement : public ShownRecord {
public:
    explicit ShownMeasurement(R record) : form_(std::move(record)) {}
    [[nodiscard]] const Record& form() const override { return form_; }

private:
    MeasuredForm form_;
};

template <std::size_t place>
std::string value(std::span<const std::string> values, LangId /*lang*/) {
    return values[place];
}

/// A mean without the digits that nobody reads; what is no number as it is.
template <std::size_t place>
std::string mean(std::span<const std::string> values, LangId /*lang*/) {
    const auto number = stored_number(values[place]);
    return number ? masked(*number, "##0.0#", DecimalSeparator::Point) : values[place];
}

constexpr ListColumn list[] = {
    {{"Kennung", "Identification"}, value<0>, 16}, {{"Beginn", "Start"}, value<1>, 19},
    {{"Wind m/s", "Wind m/s"}, mean<2>, 10},       {{"Richtung °", "Direction °"}, mean<3>, 10},
    {{"Luft °C", "Air °C"}, mean<4>, 10},          {{"W/qm", "W/qm"}, value<5>, 6},
};

}  // namespace

std::unique_ptr<ShownRecord> shown_measurement(measuring::MeasuredRecord record) {
    return std::make_unique<ShownMeasurement>(std::move(record));
}

std::unique_ptr<ShownRecord> shown_measurement(const StoredRow& row, const Locale& locale) {
    return shown_measurement(measuring::measured_record(row, locale.separator));
}

const DatabaseForms& measuring_databases() {
    static const DatabaseForms forms = [] {
        const DatabaseForms& line = line_databases();
        DatabaseForms made = line;
        made.format = measuring::measuring_tables;
        made.browser = "frm_mess_open";
        made.loading = "mMeßwerttabelle_Click";
        made.browser_title = {"Meßwerttabelle ", "Measuring table "};
        made.pages = {Text{"&Werte des Datensatzes", "&Values of the record"}, Text{}};
        made.list = list;
        made.table_caption = {"Tabellenauswahl:", "Choice of the table:"};
        made.bar_caption = {"Datensatzauswahl:", "Choice of the data record:"};
        made.find_hint = {"Wörter aus Kennung, Beginn ...", "Words of identification, start ..."};
        made.back = "mback";
        made.save_form = "frm_mess_save";
        made.new_form = "frm_mess_new";
        made.reading = "Command1_click";
        made.writing = "Command4_click";
        return made;
    }();
    return forms;
}

}  // namespace zel::forms
