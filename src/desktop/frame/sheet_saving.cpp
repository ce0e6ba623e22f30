#include "desktop/frame/sheet_saving.h"

#include "desktop/frame/widgets.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text filters = {"Excel-Dateien (*.xlsx) (*.xlsx)\nCSV-Dateien (*.csv) (*.csv)",
                          "Excel files (*.xlsx) (*.xlsx)\nCSV files (*.csv) (*.csv)"};
constexpr Text not_written = {"Die Tabelle kann nicht exportiert werden:\n{0}",
                              "The table can not be exported:\n{0}"};
constexpr Text replace_question = {"Die Datei gibt es schon :\n{0}\nSoll sie ersetzt werden ?",
                                   "The file exists already :\n{0}\nDo you want to replace it ?"};

}  // namespace

void save_as(const Session& session, FileChooser& chooser, Files& files, const SavingWords& words,
             const std::string& folder, const std::string& name,
             const std::function<std::optional<Box>(const std::string& path)>& write) {
    const LangId lang = session.lang;
    const auto path =
        chooser.path_to_select({std::string(words.title.in(lang)), folder, words.filters.in(lang),
                                words.suffix, false, name + "." + std::string(words.suffix)});
    if (!path) return;
    const BoxText question = {Icon::Question, words.title, replace_question, Buttons::YesNo,
                              Answer::No};
    if (files.exists(*path) && session.dialogs.show(box_in(lang, question, {*path})) != Answer::Yes)
        return;
    try {
        const auto written = [&] {
            const WaitCursor waiting;
            return write(*path);
        }();
        if (written) session.tell(*written);
    } catch (const PlatformError& error) {
        session.tell(
            box_in(lang, BoxText{Icon::Stop, words.title, words.not_written}, {error.told(lang)}));
    }
}

void SheetSaving::save(const Text& title, const std::string& folder, const std::string& name,
                       const std::function<Box(const std::string& path)>& write) const {
    save_as(session, chooser, files, {title, filters, "xlsx", not_written}, folder, name, write);
}

}  // namespace zel
