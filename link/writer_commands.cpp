// SPDX-License-Identifier: MIT
#include "link/link.h"

namespace tolvex {

using namespace Qt::StringLiterals;

/// How a command goes out and how its reply is judged.
struct CommandRow {
    char letter;
    int need;      ///< reply bytes
    int seconds;   ///< time-out
    double pause;  ///< seconds between letter and arguments
    QStringView noReply;
    QStringView wrongReply;  ///< null: any reply is right; else only a carriage return is
    bool quoteReply;         ///< append the wrong byte as a character
};

namespace {

constexpr std::uint8_t kAcknowledge = 13;
constexpr double kSettleSeconds = 0.1;

// Both texts of 'y' name the letter of 'x'; users know them so.
constexpr CommandRow kReadSoftwareId{'S', 7,    2, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Software ID Read S",
                                     {},  false};
constexpr CommandRow kReadSoftwareVersion{'V', 2,    2, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Software Ver Read V",
                                          {},  false};
constexpr CommandRow kReadHardwareVersion{'v', 2,    2, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hardware Ver Read v",
                                          {},  false};
constexpr CommandRow kSelectDeviceCode{'T',
                                       1,
                                       5,
                                       0,
                                       u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Select device command T",
                                       u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : select device command T",
                                       false};
constexpr CommandRow kEnterProgrammingMode{'P',
                                           1,
                                           5,
                                           0,
                                           u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Enter programming Mode P",
                                           u"返答ﾃﾞｰﾀﾐｽ : Enter programming Mode P ",
                                           true};
constexpr CommandRow kLeaveProgrammingMode{'L',
                                           1,
                                           5,
                                           0,
                                           u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Leave programming Mode L",
                                           u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Leave programming Mode L",
                                           false};
constexpr CommandRow kReadSignature{'s', 3,    5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Signature bytes s",
                                    {},  false};
constexpr CommandRow kSetAddress{
    'A', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Address Select A", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Address Select A", false};
constexpr CommandRow kReadProgramWord{'R', 2,    5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Program Memory R",
                                      {},  false};
constexpr CommandRow kWriteLowByte{'c',
                                   1,
                                   5,
                                   0,
                                   u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Program Memory c",
                                   u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Data Memory c",
                                   false};
constexpr CommandRow kWriteHighByte{'C',
                                    1,
                                    5,
                                    0,
                                    u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Program Memory C",
                                    u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Data Memory C",
                                    false};
constexpr CommandRow kReadDataByte{'d', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Data Memory d", {}, false};
constexpr CommandRow kWriteDataByte{
    'D',  1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Data Memory D", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Data Memory D",
    false};
constexpr CommandRow kChipErase{
    'e', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Chip Erase e", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Chip Erase e", false};
constexpr CommandRow kWriteFuseBits{'f',
                                    1,
                                    5,
                                    kSettleSeconds,
                                    u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Fuse bit f",
                                    u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Fuse bit f",
                                    false};
constexpr CommandRow kWriteLockBits{'l',
                                    1,
                                    5,
                                    kSettleSeconds,
                                    u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Lock bit l",
                                    u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Lock bit l",
                                    false};
constexpr CommandRow kReadLockFuseBits{'F', 1,    5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Lock & Fuse bit F",
                                       {},  false};
constexpr CommandRow kReadFuseBits{'r', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Fuse bit r", {}, false};
constexpr CommandRow kLedOn{'x', 1, 1, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : LED on x", u"返答ﾃﾞｰﾀﾐｽ : LED on x ",
                            true};
constexpr CommandRow kLedOff{'y', 1, 1, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : LED off x", u"返答ﾃﾞｰﾀﾐｽ : LED off x ",
                             true};

QChar Character(char byte) {
    return QChar(static_cast<char16_t>(static_cast<std::uint8_t>(byte)));
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
    if (outcome == Outcome::Ok && !row.wrongReply.isNull() && Byte(0) != kAcknowledge) {
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
    QString text = row.noReply.toString();
    if (outcome == Outcome::WrongReply) {
        text = row.wrongReply.toString();
        if (row.quoteReply) {
            text += Character(Byte(0));
        }
    }
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
    ui_.SetStatusText(kMessagePanel, u"ｺﾏﾝﾄﾞ送信 : Select device command T , 0x"_s +
                                         QString::number(deviceCode, 16).toUpper());
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
