// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace tolvex {

/// A drop-down list that turns by the wheel only while it has the keyboard focus: scrolling past it
/// must not choose another device or arm a lock bit.
class DropDown : public QComboBox {
  public:
    explicit DropDown(QWidget* parent = nullptr) : QComboBox(parent) {
        setFocusPolicy(Qt::StrongFocus);  // the wheel doesn't give the focus either
    }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) {
            QComboBox::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

}  // namespace tolvex
