#pragma once

#include <optional>

#include "compare/kept_run.h"
#include "desktop/line/line_case.h"
#include "desktop/pictures/picture_panel.h"

namespace zel {

/// The pictures of the thermal rating: line and conductor as they are typed, and what the last run
/// found.
class LinePictures : public PicturePanel {
public:
    LinePictures(const PanelParts& parts, const LineCase& line);

    /// The inputs have changed, or the language.
    void show_case();
    void show_run(KeptRun run);
    void forget();

private:
    [[nodiscard]] std::vector<PictureEntry> entries() const;
    void add_results(std::vector<PictureEntry>& entries) const;

    const LineCase& line_;
    const Session& session_;
    std::optional<KeptRun> run_;
};

}  // namespace zel
