// SPDX-License-Identifier: MIT
#include "app/focus_keys.h"

#include <QMdiSubWindow>
#include <QShortcut>
#include <QToolButton>

#include "app/frmMain.h"
#include "app/menu_bar.h"

namespace tolvex {

namespace {

bool EnterChild(frmMain& window) {
    QMdiSubWindow* child = window.Area().currentSubWindow();
    if (child == nullptr) {
        return false;
    }
    QWidget* inside = child->widget();
    QWidget* last = inside->focusWidget();
    if (last == nullptr || !last->isVisible() || !last->isEnabled()) {
        last = inside;  // its focus proxy gets it
    }
    (child->isMinimized() || !inside->isEnabled() ? child : last)->setFocus(Qt::TabFocusReason);
    return true;
}

bool EnterToolbar(frmMain& window) {
    for (QToolButton* button : window.Tools().findChildren<QToolButton*>()) {
        if (button->isVisible() && button->isEnabled() &&
            !button->objectName().startsWith(u"qt_")) {
            button->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return false;
}

bool EnterStatusBar(frmMain& window) {
    if (window.Panels().isHidden()) {
        return false;
    }
    window.Panels().FocusFirst();
    return true;
}

/// To the next of the three that takes the focus.
void Go(frmMain& window, int step) {
    static constexpr bool (*kEnter[])(frmMain&) = {EnterChild, EnterToolbar, EnterStatusBar};
    const QWidget* focus = window.focusWidget();
    window.setAttribute(Qt::WA_KeyboardFocusChange);  // the style marks the focus only then
    int at = window.Tools().isAncestorOf(focus) ? 1 : window.Panels().isAncestorOf(focus) ? 2 : 0;
    for (int tried = 0; tried < 3; ++tried) {
        at = (at + step + 3) % 3;
        if (kEnter[at](window)) {
            return;
        }
    }
}

}  // namespace

void AddFocusKeys(frmMain& window) {
    const auto on = [&window](const QKeySequence& key, auto action) {
        QObject::connect(new QShortcut(key, &window), &QShortcut::activated, &window, action);
    };
    on(Qt::Key_F6, [&window] { Go(window, 1); });
    on(Qt::SHIFT | Qt::Key_F6, [&window] { Go(window, -1); });
    on(Qt::Key_F10, [&window] { window.Menus().FocusFirst(); });
}

}  // namespace tolvex
