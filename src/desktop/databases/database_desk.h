#pragma once

#include <optional>
#include <string>

#include "desktop/databases/database_ways.h"
#include "desktop/frame/captions.h"
#include "desktop/frame/database_source.h"
#include "desktop/frame/file_chooser.h"
#include "desktop/frame/live_settings.h"

class QAction;
class QMenu;

namespace zel {

/// What all databases of the program work with.
struct DatabaseParts {
    const Session& session;
    const LiveSettings& settings;
    FileChooser& chooser;
    ErrorHandling& errors;
    TableStore& tables;
    WorkbookStore& workbooks;  // of exported tables
    Files& files;
    Captions& captions;
    std::string data_folder;
    int patience;  // in milliseconds: a longer import shows its progress
};

/// The databases of one program area: their menu, and the ways from it to the windows.
class DatabaseDesk : public DatabaseSource {
public:
    DatabaseDesk(AreaFrame& form, const forms::DatabaseForms& forms, const DatabaseParts& parts);

    void open_file(const std::string& path) override { browse(path); }
    void open_fixed() override;
    void save_in_fixed() override;
    void allow_saving(bool allowed) override;

private:
    QAction* add(QMenu& menu, const char* name, const Text& caption, void (DatabaseDesk::*act)());
    void open();
    void open_calculations();
    void save_in_existing();
    void save_in_new();
    void import_tables();

    void carry_out(const char* module, const char* procedure,
                   const std::function<void()>& act) const;
    /// The path that the user chooses; nothing where he wants none.
    [[nodiscard]] std::optional<std::string> ask(const forms::DatabaseQuestion& question,
                                                 const std::string& folder, const std::string& name,
                                                 bool existing) const;
    /// A path for a new database that is none of the program's own; nothing where the user wants
    /// none.
    [[nodiscard]] std::optional<std::string> ask_for_new() const;
    /// Lets the user take over a record of the database; of `fixed` alone where it is given.
    void browse(const std::string& path, const forms::FixedTable* fixed = nullptr);
    [[nodiscard]] Box box_of_overflow(const std::string& reason) const;
    /// The case as a row; nothing where it cannot be one, which is told.
    [[nodiscard]] std::optional<RowToSave> row_to_save() const;
    void finish_saving(const std::string& table, const std::string& path) const;
    [[nodiscard]] bool add_to_fixed(const RowToSave& row);
    [[nodiscard]] DatabaseWindowParts window_parts() const;
    [[nodiscard]] LangId lang() const { return parts_.session.lang; }

    AreaFrame& form_;
    const forms::DatabaseForms& forms_;
    DatabaseParts parts_;
    QAction* save_in_existing_ = nullptr;
    QAction* save_in_new_ = nullptr;
};

}  // namespace zel
