// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QMdiSubWindow;

namespace tolvex {

class frmMain;
class MenuBar;

/// F6 and Shift+F6 take the keyboard focus round the main window: menu bar, toolbar, each open
/// child window, status bar. What is hidden or disabled is left out.
class FocusRound : public QObject {
    Q_OBJECT

  public:
    /// Both are borrowed; the window owns this.
    FocusRound(frmMain& window, MenuBar& menus);

  private:
    struct Station {
        QWidget* widget;
        bool (FocusRound::*enter)(QWidget*);
    };

    void Go(int step);
    QList<Station> Stations() const;
    bool EnterMenus(QWidget*);
    bool EnterToolbar(QWidget* toolbar);
    bool EnterChild(QWidget* child);
    bool EnterPanels(QWidget*);

    frmMain& window_;
    MenuBar& menus_;
};

}  // namespace tolvex
