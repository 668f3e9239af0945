// SPDX-License-Identifier: MIT
// The programs themselves, on a real pseudo-terminal and in real time.
#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

#include "writer/chip_state_file.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

constexpr int kLongestWait = 30'000;  // ms, for a loaded machine

TEST(FirmwareProgram, KeepsTheChipAndEndsWhenTheFirmwareDoesSomethingWrong) {
    const QString sample = QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.hex");
    for (const bool tooSlow : {false, true}) {  // a chip's clock
        const QTemporaryDir folder;
        const QString device = u"AT90S2313"_s;
        const QString port = folder.filePath(u"port"_s), state = folder.filePath(u"chip"_s);
        QProcess board;
        board.start(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-firmware"),
                    {u"--device"_s, device, u"--state"_s, state, u"--link"_s, port, u"--clock"_s,
                     tooSlow ? u"300000"_s : u"4000000"_s});
        ASSERT_TRUE(board.waitForReadyRead(kLongestWait)) << board.readAllStandardError().data();
        ASSERT_TRUE(board.readLine().startsWith("ready "));
        const QStringList fixed{u"--quiet"_s, u"--port"_s, port, u"--device"_s, device};
        for (const auto& command : {QStringList{u"program"_s, sample}, {u"lock"_s, u"write"_s}}) {
            const int status =
                QProcess::execute(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-cli"), fixed + command);
            EXPECT_EQ(status == 0, !tooSlow);
        }
        if (!tooSlow) {
            board.terminate();
        }
        ASSERT_TRUE(board.waitForFinished(kLongestWait));
        EXPECT_EQ(board.exitCode(), tooSlow ? 1 : 0);
        EXPECT_EQ(board.readAllStandardError().contains("SCK is too fast"), tooSlow);
        const LoadedChip kept = LoadChip(state);
        const auto* chip = std::get_if<SimulatedChip>(&kept);
        ASSERT_TRUE(chip);
        EXPECT_EQ(chip->WriteLocked(), !tooSlow);
        EXPECT_FALSE(QFile::exists(port));
    }
}

}  // namespace
}  // namespace tolvex
