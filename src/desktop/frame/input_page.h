#pragma once

#include <vector>

#include "desktop/frame/area_frame.h"
#include "desktop/frame/form_panel.h"

namespace zel {

/// A page of inputs: a panel for each section of the page, to be put into columns.
class InputPage : public AreaPage {
public:
    /// `page` is the number of the page.
    InputPage(int page, const FormParts& parts);

    void load() override;
    void load_anew() override;
    void commit() override;
    [[nodiscard]] bool is_unfinished() const override;
    void focus_first() override;
    /// The texts that are typed and not yet taken in.
    [[nodiscard]] std::vector<forms::PendingText> pending() const;
    /// Shows which inputs are open and which are needed.
    void show_states();
    void show_labels();
    [[nodiscard]] QWidget* input(const FieldInfo& field) const override;
    void show_marks() override;

protected:
    /// The panels by the order of the sections.
    [[nodiscard]] FormPanel& panel(std::size_t index) const { return *panels_[index]; }
    /// Puts panels one below the other, aligned.
    [[nodiscard]] QWidget* column_of(const std::vector<std::size_t>& indexes);
    /// Lets tab lead through the inputs of the panels in this order.
    void tab_through(const std::vector<std::size_t>& indexes);
    [[nodiscard]] const FormParts& parts() const { return parts_; }

private:
    FormParts parts_;
    std::vector<FormPanel*> panels_;
};

}  // namespace zel
