#pragma once

#include <QTabWidget>
#include <vector>

#include "forms/database_forms.h"
#include "forms/shown_record.h"

class QCheckBox;
class QLabel;

namespace zel {

/// A record to be looked at, in groups as they stand on the pages of its form, with units. Inputs
/// that the record does not have are grey.
class RecordView : public QTabWidget {
public:
    /// Shows `record`; all that are shown later have its sections.
    RecordView(const forms::ShownRecord& record, const forms::DatabaseForms& forms, LangId lang);

    void show_record(const forms::ShownRecord& record);
    /// As wide as all groups.
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    struct Field {
        const forms::Row* row;
        QLabel* label;
        QLabel* value;
    };

    [[nodiscard]] QWidget* make_page(const forms::ShownRecord& record, int page);
    [[nodiscard]] QWidget* make_group(const forms::Section& section);
    [[nodiscard]] QWidget* make_marks(const forms::ShownRecord& record);

    LangId lang_;
    std::vector<Field> fields_;
    std::vector<QCheckBox*> marks_;
    QLabel* mode_ = nullptr;
};

/// The head of a record: the fields of its first section, and what is chosen beside them.
class RecordSummary : public QWidget {
public:
    RecordSummary(const forms::ShownRecord& record, LangId lang);
};

}  // namespace zel
