#pragma once

#include <functional>
#include <memory>

#include "forms/database_forms.h"

namespace zel {

class AreaFrame;

/// The databases of a program area: their menu in the area's form, and what buttons of the form do
/// with the table at hand.
class DatabaseSource {
public:
    virtual ~DatabaseSource() = default;

    /// Lets the user take over a record of the database at `path`.
    virtual void open_file(const std::string& path) = 0;
    /// Lets the user take over a record of the table at hand.
    virtual void open_fixed() = 0;
    /// Adds the case to the table at hand.
    virtual void save_in_fixed() = 0;
    /// Whether the entries of the menu that save in other tables can be chosen.
    virtual void allow_saving(bool allowed) = 0;
};

/// Makes the databases of the area of `form`, with their menu behind those that are there.
using MakeDatabaseSource = std::function<std::unique_ptr<DatabaseSource>(
    AreaFrame& form, const forms::DatabaseForms& texts)>;

}  // namespace zel
