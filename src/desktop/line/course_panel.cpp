#include "desktop/line/course_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "desktop/frame/events.h"
#include "desktop/frame/inputs.h"
#include "desktop/pictures/diagram_picture.h"

namespace zel {
namespace {

constexpr Text limit_caption = {"Grenztemperatur :", "Limit temperature :"};
constexpr Text limit_hint = {
    "Linie im Verlauf: Höchsttemperatur des Leiters, sonst die vorgegebene Temperatur",
    "Line in the course: highest temperature of the conductor, else the given temperature"};
constexpr Text picture_name = {"Verlauf von Temperatur und Strom",
                               "Course of temperature and current"};
constexpr Text no_number = {"\"{0}\" ist keine Zahl. ", "\"{0}\" is no number. "};
constexpr Text of_former = {"Verlauf der früheren Eingaben. ", "Course of the former inputs. "};
constexpr int limit_digits = 7;
constexpr int box_frame = 16;  // pixels, around its digits
constexpr int least_height = 220;

/// The admissible temperature, as it is typed; empty where none is known.
std::string known_limit(const CalcCase& c) {
    for (const Entry& entry : {c.Seiltemperatur_max_db, c.Leitertemp_db})
        if (entry.given() && entry.value != 0) return entry.text;
    return {};
}

}  // namespace

CoursePanel::CoursePanel(const Session& session, Captions& captions)
    : session_(session),
      picture_(captions.accessible_name(new DiagramPicture, picture_name)),
      limit_(new QLineEdit),
      text_(plain_label()) {
    setObjectName("course_panel");
    picture_->setObjectName("transient_course");
    picture_->setMinimumHeight(least_height);
    picture_->read = [this](const std::string& reading) {
        reading_ = reading;
        show_text();
    };
    limit_->setObjectName("limit_temperature");
    limit_->setFixedWidth(limit_digits * limit_->fontMetrics().horizontalAdvance('0') + box_frame);
    limit_->setAlignment(Qt::AlignRight);
    limit_->setAccessibleDescription("°C");
    understand_pasted_numbers(*limit_, session);
    on(limit_, &QLineEdit::textEdited, [this] { show_anew(); });
    text_->setObjectName("course_text");
    text_->setWordWrap(true);
    auto* caption = captions.text(new QLabel, limit_caption);
    caption->setBuddy(limit_);
    captions.tool_tip(captions.accessible_name(limit_, limit_caption), limit_hint);
    auto* line = new QHBoxLayout;
    line->addWidget(caption);
    line->addWidget(limit_);
    line->addWidget(new QLabel("°C"));
    line->addSpacing(20);
    line->addWidget(text_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(line);
    layout->addWidget(picture_, 1);
    captions.computed([this](LangId) { show_anew(); });
    hide();
}

void CoursePanel::show_course(StoredCourse course) {
    const std::string known = known_limit(course.c);
    if (known != known_limit_)
        limit_->setText(qt(known));  // a typed one stays as long as that does
    known_limit_ = known;
    stored_ = std::move(course);
    stale_ = false;
    show_anew();
}

void CoursePanel::tell_stale(bool stale) {
    if (stale_ == stale) return;
    stale_ = stale;
    show_text();
}

void CoursePanel::forget() {
    stored_.reset();
    known_limit_.clear();
    limit_->clear();
    picture_->set_view({});
    hide();
}

std::optional<double> CoursePanel::limit() const {
    return parse_number(limit_->text().toStdString(), session_.separator);
}

void CoursePanel::show_anew() {
    if (!stored_) return;
    auto diagram = course_diagram(stored_->course(), limit(), session_);
    setVisible(diagram.has_value());
    if (!diagram) return;
    DiagramView view = picture_->view();
    view.black_ground = is_dark(palette());
    picture_->set_view(view);
    picture_->show_diagram(*std::move(diagram), session_.separator);
    show_text();
}

/// What is under the mouse, else what the course says.
void CoursePanel::show_text() {
    if (!stored_) return;
    const LangId lang = session_.lang;
    std::string text;
    if (stale_) text += of_former.in(lang);
    const std::string typed = limit_->text().toStdString();
    if (!typed.empty() && !limit()) text += fill(no_number.in(lang), {typed});
    text += reading_.empty() ? course_text(stored_->course(), limit(), session_) : reading_;
    text_->setText(qt(text));
}

}  // namespace zel
