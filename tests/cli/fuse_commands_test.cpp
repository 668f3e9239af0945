// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

constexpr int kLockOnly = 2;  // AT90S2313
constexpr int kFstrt = 3;     // AT90S2323
constexpr int kBodCksel = 4;  // AT90S2333
constexpr int kRcen = 5;      // AT90S2343

TEST(FuseCommands, WriteWhatWasAskedAndKeepTheRest) {
    struct Case {
        int chip;
        QStringList arguments;
        int status;
        int fuses;  ///< of a chip whose fuse bits are all 1 before
        int lock;
    };
    const Case cases[] = {
        {kFstrt, {u"fuses"_s, u"FSTRT=Enable"_s}, kDone, 0xFE, 0xFF},
        {kRcen, {u"fuses"_s, u"rcen=0"_s, u"LOCK=write"_s}, kDone, 0xFE, 0xFD},
        {kBodCksel, {u"fuses"_s, u"CKSEL=6 CK"_s}, kDone, 0xF9, 0xFF},
        {kBodCksel, {u"fuses"_s, u"BODLEVEL=4.0V"_s, u"BODEN=enable"_s}, kDone, 0xE7, 0xFF},
        {kBodCksel, {u"lock"_s, u"full"_s}, kDone, 0xFF, 0xF9},
        {kBodCksel, {u"lock"_s, u"書込み禁止"_s}, kDone, 0xFF, 0xFD},
        {kLockOnly, {u"lock"_s, u"1"_s}, kDone, 0xFF, 0xFD},
        {kLockOnly, {u"fuses"_s}, kWrongUse, 0xFF, 0xFF},
        {kLockOnly, {u"fuses"_s, u"FSTRT=Enable"_s}, kWrongUse, 0xFF, 0xFF},
        {kFstrt, {u"fuses"_s, u"FSTRT=2"_s}, kWrongUse, 0xFF, 0xFF},
        {kFstrt, {u"fuses"_s, u"FSTRT"_s}, kWrongUse, 0xFF, 0xFF},
        {kFstrt, {u"fuses"_s, u"RCEN=Enable"_s}, kWrongUse, 0xFF, 0xFF},
        {kFstrt, {u"lock"_s, u"some"_s}, kWrongUse, 0xFF, 0xFF},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        CliBench bench(c.chip);
        ChipContents contents = bench.chip->Contents();
        contents.fuses = 0xFF;
        bench.chip->SetContents(contents);
        EXPECT_EQ(bench.Run(c.arguments), c.status) << bench.Err().toStdString();
        EXPECT_EQ(bench.chip->Contents().fuses, c.fuses);
        EXPECT_EQ(bench.chip->Contents().lock, c.lock);
        EXPECT_EQ(c.status == kWrongUse, bench.port.Wire().isEmpty());
    }
}

TEST(FuseCommands, ShowTheByteAndWhatChangesFirst) {
    CliBench bench(kBodCksel);
    EXPECT_EQ(bench.Run({u"fuses"_s, u"CKSEL=1K CK"_s}), kDone);
    const QString change =
        u"CKSEL: 64ms + 16K CK -> 1K CK\nヒューズバイト: 0xBA -> 0xBF\n"
        "ロックバイト: 0xFF -> 0xFF\n"_s;
    EXPECT_TRUE(bench.Out().contains(change)) << bench.Out().toStdString();
    EXPECT_LT(bench.Out().indexOf(change), bench.Out().indexOf(u"ライトが完了しました。"_s));
}

TEST(FuseCommands, ReadTheLists) {
    CliBench bench(kBodCksel);
    EXPECT_EQ(bench.Run({u"fuses"_s, u"--quiet"_s}), kDone);
    EXPECT_EQ(bench.Out().toStdString(),
              "BODLEVEL = 2.7V\nBODEN = Disable\n"
              "CKSEL = 64ms + 16K CK\nLOCK = プロテクトなし\n");
    EXPECT_EQ(bench.RunJson({u"fuses"_s}), kDone);
    EXPECT_EQ(bench.Json()["options"_L1].toObject(), (QJsonObject{{u"BODLEVEL"_s, u"2.7V"_s},
                                                                  {u"BODEN"_s, u"Disable"_s},
                                                                  {u"CKSEL"_s, u"64ms + 16K CK"_s},
                                                                  {u"LOCK"_s, u"none"_s}}));
}

TEST(FuseCommands, TellWhenTheChipOrTheWriterSaysNo) {
    struct Case {
        const char* what;
        std::function<void(CliBench&)> prepare;
        QStringList arguments;
        int status;
        QString code;
    };
    const QStringList read{u"fuses"_s};
    const QStringList write{u"fuses"_s, u"FSTRT=Enable"_s};
    const Case cases[] = {
        {"write-protected", [](CliBench& b) { b.chip->ProgramLock(0xFD); }, write, kRefused,
         u"fusesNotTaken"_s},
        {"locked for good",
         [](CliBench& b) { b.chip->ProgramLock(0xFD); },
         {u"lock"_s, u"none"_s},
         kRefused,
         u"fusesNotTaken"_s},
        {"read-protected", [](CliBench& b) { b.chip->ProgramLock(0xF9); }, read, kRefused,
         u"fuseReadFailed"_s},
        {"read refused", [](CliBench& b) { b.board.SetLetterFault('F', FaultKind::Silent); }, read,
         kRefused, u"fuseReadFailed"_s},
        {"write refused", [](CliBench& b) { b.board.SetLetterFault('f', FaultKind::Wrong); }, write,
         kRefused, u"fuseWriteFailed"_s},
        {"hang-up", [](CliBench& b) { b.board.SetLetterFault('l', FaultKind::HangUp); }, write,
         kRefused, u"fuseWriteFailed"_s},
        {"port in use", [](CliBench& b) { b.port.RefuseOpen(); }, write, kNoPort,
         u"portNotOpened"_s},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CliBench bench(kFstrt);
        c.prepare(bench);
        EXPECT_EQ(bench.RunJson(c.arguments), c.status);
        EXPECT_EQ(bench.ErrorCode().toStdString(), c.code.toStdString());
        EXPECT_FALSE(bench.board.InProgrammingMode() && bench.port.IsOpen());
    }
}

}  // namespace
}  // namespace tolvex::testing
