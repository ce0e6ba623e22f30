#pragma once

#include <QWidget>

#include "pictures/picture.h"

namespace zel {

/// A picture in a window, as large as its width allows.
class PictureView : public QWidget {
public:
    explicit PictureView(Picture picture);

    [[nodiscard]] const Picture& picture() const { return picture_; }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {240, heightForWidth(240)}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture picture_;
};

}  // namespace zel
