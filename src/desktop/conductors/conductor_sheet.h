#pragma once

#include <QScrollArea>
#include <array>
#include <vector>

#include "desktop/frame/form_panel.h"
#include "desktop/frame/inputs.h"
#include "forms/line_form.h"
#include "persistence/library_conductor.h"
#include "workflow/run/steady_methods.h"

class QTabWidget;

namespace zel {

/// All values of one conductor, to look at or to change, and which methods can run with it. All of
/// it scrolls together, so that no part takes the room of another.
class ConductorSheet : public QScrollArea {
public:
    ConductorSheet(const Session& session, Captions& captions);

    /// Shows `conductor`; its values can be changed where `open` is set.
    void show_conductor(const LibraryConductor& conductor, bool open);
    /// Takes in what is typed but not yet finished; false where a text was refused.
    [[nodiscard]] bool commit();
    /// The conductor with what was changed so far.
    [[nodiscard]] const LibraryConductor& conductor();
    void focus_first();
    /// It scrolls down alone.
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    struct MethodLine {
        Method method;
        QLabel* mark;
        QLabel* text;
    };

    /// A text that may be long: typed into a box, but shown whole.
    struct TextLine {
        const char* name;
        Text caption;
        std::string& (*text)(LibraryConductor&);
        QLineEdit* edit = nullptr;
        QLabel* shown = nullptr;
    };

    /// A figure of the library that no field of a case stands for.
    struct FigureLine {
        const char* name;
        Text caption;
        const char* unit;
        Entry LibraryConductor::*value;
        QLineEdit* edit = nullptr;
    };

    [[nodiscard]] QWidget* make_tabs();
    [[nodiscard]] QLayout* make_texts();
    [[nodiscard]] QLayout* make_figures();
    [[nodiscard]] QGroupBox* make_methods();
    [[nodiscard]] FormPanel* make_panel(std::size_t section);
    void open_inputs(bool open);
    void judge();

    const Session& session_;
    Captions& captions_;
    CalcCase c_;  // holds the conductor for the form
    forms::LineForm form_;
    LibraryConductor conductor_;
    std::vector<forms::Section> sections_;
    std::vector<FormPanel*> panels_;
    std::vector<MethodLine> lines_;
    QTabWidget* tabs_ = nullptr;
    std::array<TextLine, 2> texts_ = {
        TextLine{"Anmerkung_db",
                 {"Bemerkung :", "Remark :"},
                 [](LibraryConductor& l) -> std::string& { return l.c.Anmerkung_db; }},
        TextLine{"source", {"Quelle :", "Source :"}, [](LibraryConductor& l) -> std::string& {
                     return l.source;
                 }}};
    std::array<FigureLine, 2> figures_ = {
        FigureLine{"mass", {"Masse :", "Mass :"}, "kg/km", &LibraryConductor::mass},
        FigureLine{"strength", {"Bruchkraft :", "Strength :"}, "kN", &LibraryConductor::strength}};
    FocusReturn refused_;
};

}  // namespace zel
