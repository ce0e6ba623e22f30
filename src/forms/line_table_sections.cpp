#include "forms/line_form.h"
#include "tables_graphs/parameter_table.h"
#include "workflow/run/page_change.h"

namespace zel::forms {
namespace {

using C = CalcCase;

constexpr Choice stepped_table[] = {
    {0, {"Leitertemperatur", "conductor temperature"}},
    {ambient_stepped, {"Umgebungstemperatur", "ambient temperature"}},
};

Row row(const char* control, const FieldKey& key) {
    return {.control = control, .field = &field_of(key)};
}

/// A row whose control bears the name of its field.
Row row(const FieldKey& key) { return row(field_of(key).name.data(), key); }

Row stepped() {
    Row list = row(&C::Umgebungstemperaturmerker_db);
    list.choices = stepped_table;
    return list;
}

}  // namespace

const std::vector<Section>& table_sections() {
    static const std::vector<Section> sections = {
        {.page = result_page,
         .caption = {"Windgeschwindigkeiten der Tabelle", "Wind speeds of the table"},
         .rows = {row("Text8", &C::Wind1_db), row("Text9", &C::Wind2_db),
                  row("Text10", &C::Wind3_db), row("Text12", &C::Wind4_db),
                  row("Text13", &C::Wind5_db), row("Text38", &C::Wind6_db)},
         .columns = 3},
        {.page = result_page,
         .caption = {"Temperaturbereich der Tabelle", "Temperature range of the table"},
         .rows = {stepped(), row(&C::Schrittweite_Temp_db), row("Text5", &C::Temp_min_db),
                  row("Text6", &C::Temp_max_db)},
         .columns = 2},
        {.page = result_page,
         .caption = {"Strombereich der Tabelle", "Current range of the table"},
         .rows = {row(&C::Strom_min_db), row(&C::Strom_max_db), row(&C::Schrittweite_Strom_db)},
         .columns = 3},
    };
    return sections;
}

}  // namespace zel::forms
