#pragma once

#include <memory>
#include <string>

#include "adapters/ini/ini_store.h"
#include "adapters/posix/posix_clock.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/serial_ports.h"
#include "adapters/posix/shared_files.h"
#include "adapters/posix/system_facts.h"
#include "persistence/conductor_library.h"
#include "platform/case_store.h"
#include "platform/workbook_design.h"
#include "shell/program_settings.h"
#include "shell/program_texts.h"

// The stores of the program where this system keeps them.

namespace zel {

struct ProgramStores {
    SystemFacts system = system_facts();
    ProgramPaths paths = program_paths(system);
    PosixFiles disk{};
    PosixClock clock{};
    SerialPorts sensor_ports{};
    SharedFiles files{};
    IniStore shared{files, paths.shared_settings_file};
    IniStore user{files, paths.user_settings_file};

    [[nodiscard]] Settings settings() { return {shared, user, paths.data_folder}; }
};

/// Stands in for the first start of the conductor database, which makes the shared settings file
/// with its two keys and the exchange file, and makes the folder for the user's data. Does nothing
/// where the settings file is there, but finishes one that was begun. Throws `OutputError`.
void start_companion_once(ProgramStores& stores);

/// The same where the settings file names neither an exchange file nor another program that would
/// make one.
void provide_exchange_file(ProgramStores& stores);

/// Where the conductors of the library stand: the shipped ones in share/zel, the user's own in the
/// data folder.
[[nodiscard]] LibraryPlaces library_places(const ProgramPaths& paths);

/// Cases in JSON files. `load` takes "-" for standard input.
class JsonCaseStore : public CaseStore {
public:
    [[nodiscard]] bool has(const std::string& path) override;
    [[nodiscard]] FlatObject load(const std::string& path) override;
    [[nodiscard]] std::string text_of(const FlatObject& values) const override;
    void save(const std::string& path, const FlatObject& values) override;
};

/// Workbooks are xlsx files; their name is the path.
class XlsxStore : public WorkbookStore {
public:
    void create(const std::string& path, const WorkbookDesign& design,
                const std::string& title) override;
    [[nodiscard]] std::unique_ptr<Workbook> open(const std::string& path) override;

    /// `path` from the root on, links followed.
    [[nodiscard]] static std::string real_path(const std::string& path);
};

/// Where the user guide lies in its forms, which the build makes: beside the shipped conductors.
[[nodiscard]] std::string help_folder();

}  // namespace zel
