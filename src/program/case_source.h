#pragma once

#include <optional>
#include <string>

#include "program/console.h"
#include "steady/case/calc_case.h"

namespace zel {

struct LoadedCase {
    CalcCase c;
    bool text_refused = false;     // an entry rule refused a text, which counts as no input
    std::optional<Box> refusal{};  // the conductor that the options name is of the wrong kind
};

/// The case of the file at `path`, with the conductor that the options name where it goes with the
/// methods of the case. Texts that the entry
/// rules refuse, and the refusal of a conductor, are shown on `console`. Throws `InputError` naming
/// the file, and the key where it is about one.
[[nodiscard]] LoadedCase load_case(const std::string& path, const CommonOptions& options,
                                   Console& console);

}  // namespace zel
