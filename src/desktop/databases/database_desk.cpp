#include "desktop/databases/database_desk.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <filesystem>

#include "desktop/frame/area_frame.h"
#include "desktop/frame/events.h"
#include "desktop/frame/job_runner.h"
#include "forms/select_path.h"
#include "persistence/database/table_import.h"
#include "platform/errors.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr Text menu_caption = {"Datenban&k", "D&atabase"};
constexpr Text saving_hint = {
    "Gesperrt, bis Cigre TB 601, Cigre TB 207 oder Puffer ein Ergebnis hat.",
    "Closed until Cigre TB 601, Cigre TB 207 or Puffer has a result."};
constexpr std::string_view any_name = "*.mdb";
constexpr std::string_view suffix = "mdb";

constexpr forms::DatabaseQuestion import_question = {
    "mImport",
    {"&Importieren einer alten Datenbank ...", "&Import an old database ..."},
    {"Alte Datenbank importieren", "Import an old database"},
    {"Datenbanken (*.mdb *.accdb) (*.mdb *.accdb)\nAlle Dateien (*.*) (*)",
     "Databases (*.mdb *.accdb) (*.mdb *.accdb)\nAll files (*.*) (*)"}};
constexpr std::size_t most_told = 12;
constexpr BoxText imported = {Icon::None, import_question.title, {"{0}", "{0}"}};
constexpr Text row_of_import = {"Datensatz {0} von {1}", "Data record {0} of {1}"};

constexpr BoxText not_storable = {Icon::Stop,
                                  {"Speichern des Datensatzes", "Saving data"},
                                  {"Der Datensatz kann nicht gespeichert werden :\n{0}",
                                   "The data record can not be saved :\n{0}"}};

std::string name_in(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

/// The place of a record for a title.
std::string origin(const std::string& path, const std::string& table) {
    return name_in(path) + ": " + table;
}

}  // namespace

DatabaseDesk::DatabaseDesk(AreaFrame& form, const forms::DatabaseForms& forms,
                           const DatabaseParts& parts)
    : form_(form), forms_(forms), parts_(parts) {
    QMenu& menu = *parts_.captions.title(form.menuBar()->addMenu(QString()), menu_caption);
    menu.setObjectName("mDatenbank");
    menu.setToolTipsVisible(true);
    add(menu, forms.open.entry, forms.open.caption, &DatabaseDesk::open);
    if (const auto& question = forms.open_calculations)
        add(menu, question->entry, question->caption, &DatabaseDesk::open_calculations);
    add(menu, forms.fixed.open_entry, forms.fixed.open_caption, &DatabaseDesk::open_fixed);
    menu.addSeparator();
    save_in_existing_ = add(menu, forms.save_in_existing.entry, forms.save_in_existing.caption,
                            &DatabaseDesk::save_in_existing);
    save_in_new_ =
        add(menu, forms.save_in_new.entry, forms.save_in_new.caption, &DatabaseDesk::save_in_new);
    add(menu, forms.fixed.save_entry, forms.fixed.save_caption, &DatabaseDesk::save_in_fixed);
    menu.addSeparator();
    add(menu, import_question.entry, import_question.caption, &DatabaseDesk::import_tables);
    parts_.captions.computed([this](LangId) { allow_saving(save_in_new_->isEnabled()); });
}

QAction* DatabaseDesk::add(QMenu& menu, const char* name, const Text& caption,
                           void (DatabaseDesk::*act)()) {
    QAction* action = parts_.captions.text(menu.addAction(QString()), caption);
    action->setObjectName(name);
    on(action, &QAction::triggered, [this, act] { (this->*act)(); });
    return action;
}

void DatabaseDesk::allow_saving(bool allowed) {
    for (QAction* action : {save_in_existing_, save_in_new_}) {
        action->setEnabled(allowed);
        action->setToolTip(allowed ? QString() : qt(saving_hint, lang()));
    }
}

void DatabaseDesk::carry_out(const char* module, const char* procedure,
                             const std::function<void()>& act) const {
    (void)zel::carry_out(window_parts(), module, procedure, act);
}

std::optional<std::string> DatabaseDesk::ask(const forms::DatabaseQuestion& question,
                                             const std::string& folder, const std::string& name,
                                             bool existing) const {
    return parts_.chooser.path_to_select({std::string(question.title.in(lang())), folder,
                                          question.filters.in(lang()), suffix, existing, name});
}

void DatabaseDesk::open() {
    const std::string folder = forms_.opens_at_calculations
                                   ? start_folder(parts_.settings.now().Berechnungsdaten)
                                   : parts_.data_folder;
    if (const auto path = ask(forms_.open, folder, std::string(any_name), true)) browse(*path);
}

void DatabaseDesk::open_calculations() {
    const std::string& present = parts_.settings.now().Berechnungsdaten;
    if (const auto path =
            ask(*forms_.open_calculations, start_folder(present), name_in(present), true))
        browse(*path);
}

void DatabaseDesk::open_fixed() { browse(parts_.settings.now().*forms_.fixed.path, &forms_.fixed); }

void DatabaseDesk::browse(const std::string& path, const forms::FixedTable* fixed) {
    if (!form_.take_in()) return;
    // The database is closed by then.
    const auto taken = browse_records(window_parts(), parts_.tables, path, fixed);
    if (!taken) return;
    carry_out(forms_.browser, forms_.reading,
              [&] { form_.take(taken->row, origin(path, taken->table)); });
}

/// A number has no room in its column.
Box DatabaseDesk::box_of_overflow(const std::string& reason) const {
    if (forms_.own_failure == nullptr) return box_in(lang(), not_storable, {reason});
    const ErrorObject error = {static_cast<std::int32_t>(PlatformFault::Overflow), reason, {}};
    return *forms_.own_failure(error, 0, forms_.writing, lang());
}

std::optional<RowToSave> DatabaseDesk::row_to_save() const {
    RowToSave row;
    try {
        row.values = form_.record().row(row.cut);
        row.head = form_.record().shown();
        return row;
    } catch (const InputError& error) {
        parts_.session.tell(box_of_overflow(error.told(lang())));
    }
    return std::nullopt;
}

void DatabaseDesk::save_in_existing() {
    if (!form_.take_in()) return;
    auto row = row_to_save();
    if (!row) return;
    const std::string& present = parts_.settings.now().Berechnungsdaten;
    const auto path = ask(forms_.save_in_existing, start_folder(present), name_in(present), true);
    if (!path) return;
    finish_saving(zel::save_in_existing(window_parts(), parts_.tables, *path, *std::move(row)),
                  *path);
}

std::optional<std::string> DatabaseDesk::ask_for_new() const {
    const std::string folder = start_folder(parts_.settings.now().Berechnungsdaten);
    while (true) {
        auto path = ask(forms_.save_in_new, folder, std::string(any_name), false);
        if (!path) return std::nullopt;
        if (is_pattern(*path)) continue;
        const ReservedName name =
            forms_.reserved(*path, std::filesystem::path(folder).parent_path().string(), lang());
        if (!name.refused) return path;
        if (!name.box) return std::nullopt;
        parts_.session.tell(*name.box);
    }
}

void DatabaseDesk::save_in_new() {
    if (!form_.take_in()) return;
    auto row = row_to_save();
    if (!row) return;
    const auto path = ask_for_new();
    if (!path) return;
    finish_saving(zel::save_in_new(window_parts(), parts_.tables, *path, *std::move(row)), *path);
}

void DatabaseDesk::import_tables() {
    const auto old = ask(import_question, parts_.data_folder, {}, true);
    if (!old) return;
    const auto path = ask_for_new();
    if (!path) return;
    std::optional<ImportResult> result;
    carry_out(forms_.browser, "mImport_click", [&] {
        RunProgress display(form_, lang(), parts_.patience, import_question.title);
        run_job(display, parts_.session.dialogs,
                [&result, &store = parts_.tables, &format = forms_.format(), from = *old,
                 to = *path, told_in = lang()](Job& job) {
                    const auto opened = store.open(from);
                    result = zel::import_tables(
                        *opened, format, store, to, [&](std::size_t done, std::size_t of) {
                            const double percent =
                                100.0 * static_cast<double>(done) / static_cast<double>(of);
                            job.tell({percent, fill(row_of_import.in(told_in),
                                                    {std::to_string(done), std::to_string(of)})});
                            return !job.cancelled();
                        });
                });
    });
    if (!result) return;
    std::string report = listing_of(*result, lang(), most_told);
    report.pop_back();  // the end of its last line
    parts_.session.tell(box_in(lang(), imported, {report}));
}

void DatabaseDesk::finish_saving(const std::string& table, const std::string& path) const {
    if (!table.empty()) form_.stored_in(origin(path, table));
}

DatabaseWindowParts DatabaseDesk::window_parts() const {
    const RecordUse record = {form_,
                              [this](const StoredRow& row) { return form_.record().shown(row); },
                              [this] { return form_.may_be_replaced(); }};
    return {record,         forms_,           parts_.session, parts_.errors,
            parts_.chooser, parts_.workbooks, parts_.files};
}

void DatabaseDesk::save_in_fixed() {
    if (!form_.take_in()) return;
    if (const auto refusal = form_.record().refusal_to_keep()) return parts_.session.tell(*refusal);
    const auto row = row_to_save();
    if (!row) return;
    bool saved = false;
    carry_out(forms_.fixed.module, forms_.fixed.saving, [&] { saved = add_to_fixed(*row); });
    if (!saved) return;
    if (const auto box = told(row->cut, lang())) parts_.session.tell(*box);
    parts_.session.tell(box_in(lang(), forms_.fixed.saved));
    form_.stored_in(origin(parts_.settings.now().*forms_.fixed.path, forms_.fixed.table));
}

/// A file that is not there yet is made with its table; false where the table takes no rows.
bool DatabaseDesk::add_to_fixed(const RowToSave& row) {
    const std::string& path = parts_.settings.now().*forms_.fixed.path;
    const TableFormat& format = forms_.format();
    std::unique_ptr<Database> database;
    try {
        database = parts_.tables.open(path);
    } catch (const PlatformError& error) {
        if (error.fault() != PlatformFault::DatabaseMissing) throw;
        NewDatabase made(parts_.tables, path);
        save_in_new_table(made.database(), format, forms_.fixed.table, row.values);
        made.keep();
        return true;
    }
    const auto tables = database->tables();
    const bool there = std::any_of(tables.begin(), tables.end(), [&](const TableInfo& table) {
        return same_name(table.name, forms_.fixed.table);
    });
    if (!there && forms_.fixed.made_again) {
        save_in_new_table(*database, format, forms_.fixed.table, row.values);
        return true;
    }
    const TableInfo table = record_table(*database, format, forms_.fixed.table);
    if (const auto refusal = refused_table(format, table, lang())) {
        parts_.session.tell(*refusal);
        return false;
    }
    std::vector<std::string> left_out;
    add_to_table(*database, table, row.values, left_out);
    if (const auto box = told_left_out(table, left_out, lang())) parts_.session.tell(*box);
    return true;
}

}  // namespace zel
