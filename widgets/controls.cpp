// SPDX-License-Identifier: MIT
#include "widgets/controls.h"

#include <QPainter>
#include <QWheelEvent>

namespace tolvex {

namespace {

constexpr int kCaptionLeft = 8;

}  // namespace

Frame::Frame(const QString& name, const QString& caption, QWidget* parent)
    : QGroupBox(caption, parent) {
    setObjectName(name);
    setAccessibleName(caption);
    setContentsMargins(0, 0, 0, 0);
}

void Frame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int line = kCaptionHeight / 2;
    // Filled: a line drawn along the edge falls outside at scale factors between whole numbers.
    const QColor border = palette().color(QPalette::Mid);
    const QRect text(kCaptionLeft, 0, fontMetrics().horizontalAdvance(title()) + 4, kCaptionHeight);
    painter.fillRect(0, line, text.left(), 1, border);
    painter.fillRect(text.right() + 1, line, width() - text.right() - 1, 1, border);
    painter.fillRect(0, height() - 1, width(), 1, border);
    painter.fillRect(0, line, 1, height() - line, border);
    painter.fillRect(width() - 1, line, 1, height() - line, border);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(text, Qt::AlignCenter, title());
}

// The base class makes room for the desktop's look again each time.
void Frame::resizeEvent(QResizeEvent* event) {
    QGroupBox::resizeEvent(event);
    setContentsMargins(0, 0, 0, 0);
}

void Frame::changeEvent(QEvent* event) {
    QGroupBox::changeEvent(event);
    setContentsMargins(0, 0, 0, 0);
}

DropDown::DropDown(QWidget* parent) : QComboBox(parent) {
    setFocusPolicy(Qt::StrongFocus);  // the wheel doesn't give the focus either
}

void DropDown::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace tolvex
