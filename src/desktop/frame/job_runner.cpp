#include "desktop/frame/job_runner.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"

namespace zel {
namespace {

constexpr int look_after = 30;        // ms between two looks at the job
constexpr int steps_of_percent = 10;  // of the bar
constexpr Text cancel_caption = {"Abbrechen", "Cancel"};

/// One run of a job: joins its thread to the windows.
class Runner : public QObject {
public:
    Runner(JobDisplay& display, Dialogs& dialogs, Job::Work work)
        : display_(display), dialogs_(dialogs), job_(std::move(work), [this] { call(); }) {}

    void run() {
        clock_.start();
        QTimer timer;
        timer.callOnTimeout(this, [this] { look(); });
        timer.start(look_after);
        look();
        job_.begin();
        while (!job_.ended()) {
            left_ = false;
            loop_.exec(display_.takes_input() ? QEventLoop::AllEvents
                                              : QEventLoop::ExcludeUserInputEvents);
            if (!left_) break;  // the program ends
        }
        if (!job_.ended()) job_.cancel();
        timer.stop();
        display_.show_job(job_, job_.progress(), seconds());
        display_.make_room();
        job_.finish();
    }

private:
    /// From the thread of the job.
    void call() {
        QMetaObject::invokeMethod(
            this, [this] { answer_call(); }, Qt::QueuedConnection);
    }

    void answer_call() {
        if (const Box* box = job_.waiting()) ask(*box);
        leave();
    }

    void ask(const Box& box) {
        if (display_.takes_input()) look();  // what stands behind the box is up to date
        asking_ = true;
        display_.make_room();
        Answer answer = box.unattended;
        const auto go_on = qScopeGuard([&] {
            asking_ = false;
            job_.answer(answer);
        });
        if (!job_.others_follow())
            answer = dialogs_.show(box);
        else
            answer = dialogs_.show_before_others(box) ? Answer::No : Answer::Ok;
    }

    void look() {
        if (asking_) return;
        const bool took_input = display_.takes_input();
        display_.show_job(job_, job_.progress(), seconds());
        if (display_.takes_input() != took_input) leave();
    }

    /// Looks anew at what has become of the job, and whether there is input.
    void leave() {
        left_ = true;
        loop_.quit();
    }

    [[nodiscard]] double seconds() const { return static_cast<double>(clock_.elapsed()) / 1000; }

    JobDisplay& display_;
    Dialogs& dialogs_;
    QElapsedTimer clock_;
    QEventLoop loop_;
    bool left_ = false;    // the loop, and not because the program ends
    bool asking_ = false;  // a box is shown
    Job job_;              // last: it calls from its thread
};

}  // namespace

void run_job(JobDisplay& display, Dialogs& dialogs, Job::Work work) {
    Runner(display, dialogs, std::move(work)).run();
}

/// What is shown. Closing it is cancelling; it stays until the job has ended.
class RunProgress::Window : public QDialog {
public:
    Window(QWidget* parent, LangId lang, const Text& title, Job& job)
        : QDialog(parent),
          job_(job),
          line_(new QLabel),
          bar_(new QProgressBar),
          cancel_(new QPushButton(qt(cancel_caption, lang))) {
        setObjectName("run_progress");
        setWindowTitle(qt(title, lang));
        setWindowModality(Qt::ApplicationModal);
        setMinimumWidth(360);
        bar_->setRange(0, 100 * steps_of_percent);
        line_->setAlignment(Qt::AlignCenter);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(line_);
        layout->addWidget(bar_);
        layout->addWidget(cancel_, 0, Qt::AlignHCenter);
        on(cancel_, &QPushButton::clicked, [this] { reject(); });
    }

    void show_progress(const JobProgress& at) {
        line_->setText(qt(at.line));
        bar_->setValue(static_cast<int>(at.percent * steps_of_percent));
    }

protected:
    void reject() override {
        job_.cancel();
        cancel_->setEnabled(false);
    }

private:
    Job& job_;
    QLabel* line_;
    QProgressBar* bar_;
    QPushButton* cancel_;
};

RunProgress::RunProgress(QWidget& parent, LangId lang, int patience_ms, const Text& title)
    : parent_(parent), lang_(lang), title_(title), patience_(patience_ms / 1000.0) {}

RunProgress::~RunProgress() = default;

void RunProgress::show_job(Job& job, const JobProgress& at, double seconds) {
    if (!window_) {
        if (!waiting_since_) waiting_since_ = seconds;
        if (job.ended() || seconds - *waiting_since_ < patience_) return;
        window_ = std::make_unique<Window>(parent_.window(), lang_, title_, job);
        window_->show();
    }
    window_->show_progress(at);
}

void RunProgress::make_room() {
    waiting_since_.reset();
    if (!window_) return;
    window_.reset();
    parent_.activateWindow();
}

}  // namespace zel
