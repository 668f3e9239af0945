// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QMouseEvent>
#include <QTextCursor>

namespace tolvex {

/// Qt's controls, each with one thing changed.

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

/// A drop-down list that turns by the wheel only while it has the keyboard focus: scrolling past it
/// must not choose another device or arm a lock bit.
class DropDown : public QComboBox {
  public:
    explicit DropDown(QWidget* parent = nullptr);

  protected:
    void wheelEvent(QWheelEvent* event) override;
};

/// A text widget whose text can be selected and copied, but not dragged: a drag runs an event loop
/// of its own, under which an operation would miss the writer's replies.
template <typename TextEdit>
class Undraggable : public TextEdit {
  public:
    using TextEdit::TextEdit;

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier) {
            QTextCursor cursor = TextEdit::textCursor();
            cursor.clearSelection();  // a press into a selection would begin a drag
            TextEdit::setTextCursor(cursor);
        }
        TextEdit::mousePressEvent(event);
    }
};

}  // namespace tolvex
