#include "cli/program_stores.h"

#include "adapters/posix/posix_files.h"
#include "persistence/conductor_link.h"

namespace zel {

void start_companion_once(ProgramStores& stores) {
    PosixFiles files;
    if (files.exists(stores.paths.shared_settings_file)) return;
    make_folder(stores.paths.data_folder);
    create_companion_files(files, stores.paths.companion_folder, program_folder() + "/zel",
                           stores.shared);
}

}  // namespace zel
