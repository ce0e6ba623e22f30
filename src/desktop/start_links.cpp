#include "desktop/start_links.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/frame/events.h"

namespace zel {
namespace {

constexpr Text examples_caption = {"B&eispiel öffnen", "Open an exa&mple"};
constexpr Text recent_caption = {"&Zuletzt geöffnet", "&Recent files"};
constexpr Text first_steps = {"Neu hier ? Öffnen Sie ein Beispiel; F5 berechnet es.",
                              "New here ? Open an example; F5 calculates it."};

constexpr struct {
    const char* name;
    Text caption;
    const char* file;
} examples[] = {
    {"example_line",
     {"&Freileitung 380 kV, Zweierbündel", "&Overhead line 380 kV, twin bundle"},
     "380kV-twin-264-34.json"},
    {"example_tube", {"&Kreisring-Stromschiene", "&Tubular busbar"}, "tube-120x8.json"},
    {"example_transient",
     {"&Zustandsänderungen (instationär)", "&Change of states (transient)"},
     "transient-twin-264-34.json"},
    {"example_short_circuit",
     {"K&urzschlußfestigkeit eines Leiters", "&Short-circuit strength of a conductor"},
     "short-circuit-264-34.json"},
};

}  // namespace

StartLinks::StartLinks(const RecentParts& recent, const Session& session, Captions& captions,
                       const std::string& examples_folder,
                       const std::function<void(const std::string& path)>& open_example) {
    auto* menu = new QMenu(this);
    for (const auto& [name, caption, file] : examples) {
        QAction* entry = captions.text(menu->addAction(QString()), caption);
        entry->setObjectName(name);
        on(entry, &QAction::triggered,
           [open_example, path = examples_folder + "/" + file] { open_example(path); });
    }
    auto* example = captions.text(new QPushButton, examples_caption);
    example->setObjectName("open_example");
    example->setMenu(menu);
    auto* files = new QMenu(this);
    keep_filled(*files, recent, session);
    auto* last = captions.text(new QPushButton, recent_caption);
    last->setObjectName("open_recent");
    last->setMenu(files);
    auto* hint = captions.text(new QLabel(this), first_steps);
    hint->setObjectName("first_steps");
    hint->setVisible(recent.files.all().empty());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(hint, 0, Qt::AlignHCenter);
    auto* side_by_side = new QHBoxLayout;
    layout->addLayout(side_by_side);
    for (QPushButton* button : {example, last}) {
        button->setAutoDefault(true);
        side_by_side->addWidget(button);
    }
}

}  // namespace zel
