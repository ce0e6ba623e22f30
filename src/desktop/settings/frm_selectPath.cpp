#include "desktop/settings/frm_selectPath.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr Text select_caption = {"&Pfad festlegen ...", "&Select path ..."};
constexpr Text close_caption = {"&Schließen", "&Close"};

}  // namespace

FrmSelectPath::FrmSelectPath(QWidget* parent, const SettingsParts& parts, const PathRole& role)
    : QDialog(parent), parts_(parts), role_(role), path_(plain_label()) {
    const LangId lang = parts.session.lang;
    setObjectName("frm_selectPath");
    setWindowTitle(qt(role.window_caption, lang));
    auto* line = new QLabel(qt(role.line, lang));
    line->setObjectName("Bezeichnung1");
    path_->setObjectName("Bezeichnung2");
    path_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    path_->setWordWrap(true);
    path_->setFrameShape(QFrame::StyledPanel);
    path_->setMargin(6);
    path_->setText(qt(parts.settings.now().*role.path));
    auto* choose = new QPushButton(qt(select_caption, lang));
    choose->setObjectName("Befehl3");
    choose->setDefault(true);
    auto* close = new QPushButton(qt(close_caption, lang));
    close->setObjectName("Befehl2");
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(choose);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addWidget(line);
    layout->addWidget(path_);
    layout->addStretch();
    layout->addLayout(buttons);
    on(choose, &QPushButton::clicked, [this] { select(); });
    on(close, &QPushButton::clicked, [this] { accept(); });
    size_window(*this, {620, 0});
}

void FrmSelectPath::select() {
    const std::string former = parts_.settings.now().*role_.path;
    const auto chosen = parts_.chooser.path_to_select(
        {std::string(role_.window_caption.in(parts_.session.lang)) + "...", start_folder(former),
         role_.filters, role_.suffix});
    if (!chosen) return;
    parts_.settings.store.set(role_.path, *chosen);
    path_->setText(qt(*chosen + " "));
    parts_.settings.changed();
}

}  // namespace zel
