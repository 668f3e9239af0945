// SPDX-License-Identifier: MIT
#pragma once

#include "base/person.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "image/image.h"

namespace tolvex {

/// Selects the entries that the lock and fuse lists have at start-up.
void ResetOptions(SettingPanel& panel);

/// The device list: what it offers, and what a choice in it sets.
class DeviceSelection {
  public:
    struct Parts {
        Settings& settings;
        Listings& listings;
        const Person& person;
        ProgramState& state;
    };

    explicit DeviceSelection(const Parts& parts)
        : settings_(parts.settings),
          listings_(parts.listings),
          panel_(parts.person.panel),
          device_(parts.state.device) {}

    /// Once, at start-up: fills all lists and selects the stored device.
    void FillDeviceLists();
    /// The person chose the entry `index`; -1 = none. Ends early, without a message, when a listing
    /// can't be rebuilt.
    void SelectDevice(int index);

  private:
    void ApplyDeviceRecord(int index);
    void ShowFuseControls(FuseGroup group);

    Settings& settings_;
    Listings& listings_;
    SettingPanel& panel_;
    CurrentDevice& device_;
};

}  // namespace tolvex
