#pragma once

#include <string>

#include "desktop/desktop_state.h"
#include "platform/flat_object.h"

namespace zel {

/// The case of the windows as a document: the file that it stands in, and whether it has changes
/// that the file lacks. What goes wrong is told in a box.
class CaseDocument {
public:
    /// What stands in the case at the start counts as stored.
    explicit CaseDocument(DesktopState& state);

    /// Whether the file would be another one if the case were written now.
    [[nodiscard]] bool modified() const;
    /// The name of the file without its folders; empty where there is none yet.
    [[nodiscard]] std::string name() const;

    /// True where nothing would be lost, or the user agrees to lose it.
    [[nodiscard]] bool may_be_left() const;

    // Each is false where the user or a failure stopped it; the case is then unchanged.
    bool start_anew();
    bool open();
    bool save();
    bool save_as();

private:
    bool read(const std::string& path);
    void take_missing_settings(CalcCase& c, const FlatObject& values) const;
    [[nodiscard]] bool may_be_replaced(const std::string& path) const;
    bool write(const std::string& path);
    void replace(CalcCase c, std::string path);
    [[nodiscard]] FlatObject entered() const;

    DesktopState& state_;
    FlatObject stored_;
};

}  // namespace zel
