#include "persistence/conductor_library.h"

#include <algorithm>
#include <utility>

#include "platform/errors.h"

namespace zel {
namespace {

/// Whether both are the same line of the user's file.
bool same_line(const LibraryConductor& a, const LibraryConductor& b) {
    if (a.damage || b.damage) return a.damage && b.damage && a.damage->text == b.damage->text;
    return same_name(a, b);
}

bool holds(const std::vector<LibraryConductor>& lines, const LibraryConductor& line) {
    return std::any_of(lines.begin(), lines.end(),
                       [&](const LibraryConductor& other) { return same_line(other, line); });
}

}  // namespace

ConductorLibrary::ConductorLibrary(Files& files, LibraryPlaces places, DecimalSeparator separator)
    : files_(files), places_(std::move(places)), separator_(separator) {
    const std::string materials = places_.materials_file();
    const std::string shipped = places_.shipped_file();
    materials_ = read_materials(files_.content(materials), materials, separator_);
    shipped_ = read_conductors(files_.content(shipped), shipped, materials_, separator_);
    try {
        take_own(files_.exists(places_.own_file) ? own_in(files_.content(places_.own_file))
                                                 : ConductorRows{});
    } catch (const InputError& error) {
        refusal_of_own_ = error.reason();
        take_own({});
    }
}

ConductorRows ConductorLibrary::own_in(const std::string& table) const {
    if (table.empty()) return {};
    ConductorRows own = read_rows(table, places_.own_file, materials_, separator_);
    for (auto* rows : {&own.sound, &own.damaged})
        for (LibraryConductor& conductor : *rows) conductor.own = true;
    return own;
}

void ConductorLibrary::take_own(ConductorRows own) {
    conductors_ = std::move(own.sound);
    conductors_.reserve(conductors_.size() + shipped_.size());
    conductors_.insert(conductors_.end(), shipped_.begin(), shipped_.end());
    damaged_ = std::move(own.damaged);
}

void ConductorLibrary::keep(const LibraryConductor& conductor, const LibraryConductor* former) {
    change_own([&](std::vector<LibraryConductor>& own) {
        const auto place = std::find_if(own.begin(), own.end(), [&](const auto& other) {
            return former != nullptr && former->own && same_line(other, *former);
        });
        LibraryConductor& kept = place == own.end() ? own.emplace_back() : *place;
        kept = conductor;
        kept.damage.reset();
    });
}

void ConductorLibrary::remove(const LibraryConductor& conductor) {
    change_own([&](std::vector<LibraryConductor>& own) {
        const auto place = std::find_if(
            own.begin(), own.end(), [&](const auto& other) { return same_line(other, conductor); });
        if (place != own.end()) own.erase(place);
    });
}

void ConductorLibrary::change_own(
    const std::function<void(std::vector<LibraryConductor>&)>& change) {
    ConductorRows changed;
    files_.update(places_.own_file, [&](const std::string& present) {
        const ConductorRows former = own_in(present);
        std::vector<LibraryConductor> own = former.sound;
        own.insert(own.end(), former.damaged.begin(), former.damaged.end());
        change(own);
        std::string table = conductor_table(own);
        changed = own_in(table);
        // What cannot be read back must not get into the file.
        for (const LibraryConductor& line : changed.damaged)
            if (!holds(former.damaged, line)) throw InputError(line.damage->reason);
        return table;
    });
    take_own(std::move(changed));
}

}  // namespace zel
