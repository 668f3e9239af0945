// SPDX-License-Identifier: MIT
#pragma once

#include "app/app.h"
#include "device/device.h"
#include "image/image.h"

namespace tolvex {

/// Selects the entries that the lock and fuse lists have at start-up.
void ResetOptions(SettingPanel& panel);

/// The device list: what it offers, and what a choice in it sets.
class DeviceSelection {
  public:
    struct Parts {
        CurrentDevice& device;
        Settings& settings;
        SettingPanel& panel;
        Listings& listings;
    };

    explicit DeviceSelection(const Parts& parts) : parts_(parts) {}

    /// Once, at start-up: fills all lists and selects the stored device.
    void FillDeviceLists();
    /// The person chose the entry `index`; -1 = none. False when a listing could not be rebuilt.
    bool SelectDevice(int index);

  private:
    void ApplyDeviceRecord(int index);
    void ShowFuseControls(FuseGroup group);

    Parts parts_;
};

}  // namespace tolvex
