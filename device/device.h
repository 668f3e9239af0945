// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

namespace tolvex {

/// Which lock and fuse options a chip has.
enum class FuseGroup { LockOnly, FSTRT, RCEN, BOD_CKSEL };

/// A row of the device catalogue.
struct DeviceRecord {
    QString name;             ///< shown in the device list, and the look-up key
    std::uint8_t deviceCode;  ///< the writer's own chip class, sent after 'T'
    std::int32_t flashWords;  ///< 16-bit words
    std::int32_t eepromBytes;
    FuseGroup fuseGroup;
};

/// What is selected. Both sizes are 0 until the first selection.
struct CurrentDevice {
    QString name;
    std::uint8_t deviceCode = 0;
    std::int32_t flashWords = 0;
    std::int32_t eepromBytes = 0;
    FuseGroup fuseGroup = FuseGroup::LockOnly;
};

enum class MessageMode {
    Progress,  ///< no button; the progress bar is left to `SetProgress`
    Message    ///< an OK button with the keyboard focus, no progress bar
};

/// The one place that tells the person what an operation does and how it ended. It never blocks:
/// every call returns at once and the next one replaces what is shown.
class MessageDialog {
  public:
    virtual ~MessageDialog() = default;
    virtual void ShowMessage(MessageMode mode, const QString& text) = 0;
    virtual void CloseMessage() = 0;
    /// `on` false hides the bar. A `maximum` of 0 (a phase of one step) counts as 1 of 1. The bar
    /// is visible while `value` differs from `maximum`.
    virtual void SetProgress(bool on, double minimum, double value, double maximum) = 0;
};

/// The six option lists of the lock and fuse area.
enum class OptionList { FSTRT, RCEN, BODLEVEL, BODEN, CKSEL, LockBit };
inline constexpr OptionList kOptionLists[] = {OptionList::FSTRT,    OptionList::RCEN,
                                              OptionList::BODLEVEL, OptionList::BODEN,
                                              OptionList::CKSEL,    OptionList::LockBit};

/// The settings window as the operations see it.
class SettingPanel {
  public:
    virtual ~SettingPanel() = default;
    /// Replaces the entries; nothing is selected afterwards.
    virtual void FillOptions(OptionList list, const QStringList& entries) = 0;
    virtual int SelectedOption(OptionList list) const = 0;
    virtual void SelectOption(OptionList list, int entry) = 0;
    /// Label enabled and list shown, or label greyed and list hidden.
    virtual void ShowOption(OptionList list, bool on) = 0;
    virtual void EnableFuseRead(bool enabled) = 0;
    virtual void EnableFuseWrite(bool enabled) = 0;

    virtual void FillDevices(const QStringList& names) = 0;
    /// Marks the entry in the list; it does not call back.
    virtual void MarkDevice(int index) = 0;
    virtual void ShowSizes(const QString& flash, const QString& eeprom) = 0;
    /// The panel that patches single cells needs a device; it stays hidden until there is one.
    virtual void ShowPatchPanel() = 0;
};

}  // namespace tolvex
