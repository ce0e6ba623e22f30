#pragma once

#include <QWidget>

#include "desktop/frame/captions.h"
#include "desktop/frame/diagram_source.h"
#include "desktop/frame/file_chooser.h"
#include "desktop/frame/print_source.h"
#include "platform/files.h"
#include "shell/session.h"

class QLabel;
class QPushButton;

namespace zel {

class DiagramPicture;

/// What the windows of diagrams work with.
struct FrmGraphParts {
    const Session& session;
    Captions& captions;
    FileChooser& chooser;
    Files& files;
    PrintSource& printing;
};

/// A window with a diagram: `frm_graph_steady`, `frm_graph_unsteady`. It stays open beside its
/// form; what it shows can be read, enlarged and saved as svg, png, pdf or csv.
class FrmGraph : public QWidget, public DiagramSource {
public:
    FrmGraph(QWidget& form, DiagramForm diagram, const FrmGraphParts& parts);

    void open() override;
    void inputs_changed() override;
    void forget() override;

private:
    struct ButtonRow;

    [[nodiscard]] QWidget* make_actions();
    bool calculate();
    void show_content();
    void show_captions();
    void show_reading(const std::string& text);
    void switch_lines();
    void switch_ground();
    void print();
    void save();
    [[nodiscard]] std::string file_of(const std::string& path) const;

    DiagramForm form_;
    FrmGraphParts parts_;
    std::optional<DiagramContent> content_;
    bool is_former_ = false;  // the inputs have changed since
    DiagramPicture* picture_;
    QLabel* reading_;
    QLabel* notice_;
    QPushButton* lines_ = nullptr;
    QPushButton* ground_ = nullptr;
};

}  // namespace zel
