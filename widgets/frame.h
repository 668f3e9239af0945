// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>

namespace tolvex {

/// A group box with its caption in the border, which costs less height than the desktop's own look.
/// Its layout or children begin `kCaptionHeight` pixels below its upper edge. `name` becomes the
/// objectName.
class Frame : public QGroupBox {
    Q_OBJECT

  public:
    Frame(const QString& name, const QString& caption, QWidget* parent);

    static constexpr int kCaptionHeight = 14;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
};

}  // namespace tolvex
