#include "desktop/frame/qt_dialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <functional>

namespace zel {
namespace {

const Box question{Icon::Question, "VOR", {"Wirklich <b>?", "Ja?"}, Buttons::YesNo, Answer::No};

class QtDialogsTest : public testing::Test {
protected:
    QtDialogsTest() { dialogs.follow(lang); }

    /// Shows `box` to a user who does `act` as soon as it is there.
    Answer show(const Box& box, const std::function<void(QMessageBox&)>& act) {
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (auto* window = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                poll.stop();
                act(*window);
            }
        });
        poll.start(5);
        return dialogs.show(box);
    }
    static void press(QMessageBox& window, int key) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&window, &down);
    }

    LangId lang = LangId::German;
    QtDialogs dialogs;
};

TEST_F(QtDialogsTest, question_shows_plain_lines_with_no_as_default) {
    const Answer answer = show(question, [](QMessageBox& window) {
        EXPECT_EQ(window.text(), "Wirklich <b>?\nJa?");
        EXPECT_EQ(window.textFormat(), Qt::PlainText);
        EXPECT_EQ(window.windowTitle(), "VOR");
        EXPECT_EQ(window.icon(), QMessageBox::Question);
        EXPECT_EQ(window.defaultButton(), window.button(QMessageBox::No));
        EXPECT_EQ(window.button(QMessageBox::Yes)->text(), "&Ja");
        window.button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(answer, Answer::Yes);
}

TEST_F(QtDialogsTest, rest_of_a_chain_can_be_left_by_one_key) {
    const auto left = [this](int key) {
        QTimer::singleShot(0, [key] {
            auto& window = *qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            EXPECT_EQ(window.defaultButton(), window.button(QMessageBox::Ok));
            const auto rest = window.buttons().back();
            EXPECT_EQ(rest->text(), "&Rest in die Liste");
            key == Qt::Key_R ? rest->click() : press(window, key);
        });
        return dialogs.show_before_others({Icon::Warning, "VOR", {"Eins"}});
    };
    EXPECT_TRUE(left(Qt::Key_R));
    EXPECT_FALSE(left(Qt::Key_Return));
    EXPECT_FALSE(left(Qt::Key_Escape));
}

TEST_F(QtDialogsTest, no_and_escape_answer_no) {
    EXPECT_EQ(show(question, [](QMessageBox& w) { w.button(QMessageBox::No)->click(); }),
              Answer::No);
    EXPECT_EQ(show(question, [](QMessageBox& w) { press(w, Qt::Key_Escape); }), Answer::No);
}

TEST_F(QtDialogsTest, buttons_follow_the_language) {
    lang = LangId::English;
    show(question, [](QMessageBox& window) {
        EXPECT_EQ(window.button(QMessageBox::Yes)->text(), "&Yes");
        window.button(QMessageBox::No)->click();
    });
}

TEST_F(QtDialogsTest, long_text_has_the_width_of_a_small_screen_and_leaves_the_buttons_whole) {
    const std::string line(90, 'x');
    show({Icon::Warning, "Titel", std::vector<std::string>(80, line)}, [](QMessageBox& window) {
        const QSize screen = window.screen()->availableGeometry().size();
        EXPECT_GT(window.width(), screen.width() * 3 / 4);
        EXPECT_LT(window.width(), screen.width());
        EXPECT_LT(window.height(), screen.height());
        const QWidget& ok = *window.button(QMessageBox::Ok);
        EXPECT_TRUE(window.rect().contains(QRect(ok.mapTo(&window, QPoint()), ok.size())));
        press(window, Qt::Key_Escape);
    });
}

TEST_F(QtDialogsTest, message_has_ok_alone) {
    const Box message{Icon::Warning, "Titel", {"Zeile"}};
    const Answer answer = show(message, [](QMessageBox& window) {
        EXPECT_EQ(window.buttons().size(), 1);
        EXPECT_EQ(window.icon(), QMessageBox::Warning);
        press(window, Qt::Key_Escape);
    });
    EXPECT_EQ(answer, Answer::Ok);
}

}  // namespace
}  // namespace zel
