#pragma once

#include <functional>
#include <string>

#include "desktop/databases/database_desk.h"
#include "desktop/frame/measuring_tables.h"

namespace zel {

/// The ways from the measuring window to the windows of databases.
class MeasuringDesk : public MeasuringTables {
public:
    /// `take_over` makes a row part of the case.
    MeasuringDesk(QWidget& window, const DatabaseParts& parts,
                  std::function<void(const StoredRow&)> take_over)
        : window_(window), parts_(parts), take_over_(std::move(take_over)) {}

    void browse() override;
    bool save(const measuring::MeasuredRecord& record) override;

private:
    [[nodiscard]] std::optional<std::string> ask(const Text& title, bool existing) const;
    [[nodiscard]] bool is_reserved(const std::string& path) const;
    [[nodiscard]] bool is_missing(const std::string& path) const;
    [[nodiscard]] DatabaseWindowParts window_parts() const;

    QWidget& window_;
    DatabaseParts parts_;
    std::function<void(const StoredRow&)> take_over_;
    std::string Messwerttabelle_Pfad;  // chosen last
};

}  // namespace zel
