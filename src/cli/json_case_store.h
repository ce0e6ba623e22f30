#pragma once

#include "platform/case_store.h"

namespace zel {

/// Cases in JSON files. `load` takes "-" for standard input.
class JsonCaseStore : public CaseStore {
public:
    [[nodiscard]] bool has(const std::string& path) override;
    [[nodiscard]] FlatObject load(const std::string& path) override;
    void save(const std::string& path, const FlatObject& values) override;
};

}  // namespace zel
