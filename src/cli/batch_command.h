#pragma once

#include <optional>
#include <string>

#include "cli/options.h"

namespace zel {

struct BatchOptions {
    std::string workbook;
    std::optional<bool> conductor_columns;  // nothing: as the setting says
    std::optional<bool> write_by_cell;
};

/// `zel batch`: calculates a workbook in place.
int batch_command(const BatchOptions& batch, const CommonOptions& options);

struct TemplateOptions {
    std::string kind;  // "steady-fix", "steady-var" or "transient"
    std::string path;
};

/// `zel template`: writes an empty workbook.
int template_command(const TemplateOptions& wanted, const CommonOptions& options);

}  // namespace zel
