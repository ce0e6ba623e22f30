#pragma once

#include <glib.h>
#include <mdbtools.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/access/wire.h"

// Access files by libmdb, which may crash or never end on a damaged one: only for the reader, a
// process of its own. Failures throw an `Outcome`.

namespace zel::access {

/// Frees what libmdb made.
template <auto release>
struct Released {
    template <class Thing>
    void operator()(Thing* thing) const {
        release(thing);
    }
};

/// A table of the user and the place in it.
class JetTable {
public:
    JetTable(MdbHandle* file, const std::string& name, std::uint64_t page);

    [[nodiscard]] std::string name() const { return entry_->object_name; }
    /// As the file counts them.
    [[nodiscard]] std::uint64_t rows() const { return table_->num_rows; }
    [[nodiscard]] std::vector<std::string> columns() const;

    /// Goes to the row `key`, or where there is none to the next; false behind the last.
    bool go(std::uint64_t key);
    /// Goes to the row behind the present one.
    bool next() { return go(key() + 1); }
    /// The page and the place in it. Rows stand in the order of their keys.
    [[nodiscard]] std::uint64_t key() const { return page_ << 16U | row_; }
    /// The value of a column as text; nothing for Null, and for what is neither text nor number.
    [[nodiscard]] std::optional<std::string> cell(std::uint64_t column) const;

private:
    void require_pages(std::uint64_t page);
    bool next_page();
    bool read_row();

    MdbHandle* file_;
    std::unique_ptr<MdbCatalogEntry> entry_;
    std::unique_ptr<MdbTableDef, Released<mdb_free_tabledef>> table_;
    std::vector<MdbField> fields_;  // of the row
    std::uint64_t page_ = 0;
    std::uint64_t row_ = 0;
};

class JetFile {
public:
    /// The file that is open under the number `file_number`.
    JetFile();

    [[nodiscard]] std::vector<JetTable>& tables() { return tables_; }

private:
    void read_catalog();

    std::unique_ptr<MdbHandle, Released<mdb_close>> file_;
    std::vector<JetTable> tables_;
};

}  // namespace zel::access
