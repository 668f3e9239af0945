// SPDX-License-Identifier: MIT
#include "writer/simulated_writer.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/real_files.h"
#include "writer/chip_state_file.h"
#include "writer/trace_replay.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Sends "A 00 10 d" (letters and hexadecimal bytes) and returns every reply but the plain "done".
QString Talk(SimulatedWriter& board, const QString& line) {
    QStringList replies;
    for (const QString& word : line.split(u' ')) {
        const int byte = word.size() == 1 ? word[0].unicode() : word.toInt(nullptr, 16);
        if (const auto reply = board.Receive(static_cast<std::uint8_t>(byte))) {
            if (reply->Answered() != u"0D") {
                replies << reply->Answered();
            }
        }
    }
    return replies.join(u", ");
}

TEST(SimulatedWriter, AnswersAsBoardAndChipDo) {
    const struct {
        const char* what;
        const char16_t* chip;  ///< null = empty socket
        QString sent, told;
    } cases[] = {
        // clang-format off
        {"identity", u"AT90S2313", u"S V v s x y"_s, u"41 56 52 20 49 53 50, 33 39, 31 30, 01 91 1E"_s},
        {"never in programming mode", u"5", u"A 00 00 R c 00 C 00 d D 00 e f BE l F9 F r s"_s, u"3F, 3F, 3F, 3F, 3F, 3F, 3F, 3F, 3F, 3F, 03 91 1E"_s},
        {"empty socket", nullptr, u"s P A 00 00 c 00 C 00 R D 00 d e f A0 l F9 F r"_s, u"FF FF FF, FF FF, FF, FF, FF"_s},
        {"the address moves on after C and R", u"2", u"P A 00 0F c 34 C 12 c 78 C 56 A 00 0F R R R"_s, u"12 34, 56 78, FF FF"_s},
        {"EEPROM addresses wrap", u"AT90S8515", u"P A 01 10 D 5A A 00 10 d A 03 10 d"_s, u"FF, 5A"_s},
        {"programming Flash only clears bits", u"2", u"P c F0 c 3C C 12 D 0F D F1 A 00 00 R d"_s, u"12 30, F1"_s},
        {"erase sets all but the fuses", u"AT90S2333", u"P c 00 C 00 D 00 f A7 l F9 e A 00 00 R d r F"_s,
         u"FF FF, FF, E7, FF"_s},
        {"locked against writing it ignores writes", u"AT90S2333", u"P D 77 l FD D 00 d C 00 f A0 A 00 00 R r F s"_s, u"77, FF FF, FA, FD, 05 91 1E"_s},
        {"locks are added, not taken away", u"AT90S2333", u"P l FD l FF F l FB F"_s, u"FD, F9"_s},
        {"locked it answers addresses", u"AT90S8515", u"P l F9 s A 01 81 R d"_s, u"02 01 00, 03 02, 82"_s},
        {"other instructions are ignored", u"AT90S4433", u"P f A0 r f BF r f E5 r f 00 r l 00 l D9 F"_s, u"E0, FF, FF, FF, FF"_s},
        {"FSTRT on, writing locked", u"AT90S2323", u"P f BE l FD F"_s, u"7E"_s},
        {"blind: a deaf chip, and all is acknowledged", u"AT90S2343", u"s e A 00 00 R F P D 12 s L D 34 s P d"_s, u"FF FF FF, FF FF, FF, 03 91 1E, FF FF FF, 12"_s},
        {"RCEN off, locked", u"AT90S2343", u"P f BF l F9 F"_s, u"3F"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        std::optional<SimulatedChip> chip;
        if (c.chip) {
            chip.emplace(*FindChipModel(c.chip));
        }
        SimulatedWriter board(chip ? &*chip : nullptr);
        if (QByteArrayView(c.what).startsWith("blind")) {
            board.AcknowledgeBlindly();
        }
        EXPECT_EQ(Talk(board, c.sent).toStdString(), c.told.toStdString()) << c.what;
    }
}

TEST(ChipStateFile, DamageIsReportedAndTheRestComesBack) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"state.json"_s);
    SimulatedChip chip(*FindChipModel(u"AT90S2333"));
    SimulatedWriter board(&chip);
    Talk(board, u"P c 0C A 03 FF C 94 A 00 7F D 5A f A6 l FD"_s);
    ASSERT_EQ(SaveChip(chip, path), std::nullopt);
    const QByteArray whole = testing::Bytes(path);
    EXPECT_TRUE(whole.contains("\"flash\": \"0CFFFF")) << "low byte first";
    const std::tuple<QByteArray, QByteArray, QString> cases[] = {
        {"}", "}", u""_s},
        {"S2333", "S9999", u"\"device\" が知らないチップです"_s},
        {"0CFF", "", u"\"flash\" が 16 進数 4096 桁ではありません"_s},
        {"FF5A", "FF A", u"\"eeprom\" が 16 進数 256 桁ではありません"_s},
        {"\"E6\"", "5", u"\"fuse\" が 16 進数 2 桁ではありません"_s},
        {"}", "", u"JSON ではありません"_s}};
    for (const auto& [from, to, reason] : cases) {
        testing::PutFile(path, QByteArray(whole).replace(from, to));
        const LoadedChip back = LoadChip(path);
        if (const auto* loaded = std::get_if<SimulatedChip>(&back)) {
            EXPECT_EQ(reason, QString());
            EXPECT_EQ(loaded->Contents(), chip.Contents());
        } else {
            EXPECT_EQ(std::get<QString>(back),
                      u"状態ファイル %1 を読めません: %2"_s.arg(path, reason));
        }
    }
    EXPECT_TRUE(std::holds_alternative<QString>(LoadChip(dir.filePath(u"missing"_s))));
    EXPECT_TRUE(SaveChip(chip, dir.filePath(u"no such folder/x"_s))
                    ->endsWith(u"を書けません: ファイルかフォルダがありません"_s));
}

struct TraceReplayTest : ::testing::Test {
    std::optional<QString> Load(const QByteArray& text) {
        testing::PutFile(folder_.filePath(u"trace"_s), text);
        return replay_.Load(folder_.filePath(u"trace"_s));
    }

    QTemporaryDir folder_;
    TraceReplay replay_;
};

TEST_F(TraceReplayTest, AnswersAfterTheRecordedTimeOrAtOnce) {
    const QByteArray trace =
        "0 open COM1\n100 > 41\n150 > 00 10\n900 < 0D\n1900 < 0A\n\n2000 > 53\n3000 lost\n";
    ASSERT_EQ(Load(trace), std::nullopt);
    replay_.Send(QByteArray("\x41\x00", 2), 5s);
    EXPECT_FALSE(replay_.NextDue().has_value()) << "not before the command is complete";
    replay_.Send("\x10", 6s);
    EXPECT_EQ(replay_.NextDue(), 6s + 750us);
    EXPECT_EQ(replay_.Run(6s + 749us).bytes, "");
    EXPECT_EQ(replay_.Run(6s + 750us).bytes, "\r");
    EXPECT_EQ(replay_.Run(6s + 1750us).bytes, "\n");
    replay_.SkipDelays();
    replay_.Send("\x53", 8s);
    EXPECT_FALSE(replay_.Ended());
    EXPECT_TRUE(replay_.Run(8s).hangUp);
    EXPECT_TRUE(replay_.Ended());
    EXPECT_EQ(replay_.Failure(), std::nullopt);
}

TEST_F(TraceReplayTest, TellsWhereThePcLeavesTheRecordAndRefusesWhatIsNone) {
    ASSERT_EQ(Load("0 > 53\n1000 < 41\n\n2000 > 56\n"), std::nullopt);
    replay_.Send("\x53\x76", 0s);
    EXPECT_EQ(replay_.Failure(), u"記録の 4 行目: PC が 56 ではなく 76 を送りました"_s);
    for (const char* text : {"5\n", "x > 53\n", "-1 > 53\n", "32000000000000 > 53\n", "5 > 5\n",
                             "5 > GG\n", "5 >\n", "5 ? 53\n"}) {
        EXPECT_TRUE(Load(QByteArray("0 open COM1\n") + text)->contains(u" の 2 行目: "_s)) << text;
    }
    EXPECT_TRUE(
        replay_.Load(u"/no/such/trace"_s)->startsWith(u"記録 /no/such/trace を読めません: "_s));
}

}  // namespace
}  // namespace tolvex
