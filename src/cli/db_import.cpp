#include <algorithm>
#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/batch_progress.h"
#include "cli/commands.h"
#include "cli/db_words.h"
#include "persistence/database/table_import.h"
#include "persistence/database/table_names.h"
#include "platform/errors.h"
#include "program/database_files.h"
#include "program/stores.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr Text own_name = {"so heißt eine Datenbank des Programms",
                           "the name is that of a database of the program"};
constexpr Text no_calculations = {
    "keine Tabelle enthält Berechnungen; Kurzschlußfälle werden mit --short-circuit übernommen",
    "no table holds calculations; short-circuit cases are imported with --short-circuit"};
constexpr Text no_short_circuit_cases = {
    "keine Tabelle enthält Kurzschlußfälle; Berechnungen werden ohne --short-circuit übernommen",
    "no table holds short-circuit cases; calculations are imported without --short-circuit"};

/// While it lives, an interrupt waits, so that what has been begun can be taken away; then it ends
/// the program as ever.
class LateInterrupt {
public:
    LateInterrupt() {
        sigset_t signals;
        sigemptyset(&signals);
        for (const int signal : interrupts)
            if (!ignored(signal)) sigaddset(&signals, signal);
        sigprocmask(SIG_BLOCK, &signals, &before_);
    }
    ~LateInterrupt() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    LateInterrupt(const LateInterrupt&) = delete;
    LateInterrupt& operator=(const LateInterrupt&) = delete;

    [[nodiscard]] static bool waits() {
        sigset_t waiting;
        sigpending(&waiting);
        return std::any_of(std::begin(interrupts), std::end(interrupts),
                           [&](int signal) { return sigismember(&waiting, signal) == 1; });
    }

private:
    static constexpr int interrupts[] = {SIGINT, SIGTERM, SIGHUP};

    static bool ignored(int signal) {
        struct sigaction present {};
        return sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
    }

    sigset_t before_{};
};

/// `path` from the root on, whether its file is there or not.
std::string whole_path(const std::string& path) {
    if (path.empty()) return path;  // told by whoever opens it
    return std::filesystem::absolute(path).lexically_normal().string();
}

ordered_json json_of(const ImportResult& result, LangId lang) {
    ordered_json tables = ordered_json::array();
    for (const auto& [name, rows] : result.tables)
        tables.push_back({{"name", name}, {"rows", rows}});
    ordered_json list = ordered_json::array();
    for (const LeftOut& left_out : result.left_out) {
        ordered_json entry = {{"table", left_out.table}};
        if (left_out.row > 0) entry["row"] = left_out.row;
        if (!left_out.column.empty()) entry["column"] = left_out.column;
        entry["reason"] = left_out.reason.in(lang);
        list.push_back(std::move(entry));
    }
    return {{"tables", tables}, {"left_out", list}, {"more_left_out", result.untold}};
}

}  // namespace

void refuse_reserved(const DbWords& words, const std::string& path) {
    const std::string whole = whole_path(path);
    ProgramStores stores;
    const std::string calculations =
        std::filesystem::path(stores.settings().now().Berechnungsdaten).parent_path().string();
    const ReservedName name = words.short_circuit
                                  ? reserved_short_circuit_database(whole)
                                  : reserved_case_database(whole, calculations, words.lang);
    if (!name.refused) return;
    throw InputError(at(path, name.box ? Reason(paragraph_of(*name.box)) : Reason(own_name)));
}

int import_database(const DbWords& words, Console& /*console*/) {
    refuse_reserved(words, words.new_file);
    DatabaseFiles store;
    const auto old = store.open(words.file);
    if (record_tables(*old, words.area().tables).empty())
        throw InputError(
            at(words.file, Reason(words.short_circuit ? no_short_circuit_cases : no_calculations)),
            PlatformFault::NoRecords);
    const ImportResult result = [&] {
        const LateInterrupt interrupt;
        BatchProgress progress(words);
        progress.status(words.file);
        std::size_t drawn = 0;
        return import_tables(*old, words.area().tables, store, words.new_file,
                             [&](std::size_t done, std::size_t of) {
                                 const std::size_t percent = 100 * done / of;
                                 if (percent != drawn) progress.percent(double(drawn = percent));
                                 return !LateInterrupt::waits();
                             });
    }();
    return print_or_fail(words.json ? json_text(json_of(result, words.lang))
                                    : listing_of(result, words.lang));
}

}  // namespace zel
