// SPDX-License-Identifier: MIT
#include "writer/simulated_writer.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

/// Sends bytes written as hex ("A" stands as 41) and returns a log line a finished command.
QStringList Talk(SimulatedWriter& board, const char* hex) {
    QStringList lines;
    for (const char byte : QByteArray::fromHex(hex)) {
        if (const auto reply = board.Receive(static_cast<std::uint8_t>(byte))) {
            lines << reply->LogLine();
        }
    }
    return lines;
}

struct Dialogue {
    const char* what;
    const char16_t* chip;  // null = empty socket
    const char* sent;
    QStringList lines;
};

void Check(const QList<Dialogue>& dialogues) {
    for (const Dialogue& c : dialogues) {
        std::optional<SimulatedChip> chip;
        if (c.chip) {
            chip.emplace(*FindChipModel(c.chip));
        }
        SimulatedWriter board(chip ? &*chip : nullptr);
        EXPECT_EQ(Talk(board, c.sent).join(u'\n').toStdString(), c.lines.join(u'\n').toStdString())
            << c.what;
    }
}

TEST(SimulatedWriter, AnswersEveryCommand) {
    Check({
        {"identifier", u"2", "53", {u"S -> 41 56 52 20 49 53 50"_s}},
        {"firmware", u"2", "56", {u"V -> 33 39"_s}},
        {"hardware", u"2", "76", {u"v -> 31 30"_s}},
        {"device code takes two bytes", u"2", "542100", {u"T 21 00 -> 0D"_s}},
        {"programming mode", u"2", "504C", {u"P -> 0D"_s, u"L -> 0D"_s}},
        {"address, high byte first, then data",
         u"8",
         "50 410010 445A 64 410110 64 410210 64",
         {u"P -> 0D"_s, u"A 00 10 -> 0D"_s, u"D 5A -> 0D"_s, u"d -> 5A"_s, u"A 01 10 -> 0D"_s,
          u"d -> FF"_s, u"A 02 10 -> 0D"_s, u"d -> 5A"_s}},
        {"words: the address moves on after C and after R",
         u"2",
         "50 41000F 6334 4312 6378 4356 41000F 52 52 52",
         {u"P -> 0D"_s, u"A 00 0F -> 0D"_s, u"c 34 -> 0D"_s, u"C 12 -> 0D"_s, u"c 78 -> 0D"_s,
          u"C 56 -> 0D"_s, u"A 00 0F -> 0D"_s, u"R -> 12 34"_s, u"R -> 56 78"_s, u"R -> FF FF"_s}},
        {"erase",
         u"2",
         "50 4400 65 64",
         {u"P -> 0D"_s, u"D 00 -> 0D"_s, u"e -> 0D"_s, u"d -> FF"_s}},
        {"lights", u"2", "7879", {u"x -> 0D"_s, u"y -> 0D"_s}},
        {"letters it doesn't know", u"2", "5A1B", {u"Z -> 3F"_s, u"0x1B -> 3F"_s}},
        {"protected",
         u"2",
         "50 6CF9 73 410181 52",
         {u"P -> 0D"_s, u"l F9 -> 0D"_s, u"s -> 02 01 00"_s, u"A 01 81 -> 0D"_s, u"R -> 03 02"_s}},
    });
}

TEST(SimulatedWriter, HandsOutLockAndFuseBits) {
    Check({
        {"FSTRT on, write-protected",
         u"AT90S2323",
         "50 66BE 6CFD 46",
         {u"P -> 0D"_s, u"f BE -> 0D"_s, u"l FD -> 0D"_s, u"F -> 7E"_s}},
        {"RCEN off, read-protected",
         u"AT90S2343",
         "50 66BF 6CF9 46",
         {u"P -> 0D"_s, u"f BF -> 0D"_s, u"l F9 -> 0D"_s, u"F -> 3F"_s}},
        {"brown-out chip, write-protected",
         u"AT90S4433",
         "50 66A7 6CFD 72 46",
         {u"P -> 0D"_s, u"f A7 -> 0D"_s, u"l FD -> 0D"_s, u"r -> E7"_s, u"F -> FD"_s}},
        {"lock bits that can't be read back",
         u"AT90S8515",
         "50 6CFD 46 72",
         {u"P -> 0D"_s, u"l FD -> 0D"_s, u"F -> FF"_s, u"r -> FF"_s}},
    });
}

TEST(SimulatedWriter, RefusesChipCommandsOutsideProgrammingMode) {
    Check({
        {"never entered",
         u"5",
         "410000 52 6300 4300 64 4400 65 66BE 6CF9 46 72 73",
         {u"A 00 00 -> 0D"_s, u"R -> 3F"_s, u"c 00 -> 3F"_s, u"C 00 -> 3F"_s, u"d -> 3F"_s,
          u"D 00 -> 3F"_s, u"e -> 3F"_s, u"f BE -> 3F"_s, u"l F9 -> 3F"_s, u"F -> 3F"_s,
          u"r -> 3F"_s, u"s -> 03 91 1E"_s}},
        {"left again; what was refused changed nothing",
         u"5",
         "50 4C 4400 4300 50 64 52",
         {u"P -> 0D"_s, u"L -> 0D"_s, u"D 00 -> 3F"_s, u"C 00 -> 3F"_s, u"P -> 0D"_s, u"d -> FF"_s,
          u"R -> FF FF"_s}},
    });
}

TEST(SimulatedWriter, TakesAnEmptySocketForAChipOfOnes) {
    Check({{"empty",
            nullptr,
            "73 50 410000 6300 4300 52 4400 64 65 66A0 6CF9 46 72",
            {u"s -> FF FF FF"_s, u"P -> 0D"_s, u"A 00 00 -> 0D"_s, u"c 00 -> 0D"_s, u"C 00 -> 0D"_s,
             u"R -> FF FF"_s, u"D 00 -> 0D"_s, u"d -> FF"_s, u"e -> 0D"_s, u"f A0 -> 0D"_s,
             u"l F9 -> 0D"_s, u"F -> FF"_s, u"r -> FF"_s}}});
}

TEST(SimulatedWriter, SpoilsOneReplyAndGoesOn) {
    struct Case {
        FaultKind kind;
        QString line;
        std::chrono::milliseconds delay;
        bool hangUp;
    };
    const Case cases[] = {
        {FaultKind::Silent, u"R -> nothing (silent)"_s, {}, false},
        {FaultKind::Short, u"R -> 12 (short)"_s, {}, false},
        {FaultKind::Wrong, u"R -> 3F 34 (wrong)"_s, {}, false},
        {FaultKind::Long, u"R -> 12 34 3F 3F (long)"_s, {}, false},
        {FaultKind::Late, u"R -> 12 34 (late)"_s, kLateReply, false},
        {FaultKind::HangUp, u"R -> nothing (hang-up)"_s, {}, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(FaultName(c.kind).toStdString());
        SimulatedChip chip(ChipModels()[0]);
        SimulatedWriter board(&chip);
        Talk(board, "50 6334 4312 6378 4356 410000");
        board.SetFault(7, c.kind);
        const auto reply = board.Receive('R');
        ASSERT_TRUE(reply);
        EXPECT_EQ(reply->LogLine(), c.line);
        EXPECT_EQ(reply->delay, c.delay);
        EXPECT_EQ(reply->hangUp, c.hangUp);
        EXPECT_EQ(FaultFromName(FaultName(c.kind)), c.kind);
        EXPECT_EQ(Talk(board, "52"), QStringList(u"R -> 56 78"_s)) << "carried out and counted";
    }
    EXPECT_EQ(FaultFromName(u"slow"_s), std::nullopt);
}

TEST(SimulatedWriter, SpoilsALetterOrEverythingFromACommandOn) {
    SimulatedWriter board(nullptr);
    board.SetLetterFault('v', FaultKind::Wrong, 2);
    board.SetLetterFault('x', FaultKind::Wrong);
    EXPECT_EQ(Talk(board, "76 78 76 76 78").join(u", "),
              u"v -> 31 30, x -> 3F (wrong), v -> 3F 30 (wrong), v -> 31 30, x -> 3F (wrong)"_s);
    board.SetFaultFrom(7, FaultKind::Silent);
    EXPECT_EQ(Talk(board, "79 79 79").join(u", "),
              u"y -> 0D, y -> nothing (silent), y -> nothing (silent)"_s);
    board.ClearFaults();
    EXPECT_EQ(Talk(board, "78"), QStringList(u"x -> 0D"_s));
}

TEST(SimulatedWriter, TellsItsState) {
    SimulatedWriter board(nullptr, u"4.0"_s);
    EXPECT_EQ(board.DeviceCode(), std::nullopt);
    EXPECT_EQ(Talk(board, "56 78 542200 50").first(), u"V -> 34 30"_s);
    EXPECT_TRUE(board.LedIsOn());
    EXPECT_TRUE(board.InProgrammingMode());
    EXPECT_EQ(board.DeviceCode(), 0x22);
    EXPECT_EQ(board.CommandCount(), 4);
}

}  // namespace
}  // namespace tolvex
