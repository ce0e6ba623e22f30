#include "desktop/help.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QTabWidget>
#include <QVariant>
#include <filesystem>

#include "desktop/batch/frm_excel_IO.h"
#include "desktop/frame/events.h"
#include "desktop/frame/help_page.h"
#include "desktop/frame/widgets.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr int any_page = -1;

/// A window or a part of it by its object name, or by its class where it has none.
struct TopicRow {
    std::string_view name;
    const char* topic;
    int page = any_page;
};

// What is not named here has the topic of the window that it belongs to.
constexpr TopicRow topics[] = {
    {"form_main", "start"},
    {"frm_languageselect", "start"},
    {"about_box", "about"},
    {"Form1", "first-rating", 0},
    {"Form1", "choose-conductor", 1},
    {"Form1", "read-result", 2},
    {"Form1", "transient", 3},
    {"KS_Form1", "short-circuit"},
    {"conductor_editor", "own-conductors"},
    {"frm_excel_IO", "workbook-steady", static_cast<int>(ExcelMode::Steady)},
    {"frm_excel_IO", "workbook-tatl", static_cast<int>(ExcelMode::Transient)},
    {"frm_db_open", "databases"},
    {"frm_db_save", "databases"},
    {"frm_db_new", "databases"},
    {"Ks_Form3", "databases"},
    {"Ks_Form4", "databases"},
    {"Ks_Form8", "databases"},
    {"frm_mess_01", "measuring"},
    {"frm_mess_open", "measuring"},
    {"frm_mess_save", "measuring"},
    {"frm_mess_new", "measuring"},
    {"frm_graph_steady", "diagrams"},
    {"frm_graph_unsteady", "diagrams"},
    {"pictures_dock", "diagrams"},
    {"comparison_dock", "compare"},
    {"parameter_table", "tables"},
    {"frm_print_preview", "reports"},
    {"Ks_Form10b", "reports"},
    {"frm_printer_select", "reports"},
    {"frm_prog_config", "settings"},
    {"frm_selectPath", "settings"},
    {"message_list", "messages"},
    {"message_bar", "messages"},
    {"QMessageBox", "messages"},
};

constexpr BoxText not_found = {Icon::Warning,
                               short_name,
                               {"Das Dokument <{0}> wurde in keinem dieser Ordner gefunden :\n{1}",
                                "The document <{0}> was not found in any of these folders :\n{1}"}};
constexpr BoxText not_opened = {
    Icon::Warning,
    short_name,
    {"Für das Dokument\n{0}\nist kein Programm zum Anzeigen eingerichtet.",
     "There is no program to show the document\n{0}"}};

int page_of(const QWidget& window) {
    if (const auto* strip = window.findChild<const QTabWidget*>("SSTab1"))
        return strip->currentIndex();
    const QVariant page = window.property(help_page);
    return page.isValid() ? page.toInt() : any_page;
}

const TopicRow* row_of(const QWidget& widget) {
    const std::string name = widget.objectName().isEmpty() ? widget.metaObject()->className()
                                                           : widget.objectName().toStdString();
    for (const TopicRow& row : topics)
        if (row.name == name && (row.page == any_page || row.page == page_of(widget))) return &row;
    return nullptr;
}

/// The page that leads to a topic: what opens a file may not take a place in it.
std::string page_of_topic(const std::string& topic, LangId lang) {
    return (lang == LangId::German ? "de/" : "en/") + topic + ".html";
}

}  // namespace

std::string help_topic(const QWidget& at) {
    for (const QWidget* widget = &at; widget != nullptr; widget = widget->parentWidget())
        if (const TopicRow* row = row_of(*widget)) return row->topic;
    return "start";
}

bool Help::opened(const std::string& name) const {
    for (const std::string& folder : folders_) {
        const std::string path = (std::filesystem::path(folder) / name).string();
        if (!QFileInfo(qt(path)).isFile()) continue;
        if (!launcher_.open_document(path))
            session_.tell(box_in(session_.lang, not_opened, {path}));
        return true;
    }
    return false;
}

void Help::tell_missing(const std::string& name) const {
    session_.tell(box_in(session_.lang, not_found, {name, joined(folders_, "\n")}));
}

void Help::open(const std::string& topic) const {
    const std::string page = page_of_topic(topic, session_.lang);
    if (!opened(page)) tell_missing(page);
}

void Help::open(const HelpDocument& document) const {
    const std::string name(document.file.in(session_.lang));
    if (!opened(name) && !opened(page_of_topic(document.topic, session_.lang))) tell_missing(name);
}

HelpKey::HelpKey(const Help& help) : help_(help) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !receiver->isWidgetType()) return false;
    const auto& key = static_cast<QKeyEvent&>(*event);
    if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
    guarded(*receiver, [&] { help_.open(help_topic(static_cast<const QWidget&>(*receiver))); });
    return true;
}

}  // namespace zel
