// SPDX-License-Identifier: MIT
#pragma once

#include <QMouseEvent>
#include <QTextCursor>

namespace tolvex {

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
