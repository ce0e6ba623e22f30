#include "desktop/conductors/conductor_editor.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QTableView>
#include <utility>

#include "desktop/frame/events.h"
#include "persistence/exchange_record.h"
#include "platform/errors.h"

namespace zel {

struct ConductorEditor::ButtonRow {
    const char* name;
    Text caption;
    void (ConductorEditor::*act)();
    bool while_looking;  // shown while conductors are looked at; otherwise while one is changed
    bool needs_selection;
    bool needs_own = false;
    bool takes_damaged = false;  // works on a damaged line too
};

namespace {

constexpr int list_width = 620;  // pixels, of a window that is opened
constexpr int sheet_width = 620;
constexpr QSize window_size(1260, 740);

constexpr Text window_title = {"Leiterdatenbank", "Conductor database"};
constexpr Text list_name = {"Leiter", "Conductors"};
constexpr Text find_caption = {"&Suchen :", "&Find :"};
constexpr Text find_hint = {"Bezeichnung, Norm oder Bemerkung", "Designation, standard or remark"};
constexpr Text count_text = {"{0} von {1} Leitern", "{0} of {1} conductors"};
constexpr Text copied_name = {"{0} - Kopie", "{0} - copy"};
constexpr Text copied_source = {"Kopie von {0}: {1}", "Copy of {0}: {1}"};
constexpr Text keeps_reason = {"vom Benutzer bestätigt", "confirmed by the user"};

constexpr Text editor_title = {"Leiterdatenbank", "Conductor database"};
LibraryConductor without_damage(LibraryConductor conductor) {
    conductor.damage.reset();
    return conductor;
}

constexpr BoxText own_refused = {
    Icon::Warning,
    editor_title,
    {"Die Datei der eigenen Leiter kann nicht gelesen werden:\n{0}\n"
     "Nur die mitgelieferten Leiter werden angezeigt, die Datei bleibt unverändert.",
     "The file of your own conductors cannot be read:\n{0}\n"
     "Only the shipped conductors are shown, the file stays as it is."}};
constexpr BoxText lines_damaged = {
    Icon::Warning,
    editor_title,
    {"Diese Zeilen der Datei der eigenen Leiter sind beschädigt:\n{0}\n"
     "Sie stehen in der Liste und können dort geändert oder gelöscht werden.",
     "These lines of the file of your own conductors are damaged:\n{0}\n"
     "They are in the list and can be changed or deleted there."}};
constexpr std::size_t most_told = 5;
constexpr BoxText not_kept = {
    Icon::Stop,
    editor_title,
    {"Der Leiter konnte nicht gespeichert werden:\n{0}", "The conductor could not be kept:\n{0}"}};
constexpr BoxText not_written = {
    Icon::Stop,
    editor_title,
    {"Der Leiter konnte nicht in die Austauschdatei geschrieben werden:\n{0}",
     "The conductor could not be written into the exchange file:\n{0}"}};
constexpr BoxText no_exchange_file = {
    Icon::Stop,
    editor_title,
    {"In den Einstellungen ist keine Austauschdatei (Einseil1_dat) genannt.",
     "The settings name no exchange file (Einseil1_dat)."}};
constexpr BoxText no_name = {
    Icon::Stop,
    editor_title,
    {"Geben Sie bitte eine Bezeichnung 1 an.", "Please give the conductor a designation 1."}};
constexpr BoxText no_kind = {Icon::Stop,
                             editor_title,
                             {"Wählen Sie bitte Leiterart und Leiteroberfläche aus.",
                              "Please choose the conductor's type and shape."}};
constexpr BoxText name_taken = {
    Icon::Stop,
    editor_title,
    {"Ein eigener Leiter mit diesen beiden Bezeichnungen ist schon vorhanden:\n{0}",
     "You have a conductor with these two designations already:\n{0}"}};
constexpr BoxText implausible = {
    Icon::Question,
    editor_title,
    {"Diese Werte passen nicht zueinander:\n{0}\nSollen sie trotzdem gespeichert werden ?",
     "These figures contradict each other:\n{0}\nShall they be kept all the same ?"},
    Buttons::YesNo,
    Answer::No};
constexpr BoxText remove_question = {
    Icon::Question,
    editor_title,
    {"Soll der eigene Leiter {0} gelöscht werden ?", "Shall your conductor {0} be deleted ?"},
    Buttons::YesNo,
    Answer::No};
constexpr BoxText discard_question = {
    Icon::Question,
    editor_title,
    {"Der Leiter {0} ist nicht gespeichert.\nSollen die Änderungen gespeichert werden ?",
     "The conductor {0} is not kept.\nDo you want to save its changes ?"},
    Buttons::SaveDiscardCancel,
    Answer::Cancel};

}  // namespace

ConductorEditor::ConductorEditor(QWidget* parent, const ConductorParts& parts,
                                 std::function<void()> take_over)
    : QDialog(parent, Qt::Window),
      parts_(parts),
      take_over_(std::move(take_over)),
      table_(parts.session),
      found_(table_),
      find_(captions_.placeholder(new QLineEdit, find_hint)),
      view_(new QTableView),
      count_(new QLabel),
      sheet_(new ConductorSheet(parts.session, captions_)) {
    setObjectName("conductor_editor");
    captions_.window_title(static_cast<QWidget*>(this), window_title);
    auto* split = new QSplitter;
    split->setChildrenCollapsible(false);
    split->addWidget(make_list());
    split->addWidget(sheet_);
    split->setStretchFactor(0, 1);
    split->setStretchFactor(1, 1);
    split->setSizes({list_width, sheet_width});
    auto* content = new QWidget;
    auto* down = new QVBoxLayout(content);
    down->addWidget(split, 1);
    auto* buttons = new QHBoxLayout;
    make_buttons(*buttons);
    down->addLayout(buttons);
    auto* area = new QScrollArea;  // for the smallest screens
    make_scrolling(*area);
    area->setWidget(content);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    on(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, [this] {
        find_->setFocus();
        find_->selectAll();
    });
    read_library();
    captions_.computed([this](LangId) {
        table_.recaption();
        fit_columns();
        show_selected();
    });
    recaption(parts.session.lang);
    enter(Mode::Looking);
    view_->selectRow(0);
    size_window(*this, window_size);
}

void ConductorEditor::read_library() {
    library_.emplace(parts_.files, parts_.library, parts_.session.separator);
    show_library();
}

void ConductorEditor::show_library() {
    std::vector<LibraryConductor> lines = library_->damaged();
    lines.insert(lines.end(), library_->conductors().begin(), library_->conductors().end());
    table_.show(std::move(lines));
    fit_columns();
}

void ConductorEditor::tell_damage() const {
    if (const auto& refusal = library_->refusal_of_own())
        (void)tell(own_refused, {refusal->in(parts_.session.lang)});
    std::string lines;
    for (std::size_t i = 0; i < library_->damaged().size(); ++i) {
        lines += lines.empty() ? "" : "\n";
        if (i == most_told) {
            lines += "...";
            break;
        }
        lines += library_->damaged()[i].damage->reason.in(parts_.session.lang);
    }
    if (!lines.empty()) (void)tell(lines_damaged, {lines});
}

/// No text of any conductor is cut, found or not.
void ConductorEditor::fit_columns() {
    found_.find({});
    // The arrow of the sorted column needs no room in all of them.
    view_->horizontalHeader()->setSortIndicatorShown(false);
    view_->resizeColumnsToContents();
    view_->horizontalHeader()->setSortIndicatorShown(true);
    found_.find(find_->text().toStdString());
}

/// The conductor that was looked at stays where it is found too; otherwise the first one comes.
void ConductorEditor::find(const QString& typed) {
    const QModelIndex former = found_.mapToSource(view_->currentIndex());
    found_.find(typed.toStdString());
    const QModelIndex kept = found_.mapFromSource(former);
    view_->selectRow(kept.isValid() ? kept.row() : 0);
    view_->scrollTo(view_->currentIndex());
    show_selected();
}

void ConductorEditor::open_anew() {
    if (!isVisible()) {
        const auto former = selected();
        read_library();  // another program may have changed the user's file, or the separator
        if (former) select(*former);
        enter(Mode::Looking);
        find_->setFocus();
        show();
        tell_damage();
    }
    raise();
    activateWindow();
}

QWidget* ConductorEditor::make_list() {
    find_->setObjectName("find");
    find_->setClearButtonEnabled(true);
    auto* find_label = captions_.text(new QLabel, find_caption);
    find_label->setBuddy(find_);
    view_->setObjectName("conductors");
    captions_.accessible_name(view_, list_name);
    view_->setModel(&found_);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setTabKeyNavigation(false);
    view_->setSortingEnabled(true);
    view_->setAlternatingRowColors(true);
    view_->setShowGrid(false);
    view_->setWordWrap(false);
    view_->verticalHeader()->hide();
    view_->verticalHeader()->setDefaultSectionSize(24);
    view_->horizontalHeader()->setHighlightSections(false);
    view_->horizontalHeader()->setStretchLastSection(true);
    view_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    count_->setObjectName("count");
    // What is wrong with a line may be long, and must not widen the list.
    count_->setWordWrap(true);
    count_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    on(find_, &QLineEdit::textChanged, [this](const QString& typed) { find(typed); });
    on(view_->selectionModel(), &QItemSelectionModel::currentRowChanged,
       [this] { show_selected(); });
    on(view_, &QTableView::doubleClicked, [this] { choose_and_take_over(); });
    auto* list = new QWidget;
    auto* grid = new QGridLayout(list);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(find_label, 0, 0);
    grid->addWidget(find_, 0, 1);
    grid->addWidget(view_, 1, 0, 1, 2);
    grid->addWidget(count_, 2, 0, 1, 2);
    return list;
}

void ConductorEditor::make_buttons(QHBoxLayout& line) {
    static constexpr ButtonRow rows[] = {
        {"add", {"&Neu", "&New"}, &ConductorEditor::add, true, false},
        {"copy", {"&Kopieren", "&Copy"}, &ConductorEditor::copy, true, true},
        {"change", {"Än&dern", "C&hange"}, &ConductorEditor::change, true, true, true, true},
        {"remove", {"L&öschen", "De&lete"}, &ConductorEditor::remove, true, true, true, true},
        {"choose", {"Nur a&uswählen", "Select onl&y"}, &ConductorEditor::choose, true, true},
        {"choose_and_take_over",
         {"&Auswählen und übernehmen", "&Select and take over"},
         &ConductorEditor::choose_and_take_over,
         true,
         true},
        {"keep", {"S&peichern", "&Keep"}, &ConductorEditor::keep, false, false},
        {"discard", {"&Verwerfen", "&Discard"}, &ConductorEditor::discard, false, false},
    };
    for (const ButtonRow& row : rows) {
        auto* button = captions_.text(new QPushButton, row.caption);
        button->setObjectName(row.name);
        button->setAutoDefault(false);
        on(button, &QPushButton::clicked, [this, &row] { (this->*row.act)(); });
        if (row.act == &ConductorEditor::choose) line.addStretch();
        line.addWidget(button);
        buttons_.emplace_back(button, &row);
        if (row.act == &ConductorEditor::choose_and_take_over) button->setDefault(true);
    }
}

std::optional<LibraryConductor> ConductorEditor::selected() const {
    const QModelIndex index = view_->currentIndex();
    if (!index.isValid()) return std::nullopt;
    return found_.conductor(index);
}

void ConductorEditor::select(const LibraryConductor& conductor) {
    show_library();
    if (!matches(conductor, find_->text().toStdString())) find_->clear();
    for (int row = 0; row < found_.rowCount(); ++row) {
        const LibraryConductor& candidate = found_.conductor(found_.index(row, 0));
        if (candidate.own != conductor.own || candidate.damage || !same_name(candidate, conductor))
            continue;
        view_->selectRow(row);
        view_->scrollTo(found_.index(row, 0));
        return;
    }
    view_->selectRow(0);
}

void ConductorEditor::show_selected() {
    const LangId lang = parts_.session.lang;
    count_->setText(qt(fill(count_text.in(lang), {std::to_string(found_.rowCount()),
                                                  std::to_string(table_.rowCount())})));
    if (mode_ != Mode::Looking) return;
    const auto conductor = selected();
    sheet_->show_conductor(conductor.value_or(LibraryConductor{}), false);
    for (const auto& [button, row] : buttons_)
        button->setEnabled(!row->needs_selection ||
                           (conductor && (!row->needs_own || conductor->own) &&
                            (row->takes_damaged || !conductor->damage)));
    if (conductor && conductor->damage) count_->setText(qt(conductor->damage->reason.in(lang)));
}

void ConductorEditor::enter(Mode mode) {
    mode_ = mode;
    const bool looking = mode == Mode::Looking;
    for (const auto& [button, row] : buttons_) button->setVisible(row->while_looking == looking);
    find_->setEnabled(looking);
    view_->setEnabled(looking);
    show_selected();
}

void ConductorEditor::add() {
    before_.reset();
    enter(Mode::Adding);
    LibraryConductor fresh;
    fresh.c.conductor_shape_db = 1;
    sheet_->show_conductor(fresh, true);
    sheet_->focus_first();
}

void ConductorEditor::copy() {
    LibraryConductor twin = *selected();
    const LangId lang = parts_.session.lang;
    const std::string former = full_name(twin);
    twin.c.Bezeichnung1_db = fill(copied_name.in(lang), {twin.c.Bezeichnung1_db});
    twin.source = fill(copied_source.in(lang), {former, twin.source});
    before_.reset();
    enter(Mode::Adding);
    sheet_->show_conductor(twin, true);
    sheet_->focus_first();
}

void ConductorEditor::change() {
    before_ = selected();
    enter(Mode::Changing);
    sheet_->show_conductor(without_damage(*before_), true);
    sheet_->focus_first();
}

void ConductorEditor::remove() {
    const LibraryConductor conductor = *selected();
    if (tell(remove_question, {full_name(conductor)}) != Answer::Yes) return;
    if (carried_out([&] { library_->remove(conductor); }, not_kept)) select(conductor);
}

void ConductorEditor::keep() {
    if (!sheet_->commit()) return;
    LibraryConductor conductor = sheet_->conductor();
    const CalcCase& c = conductor.c;
    if (without_outer_blanks(c.Bezeichnung1_db).empty()) return (void)tell(no_name);
    if (c.conductor_type_db == 0 || c.conductor_shape_db == 0) return (void)tell(no_kind);
    for (const LibraryConductor& other : library_->conductors())
        if (other.own && same_name(other, conductor) &&
            !(before_ && !before_->damage && same_name(other, *before_)))
            return (void)tell(name_taken, {full_name(conductor)});
    if (!confirmed(conductor)) return;
    const LibraryConductor* former = before_ ? &*before_ : nullptr;
    if (!carried_out([&] { library_->keep(conductor, former); }, not_kept)) return;
    conductor.own = true;
    enter(Mode::Looking);
    select(conductor);
    view_->setFocus();
}

bool ConductorEditor::confirmed(LibraryConductor& conductor) const {
    const auto findings = implausible_figures(conductor.c, parts_.session.lang);
    if (findings.empty()) {
        conductor.confirmed.clear();
        return true;
    }
    if (tell(implausible, {joined(findings, "\n")}) != Answer::Yes) return false;
    conductor.confirmed = keeps_reason.in(parts_.session.lang);
    return true;
}

void ConductorEditor::discard() {
    if (!may_be_left()) return;
    enter(Mode::Looking);
    view_->setFocus();
}

bool ConductorEditor::may_be_left() {
    if (mode_ == Mode::Looking) return true;
    (void)sheet_->commit();
    const LibraryConductor& conductor = sheet_->conductor();
    if (before_) {
        const LibraryConductor before = without_damage(*before_);
        if (conductor_table({&conductor, 1}) == conductor_table({&before, 1})) return true;
    }
    const Answer answer = tell(discard_question, {full_name(conductor)});
    if (answer != Answer::Save) return answer == Answer::Discard;
    keep();
    return mode_ == Mode::Looking;
}

void ConductorEditor::reject() {
    guarded(*this, [this] {
        if (!may_be_left()) return;
        enter(Mode::Looking);
        QDialog::reject();
    });
}

bool ConductorEditor::write_record() {
    const auto conductor = selected();
    if (!conductor || conductor->damage || mode_ != Mode::Looking) return false;
    const std::string path = parts_.settings.now().Einseil1_dat;
    if (path.empty()) {
        (void)tell(no_exchange_file);
        return false;
    }
    return carried_out([&] { parts_.files.write(path, written_record(conductor->c)); },
                       not_written);
}

void ConductorEditor::choose() {
    if (write_record()) hide();
}

void ConductorEditor::choose_and_take_over() {
    if (!write_record()) return;
    hide();
    take_over_();
}

bool ConductorEditor::carried_out(const std::function<void()>& act, const BoxText& failed) const {
    try {
        act();
        return true;
    } catch (const InputError& error) {
        (void)tell(failed, {error.told(parts_.session.lang)});
    } catch (const OutputError& error) {
        (void)tell(failed, {error.told(parts_.session.lang)});
    }
    return false;
}

Answer ConductorEditor::tell(const BoxText& text,
                             std::initializer_list<std::string_view> values) const {
    return parts_.session.dialogs.show(box_in(parts_.session.lang, text, values));
}

}  // namespace zel
