#pragma once

#include "desktop/frame/captions.h"
#include "desktop/frame/conductor_source.h"
#include "desktop/frame/live_settings.h"
#include "persistence/conductor_library.h"
#include "platform/system.h"
#include "shell/session.h"

namespace zel {

class ConductorEditor;

/// What the windows of the conductor database work with.
struct ConductorParts {
    const Session& session;
    const LiveSettings& settings;
    Launcher& launcher;
    Files& files;  // of the library, and the exchange file
    LibraryPlaces library;
};

/// The conductor database of a form: the editor of this program, or another program.
class ConductorDesk : public ConductorSource {
public:
    ConductorDesk(QWidget& form, const ConductorParts& parts, Captions& captions,
                  std::function<void()> take_over);
    ~ConductorDesk() override;
    ConductorDesk(const ConductorDesk&) = delete;
    ConductorDesk& operator=(const ConductorDesk&) = delete;

    [[nodiscard]] bool start_database() override;
    [[nodiscard]] std::optional<ConductorData> chosen_conductor() override;
    void take_over(CalcCase& c, const std::function<void()>& show) override;
    [[nodiscard]] bool may_be_left() override;

private:
    void show_editor();
    /// Tells what was filled in, if anything.
    [[nodiscard]] std::optional<Box> take_offers_of_library(CalcCase& c, const std::string& record);

    QWidget& form_;
    ConductorParts parts_;
    std::function<void()> take_over_;
    std::unique_ptr<ConductorEditor> editor_;
};

}  // namespace zel
