// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace tolvex {

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

    virtual void FillDevices(const QStringList& names) = 0;
    /// Marks the entry in the list; it does not call back.
    virtual void MarkDevice(int index) = 0;
    virtual void ShowSizes(const QString& flash, const QString& eeprom) = 0;
    /// The panel that patches single cells needs a device; it stays hidden until there is one.
    virtual void ShowPatchPanel() = 0;
};

}  // namespace tolvex
