// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QMdiArea>

#include "app/status_bar.h"
#include "app/toolbar.h"
#include "base/settings.h"
#include "base/status_panels.h"

namespace tolvex {

class MenuBar;

/// The frame: menu bar, toolbar, status bar and the area of the child windows.
class frmMain : public QMainWindow, public StatusPanels {
    Q_OBJECT

  public:
    /// Stands at its stored place and shows itself as soon as it can, before anything is in it.
    explicit frmMain(const Settings& settings);

    QMdiArea& Area() { return *area_; }
    MenuBar& Menus() { return *menus_; }
    Toolbar& Tools() { return *toolbar_; }
    StatusBar& Panels() { return *statusBar_; }

    /// Nothing while minimised.
    void StorePlace(Settings& settings) const;
    /// While an operation runs, no button or menu item starts another and nothing can be dropped.
    void SetBusy(bool busy);

    void SetStatusText(int panel, const QString& text) override;

  Q_SIGNALS:
    /// The person closed the window; it can't be refused.
    void Closing();
    /// HEX files, as they were dragged; never empty.
    void FilesDropped(const QStringList& paths);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void TakeStoredPlace(const Settings& settings);
    void BuildBars();

    QMdiArea* area_;
    MenuBar* menus_ = nullptr;
    Toolbar* toolbar_ = nullptr;
    StatusBar* statusBar_ = nullptr;
};

}  // namespace tolvex
