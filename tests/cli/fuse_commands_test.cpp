// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

constexpr int kLockOnly = 2;  // AT90S2313
constexpr int kFstrt = 3;     // AT90S2323
constexpr int kBodCksel = 4;  // AT90S2333
constexpr int kRcen = 5;      // AT90S2343

QStringList Writes(const CliBench& bench) {
    return bench.port.Wire().filter(QRegularExpression(u"^[fl] "_s));
}

TEST(FuseCommands, WriteWhatWasNamedAndNothingElse) {
    struct Case {
        int chip;
        QStringList arguments;
        int status;
        QStringList writes;  ///< to a chip whose bits are all 1
    };
    const Case cases[] = {
        {kFstrt, {u"fuses"_s, u"FSTRT=Enable"_s}, kDone, {u"f BE"_s}},
        {kRcen, {u"fuses"_s, u"rcen=enable"_s, u"LOCK=write"_s}, kDone, {u"f BE"_s, u"l FD"_s}},
        {kRcen, {u"fuses"_s, u"LOCK=full"_s, u"RCEN=Enable"_s}, kDone, {u"f BE"_s, u"l F9"_s}},
        {kBodCksel, {u"fuses"_s, u"CKSEL=6 CK"_s}, kDone, {u"f B9"_s}},
        {kBodCksel, {u"fuses"_s, u"BODLEVEL=4.0V"_s, u"BODEN=enable"_s}, kDone, {u"f A7"_s}},
        {kBodCksel, {u"lock"_s, u"full"_s}, kDone, {u"l F9"_s}},
        {kBodCksel, {u"lock"_s, u"書込み禁止"_s}, kDone, {u"l FD"_s}},
        {kLockOnly, {u"lock"_s, u"write"_s}, kDone, {u"l FD"_s}},
        {kLockOnly, {u"lock"_s, u"full"_s}, kDone, {u"l F9"_s}},
        {kLockOnly, {u"lock"_s, u"1"_s}, kWrongUse, {}},
        {kLockOnly, {u"fuses"_s}, kWrongUse, {}},
        {kRcen, {u"fuses"_s, u"RCEN=1"_s}, kWrongUse, {}},
        {kFstrt, {u"fuses"_s, u"FSTRT"_s}, kWrongUse, {}},
        {kFstrt, {u"fuses"_s, u"RCEN=Enable"_s}, kWrongUse, {}},
        {kFstrt, {u"fuses"_s, u"LOCK=write"_s, u"lock=none"_s}, kWrongUse, {}},
        {kFstrt, {u"fuses"_s, u"FSTRT=unknown"_s}, kWrongUse, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        CliBench bench(c.chip);
        ChipContents contents = bench.chip->Contents();
        contents.fuses = 0xFF;
        bench.chip->SetContents(contents);
        EXPECT_EQ(bench.RunJson(c.arguments), c.status) << bench.Err().toStdString();
        EXPECT_EQ(Writes(bench), c.writes);
        EXPECT_EQ(c.status == kWrongUse, bench.port.Wire().isEmpty());
        const QJsonObject written = bench.Json()["written"_L1].toObject();
        for (const QString& write : c.writes) {
            EXPECT_EQ(written[write[0] == u'f' ? u"fuseByte"_s : u"lockByte"_s].toInt(),
                      write.mid(2).toInt(nullptr, 16));
        }
        EXPECT_EQ(bench.Json()["confirmed"_L1].toBool(true),
                  c.chip != kLockOnly || c.arguments != QStringList({u"lock"_s, u"write"_s}));
    }
}

TEST(FuseCommands, ShowTheByteAndWhatChangesFirst) {
    CliBench bench(kBodCksel);
    EXPECT_EQ(bench.Run({u"fuses"_s, u"CKSEL=1K CK"_s}), kDone);
    const QString change = u"CKSEL: 64ms + 16K CK -> 1K CK\nヒューズバイト: 0xBA -> 0xBF\n"_s;
    EXPECT_TRUE(bench.Out().contains(change)) << bench.Out().toStdString();
    EXPECT_LT(bench.Out().indexOf(change), bench.Out().indexOf(u"ライトが完了しました。"_s));
    EXPECT_EQ(bench.Run({u"fuses"_s, u"--quiet"_s}), kDone);
    EXPECT_EQ(bench.Out().toStdString(),
              "BODLEVEL = 2.7V\nBODEN = Disable\nCKSEL = 1K CK\nLOCK = none\n");
    // LB2 alone stands for no entry: told, and left as it is.
    bench.chip->ProgramLock(0xFB);
    EXPECT_EQ(bench.RunJson({u"fuses"_s, u"BODEN=Enable"_s}), kDone) << bench.Err().toStdString();
    EXPECT_EQ(bench.Json()["options"_L1].toObject(), (QJsonObject{{u"BODLEVEL"_s, u"2.7V"_s},
                                                                  {u"BODEN"_s, u"Enable"_s},
                                                                  {u"CKSEL"_s, u"1K CK"_s},
                                                                  {u"LOCK"_s, u"unknown"_s}}));
    EXPECT_EQ(bench.chip->Contents().lock, 0xFB);
}

TEST(FuseCommands, TellWhenTheChipOrTheWriterSaysNo) {
    struct Case {
        const char* what;
        int chip;
        std::function<void(CliBench&)> prepare;
        QStringList arguments;
        const char* code;
        int writes;
    };
    const auto garble = [](char letter, int occurrence) {
        return [=](CliBench& b) { b.board.SetLetterFault(letter, FaultKind::Wrong, occurrence); };
    };
    const QStringList read{u"fuses"_s};
    const QStringList write{u"fuses"_s, u"FSTRT=Enable"_s};
    const QStringList lock{u"lock"_s, u"none"_s};
    static SimulatedChip other(*FindChipModel(u"AT90S2313"));
    const Case cases[] = {
        {"write-protected", kFstrt, [](CliBench& b) { b.chip->ProgramLock(0xFD); }, write,
         "notTaken", 1},
        {"locked for good", kFstrt, [](CliBench& b) { b.chip->ProgramLock(0xFD); }, lock,
         "notTaken", 1},
        {"a lock that does not hold",
         kLockOnly,
         [](CliBench& b) {
             b.signal = [&b] {
                 b.chip->Erase();
                 return 0;
             };
         },
         {u"lock"_s, u"full"_s},
         "notTaken",
         1},
        {"read-protected", kFstrt, [](CliBench& b) { b.chip->ProgramLock(0xF9); }, read, "locked",
         0},
        {"another part", kFstrt, [](CliBench& b) { b.board.SetChip(&other); }, write, "wrongChip",
         0},
        {"another part, to lock", kLockOnly, [](CliBench& b) { b.board.SetChip(nullptr); }, lock,
         "emptySocket", 0},
        {"one garbled 'F'", kFstrt, garble('F', 2), write, "implausible", 0},
        {"garbled 'r'", kBodCksel, garble('r', 1), {u"fuses"_s, u"BODEN=Enable"_s}, "unstable", 0},
        {"always as if locked", kFstrt, garble('F', 0), read, "implausible", 0},
        {"'F' silent", kFstrt,
         [](CliBench& b) { b.board.SetLetterFault('F', FaultKind::Silent, 2); }, write,
         "writerSilent", 0},
        {"confirmation silent", kFstrt,
         [](CliBench& b) { b.board.SetLetterFault('F', FaultKind::Silent, 3); }, write,
         "writerSilent", 1},
        {"confirmation garbled", kFstrt, garble('F', 3), write, "implausible", 1},
        {"write refused", kFstrt, garble('f', 1), write, "commandRefused", 1},
        {"hang-up", kFstrt, [](CliBench& b) { b.board.SetLetterFault('l', FaultKind::HangUp); },
         lock, "lineLost", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CliBench bench(c.chip);
        c.prepare(bench);
        EXPECT_EQ(bench.RunJson(c.arguments), kRefused) << bench.Err().toStdString();
        EXPECT_EQ(bench.ErrorCode(), c.code) << bench.Err().toStdString();
        EXPECT_EQ(Writes(bench).size(), c.writes);
        EXPECT_FALSE(bench.board.InProgrammingMode() && bench.port.IsOpen());
    }
}

}  // namespace
}  // namespace tolvex::testing
