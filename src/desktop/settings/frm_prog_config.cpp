#include "desktop/settings/frm_prog_config.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"

namespace zel {
namespace {

constexpr std::size_t longest_short = 20;  // characters: such options stand side by side

constexpr Text title = {"Berechnungs-u. Anzeige-Einstellungen festlegen",
                        "Specify calculation- and display settings..."};
constexpr Text back_caption = {"Zurück", "Back"};
constexpr Text standard_caption = {"Stan&dard-Voreinstellungen", "Standard settings"};

/// A caption in as many lines as it takes on the screen of `window`; buttons do not wrap theirs.
QString in_lines(const QString& caption, const QWidget& window) {
    constexpr int around = 160;  // pixels, of the window around a caption
    const int room = window.screen()->availableGeometry().width() - around;
    QString lines, line;
    for (const QString& word : caption.split(' ')) {
        const QString longer = line.isEmpty() ? word : line + " " + word;
        const bool fits = window.fontMetrics().horizontalAdvance(longer) <= room;
        if (!fits) lines += line + "\n";
        line = fits ? longer : word;
    }
    return lines + line;
}

}  // namespace

FrmProgConfig::FrmProgConfig(QWidget* parent, const Session& session, LiveSettings& settings)
    : QDialog(parent), session_(session), settings_(settings) {
    const LangId lang = session.lang;
    setObjectName("frm_prog_config");
    setWindowTitle(qt(title, lang));
    settings.store.set_excel_height(excel_height);
    auto* content = new QWidget;
    auto* groups = new QVBoxLayout(content);
    groups->setSpacing(8);
    for (const ConfigGroup& group : config_groups()) groups->addWidget(make_group(group));
    auto* area = new QScrollArea;
    make_scrolling(*area);
    area->setWidget(content);

    auto* standard = new QPushButton(qt(standard_caption, lang));
    standard->setObjectName("Command4");
    standard->setAutoDefault(false);
    auto* back = new QPushButton(qt(back_caption, lang));
    back->setObjectName("Command3");
    back->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(standard);
    buttons->addStretch();
    buttons->addWidget(back);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area);
    layout->addLayout(buttons);
    on(standard, &QPushButton::clicked, [this] { set_standard(); });
    on(back, &QPushButton::clicked, [this] { accept(); });
    show_present();
    // The rest of the window, with the bar of a page that is higher than its screen.
    size_window(*this, content->sizeHint() + QSize(80, 80));
}

QGroupBox* FrmProgConfig::make_group(const ConfigGroup& group) {
    const LangId lang = session_.lang;
    auto* box = new QGroupBox(qt(group.caption, lang));
    QWidget* inside = inside_of(*box);
    const bool short_options =
        std::all_of(group.options.begin(), group.options.end(), [](const ConfigOption& option) {
            return option.caption.de.size() < longest_short;
        });
    auto* layout =
        new QBoxLayout(short_options ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, inside);
    layout->setContentsMargins(10, 2, 10, 4);
    layout->setSpacing(short_options ? 24 : 2);
    if (!group.line.de.empty())
        layout->addWidget(new QLabel(in_lines(qt(group.line, lang), *this)));
    for (const ConfigOption& option : group.options) {
        auto* button = new QRadioButton(in_lines(qt(option.caption, lang), *this));
        button->setObjectName(option.control);
        on(button, &QRadioButton::clicked, [this, &option] { choose(option); });
        layout->addWidget(button);
        options_.emplace_back(&option, button);
    }
    if (short_options) layout->addStretch();
    return box;
}

void FrmProgConfig::choose(const ConfigOption& option) {
    switch (option.effect) {
        case ConfigOption::Kept: settings_.change(option.setting, option.value); break;
        case ConfigOption::ForThisRun:
            session_.dialogs.show(box_in(session_.lang, for_this_run_only()));
            settings_.change(option.setting, option.value);
            break;
        case ConfigOption::ShowsTests:
            settings_.store.set_excel_height(excel_height_with_tests);
            break;
    }
}

void FrmProgConfig::show_present() {
    for (const auto& [option, button] : options_)
        if (option->setting != nullptr)
            button->setChecked(settings_.now().*option->setting == option->value);
}

void FrmProgConfig::set_standard() {
    set_standard_settings(settings_.store);
    show_present();
    settings_.changed();
}

}  // namespace zel
