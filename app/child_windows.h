// SPDX-License-Identifier: MIT
#pragma once

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

#include "base/settings.h"
#include "device/frmSetting.h"
#include "image/listing_window.h"

namespace tolvex {

/// The child windows of the frame. The user may close each at any time; whoever shows something
/// in a closed one brings it back. A listing window comes back new, the settings window as it was.
class ChildWindows : public QObject {
    Q_OBJECT

  public:
    /// Borrowed.
    explicit ChildWindows(QMdiArea& area) : area_(area) {}

    /// Once, before any other call. The area takes ownership; the window is hidden.
    void AddSettingWindow(frmSetting* setting);
    /// Shows all three with their stored geometry.
    void ShowAll(const Settings& settings);
    /// A closed window keeps what is stored for it; a minimised one counts as it was before.
    void StorePlaces(Settings& settings) const;

    // Bring a window back to its default place, whatever became of it.
    void OpenAll();
    void OpenProgramWindow();
    void OpenEepromWindow();
    void OpenSettingWindow();

    /// The inner width of the Flash listing window; while it is closed, of one that were opened
    /// now.
    int ListingWidth() const;

    /// The open window, or a new one at its default place, which leaves the focus where it is.
    ListingWindow& Program();
    ListingWindow& Eeprom();
    void ShowVerifyReport(const QString& text);

  private:
    /// A listing window while it is open.
    using Child = QPointer<QMdiSubWindow>;

    bool eventFilter(QObject* watched, QEvent* event) override;

    ListingWindow& Listing(Child& child, const ListingLook& look, const QRect& place);

    QMdiArea& area_;
    Child program_;
    Child eeprom_;
    Child verify_;
    QMdiSubWindow* setting_ = nullptr;
};

}  // namespace tolvex
