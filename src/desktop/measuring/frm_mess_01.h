#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>

#include "desktop/frame/inputs.h"
#include "desktop/frame/live_settings.h"
#include "desktop/frame/measuring_tables.h"
#include "desktop/measuring/measuring_panels.h"
#include "desktop/measuring/port_menu.h"

class QBoxLayout;
class QFrame;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;

namespace zel {

/// What the measuring window works with.
struct FrmMess01Parts {
    const Session& session;
    Captions& captions;
    LiveSettings& settings;
    SensorPorts& ports;
    const Clock& clock;
    CalcCase& c;
    std::function<void()> case_changed;   // clearness or albedo of the case
    std::function<void()> blacken_form1;  // the text of the main calculation form
    MakeMeasuringTables make_tables;
};

/// The measuring window `frm_mess_01`: a cycle of one minute with its live values, a trace of the
/// last minutes, the means, and the way into a measuring table. A cycle ends with the window.
class FrmMess01 : public QMainWindow {
public:
    explicit FrmMess01(FrmMess01Parts parts);
    ~FrmMess01() override;

    /// True where no means are lost: they are saved then, if the user does not want to lose them.
    [[nodiscard]] bool may_be_left();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void make_menus();
    [[nodiscard]] QWidget* make_inputs();
    void tell_range(QWidget& input, const char* unit, const NumberSpan& allowed);
    [[nodiscard]] QWidget* make_duration();
    [[nodiscard]] QFrame* make_alarm();
    [[nodiscard]] QBoxLayout* make_buttons();
    QPushButton* add_button(QBoxLayout& row, const char* name, const Text& caption,
                            void (FrmMess01::*act)());

    void S60_loadform_Messfenster();
    void S61_Messzyklus_starten();
    void cancel_cycle();
    void leave();
    void save_means();
    [[nodiscard]] bool save();
    void silence_alarm();

    void go_on();
    void show_progress();
    void cycle_ended();
    void show_means();
    void show_buttons();
    void show_extrapolated();
    void sound_alarm();
    void height_typed();
    void height_left();
    void tell(const std::optional<measuring::EntryRefusal>& refusal);
    [[nodiscard]] LangId lang() const { return parts_.session.lang; }
    [[nodiscard]] std::optional<double> Wind_Hochrechnung() const;

    FrmMess01Parts parts_;
    measuring::MeasuringCycle cycle_;
    std::unique_ptr<measuring::Instruments> instruments_;
    std::unique_ptr<MeasuringTables> tables_;
    std::optional<PortMenu> ports_;
    Entry Hoehendifferenz_;
    bool height_waits_ = false;  // to be judged when its box is left
    std::size_t shown_samples_ = 0;
    bool red_ = false;
    bool unsaved_ = false;  // the means of the last cycle stand in no table

    std::vector<std::pair<std::int16_t, QRadioButton*>> durations_;
    QLineEdit* Text1_ = nullptr;
    QLineEdit* Text2_ = nullptr;
    std::vector<CombinationInput*> combinations_;
    QLabel* Label8_ = nullptr;
    QLabel* remaining_ = nullptr;
    LivePanel* live_;
    MeansPanel* means_;
    TraceView* trace_;
    QFrame* Picture3_ = nullptr;
    QPushButton* Command1_ = nullptr;
    QPushButton* Command2_ = nullptr;
    QPushButton* Command3_ = nullptr;
    QPushButton* Command4_ = nullptr;
    QTimer* Timer1_;
    QTimer* Timer3_;
    FocusReturn refused_;
};

}  // namespace zel
