// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QMdiArea>

#include "app/menu_bar.h"
#include "app/status_bar.h"
#include "app/toolbar.h"
#include "base/settings.h"

namespace tolvex {

/// The frame: menu bar, toolbar, status bar and the area of the child windows.
class frmMain : public QMainWindow {
    Q_OBJECT

  public:
    /// Stands at its stored place, hidden and without bars.
    explicit frmMain(const Settings& settings);

    /// The first step of the start: shows the window, with the event loop, before anything is in
    /// it, and builds the bars while the window system brings it up. What the user does meanwhile
    /// waits. `menus` are borrowed.
    void Appear(std::span<const MenuRow> menus);

    QMdiArea& Area() { return *area_; }
    MenuBar& Menus() { return *menus_; }
    Toolbar& Tools() { return *toolbar_; }
    StatusBar& Panels() { return *statusBar_; }

    /// Nothing while minimised.
    void StorePlace(Settings& settings) const;
    /// While an operation waits, no button or menu item starts another and nothing can be dropped.
    void SetBusy(bool busy);

    void SetStatusText(int panel, const QString& text) { statusBar_->SetPanelText(panel, text); }

  Q_SIGNALS:
    /// The user closed the window; it can't be refused.
    void Closing();
    /// Nothing that has the keyboard focus had a use for the key.
    void EscapePressed();
    /// HEX files, as they were dragged; never empty.
    void FilesDropped(const QStringList& paths);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void TakeStoredPlace(const Settings& settings);
    void BuildBars(std::span<const MenuRow> menus);
    void ListWindows();

    QMdiArea* area_;
    MenuBar* menus_ = nullptr;
    Toolbar* toolbar_ = nullptr;
    StatusBar* statusBar_ = nullptr;
};

}  // namespace tolvex
