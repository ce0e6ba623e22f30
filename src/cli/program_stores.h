#pragma once

#include "adapters/ini/ini_store.h"
#include "adapters/posix/shared_files.h"
#include "adapters/posix/system_facts.h"
#include "shell/program_settings.h"
#include "shell/program_texts.h"

namespace zel {

/// The stores of the settings where this system keeps them.
struct ProgramStores {
    SystemFacts system = system_facts();
    ProgramPaths paths = program_paths(system);
    SharedFiles files{};
    IniStore shared{files, paths.shared_settings_file};
    IniStore user{files, paths.user_settings_file};

    [[nodiscard]] Settings settings() { return {shared, user, paths.data_folder}; }
};

/// Stands in for the first start of the conductor database, which makes the shared settings file
/// with its two keys and the exchange file, and makes the folder for the user's data. Does nothing
/// where the settings file is there. Throws `OutputError`.
void start_companion_once(ProgramStores& stores);

}  // namespace zel
