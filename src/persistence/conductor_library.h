#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "persistence/conductor_table.h"
#include "platform/files.h"

namespace zel {

/// Where the conductors stand.
struct LibraryPlaces {
    std::string shipped_folder;  // with conductors.csv and materials.csv
    std::string own_file;        // the user's own conductors; need not exist

    [[nodiscard]] std::string shipped_file() const { return shipped_folder + "/conductors.csv"; }
    [[nodiscard]] std::string materials_file() const { return shipped_folder + "/materials.csv"; }
};

/// The shipped conductors and the user's own. Only the user's file is ever written.
class ConductorLibrary {
public:
    /// Reads both. Throws `InputError` where the shipped library is missing or refused.
    ConductorLibrary(Files& files, LibraryPlaces places, DecimalSeparator separator);

    /// All conductors, the user's own first.
    [[nodiscard]] const std::vector<LibraryConductor>& conductors() const { return conductors_; }

    /// The lines of the user's file that cannot be used. They stay there until they are repaired,
    /// by `keep` in place of one, or removed.
    [[nodiscard]] const std::vector<LibraryConductor>& damaged() const { return damaged_; }

    /// Why the user's file as a whole is refused, and so none of its conductors is here; nothing
    /// where it is missing or can be read. It is then not written either.
    [[nodiscard]] const std::optional<Reason>& refusal_of_own() const { return refusal_of_own_; }

    /// Takes `conductor` into the user's file, in place of `former` where that is one of them. The
    /// file is read anew before, so that what another program put there stays. Throws `InputError`
    /// where the name is taken, figures contradict each other without being `confirmed`, or
    /// something does not fit into a record, and `OutputError` where the file cannot be written;
    /// nothing is changed then.
    void keep(const LibraryConductor& conductor, const LibraryConductor* former = nullptr);

    /// Takes `conductor` out of the user's file. Throws as `keep`.
    void remove(const LibraryConductor& conductor);

private:
    [[nodiscard]] ConductorRows own_in(const std::string& table) const;
    void take_own(ConductorRows own);
    void change_own(const std::function<void(std::vector<LibraryConductor>&)>& change);

    Files& files_;
    LibraryPlaces places_;
    DecimalSeparator separator_;
    std::vector<Material> materials_;
    std::vector<LibraryConductor> shipped_;
    std::vector<LibraryConductor> conductors_;
    std::vector<LibraryConductor> damaged_;
    std::optional<Reason> refusal_of_own_;
};

}  // namespace zel
