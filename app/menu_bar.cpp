// SPDX-License-Identifier: MIT
#include "app/menu_bar.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include "base/text.h"

namespace tolvex {

MenuBar::MenuBar(std::span<const MenuRow> rows, QWidget* parent) : QMenuBar(parent) {
    connect(this, &QMenuBar::triggered, this, &MenuBar::GiveFocusBack);
    QMenu* menu = nullptr;
    for (const MenuRow& row : rows) {
        if ((row.flags & kTop) != 0) {
            menu = addMenu(Text::tr(row.caption));
            menu->setObjectName(QString::fromLatin1(row.name));
            windowMenu_ = (row.flags & kWindowList) != 0 ? menu : windowMenu_;
        } else {
            AddItem(row, menu);
        }
    }
}

void MenuBar::AddItem(const MenuRow& row, QMenu* menu) {
    auto* action = new QAction(Text::tr(row.caption), this);
    action->setObjectName(QString::fromLatin1(row.name));
    action->setSeparator((row.flags & kSeparator) != 0);
    action->setVisible((row.flags & kHidden) == 0);
    action->setShortcut(QKeySequence(row.shortcut.toString()));
    action->setMenuRole(QAction::NoRole);
    action->setCheckable((row.flags & kChecked) != 0);
    action->setChecked((row.flags & kChecked) != 0);
    if ((row.flags & kExclusive) != 0) {
        exclusive_ << action;
    }
    // Queued: who presses an item through the accessibility bus gets the answer at once.
    connect(
        action, &QAction::triggered, this, [this, &row] { Q_EMIT Chosen(&row); },
        Qt::QueuedConnection);
    (row.flags & kOnBar) != 0 ? addAction(action) : menu->addAction(action);
}

/// Qt marks a menu without opening it when the mouse passes.
void MenuBar::FocusFirst() {
    before_ = window()->focusWidget();
    setFocus(Qt::MenuBarFocusReason);
    const QPointF place = actionGeometry(actions().first()).center();
    QMouseEvent pass(QEvent::MouseMove, place, mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    mouseMoveEvent(&pass);
}

void MenuBar::GiveFocusBack() {
    if (hasFocus() && before_) {
        before_->setFocus(Qt::OtherFocusReason);
    }
}

void MenuBar::keyPressEvent(QKeyEvent* event) {
    QMenuBar::keyPressEvent(event);
    if (event->key() == Qt::Key_Escape) {
        GiveFocusBack();
    }
}

void MenuBar::SetBusy(bool busy) {
    for (QAction* action : exclusive_) {
        action->setEnabled(!busy);
    }
}

}  // namespace tolvex
