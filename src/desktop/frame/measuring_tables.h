#pragma once

#include <functional>
#include <memory>

#include "measuring/measuring_table.h"

class QWidget;

namespace zel {

/// The measuring tables, as the measuring window uses them.
class MeasuringTables {
public:
    virtual ~MeasuringTables() = default;
    /// Lets the user look at a table, and take a record over into the case.
    virtual void browse() = 0;
    /// Lets the user add `record` to a table; false where it stands in none.
    virtual bool save(const measuring::MeasuredRecord& record) = 0;
};

/// Makes them; their windows stand above `window`.
using MakeMeasuringTables = std::function<std::unique_ptr<MeasuringTables>(QWidget& window)>;

}  // namespace zel
