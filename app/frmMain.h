// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QMdiArea>

#include "app/status_bar.h"
#include "app/toolbar.h"
#include "base/settings.h"
#include "base/status_panels.h"

namespace tolvex {

/// The frame: toolbar, status bar and the area of the child windows. The menu bar is set by who
/// builds the program.
class frmMain : public QMainWindow, public StatusPanels {
    Q_OBJECT

  public:
    frmMain();

    QMdiArea& Area() { return *area_; }
    Toolbar& Tools() { return *toolbar_; }
    StatusBar& Panels() { return *statusBar_; }

    void TakeStoredPlace(const Settings& settings);
    /// Nothing while minimised.
    void StorePlace(Settings& settings) const;
    /// While an operation runs the toolbar is disabled and nothing can be dropped.
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
    QMdiArea* area_;
    Toolbar* toolbar_;
    StatusBar* statusBar_;
};

}  // namespace tolvex
