// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

using enum FaultKind;

constexpr int kLockOnly = 2;  // AT90S2313
constexpr int kFstrt = 3;     // AT90S2323
constexpr int kBodCksel = 4;  // AT90S2333
constexpr int kRcen = 5;      // AT90S2343

QString Writes(const CliBench& bench) {
    return bench.port.Wire().filter(QRegularExpression(u"^[fl] "_s)).join(u' ');
}

TEST(FuseCommands, WriteWhatWasNamedAndNothingElse) {
    struct Case {
        int chip;
        const char* line;
        int status;
        const char* writes;  ///< to a chip whose bits are all 1
        bool confirmed = true;
    };
    const Case cases[] = {
        {kFstrt, "fuses FSTRT=Enable", kDone, "f BE"},
        {kRcen, "fuses rcen=enable LOCK=write", kDone, "f BE l FD"},
        {kRcen, "fuses LOCK=full RCEN=Enable", kDone, "f BE l F9"},
        {kBodCksel, "fuses CKSEL=6~CK", kDone, "f B9"},
        {kBodCksel, "fuses BODLEVEL=4.0V BODEN=enable", kDone, "f A7"},
        {kBodCksel, "lock full", kDone, "l F9"},
        {kBodCksel, "lock 書込み禁止", kDone, "l FD"},
        {kLockOnly, "lock full", kDone, "l F9"},
        {kLockOnly, "lock write", kDone, "l FD", false},
        {kLockOnly, "lock 1", kWrongUse, ""},
        {kLockOnly, "fuses", kWrongUse, ""},
        {kRcen, "fuses RCEN=1", kWrongUse, ""},
        {kFstrt, "fuses FSTRT", kWrongUse, ""},
        {kFstrt, "fuses RCEN=Enable", kWrongUse, ""},
        {kFstrt, "fuses LOCK=write lock=none", kWrongUse, ""},
        {kFstrt, "fuses FSTRT=unknown", kWrongUse, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        CliBench b(c.chip);
        ChipContents contents = b.chip->Contents();
        contents.fuses = 0xFF;
        b.chip->SetContents(contents);
        EXPECT_EQ(b.RunJson(c.line), c.status) << b.Err().toStdString();
        EXPECT_EQ(Writes(b).toStdString(), c.writes);
        EXPECT_EQ(c.status == kWrongUse, b.port.Wire().isEmpty());
        EXPECT_EQ(b.Json()["confirmed"_L1].toBool(true), c.confirmed);
        const QJsonObject written = b.Json()["written"_L1].toObject();
        QString told;
        for (const char* key : {"fuseByte", "lockByte"}) {
            if (written.contains(QLatin1String(key))) {
                told += u" %1 "_s.arg(QLatin1Char(key[0])) +
                        HexByte(written[QLatin1String(key)].toInt());
            }
        }
        EXPECT_EQ(told.trimmed().toStdString(), c.writes);
    }
}

TEST(FuseCommands, ShowWhatChangesFirstAndWhatTheChipHas) {
    CliBench b(kBodCksel);
    EXPECT_EQ(b.Run("fuses CKSEL=1K~CK"), kDone);
    const QString change = u"CKSEL: 64ms + 16K CK -> 1K CK\nヒューズバイト: 0xBA -> 0xBF\n"_s;
    EXPECT_TRUE(b.Out().contains(change)) << b.Out().toStdString();
    EXPECT_LT(b.Out().indexOf(change), b.Out().indexOf(u"ライトが完了しました。"_s));
    EXPECT_EQ(b.Run("fuses --quiet"), kDone);
    EXPECT_EQ(b.Out(), u"BODLEVEL = 2.7V\nBODEN = Disable\nCKSEL = 1K CK\nLOCK = none\n"_s);
    // LB2 alone stands for no entry: told, and left as it is.
    b.chip->ProgramLock(0xFB);
    EXPECT_EQ(b.RunJson("fuses BODEN=Enable"), kDone) << b.Err().toStdString();
    EXPECT_EQ(b.Json()["options"_L1].toObject(), (QJsonObject{{u"BODLEVEL"_s, u"2.7V"_s},
                                                              {u"BODEN"_s, u"Enable"_s},
                                                              {u"CKSEL"_s, u"1K CK"_s},
                                                              {u"LOCK"_s, u"unknown"_s}}));
    EXPECT_EQ(b.chip->Contents().lock, 0xFB);
}

TEST(FuseCommands, TellWhenTheChipOrTheWriterSaysNo) {
    struct Case {
        int chip;
        std::function<void(CliBench&)> prepare;
        const char* line;
        const char* code;
        const char* writes;
    };
    const auto forgetLock = [](CliBench& b) {
        b.signal = [&b] {
            b.chip->Erase();
            return 0;
        };
    };
    const Case cases[] = {
        {kFstrt, Lock(0xFD), "fuses FSTRT=Enable", "notTaken", "f BE"},
        {kFstrt, Lock(0xFD), "lock none", "notTaken", "l FF"},
        {kLockOnly, forgetLock, "lock full", "notTaken", "l F9"},
        {kFstrt, Lock(0xF9), "fuses", "locked", ""},
        {kFstrt, Insert("AT90S2313"), "fuses FSTRT=Enable", "wrongChip", ""},
        {kLockOnly, Insert("AT90S2323"), "lock full", "wrongChip", ""},
        {kFstrt, Spoil('F', Wrong, 2), "fuses FSTRT=Enable", "implausible", ""},
        {kBodCksel, Spoil('r', Wrong, 1), "fuses BODEN=Enable", "unstable", ""},
        {kFstrt, Spoil('F', Silent, 2), "fuses FSTRT=Enable", "writerSilent", ""},
        {kFstrt, Spoil('F', Silent, 3), "fuses FSTRT=Enable", "writerSilent", "f BE"},
        {kBodCksel, Spoil('r', Wrong, 3), "fuses BODEN=Enable", "notTaken", "f B2"},
        {kFstrt, Spoil('f', Wrong, 1), "fuses FSTRT=Enable LOCK=full", "commandRefused", "f BE"},
        {kFstrt, Spoil('l', HangUp, 1), "lock none", "lineLost", "l FF"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        CliBench b(c.chip);
        c.prepare(b);
        EXPECT_EQ(b.RunJson(c.line), kRefused) << b.Err().toStdString();
        EXPECT_EQ(b.ErrorCode(), c.code) << b.Err().toStdString();
        EXPECT_EQ(Writes(b).toStdString(), c.writes);
        EXPECT_FALSE(b.board.InProgrammingMode() && b.port.IsOpen());
    }
}

}  // namespace
}  // namespace tolvex::testing
