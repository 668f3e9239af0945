// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>

#include "base/setting_panel.h"

namespace tolvex {

/// The lock and fuse lists without a window around them.
class OptionLists : public SettingPanel {
  public:
    QStringList Entries(OptionList list) const { return entries_.value(list); }
    bool IsShown(OptionList list) const { return shown_.value(list); }
    /// The chip can be asked for its bits.
    bool Readable() const { return readable_; }

    void FillOptions(OptionList list, const QStringList& entries) override {
        entries_[list] = entries;
        selected_[list] = -1;
    }
    int SelectedOption(OptionList list) const override { return selected_.value(list, -1); }
    void SelectOption(OptionList list, int entry) override { selected_[list] = entry; }
    void ShowOption(OptionList list, bool on) override { shown_[list] = on; }
    void EnableFuseRead(bool enabled) override { readable_ = enabled; }
    void FillDevices(const QStringList&) override {}
    void MarkDevice(int) override {}
    void ShowSizes(const QString&, const QString&) override {}
    void ShowPatchPanel() override {}

  private:
    QMap<OptionList, QStringList> entries_;
    QMap<OptionList, int> selected_;
    QMap<OptionList, bool> shown_;
    bool readable_ = false;
};

}  // namespace tolvex
