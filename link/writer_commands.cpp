// SPDX-License-Identifier: MIT
#include "base/text.h"
#include "link/link.h"

namespace tolvex {

using namespace Qt::StringLiterals;

/// What counts as a right reply.
enum class RightReply {
    Any,
    Acknowledge,        ///< a carriage return
    AcknowledgeOrQuote  ///< the same; a wrong one is told with its byte as a character
};

/// How a command goes out and how its reply is judged.
struct CommandRow {
    char letter;
    int need;      ///< reply bytes
    int seconds;   ///< time-out
    double pause;  ///< seconds between letter and arguments
    RightReply right;
    const char* name;                     ///< in the texts that tell a failure
    const char* nameAtWrongReply = name;  ///< the same, where a reply came
};

namespace {

constexpr std::uint8_t kAcknowledge = 13;
constexpr double kSettleSeconds = 0.1;

using enum RightReply;

// The letter of 'x' stands in the name of 'y', too, and some names differ by how the command
// failed; users know them so.
// clang-format off
constexpr CommandRow kReadSoftwareId{'S', 7, 2, 0, Any,
    QT_TRANSLATE_NOOP("Tolvex", "Software ID Read S")};
constexpr CommandRow kReadSoftwareVersion{'V', 2, 2, 0, Any,
    QT_TRANSLATE_NOOP("Tolvex", "Software Ver Read V")};
constexpr CommandRow kReadHardwareVersion{'v', 2, 2, 0, Any,
    QT_TRANSLATE_NOOP("Tolvex", "Hardware Ver Read v")};
constexpr CommandRow kSelectDeviceCode{'T', 1, 5, 0, Acknowledge,
    QT_TRANSLATE_NOOP("Tolvex", "Select device command T"),
    QT_TRANSLATE_NOOP("Tolvex", "select device command T")};
constexpr CommandRow kEnterProgrammingMode{'P', 1, 5, 0, AcknowledgeOrQuote,
    QT_TRANSLATE_NOOP("Tolvex", "Enter programming Mode P")};
constexpr CommandRow kLeaveProgrammingMode{'L', 1, 5, 0, Acknowledge,
    QT_TRANSLATE_NOOP("Tolvex", "Leave programming Mode L")};
constexpr CommandRow kReadSignature{'s', 3, 5, 0, Any,
    QT_TRANSLATE_NOOP("Tolvex", "Read Signature bytes s")};
constexpr CommandRow kSetAddress{'A', 1, 5, 0, Acknowledge,
    QT_TRANSLATE_NOOP("Tolvex", "Address Select A")};
constexpr CommandRow kReadProgramWord{'R', 2, 5, 0, Any,
    QT_TRANSLATE_NOOP("Tolvex", "Read Program Memory R")};
constexpr CommandRow kWriteLowByte{'c', 1, 5, 0, Acknowledge,
    QT_TRANSLATE_NOOP("Tolvex", "Low byte Write Program Memory c"),
    QT_TRANSLATE_NOOP("Tolvex", "Low byte Write Data Memory c")};
constexpr CommandRow kWriteHighByte{'C', 1, 5, 0, Acknowledge,
    QT_TRANSLATE_NOOP("Tolvex", "Hi byte Write Program Memory C"),
    QT_TRANSLATE_NOOP("Tolvex", "Hi byte Write Data Memory C")};
constexpr CommandRow kReadDataByte{'d', 1, 5, 0, Any,
    QT_TRANSLATE_NOOP("Tolvex", "Read Data Memory d")};
constexpr CommandRow kWriteDataByte{'D', 1, 5, 0, Acknowledge,
    QT_TRANSLATE_NOOP("Tolvex", "Write Data Memory D")};
constexpr CommandRow kChipErase{'e', 1, 5, 0, Acknowledge,
    QT_TRANSLATE_NOOP("Tolvex", "Chip Erase e")};
constexpr CommandRow kWriteFuseBits{'f', 1, 5, kSettleSeconds, Acknowledge,
    QT_TRANSLATE_NOOP("Tolvex", "Write Fuse bit f")};
constexpr CommandRow kWriteLockBits{'l', 1, 5, kSettleSeconds, Acknowledge,
    QT_TRANSLATE_NOOP("Tolvex", "Write Lock bit l")};
constexpr CommandRow kReadLockFuseBits{'F', 1, 5, 0, Any,
    QT_TRANSLATE_NOOP("Tolvex", "Read Lock & Fuse bit F")};
constexpr CommandRow kReadFuseBits{'r', 1, 5, 0, Any,
    QT_TRANSLATE_NOOP("Tolvex", "Read Fuse bit r")};
constexpr CommandRow kLedOn{'x', 1, 1, 0, AcknowledgeOrQuote,
    QT_TRANSLATE_NOOP("Tolvex", "LED on x")};
constexpr CommandRow kLedOff{'y', 1, 1, 0, AcknowledgeOrQuote,
    QT_TRANSLATE_NOOP("Tolvex", "LED off x")};
// clang-format on

QChar Character(std::uint8_t byte) {
    return QChar(char16_t{byte});
}

/// What the observer of the commands hears of the argument bytes.
int Number(std::span<const std::uint8_t> arguments) {
    int number = 0;
    for (const int byte : arguments) {
        number = number * 256 + byte;
    }
    return number;
}

}  // namespace

Outcome WriterCommands::Run(const CommandRow& row, std::span<const std::uint8_t> arguments) {
    if (hooks_.maySend && !hooks_.maySend()) {
        TellFailure(row, Outcome::NotSent);
        return Outcome::NotSent;
    }
    return RunUnasked(row, arguments);
}

Outcome WriterCommands::RunUnasked(const CommandRow& row, std::span<const std::uint8_t> arguments) {
    const bool isSelect = &row == &kSelectDeviceCode;
    Outcome outcome = connection_.Exchange({.letter = row.letter,
                                            .arguments = arguments,
                                            .bytesPerWrite = isSelect ? 2U : 1U,
                                            .pauseSeconds = row.pause,
                                            .need = row.need,
                                            .timeOut = std::chrono::seconds(row.seconds)},
                                           reply_);
    if (outcome == Outcome::Ok && row.right != Any && Byte(0) != kAcknowledge) {
        outcome = Outcome::WrongReply;
    }
    if (hooks_.onEnd) {
        hooks_.onEnd(row.letter, isSelect ? arguments.front() : Number(arguments), outcome);
    }
    if (outcome != Outcome::Ok) {
        TellFailure(row, outcome);
    }
    return outcome;
}

void WriterCommands::TellFailure(const CommandRow& row, Outcome outcome) {
    flag_.Set();
    const bool wrong = outcome == Outcome::WrongReply;
    const QString name = Text::tr(wrong ? row.nameAtWrongReply : row.name);
    const QString text = wrong && row.right == AcknowledgeOrQuote
                             ? Text::tr("返答ﾃﾞｰﾀﾐｽ : %1 %2").arg(name, Character(Byte(0)))
                             : Text::tr("ｺﾐﾆｭｹｰｼｮﾝ失敗 : %1").arg(name);
    ui_.SetStatusText(kMessagePanel, text, MessageKind::Failure);
}

QString WriterCommands::VersionText() const {
    return QString(Character(Byte(0))) + u'.' + Character(Byte(1));
}

Outcome WriterCommands::ReadByte(const CommandRow& row, std::uint8_t& result) {
    const Outcome outcome = Run(row);
    if (outcome == Outcome::Ok) {
        result = Byte(0);
    }
    return outcome;
}

Outcome WriterCommands::ReadSoftwareId(QString& identifier) {
    const Outcome outcome = Run(kReadSoftwareId);
    if (outcome == Outcome::Ok) {
        identifier = QString::fromLatin1(reply_.first(kReadSoftwareId.need));
    }
    return outcome;
}

Outcome WriterCommands::ReadSoftwareVersion(QString& version) {
    const Outcome outcome = Run(kReadSoftwareVersion);
    if (outcome == Outcome::Ok) {
        softwareVersion_ = version = VersionText();
    }
    return outcome;
}

Outcome WriterCommands::ReadHardwareVersion(QString& version) {
    const Outcome outcome = Run(kReadHardwareVersion);
    if (outcome == Outcome::Ok) {
        version = VersionText();
    }
    return outcome;
}

Outcome WriterCommands::SelectDeviceCode(std::uint8_t deviceCode) {
    ui_.SetStatusText(kMessagePanel, Text::tr("ｺﾏﾝﾄﾞ送信 : Select device command T , 0x%1")
                                         .arg(QString::number(deviceCode, 16).toUpper()));
    // The firmware takes two bytes here; the second one is always zero.
    const std::uint8_t arguments[] = {deviceCode, 0};
    return Run(kSelectDeviceCode, arguments);
}

Outcome WriterCommands::EnterProgrammingMode() {
    return Run(kEnterProgrammingMode);
}

Outcome WriterCommands::LeaveProgrammingMode() {
    const Outcome outcome = Run(kLeaveProgrammingMode);
    if (outcome == Outcome::Ok || outcome == Outcome::WrongReply) {
        connection_.WaitSeconds(kSettleSeconds);
    }
    return outcome;
}

Outcome WriterCommands::ReadSignature(Signature& bytes) {
    const Outcome outcome = Run(kReadSignature);
    if (outcome == Outcome::Ok) {
        bytes = {Byte(0), Byte(1), Byte(2)};
    }
    return outcome;
}

Outcome WriterCommands::SetAddress(int address) {
    const std::uint8_t arguments[] = {static_cast<std::uint8_t>(address / 256),
                                      static_cast<std::uint8_t>(address % 256)};
    return Run(kSetAddress, arguments);
}

Outcome WriterCommands::ReadProgramWord(std::uint8_t& high, std::uint8_t& low) {
    const Outcome outcome = Run(kReadProgramWord);
    if (outcome == Outcome::Ok) {
        high = Byte(0);
        low = Byte(1);
    }
    return outcome;
}

Outcome WriterCommands::WriteProgramWord(std::uint8_t high, std::uint8_t low) {
    const Outcome first = Run(kWriteLowByte, {&low, 1});
    if (first != Outcome::Ok && first != Outcome::WrongReply) {
        return first;
    }
    // A wrong reply to the low byte is reported and the high byte still goes out: it is what moves
    // the writer's address on.
    const Outcome second = RunUnasked(kWriteHighByte, {&high, 1});
    return first == Outcome::Ok ? second : first;
}

Outcome WriterCommands::ReadDataByte(std::uint8_t& data) {
    return ReadByte(kReadDataByte, data);
}

Outcome WriterCommands::WriteDataByte(std::uint8_t data) {
    return Run(kWriteDataByte, {&data, 1});
}

Outcome WriterCommands::ChipErase() {
    return Run(kChipErase);
}

Outcome WriterCommands::WriteFuseBits(std::uint8_t fuses) {
    return Run(kWriteFuseBits, {&fuses, 1});
}

Outcome WriterCommands::WriteLockBits(std::uint8_t lock) {
    return Run(kWriteLockBits, {&lock, 1});
}

Outcome WriterCommands::ReadLockFuseBits(std::uint8_t& bits) {
    return ReadByte(kReadLockFuseBits, bits);
}

Outcome WriterCommands::ReadFuseBits(std::uint8_t& fuses) {
    return ReadByte(kReadFuseBits, fuses);
}

Outcome WriterCommands::LedOn() {
    return Run(kLedOn);
}

Outcome WriterCommands::LedOff() {
    return Run(kLedOff);
}

}  // namespace tolvex
