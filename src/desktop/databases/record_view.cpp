#include "desktop/databases/record_view.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/widgets.h"

namespace zel {
namespace {

constexpr int gap = 10;                // pixels between groups
constexpr int row_gap = 4;             // pixels
constexpr int margin = 7;              // pixels, in groups
constexpr std::size_t head_lines = 2;  // of a group, as high as its title and frame

constexpr int text_width = 100;  // pixels at least
constexpr std::string_view widest_number = "0000.00 ";
constexpr std::size_t most_lines = 28;  // of a single column
constexpr std::size_t lines_of_marks = 3 + head_lines;

/// A text wraps; for a number there is room with its unit. Nothing moves when another comes.
QLabel* make_value(const forms::Row& row) {
    QLabel* value = plain_label();
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    const bool is_text = row.is_list() || row.is_free_text();
    value->setWordWrap(is_text);
    value->setMinimumWidth(
        is_text ? text_width
                : value->fontMetrics().horizontalAdvance(qt(widest_number) + qt(row.field->unit)));
    return value;
}

QGridLayout* make_grid(QGroupBox& group) {
    auto* grid = new QGridLayout(inside_of(group));
    grid->setContentsMargins(margin, margin, margin, margin);
    grid->setVerticalSpacing(row_gap);
    grid->setColumnStretch(1, 1);
    return grid;
}

std::size_t height_of(const forms::Section& section) { return section.rows.size() + head_lines; }

/// How many of the sections stand in the first of two columns, below `lines` others: all where that
/// is not too high, otherwise as many as make both about as high.
std::size_t first_column(const std::vector<const forms::Section*>& sections, std::size_t lines) {
    const auto height = [&](std::size_t from, std::size_t to) {
        std::size_t sum = 0;
        for (std::size_t i = from; i < to; ++i) sum += height_of(*sections[i]);
        return sum;
    };
    std::size_t best = sections.size();
    std::size_t least = lines + height(0, best);
    if (least <= most_lines) return best;
    for (std::size_t split = 1; split < sections.size(); ++split) {
        const std::size_t higher =
            std::max(lines + height(0, split), height(split, sections.size()));
        if (higher >= least) continue;
        least = higher;
        best = split;
    }
    return best;
}

void show_text(QLabel& label, const QString& text) {
    if (label.text() != text) label.setText(text);
}

}  // namespace

RecordView::RecordView(const forms::ShownRecord& record, const forms::DatabaseForms& forms,
                       LangId lang)
    : lang_(lang) {
    setObjectName("record");
    setDocumentMode(true);
    for (int page = 0; const Text& caption : forms.pages)
        if (!caption.de.empty()) addTab(make_page(record, page++), qt(caption, lang));
    show_record(record);
}

QWidget* RecordView::make_page(const forms::ShownRecord& record, int page) {
    std::vector<const forms::Section*> sections;
    for (const forms::Section& section : record.form().sections())
        if (section.page == page) sections.push_back(&section);
    auto* content = new QWidget;
    auto* columns = new QHBoxLayout(content);
    columns->setSpacing(gap);
    const bool has_marks = page == 0 && !record.marks().empty();
    const std::size_t split = first_column(sections, has_marks ? lines_of_marks : 0);
    for (int side = 0; side < (split < sections.size() ? 2 : 1); ++side) {
        auto* column = new QVBoxLayout;
        column->setSpacing(gap);
        for (std::size_t i = 0; i < sections.size(); ++i)
            if ((i < split) == (side == 0)) column->addWidget(make_group(*sections[i]));
        if (has_marks && side == 0) column->insertWidget(1, make_marks(record));
        column->addStretch();
        columns->addLayout(column, 1);
    }
    auto* area = new QScrollArea;
    make_scrolling(*area);
    area->setWidget(content);
    return area;
}

QSize RecordView::minimumSizeHint() const {
    QSize least = QTabWidget::minimumSizeHint();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    for (const QScrollArea* area : findChildren<QScrollArea*>())
        least.setWidth(std::max(least.width(), area->widget()->minimumSizeHint().width() + bar));
    return least;
}

QWidget* RecordView::make_group(const forms::Section& section) {
    auto* group = new QGroupBox(qt(section.caption, lang_));
    QGridLayout* grid = make_grid(*group);
    for (const forms::Row& row : section.rows) {
        Field& field = fields_.emplace_back(Field{&row, plain_label(), make_value(row)});
        field.value->setObjectName(row.control);
        field.label->setToolTip(qt(row.hint, lang_));
        const int line = grid->rowCount();
        if (row.caption_above) {
            grid->addWidget(field.label, line, 0, 1, 2);
            grid->addWidget(field.value, line + 1, 0, 1, 2);
        } else {
            grid->addWidget(field.label, line, 0, Qt::AlignTop);
            grid->addWidget(field.value, line, 1);
        }
    }
    return group;
}

QWidget* RecordView::make_marks(const forms::ShownRecord& record) {
    auto* group = new QGroupBox(qt(forms::methods_caption, lang_));
    auto* grid = new QGridLayout(inside_of(*group));
    grid->setVerticalSpacing(row_gap);
    constexpr int across = 3;
    for (const forms::Mark& mark : record.marks()) {
        auto* box = new QCheckBox(qt(mark.name));
        box->setObjectName(mark.control);
        box->setFocusPolicy(Qt::NoFocus);
        box->setAttribute(Qt::WA_TransparentForMouseEvents);
        const int place = static_cast<int>(marks_.size());
        grid->addWidget(box, place / across, place % across);
        marks_.push_back(box);
    }
    mode_ = plain_label();
    mode_->setObjectName("mode");
    mode_->setWordWrap(true);
    grid->addWidget(mode_, grid->rowCount(), 0, 1, across);
    return group;
}

void RecordView::show_record(const forms::ShownRecord& record) {
    for (const Field& field : fields_) {
        const QString text = qt(record.form().listed(*field.row));
        show_text(*field.label, qt(record.form().label(*field.row), lang_).trimmed());
        show_text(*field.value, text);
        field.label->setEnabled(!text.isEmpty());
    }
    if (mode_ == nullptr) return;
    for (std::size_t place = 0; const forms::Mark& mark : record.marks())
        marks_[place++]->setChecked(mark.chosen);
    show_text(*mode_, qt(record.mode(), lang_));
}

RecordSummary::RecordSummary(const forms::ShownRecord& record, LangId lang) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    const forms::Section& section = record.form().sections().front();
    auto* group = new QGroupBox(qt(section.caption, lang));
    QGridLayout* grid = make_grid(*group);
    const auto add = [&](const QString& label, const QString& value, const char* name) {
        const int line = grid->rowCount();
        QLabel* shown = plain_label(value);
        shown->setWordWrap(true);
        shown->setObjectName(name);
        grid->addWidget(plain_label(label), line, 0, Qt::AlignTop);
        grid->addWidget(shown, line, 1);
    };
    for (const forms::Row& row : section.rows)
        add(qt(record.form().label(row), lang).trimmed(), qt(record.form().listed(row)),
            row.control);
    if (!record.marks().empty())
        add(qt(forms::methods_caption, lang) + " :", qt(chosen_of(record)), "methods");
    layout->addWidget(group);
}

}  // namespace zel
