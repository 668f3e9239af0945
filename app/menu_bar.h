// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>
#include <QPointer>

#include "app/main_commands.h"

namespace tolvex {

/// The menu bar. Every item is an action named after it; hidden items exist and work, but are not
/// shown.
class MenuBar : public QMenuBar {
    Q_OBJECT

  public:
    explicit MenuBar(QWidget* parent = nullptr);

    /// While an operation runs, the items that would start another one are disabled.
    void SetBusy(bool busy);
    /// The first menu is marked and takes the keyboard focus; Esc gives it back.
    void FocusFirst();
    QMenu* WindowMenu() const { return windowMenu_; }

  Q_SIGNALS:
    /// The person chose an item.
    void Chosen(const MainCommands::Command& command);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void GiveFocusBack();

    QMenu* windowMenu_ = nullptr;
    QPointer<QWidget> before_;  ///< had the focus before the menus
    QList<QAction*> exclusive_;
};

}  // namespace tolvex
