#include "desktop/databases/database_ways.h"

#include "platform/errors.h"

namespace zel {
namespace {

/// A path of the settings without a file is told as such.
std::unique_ptr<Database> open_fixed_database(TableStore& tables, const std::string& path) {
    try {
        return tables.open(path);
    } catch (const PlatformError& error) {
        if (error.fault() != PlatformFault::DatabaseMissing) throw;
        throw InputError(error.reason(), PlatformFault::FileNotFound, path);
    }
}

std::string saved_by(SaveDialog* window) {
    return window != nullptr && window->exec() == QDialog::Accepted ? window->table() : "";
}

}  // namespace

std::optional<TakenRecord> browse_records(const DatabaseWindowParts& parts, TableStore& tables,
                                          const std::string& path, const forms::FixedTable* fixed) {
    std::unique_ptr<RecordBrowser> browser;
    (void)carry_out(parts, parts.forms.browser, parts.forms.loading, [&] {
        const TableFormat& format = parts.forms.format();
        const LangId lang = parts.session.lang;
        auto database = fixed != nullptr ? open_fixed_database(tables, path) : tables.open(path);
        std::vector<TableInfo> found =
            fixed != nullptr ? std::vector{record_table(*database, format, fixed->table)}
                             : record_tables(*database, format);
        if (found.empty()) throw InputError(Reason(path), PlatformFault::NoRecords, path);
        std::string title = std::string(parts.forms.browser_title.in(lang)) + path;
        if (fixed != nullptr) title += fixed->behind_title.in(lang);
        browser = std::make_unique<RecordBrowser>(parts, std::move(database), std::move(found),
                                                  path, title);
    });
    if (!browser || browser->exec() != QDialog::Accepted) return std::nullopt;
    return TakenRecord{browser->taken(), browser->table()};
}

std::string save_in_existing(const DatabaseWindowParts& parts, TableStore& tables,
                             const std::string& path, RowToSave row) {
    std::unique_ptr<SaveInDatabase> window;
    (void)carry_out(parts, parts.forms.save_form, "Form_Load", [&] {
        try {
            auto database = tables.open(path);
            if (!database->writable()) database->whole([] {});  // tells why
            window =
                std::make_unique<SaveInDatabase>(parts, std::move(row), std::move(database), path);
        } catch (const PlatformError& error) {
            if (error.fault() != PlatformFault::DatabaseMissing || !parts.forms.vanished) throw;
            parts.session.tell(box_in(parts.session.lang, *parts.forms.vanished));
        }
    });
    return saved_by(window.get());
}

std::string save_in_new(const DatabaseWindowParts& parts, TableStore& tables,
                        const std::string& path, RowToSave row) {
    std::unique_ptr<SaveInNewDatabase> window;
    (void)carry_out(parts, parts.forms.new_form, "Form_Load", [&] {
        auto database = std::make_unique<NewDatabase>(tables, path);
        window =
            std::make_unique<SaveInNewDatabase>(parts, std::move(row), std::move(database), path);
    });
    return saved_by(window.get());
}

}  // namespace zel
