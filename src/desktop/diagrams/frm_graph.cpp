#include "desktop/diagrams/frm_graph.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "adapters/qt_canvas/drawing_file.h"
#include "desktop/frame/column_grid.h"
#include "desktop/frame/events.h"
#include "desktop/frame/sheet_saving.h"
#include "desktop/pictures/diagram_picture.h"
#include "platform/errors.h"
#include "platform/text/text.h"

namespace zel {

struct FrmGraph::ButtonRow {
    const char* name;
    Text caption;
    QKeySequence key;
    void (FrmGraph::*act)();
};

namespace {

constexpr QSize window_size(1100, 720);
constexpr int gap = 6;            // pixels between buttons
constexpr int most_in_a_row = 4;  // where the window is narrow

constexpr Text calculate_caption = {"Berechnung durchführen", "Run calculation"};
constexpr Text show_lines = {"Hilfs&linien einblenden", "Show auxiliary lines"};
constexpr Text hide_lines = {"Hilfs&linien ausblenden", "Hide auxiliary lines"};
constexpr Text white_ground = {"Hintergrund weiß", "White background "};
constexpr Text black_ground = {"Hintergrund schwarz", "Black background"};
constexpr Text print_caption = {"Graphik drucken", "Print diagram"};
constexpr Text save_caption = {"&Speichern unter ...", "&Save as ..."};
constexpr Text back_caption = {"Zurück", "Back"};
constexpr Text reading_hint = {
    "Maus über dem Diagramm: Werte ablesen; Rad: vergrößern; ziehen: verschieben; "
    "Doppelklick: alles zeigen",
    "Mouse over the diagram: read values; wheel: enlarge; drag: move; double click: show all"};
constexpr Text former_notice = {
    "Die Eingaben haben sich geändert: das Diagramm ist das der früheren.",
    "The inputs have changed: the diagram is that of the former ones."};

constexpr Text save_title = {"Diagramm speichern", "Save diagram"};
constexpr Text filters = {
    "SVG-Dateien (*.svg) (*.svg)\nPNG-Dateien (*.png) (*.png)\nPDF-Dateien (*.pdf) (*.pdf)\n"
    "CSV-Dateien, die Punkte der Kurven (*.csv) (*.csv)",
    "SVG files (*.svg) (*.svg)\nPNG files (*.png) (*.png)\nPDF files (*.pdf) (*.pdf)\n"
    "CSV files, the points of the curves (*.csv) (*.csv)"};
constexpr std::string_view points_ending = ".csv";
constexpr Text wrong_ending = {"{0}: ein Diagramm wird als .svg, .png, .pdf oder .csv gespeichert",
                               "{0}: a diagram is saved as .svg, .png, .pdf or .csv"};
constexpr Text not_saved = {"Das Diagramm kann nicht gespeichert werden:\n{0}",
                            "The diagram can not be saved:\n{0}"};

}  // namespace

FrmGraph::FrmGraph(QWidget& form, DiagramForm diagram, const FrmGraphParts& parts)
    : QWidget(&form, Qt::Window),
      form_(std::move(diagram)),
      parts_(parts),
      picture_(new DiagramPicture),
      reading_(plain_label()),
      notice_(parts.captions.text(plain_label(1, true), former_notice)) {
    setObjectName(form_.name);
    parts_.captions.window_title(static_cast<QWidget*>(this), form_.title);
    reading_->setObjectName("reading");
    reading_->setWordWrap(true);
    notice_->setObjectName("former_notice");
    notice_->setWordWrap(true);
    notice_->hide();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(picture_, 1);
    layout->addWidget(notice_);
    layout->addWidget(reading_);
    layout->addWidget(make_actions());
    picture_->read = [this](const std::string& text) { show_reading(text); };
    parts_.captions.computed([this](LangId) {
        show_captions();
        show_reading({});
        if (content_) show_content();
    });
    size_window(*this, window_size);
}

QWidget* FrmGraph::make_actions() {
    const ButtonRow rows[] = {
        {"calculate", calculate_caption, QKeySequence::Refresh, &FrmGraph::open},
        {"lines", hide_lines, {}, &FrmGraph::switch_lines},
        {"ground", black_ground, {}, &FrmGraph::switch_ground},
        {"print", print_caption, QKeySequence::Print, &FrmGraph::print},
        {"save", save_caption, QKeySequence::Save, &FrmGraph::save},
    };
    std::vector<QWidget*> line;
    for (const CurveSwitch& row : form_.switches) {
        auto* box = parts_.captions.text(new QCheckBox, row.caption);
        box->setObjectName(row.name);
        box->setChecked(true);
        on(box, &QCheckBox::toggled, [this, curve = row.curve](bool shown) {
            DiagramView view = picture_->view();
            view.hidden.resize(std::max(view.hidden.size(), curve + 1));
            view.hidden[curve] = !shown;
            picture_->set_view(view);
        });
        line.push_back(box);
    }
    const auto add = [&](const ButtonRow& row) {
        auto* button = parts_.captions.text(new QPushButton, row.caption);
        button->setObjectName(row.name);
        on(button, &QPushButton::clicked, [this, act = row.act] { (this->*act)(); });
        if (!row.key.isEmpty())
            on(new QShortcut(row.key, this), &QShortcut::activated, [button] { button->click(); });
        line.push_back(button);
        return button;
    };
    QPushButton* calculate = add(rows[0]);
    calculate->setVisible(form_.can_calculate);
    calculate->setEnabled(form_.can_calculate);
    lines_ = add(rows[1]);
    ground_ = add(rows[2]);
    add(rows[3]);
    add(rows[4]);
    auto* back = parts_.captions.text(new QPushButton, back_caption);
    back->setObjectName("mBack");
    on(back, &QPushButton::clicked, [this] { close(); });
    on(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, [this] { close(); });
    const int last = static_cast<int>(line.size()) - 1;
    line.push_back(back);
    auto* actions = new ColumnGrid(gap);
    actions->place_row(line, most_in_a_row, last);
    return actions;
}

void FrmGraph::open() {
    if (!calculate()) return;
    show();
    raise();
    activateWindow();
    picture_->setFocus();
}

bool FrmGraph::calculate() {
    auto content = form_.calculate();
    if (!content) return false;
    content_ = std::move(content);
    is_former_ = false;
    DiagramView view = picture_->view();
    view.zoom = {};
    picture_->set_view(view);
    show_content();
    return true;
}

void FrmGraph::show_content() {
    picture_->show_diagram(content_->diagram(parts_.session), parts_.session.separator);
    notice_->setVisible(is_former_);
}

void FrmGraph::inputs_changed() {
    is_former_ = content_.has_value();
    notice_->setVisible(is_former_);
}

void FrmGraph::forget() {
    close();
    content_.reset();
    is_former_ = false;
}

void FrmGraph::show_captions() {
    const DiagramView& view = picture_->view();
    const LangId lang = parts_.session.lang;
    lines_->setText(qt(view.auxiliary_lines ? hide_lines : show_lines, lang));
    ground_->setText(qt(view.black_ground ? white_ground : black_ground, lang).trimmed());
}

void FrmGraph::show_reading(const std::string& text) {
    reading_->setText(text.empty() ? qt(reading_hint, parts_.session.lang) : qt(text));
}

void FrmGraph::switch_lines() {
    DiagramView view = picture_->view();
    view.auxiliary_lines = !view.auxiliary_lines;
    picture_->set_view(view);
    show_captions();
}

void FrmGraph::switch_ground() {
    DiagramView view = picture_->view();
    view.black_ground = !view.black_ground;
    picture_->set_view(view);
    show_captions();
}

std::string FrmGraph::file_of(const std::string& path) const {
    if (has_ending(path, points_ending)) return content_->points();
    for (const DrawingEnding& row : drawing_endings)
        if (has_ending(path, row.ending))
            return drawing_file(row.kind, diagram_sheet, picture_->diagram().title,
                                [this](Canvas& canvas) {
                                    draw(canvas, diagram_sheet, picture_->diagram(),
                                         picture_->view(), parts_.session.separator);
                                });
    throw InputError(Reason(wrong_ending, {path}));
}

void FrmGraph::print() {
    if (content_ && form_.may_be_printed()) parts_.printing.print(*this, content_->print);
}

void FrmGraph::save() {
    if (!content_) return;
    save_as(parts_.session, parts_.chooser, parts_.files, {save_title, filters, "svg", not_saved},
            {}, std::string(form_.file_name.in(parts_.session.lang)),
            [this](const std::string& path) -> std::optional<Box> {
                parts_.files.write(path, file_of(path));
                return std::nullopt;
            });
}

}  // namespace zel
