// SPDX-License-Identifier: MIT
#include "app/focus_round.h"

#include <QMdiSubWindow>
#include <QShortcut>
#include <QToolButton>

#include "app/frmMain.h"
#include "app/menu_bar.h"

namespace tolvex {

FocusRound::FocusRound(frmMain& window, MenuBar& menus)
    : QObject(&window), window_(window), menus_(menus) {
    connect(new QShortcut(Qt::Key_F6, &window), &QShortcut::activated, this, [this] { Go(1); });
    connect(new QShortcut(Qt::SHIFT | Qt::Key_F6, &window), &QShortcut::activated, this,
            [this] { Go(-1); });
}

QList<FocusRound::Station> FocusRound::Stations() const {
    QList<Station> stations{{&menus_, &FocusRound::EnterMenus},
                            {&window_.Tools(), &FocusRound::EnterToolbar}};
    for (QMdiSubWindow* child : window_.Area().subWindowList()) {
        stations << Station{child, &FocusRound::EnterChild};
    }
    stations << Station{&window_.Panels(), &FocusRound::EnterPanels};
    stations.removeIf([](const Station& station) {
        return station.widget->isHidden() || !station.widget->isEnabled();
    });
    return stations;
}

/// To the next station that takes the focus; from nowhere, as if from the one before the first.
void FocusRound::Go(int step) {
    const QList<Station> stations = Stations();
    const QWidget* focus = window_.focusWidget();
    const int count = static_cast<int>(stations.size());
    int at = step > 0 ? -1 : 0;
    for (int i = 0; i < count; ++i) {
        if (stations[i].widget == focus || stations[i].widget->isAncestorOf(focus)) {
            at = i;
        }
    }
    for (int tried = 0; tried < count; ++tried) {
        at = (at + step + count) % count;
        if ((this->*stations[at].enter)(stations[at].widget)) {
            return;
        }
    }
}

bool FocusRound::EnterMenus(QWidget*) {
    menus_.FocusFirst();
    return true;
}

bool FocusRound::EnterToolbar(QWidget* toolbar) {
    for (QToolButton* button : toolbar->findChildren<QToolButton*>()) {
        if (button->isVisible() && button->isEnabled() &&
            !button->objectName().startsWith(u"qt_")) {
            button->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return false;
}

bool FocusRound::EnterChild(QWidget* child) {
    auto* window = static_cast<QMdiSubWindow*>(child);
    window_.Area().setActiveSubWindow(window);
    // Activation alone leaves the focus where it is when the window was active already.
    QWidget* inside = window->widget();
    QWidget* last = inside->focusWidget();
    if (last == nullptr || !last->isVisible() || !last->isEnabled()) {
        last = inside;  // its focus proxy gets it
    }
    (window->isMinimized() || !inside->isEnabled() ? window : last)->setFocus(Qt::TabFocusReason);
    return true;
}

bool FocusRound::EnterPanels(QWidget*) {
    window_.Panels().FocusFirst();
    return true;
}

}  // namespace tolvex
