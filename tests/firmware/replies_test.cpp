// SPDX-License-Identifier: MIT
// The firmware answers as the simulated board does, byte for byte.
#include <random>

#include "tests/firmware/firmware_bench.h"
#include "writer/simulated_writer.h"

namespace tolvex::testing {
namespace {

/// A chip's type code.
constexpr char kTypes[] = "\x11\x11\x21\x11\x22\x11\x21\x22\x21\x22";

QByteArray SelectType(char type) {
    return QByteArray("T") + type + '\0';
}

/// A command with its arguments; mostly sensible ones, since a locked chip tells little.
QByteArray RandomCommand(std::mt19937& random, char type) {
    static constexpr char kLetters[] = "SVvTPPPLsAAARRRcCcCcCcddDDefflFFrrxy?q";
    static const QByteArray kLocks = "\xFF\xFF\xFD\xF9\x80";
    const char letter = kLetters[random() % (sizeof kLetters - 1)];
    const auto any = static_cast<std::uint8_t>(random());
    const auto low = static_cast<char>(random());
    const bool often = random() % 4 != 0;
    const QByteArray command(1, letter);
    switch (letter) {
        // clang-format off
        case 'T': return SelectType(type);
        case 'A': return command + static_cast<char>(often ? 0 : any) + low;
        case 'f': return command + static_cast<char>(often ? 0xA0 | (any & 0x1F) : any);
        case 'l': return command + kLocks[any % kLocks.size()];
        case 'c': case 'C': case 'D': return command + static_cast<char>(any);
        default: return command;
            // clang-format on
    }
}

TEST(FirmwareReplies, AreThoseOfTheSimulatedBoard) {
    constexpr int kCommandsPerChip = 500;
    for (int index = 0; index < 10; ++index) {
        const ChipModel& model = *FindChipModel(QString::number(index));
        SimulatedChip chip(model), otherChip(model);
        FirmwareSocket real(&chip);
        SimulatedWriter board(&otherChip);
        std::mt19937 random(static_cast<unsigned>(index));
        QByteArray command = SelectType(kTypes[index]);
        for (int count = 0; count < kCommandsPerChip && !::testing::Test::HasFailure(); ++count) {
            std::optional<BoardReply> expected;
            for (const char byte : command) {
                expected = board.Receive(static_cast<std::uint8_t>(byte));
            }
            EXPECT_EQ(real.Ask(command, expected->bytes.size()).toHex(' '),
                      expected->bytes.toHex(' '))
                << qUtf8Printable(model.name.toString()) << ", command " << count << ": "
                << command.toHex(' ').data();
            command = count == 0 ? QByteArray("P") : RandomCommand(random, kTypes[index]);
        }
        EXPECT_EQ(chip.Contents(), otherChip.Contents());
        EXPECT_EQ(real.Violations(), "");
    }
}

TEST(FirmwareReplies, OfASocketThatDoesNotAnswer) {
    SimulatedChip chip(*FindChipModel(u"AT90S2313"));
    for (SimulatedChip* inserted : {static_cast<SimulatedChip*>(nullptr), &chip}) {
        for (const char type : {'\x11', '\x21', '\x22'}) {
            SCOPED_TRACE(inserted ? "MISO is loose: the chip hears all" : "empty");
            FirmwareSocket real(inserted, {.misoBroken = inserted != nullptr});
            EXPECT_EQ(real.Ask(SelectType(type), 1), "\r");
            EXPECT_EQ(real.Ask("s", 3), "\xFF\xFF\xFF");
            EXPECT_EQ(real.Ask("P", 1), "\r");
            for (const char* command : {"e", "c\x12", "C\x34", "D\x56", "f\xBE", "l\xF9"}) {
                EXPECT_EQ(real.Ask(command, 1), "\r") << command;
            }
            EXPECT_EQ(real.Ask("s", 3) + real.Ask("R", 2) + real.Ask("d", 1) + real.Ask("F", 1),
                      QByteArray(7, '\xFF'));
            EXPECT_EQ(real.Ask("L", 1), "\r");
            EXPECT_TRUE(real.board.ChipIsReleased());
            EXPECT_EQ(real.Violations(), "");
        }
    }
    EXPECT_EQ(chip.Contents(), SimulatedChip(chip.Model()).Contents());
}

TEST(FirmwareReplies, EndWhenThePcGoesAwayOrTheFirmwareGetsStuck) {
    SimulatedChip chip(*FindChipModel(u"AT90S8515"));
    FirmwareSocket real(&chip);
    EXPECT_EQ(real.Ask("P", 1), "\r");
    real.board.Run(real.board.Now() + 4s);
    EXPECT_FALSE(real.board.ChipIsReleased()) << "the PC makes pauses";
    EXPECT_EQ(real.Ask("A", 1), "") << "five seconds without its arguments";
    real.board.Run(real.board.Now() + 2s);
    EXPECT_TRUE(real.board.ChipIsReleased());
    EXPECT_EQ(real.Ask("R", 1), "?");
    EXPECT_EQ(real.Ask("S", 7).size(), 7);
    EXPECT_EQ(real.Ask("P", 1), "\r");
    EXPECT_FALSE(real.board.ChipIsReleased());
    EXPECT_EQ(real.Violations(), "");
    real.board.Hang();
    real.board.Run(real.board.Now() + 2s);
    EXPECT_TRUE(real.board.ChipIsReleased()) << "by the watchdog";
}

}  // namespace
}  // namespace tolvex::testing
