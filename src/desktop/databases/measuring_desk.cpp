#include "desktop/databases/measuring_desk.h"

#include "forms/measured_form.h"
#include "forms/select_path.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text open_title = {"Messwertabelle auswählen ...", "Choose measuring table ..."};
constexpr Text save_title = {"Speichern in Meßwerttabelle ...", "Save in measuring table ..."};
constexpr Text filters = {"mdb-Dateien (*.mdb) (*.mdb)\nAlle Dateien (*.*) (*)",
                          "mdb-Dateien (*.mdb) (*.mdb)\nAll files (*.*) (*)"};

}  // namespace

std::optional<std::string> MeasuringDesk::ask(const Text& title, bool existing) const {
    const LangId lang = parts_.session.lang;
    const std::string folder =
        Messwerttabelle_Pfad.empty() ? parts_.data_folder : start_folder(Messwerttabelle_Pfad);
    return parts_.chooser.path_to_select(
        {std::string(title.in(lang)), folder, filters.in(lang), "mdb", existing, "*.mdb"});
}

/// A file of the program's own is not made here.
bool MeasuringDesk::is_reserved(const std::string& path) const {
    const std::string folder = start_folder(parts_.settings.now().Berechnungsdaten);
    const ReservedName name =
        reserved_case_database(path, folder.substr(0, folder.size() - 1), parts_.session.lang);
    if (name.box) parts_.session.tell(*name.box);
    return name.refused;
}

/// Other failures are told by the window that opens it.
bool MeasuringDesk::is_missing(const std::string& path) const {
    try {
        (void)parts_.tables.open(path);
    } catch (const PlatformError& error) {
        return error.fault() == PlatformFault::DatabaseMissing;
    }
    return false;
}

DatabaseWindowParts MeasuringDesk::window_parts() const {
    const RecordUse record = {
        window_,
        [this](const StoredRow& row) { return forms::shown_measurement(row, parts_.session); },
        [] { return true; }};
    return {record,         forms::measuring_databases(),
            parts_.session, parts_.errors,
            parts_.chooser, parts_.workbooks,
            parts_.files};
}

void MeasuringDesk::browse() {
    const auto path = ask(open_title, true);
    if (!path) return;
    Messwerttabelle_Pfad = *path;
    const auto taken = browse_records(window_parts(), parts_.tables, *path);
    if (taken) take_over_(taken->row);
}

bool MeasuringDesk::save(const measuring::MeasuredRecord& record) {
    const auto path = ask(save_title, false);
    if (!path || is_pattern(*path)) return false;
    Messwerttabelle_Pfad = *path;
    RowToSave row;
    row.values = measuring::row_of(record, row.cut);
    row.head = forms::shown_measurement(record);
    const bool is_new = is_missing(*path);
    if (is_new && is_reserved(*path)) return false;
    const auto save = is_new ? save_in_new : save_in_existing;
    return !save(window_parts(), parts_.tables, *path, std::move(row)).empty();
}

}  // namespace zel
