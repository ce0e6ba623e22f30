#pragma once

#include <memory>

#include "forms/database_forms.h"
#include "forms/shown_record.h"
#include "measuring/measuring_table.h"

// The measuring table in the windows of databases.

namespace zel::forms {

/// A row of a measuring table, or a record on its way there, to be looked at.
[[nodiscard]] std::unique_ptr<ShownRecord> shown_measurement(measuring::MeasuredRecord record);
[[nodiscard]] std::unique_ptr<ShownRecord> shown_measurement(const StoredRow& row,
                                                             const Locale& locale);

/// What the windows of measuring tables are called and say. They have no menu of their own.
[[nodiscard]] const DatabaseForms& measuring_databases();

}  // namespace zel::forms
