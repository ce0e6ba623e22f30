#include "desktop/line/frm_emissivity.h"

#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <functional>

#include "desktop/desktop_fixture.h"

namespace zel {
namespace {

class FrmEmissivityTest : public DesktopTest {
protected:
    /// Opens the form beside the emissivity box and lets `user` work in it.
    void open_form(const std::function<void(QDialog&)>& user) {
        QTimer::singleShot(0, [&user] {
            auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            user(*form);
            if (form->isVisible()) form->reject();
        });
        control<QToolButton>("open_frm_emissivity").click();
    }
    static void compute(QDialog& form, const char* age) {
        form.findChild<QLineEdit*>("Seilalter")->setText(age);
        emit form.findChild<QLineEdit*>("Seilalter")->textEdited(age);
        form.findChild<QPushButton*>("E_Verhaeltnis_berechnen")->click();
    }
    static QPushButton& take_over(QDialog& form) {
        return *form.findChild<QPushButton*>("E_Verhaeltnis_uebernehmen");
    }
    static std::string result(QDialog& form) {
        return form.findChild<QLabel*>("E_Verhaeltnis")->text().toStdString();
    }
};

TEST_F(FrmEmissivityTest, takes_the_computed_emissivity_over) {
    open(twin_264_34(), LangId::German, DecimalSeparator::Comma);
    open_form([](QDialog& form) {
        EXPECT_FALSE(take_over(form).isEnabled());
        compute(form, "7,5");
        EXPECT_EQ(result(form), "0,82941");
        take_over(form).click();
    });
    EXPECT_EQ(typed_in("Text2"), "0,82941");
    EXPECT_EQ(calc_case().Emissionsverhaeltnis_db.value, 0.82941);
}

TEST_F(FrmEmissivityTest, leaves_the_case_alone_where_it_is_cancelled) {
    open(twin_264_34());
    open_form([](QDialog& form) { compute(form, "7.5"); });
    EXPECT_EQ(typed_in("Text2"), "0.6");
}

TEST_F(FrmEmissivityTest, tells_an_age_that_is_no_number_or_negative) {
    open(twin_264_34());
    open_form([this](QDialog& form) {
        for (const char* age : {"old", "-1"}) {
            compute(form, age);
            EXPECT_FALSE(take_over(form).isEnabled()) << age;
        }
        EXPECT_EQ(dialogs.shown.size(), 2U);
    });
    EXPECT_EQ(typed_in("Text2"), "0.6");
}

}  // namespace
}  // namespace zel
