#include "desktop/frame/document.h"

#include <utility>

#include "platform/errors.h"

namespace zel {
namespace {

constexpr BoxText lose_question = {Icon::Question,
                                   {"{0}", "{0}"},
                                   {"Die Eingaben wurden geändert und sind nicht gespeichert.\n"
                                    "Sollen die Änderungen gespeichert werden ?",
                                    "The input data has been changed and is not saved.\n"
                                    "Do you want to save the changes ?"},
                                   Buttons::SaveDiscardCancel,
                                   Answer::Cancel};

constexpr BoxText replace_question = {
    Icon::Question,
    {"{0}", "{0}"},
    {"Die Datei gibt es schon :\n{1}\nSoll sie ersetzt werden ?",
     "The file exists already :\n{1}\nDo you want to replace it ?"},
    Buttons::YesNo,
    Answer::No};

constexpr BoxText not_read = {
    Icon::Stop,
    {"Datei öffnen", "Open file"},
    {"Die Datei kann nicht gelesen werden :\n{0}", "The file can not be read :\n{0}"}};

constexpr BoxText not_written = {
    Icon::Stop,
    {"Datei speichern", "Save file"},
    {"Die Datei kann nicht geschrieben werden :\n{0}", "The file can not be written :\n{0}"}};

}  // namespace

Document::Document(DocumentRecord& record, const Session& session, CaseStore& store,
                   FileChooser& chooser, const Text& program, std::string path)
    : record_(record), session_(session), store_(store), chooser_(chooser), program_(program) {
    mark_stored(std::move(path));
}

std::string Document::name() const {
    return path_.empty() ? origin_ : path_.substr(path_.find_last_of('/') + 1);
}

void Document::mark_stored(std::string path, std::string origin) {
    path_ = std::move(path);
    origin_ = std::move(origin);
    stored_ = record_.entered();
}

bool Document::may_be_left() {
    if (!modified()) return true;
    const LangId lang = session_.lang;
    const Answer answer = session_.dialogs.show(box_in(lang, lose_question, {program_.in(lang)}));
    return answer == Answer::Save ? save() : answer == Answer::Discard;
}

bool Document::start_anew() {
    const auto question = record_.question_before_anew();
    if (question ? session_.dialogs.show(*question) != Answer::Yes : !may_be_left()) return false;
    record_.start_anew();
    mark_stored({});
    return true;
}

bool Document::open() {
    if (!may_be_left()) return false;
    const auto path = chooser_.file_to_open(path_);
    return path && read(*path);
}

bool Document::open(const std::string& path) { return may_be_left() && read(path); }

bool Document::open_copy(const std::string& path) {
    if (!open(path)) return false;
    mark_stored({});
    return true;
}

bool Document::read(const std::string& path) {
    const auto fail = [&](const std::string& reason) {
        session_.tell(box_in(session_.lang, not_read, {reason}));
        return false;
    };
    FlatObject values;
    try {
        values = store_.load(path);
    } catch (const InputError& error) {
        return fail(error.told(session_.lang));
    }
    try {
        const std::vector<RefusedText> refused = record_.take(values);
        mark_stored(path);
        tell(refused);
        return true;
    } catch (const InputError& error) {
        return fail(path + ": " + error.told(session_.lang));
    }
}

void Document::tell(const std::vector<RefusedText>& refused) const {
    for (auto [field, box] : refused) {
        box.lines.insert(box.lines.begin(), field + " :");
        session_.tell(box);
    }
}

void Document::take(const StoredRow& row, const std::string& origin) {
    const std::vector<RefusedText> refused = record_.take(row);
    mark_stored({}, origin);
    tell(refused);
}

void Document::detach() {
    mark_stored({});
    stored_.clear();
}

void Document::stored_in(const std::string& origin) {
    if (path_.empty()) mark_stored({}, origin);
}

bool Document::save() { return path_.empty() ? save_as() : write(path_); }

bool Document::save_as() {
    const auto path = chooser_.file_to_save(path_);
    return path && may_be_replaced(*path) && write(*path);
}

bool Document::may_be_replaced(const std::string& path) const {
    if (path == path_ || !store_.has(path)) return true;
    const LangId lang = session_.lang;
    const Box question = box_in(lang, replace_question, {program_.in(lang), path});
    return session_.dialogs.show(question) == Answer::Yes;
}

bool Document::write(const std::string& path) {
    try {
        store_.save(path, record_.values());
    } catch (const OutputError& error) {
        session_.tell(box_in(session_.lang, not_written, {error.told(session_.lang)}));
        return false;
    }
    mark_stored(path);
    return true;
}

}  // namespace zel
