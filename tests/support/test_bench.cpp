// SPDX-License-Identifier: MIT
#include "tests/support/test_bench.h"

#include <random>

#include "writer/chip_models.h"

namespace tolvex::testing {

Surroundings::Surroundings(int deviceIndex, int baud, const QMap<QString, QString>& stored)
    : chip(std::make_unique<SimulatedChip>(ChipModels()[static_cast<std::size_t>(deviceIndex)])),
      board(chip.get()),
      port(board, clock, baud),
      folders{folder.path() + u'/', {folder.path() + u'/'}} {
    settings.values[u"ComNox"_s] = u"1"_s;
    settings.values[u"device"_s] = QString::number(deviceIndex);
    settings.values.insert(stored);
}

TestBench::TestBench(int deviceIndex, SerialPort* line, EventClock* time)
    : Surroundings(deviceIndex, 0),
      bench({.port = line == nullptr ? port : *line,
             .clock = time == nullptr ? clock : *time,
             .settings = settings,
             .folders = folders,
             .ui = user}) {
    user.state = &bench.state;
    FillDeviceLists(bench.chip);
    Forget();
}

bool TestBench::Press(const QString& button) {
    if (button == u"Port") {
        BeginPortChoice(bench.chip);
        ConfirmPortChoice(bench.chip, 1, [] {});
        return bench.connection.IsOpen();
    }
    if (button == u"FuseRead") {
        return cmdFuseRead_Click(bench.chip).done;
    }
    if (button == u"FuseWrite") {
        return cmdFuseWrite_Click(bench.chip).done;
    }
    const SequenceResult r = tbToolBar_ButtonClick(bench, button);
    return r.program  ? r.erase->succeeded && (r.program->nothingToWrite || r.program->Verified())
           : r.read   ? r.read->Complete()
           : r.verify ? r.verify->Matches()
                      : r.erase && r.erase->succeeded;
}

void TestBench::Forget() {
    port.ForgetTrace();
    user.calls.clear();
    user.progress.clear();
}

void TestBench::FillImages(unsigned seed) {
    std::mt19937 random(seed);
    const auto fill = [&random](auto& image, int cells) {
        for (int cell = 0; cell < cells; ++cell) {
            image[static_cast<std::size_t>(cell)] = static_cast<std::uint8_t>(random());
        }
    };
    fill(bench.state.images.flash, 2 * bench.state.device.flashWords);
    fill(bench.state.images.eeprom, bench.state.device.eepromBytes);
}

QByteArray TestBench::FlashOfImages() const {
    QByteArray bytes;
    for (int cell = 0; cell < 2 * bench.state.device.flashWords; ++cell) {  // low bytes first
        bytes += static_cast<char>(bench.state.images.flash[static_cast<std::size_t>(cell ^ 1)]);
    }
    return bytes;
}

QByteArray TestBench::EepromOfImages() const {
    return {reinterpret_cast<const char*>(bench.state.images.eeprom.data()),
            bench.state.device.eepromBytes};
}

QStringList DetectionWire(std::uint8_t code) {
    return {u"S"_s, u"V"_s, u"v"_s, u"T %1 00"_s.arg(HexByte(code))};
}

}  // namespace tolvex::testing
