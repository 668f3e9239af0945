// SPDX-License-Identifier: MIT
// The programs themselves, on a real pseudo-terminal and in real time.
#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

#include "writer/chip_state_file.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPatience = 30'000;  // ms, for a loaded machine

class FirmwareProgram : public ::testing::Test {
  protected:
    ~FirmwareProgram() override {
        board_.terminate();
        board_.waitForFinished(kPatience);
    }

    QString Path(const QString& name) const { return folder_.filePath(name); }

    void StartBoard(const QStringList& options) {
        const QStringList fixed{u"--device"_s,   u"AT90S2313"_s, u"--state"_s,
                                Path(u"chip"_s), u"--link"_s,    Path(u"port"_s)};
        board_.start(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-firmware"), options + fixed);
        ASSERT_TRUE(board_.waitForReadyRead(kPatience)) << board_.readAllStandardError().data();
        ASSERT_TRUE(board_.readLine().startsWith("ready "));
    }
    int RunTool(const QStringList& arguments) {
        const QStringList fixed{u"--quiet"_s, u"--port"_s, Path(u"port"_s), u"--device"_s,
                                u"AT90S2313"_s};
        return QProcess::execute(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-cli"), fixed + arguments);
    }

    QTemporaryDir folder_;
    QProcess board_;
};

TEST_F(FirmwareProgram, ProgramsAChipThatIsKept) {
    StartBoard({});
    const QString sample = QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.hex");
    EXPECT_EQ(RunTool({u"program"_s, sample}), 0);
    EXPECT_EQ(RunTool({u"lock"_s, u"write"_s}), 0);
    board_.terminate();
    ASSERT_TRUE(board_.waitForFinished(kPatience));
    EXPECT_EQ(board_.exitCode(), 0) << board_.readAllStandardError().data();
    const LoadedChip chip = LoadChip(Path(u"chip"_s));
    ASSERT_TRUE(chip.chip) << chip.error.toStdString();
    EXPECT_TRUE(chip.chip->WriteProtected());
    EXPECT_FALSE(QFile::exists(Path(u"port"_s)));
}

TEST_F(FirmwareProgram, EndsWhenTheFirmwareDoesSomethingWrong) {
    StartBoard({u"--clock"_s, u"300000"_s});
    EXPECT_EQ(RunTool({u"detect"_s}), 1);
    ASSERT_TRUE(board_.waitForFinished(kPatience));
    EXPECT_EQ(board_.exitCode(), 1);
    EXPECT_TRUE(board_.readAllStandardError().contains("SCK is too fast"));
}

}  // namespace
}  // namespace tolvex
