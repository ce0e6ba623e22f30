// Each row of the forms in its window.

#include "desktop/desktop_fixture.h"
#include "forms/given_value.h"
#include "forms/short_circuit_form.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

using forms::Row;
using forms::Section;

class FormRows : public DesktopTest {
protected:
    /// Opens the rows' given values, and the pages for them, the result page with a case that it
    /// takes.
    template <class Visit>
    void each_row(const Visit& visit) {
        CalcCase c;
        c.rechnung_cigre601_merker_db = 1;
        open(c);
        const forms::LineForm form(calc_case(), state->session);
        for (const Section& section : form.sections()) {
            if (section.page == result_page) {
                go_to(input_page);
                calc_case() =
                    section.rows.front().field->unit == "A" ? twin_264_34_at(600) : twin_264_34();
                form1().load();
            }
            go_to(section.page);
            for (const Row& row : section.rows) {
                for (const GivenValueRow& mode : given_value_rows())
                    if (std::string_view(mode.control) == row.control)
                        choose("Combo1", static_cast<int>(mode.value));
                visit(form, row);
            }
        }
        EXPECT_THAT(dialogs.shown, testing::IsEmpty());
    }
};

TEST_F(FormRows, a_box_brings_its_text_to_the_case) {
    each_row([this](const forms::LineForm& form, const Row& row) {
        if (row.is_list()) return;
        type(row.control, "12");
        EXPECT_EQ(form.shown(row), row.field->mask == "0000" ? "0012" : "12") << row.control;
        EXPECT_EQ(typed_in(row.control), form.shown(row));
    });
}

TEST_F(FormRows, a_list_brings_each_of_its_choices_to_the_case) {
    each_row([this](const forms::LineForm& form, const Row& row) {
        const auto& list = *window->findChild<QWidget*>(row.control);
        EXPECT_EQ(qobject_cast<const QComboBox*>(&list) != nullptr, row.is_list()) << row.control;
        for (std::size_t i = 0; i < row.choices.size(); ++i) {
            choose(row.control, static_cast<int>(i));
            EXPECT_EQ(form.chosen(row), static_cast<int>(i)) << row.control;
            EXPECT_EQ(control<QComboBox>(row.control).itemText(static_cast<int>(i)).toStdString(),
                      row.choices[i].text.en)
                << row.control;
        }
    });
}

TEST_F(FormRows, numeric_boxes_are_filtered_and_free_texts_are_not) {
    each_row([this](const forms::LineForm&, const Row& row) {
        if (row.is_list()) return;
        auto& box = control(row.control);
        box.clear();
        press(box, Qt::Key_A, "a");
        EXPECT_EQ(box.text().toStdString(), row.is_free_text() ? "a" : "") << row.control;
        box.clear();
    });
}

TEST_F(FormRows, each_input_has_label_hint_and_name_in_both_languages) {
    open();
    const auto texts_of = [this](const Row& row) {
        const auto& input = control<QWidget>(row.control);
        QString label;
        for (const QLabel* candidate : window->findChildren<QLabel*>())
            if (candidate->buddy() == &input) label = candidate->text();
        return std::tuple(label, input.toolTip(), input.accessibleName());
    };
    const auto expect_texts = [&](std::span<const Section> sections, LangId lang) {
        for (const Section& section : sections)
            for (const Row& row : section.rows) {
                if (!section.typed) continue;
                const Text& label = row.field->label;
                const QString name = qt(label, lang).trimmed();
                EXPECT_FALSE(label.en.empty()) << row.control;
                const auto [label_text, hint, accessible] = texts_of(row);
                EXPECT_EQ(label_text, name) << row.control;
                EXPECT_EQ(accessible, name) << row.control;
                EXPECT_THAT(hint.toStdString(), testing::StartsWith(std::string(row.hint.in(lang))))
                    << row.control;
            }
    };
    for (const auto& [lang, action] : {std::pair(LangId::German, "m_userinterface_german"),
                                       std::pair(LangId::English, "m_userinterface_english")}) {
        form_main->findChild<QAction*>(action)->trigger();
        window = &form1();
        expect_texts(forms::LineForm(calc_case(), state->session).sections(), lang);
        window = &form_main->ks_form1();
        expect_texts(forms::short_circuit_sections(), lang);
    }
}

TEST_F(FormRows, an_input_of_the_short_circuit_area_brings_its_text_or_choice_to_the_case) {
    open();
    window = &form_main->ks_form1();
    window->show();
    window->activateWindow();
    forms::ShortCircuitRecord record(state->short_circuit, state->session);
    for (const Section& section : forms::short_circuit_sections()) {
        go_to(section.page);
        for (const Row& row : section.rows) {
            if (!section.typed || !record.state(row).open) continue;
            if (row.is_list()) {
                choose(row.control, 1);
                EXPECT_EQ(record.chosen(row), 1) << row.control;
            } else {
                const std::string text = row.field->name == "Kappa" ? "1.5" : "0.05";
                paste(row.control, text);
                dialogs.shown.clear();
                EXPECT_EQ(record.shown(row), typed_in(row.control)) << row.control;
            }
        }
    }
}

}  // namespace
}  // namespace zel
