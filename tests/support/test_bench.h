// SPDX-License-Identifier: MIT
#pragma once

#include <QTemporaryDir>
#include <memory>

#include "tests/support/recorder.h"
#include "tests/support/simulated_port.h"
#include "tests/support/virtual_clock.h"
#include "workbench/workbench.h"
#include "writer/simulated_writer.h"

namespace tolvex::testing {

/// The whole program without windows, in front of a simulated board in virtual time, at COM1, with
/// a chip of the selected device in the socket.
class TestBench {
  public:
    /// `deviceIndex` is the entry of the device list. The records start empty.
    explicit TestBench(int deviceIndex = 0);

    /// What went over the wire since the last `Forget`, in order: "A 00 10", "P" ...
    QStringList Wire() const { return port.Wire(); }
    /// Empties all records.
    void Forget();
    /// Both images filled with `seed`'s random bytes, over the whole device.
    void FillImages(unsigned seed);
    /// The images as the chip holds them, cut to the device's sizes.
    QByteArray FlashOfImages() const;
    QByteArray EepromOfImages() const;

    VirtualClock clock;
    std::unique_ptr<SimulatedChip> chip;
    SimulatedWriter board;
    SimulatedPort port;
    Recorder person;
    MemorySettings settings;
    QTemporaryDir folder;
    AppDir folders;
    Workbench bench;
};

/// The four commands of a detection on a device of `code`.
QStringList DetectionWire(std::uint8_t code);

}  // namespace tolvex::testing
