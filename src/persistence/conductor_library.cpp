#include "persistence/conductor_library.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace zel {

ConductorLibrary::ConductorLibrary(Files& files, LibraryPlaces places, DecimalSeparator separator)
    : files_(files), places_(std::move(places)), separator_(separator) {
    const std::string materials = places_.shipped_folder + "/materials.csv";
    const std::string shipped = places_.shipped_folder + "/conductors.csv";
    materials_ = read_materials(files_.read(materials), materials, separator_);
    shipped_ = read_conductors(files_.read(shipped), shipped, materials_, separator_);
    conductors_ = read_own();
    conductors_.insert(conductors_.end(), shipped_.begin(), shipped_.end());
}

std::vector<LibraryConductor> ConductorLibrary::read_own() {
    if (!files_.exists(places_.own_file)) return {};
    auto own =
        read_conductors(files_.read(places_.own_file), places_.own_file, materials_, separator_);
    for (LibraryConductor& conductor : own) conductor.own = true;
    return own;
}

void ConductorLibrary::keep(LibraryConductor conductor, const LibraryConductor* former) {
    auto own = read_own();
    conductor.own = true;
    const auto place = std::find_if(own.begin(), own.end(), [&](const LibraryConductor& other) {
        return former != nullptr && former->own && same_name(other, *former);
    });
    if (place == own.end())
        own.push_back(std::move(conductor));
    else
        *place = std::move(conductor);
    write_own(own);
}

void ConductorLibrary::remove(const LibraryConductor& conductor) {
    auto own = read_own();
    std::erase_if(own, [&](const LibraryConductor& other) { return same_name(other, conductor); });
    write_own(own);
}

void ConductorLibrary::write_own(const std::vector<LibraryConductor>& own) {
    const std::string table = conductor_table(own);
    // What cannot be read back must not get into the file.
    auto read_back = read_conductors(table, places_.own_file, materials_, separator_);
    files_.make_folder(std::filesystem::path(places_.own_file).parent_path().string());
    files_.write(places_.own_file, table);
    for (LibraryConductor& conductor : read_back) conductor.own = true;
    conductors_ = std::move(read_back);
    conductors_.insert(conductors_.end(), shipped_.begin(), shipped_.end());
}

}  // namespace zel
