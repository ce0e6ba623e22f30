#pragma once

#include <string>
#include <string_view>

// Where the programs and what is shipped with them stand. An installation has bin, libexec/zel and
// share below one folder, a build has all programs in bin; each finds the others from its own file,
// so that an installation may be moved as a whole.

namespace zel {

/// The file of "zel", which the user calls.
[[nodiscard]] std::string program_of_user();

/// The file of a program that the others start, such as "zel-draw": beside the running one, or in
/// libexec/zel. Not tested for being there.
[[nodiscard]] std::string helper_program(std::string_view name);

/// What is shipped with the programs: share/zel.
[[nodiscard]] std::string shipped_folder();

/// Where an installation keeps its documents.
[[nodiscard]] std::string document_folder();

}  // namespace zel
