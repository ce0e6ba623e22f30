#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include "desktop/frame/job_runner.h"
#include "desktop/frame/paused_job.h"
#include "fakes/scripted_dialogs.h"
#include "platform/errors.h"

// Jobs, without a window and with one.

namespace zel {
namespace {

using namespace std::chrono_literals;
using testing::SizeIs;

const Box question = {Icon::Question, "title", {"go on ?"}, Buttons::YesNo, Answer::No};

/// Counts the calls of a job and lets a test wait for them.
class Calls {
public:
    void operator()() {
        const std::lock_guard lock(mutex_);
        ++count_;
        changed_.notify_one();
    }
    void wait_for(int count) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return count_ >= count; });
    }
    int count() {
        const std::lock_guard lock(mutex_);
        return count_;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int count_ = 0;
};

TEST(Job, tells_its_progress_and_ends) {
    Calls calls;
    Job job([](Job& own) { own.tell({30, "row 1"}); }, std::ref(calls));
    job.begin();
    calls.wait_for(1);
    EXPECT_TRUE(job.ended());
    EXPECT_EQ(job.progress().percent, 30);
    EXPECT_EQ(job.progress().line, "row 1");
    job.finish();
}

TEST(PausedJob, a_new_one_takes_the_place_of_one_that_waits_or_works) {
    PausedJob paused(0);
    Calls begun;
    std::vector<std::string> found;
    std::string turns;
    paused.turned = [&] {
        turns += paused.works() ? "works " : paused.is_under_way() ? "waits " : "over ";
    };
    const auto start = [&](const std::string& name, const Job::Work& work) {
        paused.start(work, [&, name] { found.push_back(name); });
    };
    start("waits", [](Job&) {});
    start("works", [&](Job& own) {
        begun();
        while (!own.cancelled()) std::this_thread::yield();
    });
    while (begun.count() == 0) QApplication::processEvents();
    start("last", [](Job&) {});
    while (paused.is_under_way()) QApplication::processEvents();
    EXPECT_THAT(found, testing::ElementsAre("last"));
    start("cancelled", [](Job&) {});
    paused.cancel();
    QApplication::processEvents();
    EXPECT_THAT(found, SizeIs(1));
    EXPECT_EQ(turns, "waits over waits works over waits works over waits over ");
}

TEST(Job, a_box_waits_for_its_answer) {
    Calls calls;
    Answer given = Answer::No;
    Job job([&](Job& own) { given = own.dialogs().show(question); }, std::ref(calls));
    job.begin();
    calls.wait_for(1);
    ASSERT_NE(job.waiting(), nullptr);
    EXPECT_EQ(*job.waiting(), question);
    EXPECT_FALSE(job.ended());
    job.answer(Answer::Yes);
    calls.wait_for(2);
    EXPECT_EQ(job.waiting(), nullptr);
    EXPECT_EQ(given, Answer::Yes);
}

TEST(Job, left_alone_it_is_cancelled_and_its_boxes_answer_themselves) {
    Calls calls;
    Answer given = Answer::Yes;
    bool cancelled = false;
    {
        Job job(
            [&](Job& own) {
                given = own.dialogs().show(question);
                cancelled = own.cancelled();
            },
            std::ref(calls));
        job.begin();
        calls.wait_for(1);
    }
    EXPECT_EQ(given, question.unattended);
    EXPECT_TRUE(cancelled);
}

TEST(Job, what_it_throws_comes_out_at_the_end) {
    Job job([](Job&) { throw ProgramEnd("why"); }, [] {});
    job.begin();
    EXPECT_THROW(job.finish(), ProgramEnd);
}

/// Jobs over a window with a box to type into.
class RunJob : public testing::Test {
protected:
    RunJob() {
        box = new QLineEdit(&window);
        window.show();
        window.activateWindow();
        QApplication::processEvents();
    }
    static QWidget* progress_window() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == "run_progress" && widget->isVisible()) return widget;
        return nullptr;
    }
    void run(const Job::Work& work, int patience_ms = 0) {
        RunProgress progress(window, LangId::English, patience_ms);
        run_job(progress, dialogs, work);
        EXPECT_EQ(progress_window(), nullptr);
    }

    QWidget window;
    QLineEdit* box;
    ScriptedDialogs dialogs;
};

TEST_F(RunJob, shows_how_far_it_is_and_is_cancelled_by_button_and_by_closing) {
    for (const bool by_button : {true, false}) {
        QTimer user;
        std::string line;
        int percent = 0;
        user.callOnTimeout([&] {
            QWidget* shown = progress_window();
            if (shown == nullptr || shown->findChild<QProgressBar*>()->value() == 0) return;
            line = shown->findChild<QLabel*>()->text().toStdString();
            percent = 100 * shown->findChild<QProgressBar*>()->value() /
                      shown->findChild<QProgressBar*>()->maximum();
            by_button ? shown->findChild<QPushButton*>()->click() : void(shown->close());
            EXPECT_TRUE(shown->isVisible());  // until the work has ended
        });
        user.start(0);
        run([](Job& job) {
            job.tell({42, "row 3"});
            while (!job.cancelled()) std::this_thread::sleep_for(1ms);
        });
        EXPECT_EQ(line, "row 3");
        EXPECT_EQ(percent, 42);
    }
}

TEST_F(RunJob, a_box_stands_alone_in_the_thread_of_the_windows) {
    const auto here = std::this_thread::get_id();
    dialogs.answers = {Answer::Yes};
    dialogs.while_shown = [&] {
        EXPECT_EQ(std::this_thread::get_id(), here);
        // Nothing comes up over it, however long it is read.
        QEventLoop reading;
        QTimer::singleShot(100, &reading, &QEventLoop::quit);
        reading.exec();
        EXPECT_EQ(progress_window(), nullptr);
    };
    Answer given = Answer::No;
    bool was_open = false;
    QTimer look;
    look.callOnTimeout([&] { was_open = was_open || progress_window() != nullptr; });
    look.start(0);
    run([&](Job& job) {
        std::this_thread::sleep_for(100ms);
        given = job.dialogs().show(question);
    });
    EXPECT_TRUE(was_open);
    EXPECT_EQ(given, Answer::Yes);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
}

TEST_F(RunJob, a_short_one_shows_nothing) {
    bool was_open = false;
    QTimer look;
    look.callOnTimeout([&] { was_open = was_open || progress_window() != nullptr; });
    look.start(0);
    run([](Job&) { std::this_thread::sleep_for(50ms); }, 10000);
    EXPECT_FALSE(was_open);
}

TEST_F(RunJob, failures_come_out_in_the_thread_of_the_windows) {
    EXPECT_THROW(run([](Job&) { throw ProgramEnd("why"); }), ProgramEnd);
    EXPECT_THROW(run([](Job&) { throw OutputError("full"); }), OutputError);
    EXPECT_EQ(progress_window(), nullptr);
}

TEST_F(RunJob, a_program_that_ends_cancels_it) {
    bool cancelled = false;
    QTimer::singleShot(0, &window, [&] {
        run([&](Job& job) {
            while (!job.cancelled()) std::this_thread::sleep_for(1ms);
            cancelled = true;
            EXPECT_EQ(job.dialogs().show(question), question.unattended);
        });
    });
    QTimer::singleShot(50, [] { QApplication::exit(3); });
    EXPECT_EQ(QApplication::exec(), 3);
    EXPECT_TRUE(cancelled);
    EXPECT_TRUE(dialogs.shown.empty());
}

}  // namespace
}  // namespace zel
