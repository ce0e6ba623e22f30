#include "cli/db_area.h"

#include "adapters/json/flat_json.h"
#include "cli/case_listing.h"
#include "forms/line_form.h"
#include "forms/short_circuit_form.h"
#include "forms/shown_record.h"
#include "persistence/case_file.h"
#include "persistence/database/case_table.h"
#include "platform/errors.h"
#include "platform/text/listing.h"
#include "program/case_source.h"
#include "program/stores.h"
#include "shell/case_settings.h"
#include "short_circuit/short_circuit_table.h"

namespace zel {
namespace {

constexpr Text text_refused = {"ein Text wurde abgewiesen; nichts ist gespeichert",
                               "a text was refused; nothing is stored"};

/// Nothing is stored that the user has not seen accepted.
void refuse_texts(const std::string& path, const std::vector<RefusedText>& refused) {
    if (refused.empty()) return;
    throw InputError(at(path, at(refused.front().field, refused.front().box.lines.front())));
}

std::vector<NamedValue> told(std::vector<NamedValue> values, const std::vector<CutText>& cut,
                             const CommonOptions& options, Console& console) {
    if (const auto box = zel::told(cut, options.lang)) {
        if (options.silent)
            Console::tell_reason(paragraph_of(*box));
        else
            console.show(*box);
    }
    return values;
}

std::vector<NamedValue> load_line(const std::string& path, const CommonOptions& options,
                                  Console& console) {
    const LoadedCase loaded = load_case(path, options, console);
    if (loaded.text_refused) throw InputError(at(path, Reason(text_refused)));
    std::vector<CutText> cut;
    return told(S30_Access_Daten_speichern(loaded.c, cut), cut, options, console);
}

/// The lists have the language of the reports, which is that of the program where none is set.
LangId list_language(const ProgramSettings& settings, LangId lang) {
    return settings.LangId_print == settings.LangId_screen ? lang : language_of_lists(settings);
}

/// What is chosen stands above the rows.
std::string listing_of(const forms::ShownRecord& record, LangId lang) {
    Listing chosen;
    chosen.add(std::string(forms::methods_caption.in(lang)) + " :", forms::chosen_of(record));
    if (!record.mode().de.empty()) chosen.add_caption(record.mode().in(lang));
    return chosen.text() + listing_of(record.form(), record.form().sections(), lang);
}

/// Questions are answered with no.
std::string show_line(const StoredRow& row, const CommonOptions& options, Console& console) {
    ProgramStores stores;
    Settings settings = stores.settings();
    Session session = {options, options.Meldung_merker(), console};
    take_settings(session, settings.now());
    CalcCase c;
    S30_Access_Daten_einlesen(row, c, settings, session);
    if (options.json) return print_flat_json(values_of(c));
    const auto shown = forms::shown_line(forms::case_for_form(std::move(c)), options,
                                         list_language(settings.now(), options.lang));
    return listing_of(*shown, options.lang);
}

std::vector<NamedValue> load_short_circuit(const std::string& path, const CommonOptions& options,
                                           Console& console) {
    const ShortCircuitFile file = read_short_circuit_case(JsonCaseStore().load(path), options);
    refuse_texts(path, file.refused);
    std::vector<CutText> cut;
    return told(KS82_Tabellendaten_speichern(file.form.content(), cut), cut, options, console);
}

std::string show_short_circuit(const StoredRow& row, const CommonOptions& options,
                               Console& console) {
    ShortCircuitFile file = KS72_Daten_einlesen(row, options);
    for (const auto& [field, box] : file.refused) console.show(box, field);
    if (options.json) return print_flat_json(values_of(file.form.content()));
    const forms::ShortCircuitRecord record(file.form, options);
    return listing_of(record, record.sections(), options.lang);
}

}  // namespace

const DbArea& line_area() {
    static const DbArea area = {case_tables(), load_line, show_line};
    return area;
}

const DbArea& short_circuit_area() {
    static const DbArea area = {short_circuit_tables(), load_short_circuit, show_short_circuit};
    return area;
}

}  // namespace zel
