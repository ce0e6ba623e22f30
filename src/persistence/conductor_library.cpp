#include "persistence/conductor_library.h"

#include <algorithm>
#include <utility>

#include "platform/errors.h"

namespace zel {

ConductorLibrary::ConductorLibrary(Files& files, LibraryPlaces places, DecimalSeparator separator)
    : files_(files), places_(std::move(places)), separator_(separator) {
    const std::string materials = places_.shipped_folder + "/materials.csv";
    const std::string shipped = places_.shipped_folder + "/conductors.csv";
    materials_ = read_materials(files_.content(materials), materials, separator_);
    shipped_ = read_conductors(files_.content(shipped), shipped, materials_, separator_);
    read_own();
    conductors_.insert(conductors_.end(), shipped_.begin(), shipped_.end());
}

std::vector<LibraryConductor> ConductorLibrary::own_in(const std::string& table) const {
    if (table.empty()) return {};
    auto own = read_conductors(table, places_.own_file, materials_, separator_);
    for (LibraryConductor& conductor : own) conductor.own = true;
    return own;
}

void ConductorLibrary::read_own() {
    try {
        if (files_.exists(places_.own_file)) conductors_ = own_in(files_.content(places_.own_file));
    } catch (const InputError& error) {
        refusal_of_own_ = error.what();
    }
}

void ConductorLibrary::keep(const LibraryConductor& conductor, const LibraryConductor* former) {
    change_own([&](std::vector<LibraryConductor>& own) {
        const auto place = std::find_if(own.begin(), own.end(), [&](const auto& other) {
            return former != nullptr && former->own && same_name(other, *former);
        });
        if (place == own.end())
            own.push_back(conductor);
        else
            *place = conductor;
    });
}

void ConductorLibrary::remove(const LibraryConductor& conductor) {
    change_own([&](std::vector<LibraryConductor>& own) {
        std::erase_if(own, [&](const auto& other) { return same_name(other, conductor); });
    });
}

void ConductorLibrary::change_own(
    const std::function<void(std::vector<LibraryConductor>&)>& change) {
    std::vector<LibraryConductor> changed;
    files_.update(places_.own_file, [&](const std::string& present) {
        auto own = own_in(present);
        change(own);
        const std::string table = conductor_table(own);
        changed = own_in(table);  // what cannot be read back must not get into the file
        return table;
    });
    conductors_ = std::move(changed);
    conductors_.insert(conductors_.end(), shipped_.begin(), shipped_.end());
}

}  // namespace zel
