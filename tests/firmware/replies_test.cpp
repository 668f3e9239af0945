// SPDX-License-Identifier: MIT
// The firmware answers as the simulated board does, byte for byte, but for a write that it could
// not confirm; and whatever the line and the socket do to it, it does no chip any harm.
#include <random>

#include "device/catalogue.h"
#include "tests/firmware/firmware_bench.h"
#include "writer/simulated_writer.h"

namespace tolvex::testing {
namespace {

char TypeOf(std::size_t chip) {
    return static_cast<char>(Catalogue()[chip].deviceCode);
}

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

/// Whether the chip has taken the byte of a write command at `address`; erased Flash needs none.
bool Took(const SimulatedChip& chip, int address, const QByteArray& command) {
    const auto byte = static_cast<std::uint8_t>(command.back());
    switch (command[0]) {
        // clang-format off
        case 'c': return byte == 0xFF || chip.ReadFlashLow(address) == byte;
        case 'C': return byte == 0xFF || chip.ReadFlashHigh(address) == byte;
        case 'D': return chip.ReadEeprom(address) == byte;
        default: return true;
            // clang-format on
    }
}

TEST(FirmwareReplies, AreThoseOfTheSimulatedBoard) {
    static const int kCommandsPerChip = qEnvironmentVariableIntValue("TOLVEX_RANDOM_COMMANDS");
    for (std::size_t index = 0; index < ChipModels().size(); ++index) {
        const ChipModel& model = ChipModels()[index];
        SimulatedChip chip(model), otherChip(model);
        FirmwareSocket real(&chip);
        SimulatedWriter board(&otherChip);
        std::mt19937 random(static_cast<unsigned>(index));
        QByteArray command = SelectType(TypeOf(index));
        const int most = std::max(500, kCommandsPerChip);
        for (int count = 0; count < most && !::testing::Test::HasFailure(); ++count) {
            const int address = board.Address();
            std::optional<BoardReply> expected;
            for (const char byte : command) {
                expected = board.Receive(static_cast<std::uint8_t>(byte));
            }
            const bool refused = expected->bytes == "\r" && !Took(otherChip, address, command);
            EXPECT_EQ(real.Ask(command, expected->bytes.size()).toHex(' '),
                      refused ? "3f" : expected->bytes.toHex(' '))
                << qUtf8Printable(model.name.toString()) << ", command " << count << ": "
                << command.toHex(' ').data();
            EXPECT_EQ(real.board.LedIsOn(), board.LedIsOn());
            command = count == 0 ? QByteArray("P") : RandomCommand(random, TypeOf(index));
        }
        EXPECT_EQ(chip.Contents(), otherChip.Contents());
        EXPECT_EQ(real.Violations(), "");
    }
}

TEST(FirmwareReplies, OfASocketThatDoesNotAnswer) {
    SimulatedChip chip(*FindChipModel(u"AT90S2313"));
    for (SimulatedChip* inserted : {static_cast<SimulatedChip*>(nullptr), &chip}) {
        for (const char type : {'\x11', '\x21', '\x22'}) {
            for (const int missed : {0, 5}) {
                SCOPED_TRACE(inserted ? "MISO is loose: the chip hears all" : "empty");
                FirmwareSocket real(inserted,
                                    {.missedClocks = missed, .misoBroken = inserted != nullptr});
                EXPECT_EQ(real.Ask(SelectType(type), 1), "\r");
                EXPECT_EQ(real.Ask("s", 3), "\xFF\xFF\xFF");
                EXPECT_EQ(real.Ask("P", 1), "\r") << "the PC asks for the signature next";
                for (const char* command : {"e", "c\x12", "C\xFF", "D\x56", "f\xBE", "l\xF9"}) {
                    EXPECT_EQ(real.Ask(command, 1), "?") << command;
                }
                EXPECT_EQ(real.Ask("s", 3) + real.Ask("R", 2) + real.Ask("d", 1) +
                              real.Ask("F", 1) + real.Ask("r", 1),
                          QByteArray(8, '\xFF'));
                EXPECT_EQ(real.Ask("L", 1), "\r");
                EXPECT_TRUE(real.board.ChipIsReleased());
                EXPECT_TRUE(missed != 0 || real.Violations().empty()) << real.Violations();
            }
        }
    }
    EXPECT_EQ(chip.Contents(), SimulatedChip(chip.Model()).Contents());
}

TEST(FirmwareReplies, EndWhenThePcGoesAwayOrTheFirmwareGetsStuck) {
    SimulatedChip chip(*FindChipModel(u"AT90S8515"));
    FirmwareSocket real(&chip);
    EXPECT_EQ(real.Ask("P", 1), "\r");
    EXPECT_EQ(real.Await(7500ms), "");
    EXPECT_FALSE(real.board.ChipIsReleased()) << "the PC waits five seconds for a lost reply";
    EXPECT_EQ(real.Ask("A", 1), "") << "five seconds without its arguments";
    EXPECT_EQ(real.Ask("R", 2), "\xFF\xFF");
    EXPECT_EQ(real.Await(10s), "");
    EXPECT_TRUE(real.board.ChipIsReleased());
    EXPECT_EQ(real.Ask("R", 1), "?");
    EXPECT_EQ(real.Ask("S", 7), "AVR ISP");
    EXPECT_EQ(real.Ask("P", 1), "\r");
    EXPECT_FALSE(real.board.ChipIsReleased());
    EXPECT_EQ(real.Violations(), "");
    real.board.Hang();
    EXPECT_EQ(real.Await(2s), "");
    EXPECT_TRUE(real.board.ChipIsReleased()) << "by the watchdog";
}

/// Three seconds of commands as fast as the line brings them. The simulated UART takes 11 bits'
/// time for a byte.
TEST(FirmwareReplies, SurviveAStreamWithoutAPause) {
    constexpr int kCount = 1800;
    SimulatedChip chip(*FindChipModel(u"AT90S2313"));
    FirmwareSocket real(&chip);
    real.board.TakeStreams();
    EXPECT_EQ(real.Ask("P", 1), "\r");
    for (int byte = 0; byte < 3 * kCount; ++byte) {
        real.board.Send(byte % 3 == 0 ? "A" : "\x01", real.board.Now() + byte * 575us);
    }
    EXPECT_EQ(real.Await(3500ms), QByteArray(kCount, '\r'));
    EXPECT_FALSE(real.board.ChipIsReleased()) << "no reset in between";
    EXPECT_EQ(real.Violations(), "");
}

/// A damaged byte may be any other one, so nothing counts until the line was silent.
TEST(FirmwareReplies, IgnoreADisturbedLine) {
    SimulatedChip chip(*FindChipModel(u"AT90S2313"));
    chip.ProgramFlashLow(0, 0x12);
    const ChipContents before = chip.Contents();
    FirmwareSocket real(&chip, {}, FirmwareBoard::Start::AfterBootLoader);
    EXPECT_EQ(real.Await(100ms), "") << "what the boot loader left was no command";
    EXPECT_EQ(real.Ask("P", 1), "\r");
    real.board.Send("D", real.board.Now());
    real.board.SendDamaged(0x65, real.board.Now());
    real.board.Send("exS", real.board.Now());
    EXPECT_EQ(real.Await(15ms), "");
    EXPECT_EQ(real.Ask("e", 0), "");
    EXPECT_EQ(real.Await(19ms), "") << "it was not silent for 20 ms";
    EXPECT_EQ(real.Await(10ms), "");
    EXPECT_EQ(real.Ask("R", 2), "\xFF\x12");
    EXPECT_EQ(chip.Contents(), before);
    EXPECT_EQ(real.Violations(), "");

    // Whatever comes: lost, bent and damaged bytes, on sockets full and empty.
    for (unsigned seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        SimulatedChip victim(*FindChipModel(QString::number(seed)));
        FirmwareSocket noisy(seed % 3 == 0 ? nullptr : &victim, {.seed = seed});
        noisy.board.TakeStreams();
        for (int count = 0; count < 400; ++count) {
            for (const char byte : RandomCommand(random, TypeOf(seed))) {
                const auto luck = random() % 64;
                const char sent = luck == 1 ? static_cast<char>(byte ^ 0x10) : byte;
                if (luck == 2) {
                    noisy.board.SendDamaged(static_cast<std::uint8_t>(sent), noisy.board.Now());
                } else if (luck != 3) {
                    noisy.board.Send(QByteArrayView(&sent, 1), noisy.board.Now());
                }
            }
            noisy.Await(std::chrono::milliseconds(random() % 40));
        }
        noisy.Await(12s);
        EXPECT_EQ(noisy.Ask("S", 7), "AVR ISP");
        EXPECT_TRUE(noisy.board.ChipIsReleased());
        EXPECT_EQ(noisy.Violations(), "");
    }
}

}  // namespace
}  // namespace tolvex::testing
