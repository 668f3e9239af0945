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

/// What a program meets: a simulated board in virtual time, at COM1, with a chip of the stored
/// device in its socket, and a user on record.
struct Surroundings {
    /// `deviceIndex` is the entry of the device list, `stored` is added to the settings.
    Surroundings(int deviceIndex, int baud, const QMap<QString, QString>& stored = {});

    VirtualClock clock;
    std::unique_ptr<SimulatedChip> chip;
    SimulatedWriter board;
    SimulatedPort port;
    Recorder user;
    MemorySettings settings;
    QTemporaryDir folder;
    AppDir folders;
};

/// The whole program without windows.
class TestBench : public Surroundings {
  public:
    /// The records start empty. Another line, or another time, can take the place of the simulated
    /// one; they are not owned and outlive the bench.
    explicit TestBench(int deviceIndex = 0, SerialPort* line = nullptr, EventClock* time = nullptr);

    /// Presses "Program", "Read", "Verify", "Erase", "FuseRead" or "FuseWrite", or chooses "Port"
    /// COM1. True when the program takes what it did for a success.
    bool Press(const QString& button);
    /// What went over the wire since the last `Forget`, in order: "A 00 10", "P" ...
    QStringList Wire() const { return port.Wire(); }
    /// Empties all records.
    void Forget();
    /// Both images filled with `seed`'s random bytes, over the whole device.
    void FillImages(unsigned seed);
    /// The images as a chip holds them, cut to the device's sizes.
    QByteArray FlashOfImages() const;
    QByteArray EepromOfImages() const;

    Workbench bench;
};

/// The four commands of a detection on a device of `code`.
QStringList DetectionWire(std::uint8_t code);

}  // namespace tolvex::testing
