// SPDX-License-Identifier: MIT
// The firmware answers as the simulated board does, byte for byte.
#include <random>

#include "tests/firmware/firmware_bench.h"

namespace tolvex::testing {
namespace {

constexpr std::uint8_t kDeviceCodes[] = {0x11, 0x11, 0x21, 0x11, 0x22,
                                         0x11, 0x21, 0x22, 0x21, 0x22};

QByteArray Text(std::initializer_list<unsigned> values) {
    QByteArray bytes;
    for (const unsigned value : values) {
        bytes += static_cast<char>(value);
    }
    return bytes;
}

/// A command with its arguments; mostly sensible ones, since a locked chip tells little.
QByteArray RandomCommand(std::mt19937& random, std::uint8_t deviceCode) {
    static const QByteArray kLetters = "SVvTPPPLsAAARRRcCcCcCddDDefflFFrrxy?q";
    static constexpr std::uint8_t kLock[] = {0xFF, 0xFF, 0xFD, 0xF9, 0x80};
    const char letter = kLetters[static_cast<qsizetype>(random() % kLetters.size())];
    const auto any = static_cast<std::uint8_t>(random());
    const auto low = static_cast<std::uint8_t>(random());
    const bool often = random() % 4 != 0;
    switch (letter) {
        case 'T':
            return Text({'T', deviceCode, 0});
        case 'A':
            return Text({'A', often ? std::uint8_t{0} : any, low});
        case 'c':
        case 'C':
        case 'D':
            return letter + Text({any});
        case 'f':
            return letter + Text({often ? 0xA0u | (any & 0x1Fu) : any});
        case 'l':
            return letter + Text({kLock[any % std::size(kLock)]});
        default:
            return QByteArray(1, letter);
    }
}

TEST(FirmwareReplies, AreThoseOfTheSimulatedBoard) {
    constexpr int kCommandsPerChip = 500;
    for (int index = 0; index < 10; ++index) {
        const ChipModel& model = *FindChipModel(QString::number(index));
        SimulatedChip chip(model);
        SimulatedChip otherChip(model);
        FirmwareSocket real(&chip);
        SimulatedWriter board(&otherChip);
        std::mt19937 random(static_cast<unsigned>(index));
        QByteArray command = Text({'T', kDeviceCodes[index], 0});
        for (int count = 0; count < kCommandsPerChip && !::testing::Test::HasFailure(); ++count) {
            std::optional<BoardReply> expected;
            for (const char byte : command) {
                expected = board.Receive(static_cast<std::uint8_t>(byte));
            }
            EXPECT_EQ(real.Ask(command, expected->bytes.size()).toHex(' '),
                      expected->bytes.toHex(' '))
                << qUtf8Printable(model.name.toString()) << ", command " << count << ": "
                << command.toHex(' ').data();
            command = count == 0 ? QByteArray("P") : RandomCommand(random, kDeviceCodes[index]);
        }
        EXPECT_EQ(chip.Contents(), otherChip.Contents());
        EXPECT_EQ(real.Violations(), "");
    }
}

TEST(FirmwareReplies, OfASocketThatDoesNotAnswer) {
    SimulatedChip chip(*FindChipModel(u"AT90S2313"));
    struct Case {
        const char* name;
        SimulatedChip* chip;
        ChipHabits habits;
    };
    const Case cases[] = {{"empty", nullptr, {}},
                          {"MISO is loose: the chip hears all", &chip, {.misoBroken = true}}};
    for (const Case& c : cases) {
        for (const unsigned code : {0x11u, 0x21u, 0x22u}) {
            SCOPED_TRACE(c.name);
            FirmwareSocket real(c.chip, c.habits);
            EXPECT_EQ(real.Ask(Text({'T', code, 0}), 1), "\r");
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

TEST(FirmwareReplies, EndWhenThePcGoesAway) {
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
    EXPECT_EQ(real.Violations(), "");
}

TEST(FirmwareReplies, ComeBackAfterTheFirmwareGotStuck) {
    SimulatedChip chip(*FindChipModel(u"AT90S8515"));
    FirmwareSocket real(&chip);
    EXPECT_EQ(real.Ask("P", 1), "\r");
    EXPECT_FALSE(real.board.ChipIsReleased());
    real.board.Hang();
    real.board.Run(real.board.Now() + 2s);
    EXPECT_TRUE(real.board.ChipIsReleased()) << "by the watchdog";
}

}  // namespace
}  // namespace tolvex::testing
