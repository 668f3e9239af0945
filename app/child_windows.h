// SPDX-License-Identifier: MIT
#pragma once

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

#include "base/listing_windows.h"
#include "base/settings.h"
#include "device/frmSetting.h"
#include "image/listing_window.h"

namespace tolvex {

/// The child windows of the frame. The person may close each at any time; whoever shows something
/// in a closed one brings it back. A listing window comes back new, the settings window as it was.
class ChildWindows : public QObject, public ListingWindows {
    Q_OBJECT

  public:
    /// Both are borrowed; `area` takes ownership of `setting`.
    ChildWindows(QMdiArea& area, frmSetting* setting);

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

    void SetFlashListing(const QString& text) override;
    void SetEepromListing(const QString& text) override;
    void ShowVerifyReport(const QString& text) override;
    void SetFlashCaption(const QString& caption) override;
    void SetEepromCaption(const QString& caption) override;

  private:
    /// A listing window while it is open.
    using Child = QPointer<QMdiSubWindow>;

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// The open window, or a new one at its default place, which leaves the focus where it is.
    ListingWindow& Listing(Child& child, const ListingLook& look, const QRect& place);
    ListingWindow& Program();
    ListingWindow& Eeprom();

    QMdiArea& area_;
    Child program_;
    Child eeprom_;
    Child verify_;
    QMdiSubWindow* setting_;
};

}  // namespace tolvex
