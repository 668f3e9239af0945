// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>

namespace tolvex {

class MainCommands;

/// The menu bar. Every item is an action named after it; hidden items exist and work, but are not
/// shown.
class MenuBar : public QMenuBar {
    Q_OBJECT

  public:
    /// `commands` is borrowed: it holds the handlers.
    explicit MenuBar(MainCommands& commands, QWidget* parent = nullptr);

    /// While an operation runs, the items that would start another one are disabled.
    void SetBusy(bool busy);
    QMenu* WindowMenu() const { return windowMenu_; }

  private:
    QMenu* windowMenu_ = nullptr;
    QList<QAction*> exclusive_;
};

}  // namespace tolvex
