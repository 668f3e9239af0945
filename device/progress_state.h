// SPDX-License-Identifier: MIT
#pragma once

namespace tolvex {

/// The progress bar's numbers, for whoever draws it.
struct ProgressState {
    double minimum = 0;
    double value = 0;
    double maximum = 0;
    bool visible = false;

    /// Off hides the bar and keeps its numbers. A phase of one step (maximum 0) stands at 1 of 1.
    /// The bar is gone on the last step.
    void Set(bool on, double newMinimum, double newValue, double newMaximum) {
        visible = on && newMaximum != newValue;
        if (!on) {
            return;
        }
        minimum = newMinimum;
        value = newMaximum == 0 ? 1 : newValue;
        maximum = newMaximum == 0 ? 1 : newMaximum;
    }
};

}  // namespace tolvex
