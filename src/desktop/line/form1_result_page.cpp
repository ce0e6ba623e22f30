#include "desktop/line/form1_result_page.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/reading_width.h"
#include "workflow/run/steady_texts.h"

namespace zel {
namespace {

constexpr Text results_caption = {"Ergebnis", "Result"};
constexpr Text balance_caption = {"Wärmebilanz eines Teilleiters",
                                  "Heat balance of one sub-conductor"};
constexpr Text wind_caption = {"Wind", "Wind"};

QLabel* make_label(const QString& name, double scale = 1, bool bold = false) {
    QLabel* label = plain_label(scale, bold);
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

/// Names of the values of TB 601: the temperatures, then the factors.
constexpr const char* tb601_names[] = {"T_core", "T_surface", "k_Kiessling", "k_skin", "k_mag"};
constexpr int room_for_columns = 960;  // pixels of usual letters, for the table beside the results
constexpr int column_gap = 18;

QString named(const char* prefix, Method method) { return prefix + qt(key_of(method)); }

}  // namespace

ResultPage::ResultPage(const TablePanel::Parts& parts)
    : head_line_(make_label("head_line", 1.25, true)),
      methods_line_(make_label("methods_line")),
      balance_(make_label("balance_line")),
      angle_(make_label("angle")),
      wind_(make_label("perpendicular_wind")),
      results_group_(make_results()),
      tb601_group_(make_tb601()),
      wind_group_(make_wind(parts.form.captions)),
      balance_group_(parts.form.captions.title(make_balance(), balance_caption)),
      table_(new TablePanel(parts)),
      print_(new QPushButton),
      columns_(new QBoxLayout(QBoxLayout::LeftToRight)) {
    for (QLabel* line : {head_line_, methods_line_, balance_}) line->setWordWrap(true);
    Captions& captions = parts.form.captions;
    auto* results = new QVBoxLayout;
    results->setSpacing(14);
    results->addWidget(captions.title(results_group_, results_caption));
    results->addWidget(tb601_group_);
    results->addWidget(wind_group_);
    print_->setObjectName("print_steady");
    print_->setAutoDefault(true);
    results->addWidget(print_, 0, Qt::AlignLeft);
    results->addStretch(1);
    columns_->setSpacing(column_gap);
    columns_->addLayout(results);
    columns_->addWidget(table_, 1);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setSpacing(10);
    layout->addWidget(head_line_);
    layout->addWidget(methods_line_);
    layout->addLayout(columns_, 1);
    layout->addWidget(balance_group_);
    table_->calculated = [this] {
        clear_balance();
        table_calculated();
        later(table_->view(), [this] { ensureWidgetVisible(&table_->view()); });
    };
    set_content(content);
    content->hide();  // nothing to tell before the first valid run
}

void ResultPage::resizeEvent(QResizeEvent* event) {
    AreaPage::resizeEvent(event);
    const bool beside = viewport()->width() >= room_for_columns * letter_scale(*this);
    columns_->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

QGroupBox* ResultPage::make_results() {
    auto* group = new QGroupBox;
    auto* grid = new QGridLayout(inside_of(*group));
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(8);
    for (const Method method : all_methods) {
        const Line line{method, make_label(named("caption_", method), 1.15),
                        make_label(named("result_", method), 1.4, true)};
        line.result->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        line.caption->setBackgroundRole(QPalette::Base);  // white: the method is selected
        line.caption->setAutoFillBackground(true);
        line.caption->setMargin(4);
        const int row = static_cast<int>(lines_.size());
        grid->addWidget(line.caption, row, 0);
        grid->addWidget(line.result, row, 1);
        line.caption->hide();
        line.result->hide();
        lines_.push_back(line);
    }
    grid->setColumnStretch(2, 1);
    return group;
}

QGroupBox* ResultPage::make_tb601() {
    auto* group = new QGroupBox("Cigre TB 601");
    auto* grid = new QGridLayout(inside_of(*group));
    grid->setHorizontalSpacing(24);
    for (const char* name : tb601_names) {
        const DetailLine line{make_label(QString("caption_") + name), make_label(name)};
        line.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        const int row = static_cast<int>(tb601_lines_.size());
        grid->addWidget(line.caption, row, 0);
        grid->addWidget(line.value, row, 1);
        tb601_lines_.push_back(line);
    }
    grid->setColumnStretch(2, 1);
    return group;
}

QGroupBox* ResultPage::make_balance() {
    auto* group = new QGroupBox;
    auto* layout = new QVBoxLayout(inside_of(*group));
    layout->addWidget(balance_);
    return group;
}

QGroupBox* ResultPage::make_wind(Captions& captions) {
    auto* group = captions.title(new QGroupBox, wind_caption);
    auto* grid = new QGridLayout(inside_of(*group));
    grid->setHorizontalSpacing(24);
    angle_->setAlignment(Qt::AlignRight);
    wind_->setAlignment(Qt::AlignRight);
    grid->addWidget(captions.text(make_label("caption_angle"), angle_label), 0, 0);
    grid->addWidget(angle_, 0, 1);
    grid->addWidget(
        captions.text(make_label("caption_perpendicular_wind"), perpendicular_wind_label), 1, 0);
    grid->addWidget(wind_, 1, 1);
    grid->setColumnStretch(2, 1);
    return group;
}

void ResultPage::show_run(const SteadyRunResult& run) {
    show_former(false);
    widget()->show();
    head_line_->setText(qt(run.head_line));
    methods_line_->setText(qt(run.methods_line));
    for (const Line& line : lines_) {
        const auto found =
            std::find_if(run.methods.begin(), run.methods.end(),
                         [&](const MethodResult& result) { return result.method == line.method; });
        const bool ran = found != run.methods.end();
        line.caption->setText(ran ? qt(found->caption) : QString());
        line.result->setText(ran ? qt(found->result) : QString());
        line.caption->setVisible(ran);
        line.result->setVisible(ran);
    }
    std::vector<LabelledText> details = run.tb601_temperatures;
    details.insert(details.end(), run.tb601_factors.begin(), run.tb601_factors.end());
    for (std::size_t i = 0; i < details.size(); ++i) {
        tb601_lines_[i].caption->setText(qt(details[i].label).trimmed());
        tb601_lines_[i].value->setText(qt(details[i].text));
    }
    tb601_group_->setVisible(!details.empty());
    balance_->setText(qt(joined(run.balance_lines, "\n")));
    balance_group_->setVisible(!run.balance_lines.empty());
    angle_->setText(qt(run.angle_text));
    wind_->setText(qt(run.perpendicular_wind_text));
}

void ResultPage::show_former(bool former) {
    widget()->setEnabled(true);
    for (QWidget* part : std::initializer_list<QWidget*>{head_line_, methods_line_, results_group_,
                                                         tb601_group_, wind_group_, balance_group_})
        part->setEnabled(!former);
}

void ResultPage::show_nothing_new() {
    widget()->setEnabled(false);
    clear_balance();
}

void ResultPage::reset() {
    clear_balance();
    table_->clear();
}

void ResultPage::clear() { widget()->hide(); }

void ResultPage::clear_balance() {
    balance_->clear();
    balance_group_->hide();
}

}  // namespace zel
