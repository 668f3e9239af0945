// SPDX-License-Identifier: MIT
#include "link/serial_commands.h"

#include <algorithm>

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

// Both texts of 'y' name the letter of 'x'; people know them so.
constexpr CommandRow kCommands[] = {
    {'S', 7, 2, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Software ID Read S", {}, false},
    {'V', 2, 2, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Software Ver Read V", {}, false},
    {'v', 2, 2, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hardware Ver Read v", {}, false},
    {'T', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Select device command T",
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : select device command T", false},
    {'P', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Enter programming Mode P",
     u"返答ﾃﾞｰﾀﾐｽ : Enter programming Mode P ", true},
    {'L', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Leave programming Mode L",
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Leave programming Mode L", false},
    {'s', 3, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Signature bytes s", {}, false},
    {'A', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Address Select A", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Address Select A", false},
    {'R', 2, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Program Memory R", {}, false},
    {'c', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Program Memory c",
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Data Memory c", false},
    {'C', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Program Memory C",
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Data Memory C", false},
    {'d', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Data Memory d", {}, false},
    {'D', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Data Memory D", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Data Memory D",
     false},
    {'e', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Chip Erase e", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Chip Erase e", false},
    {'f', 1, 5, kSettleSeconds, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Fuse bit f",
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Fuse bit f", false},
    {'l', 1, 5, kSettleSeconds, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Lock bit l",
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Lock bit l", false},
    {'F', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Lock & Fuse bit F", {}, false},
    {'r', 1, 5, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Fuse bit r", {}, false},
    {'x', 1, 1, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : LED on x", u"返答ﾃﾞｰﾀﾐｽ : LED on x ", true},
    {'y', 1, 1, 0, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : LED off x", u"返答ﾃﾞｰﾀﾐｽ : LED off x ", true},
};

const CommandRow& Row(char letter) {
    const auto row = std::ranges::find(kCommands, letter, &CommandRow::letter);
    Q_ASSERT(row != std::end(kCommands));
    return *row;
}

QByteArray Byte(int value) {
    return QByteArray(1, static_cast<char>(static_cast<std::uint8_t>(value)));
}

QChar Character(std::uint8_t byte) {
    return QChar(static_cast<char16_t>(byte));
}

}  // namespace

bool SerialCommands::Run(char letter, ErrorFlag& flag, std::span<const QByteArray> arguments) {
    const CommandRow& row = Row(letter);
    const Request request{letter, arguments, row.pause, row.need,
                          std::chrono::seconds(row.seconds)};
    if (!connection_.Exchange(request)) {
        flag.Set();
        status_.SetStatusText(kMessagePanel, row.noReply.toString());
        return false;
    }
    Judge(row, flag);
    return true;
}

bool SerialCommands::RunWithByte(char letter, std::uint8_t argument, ErrorFlag& flag) {
    const QByteArray arguments[] = {Byte(argument)};
    return Run(letter, flag, arguments);
}

void SerialCommands::Judge(const CommandRow& row, ErrorFlag& flag) {
    if (row.wrongReply.isNull() || Reply(0) == kAcknowledge) {
        return;
    }
    flag.Set();
    QString text = row.wrongReply.toString();
    if (row.quoteReply) {
        text += Character(Reply(0));
    }
    status_.SetStatusText(kMessagePanel, text);
}

std::uint8_t SerialCommands::Reply(int index) const {
    return static_cast<std::uint8_t>(connection_.RxBuffer().at(index));
}

QString SerialCommands::VersionReply() const {
    return QString(Character(Reply(0))) + u'.' + Character(Reply(1));
}

void SerialCommands::ReadByte(char letter, std::uint8_t& result, ErrorFlag& flag) {
    if (Run(letter, flag)) {
        result = Reply(0);
    }
}

void SerialCommands::ReadSoftwareId(QString& identifier, ErrorFlag& flag) {
    if (Run('S', flag)) {
        identifier = QString::fromLatin1(connection_.RxBuffer().first(Row('S').need));
    }
}

void SerialCommands::ReadSoftwareVersion(QString& version, ErrorFlag& flag) {
    if (Run('V', flag)) {
        version = VersionReply();
        softwareVersion_ = version;
    }
}

void SerialCommands::ReadHardwareVersion(QString& version, ErrorFlag& flag) {
    if (Run('v', flag)) {
        version = VersionReply();
    }
}

void SerialCommands::SelectDeviceCode(std::uint8_t deviceCode, ErrorFlag& flag) {
    status_.SetStatusText(kMessagePanel, u"ｺﾏﾝﾄﾞ送信 : Select device command T , 0x"_s +
                                             QString::number(deviceCode, 16).toUpper());
    // The firmware takes two bytes here; the second one is always zero.
    const QByteArray arguments[] = {Byte(deviceCode) + Byte(0)};
    Run('T', flag, arguments);
}

void SerialCommands::EnterProgrammingMode(ErrorFlag& flag) {
    Run('P', flag);
}

void SerialCommands::LeaveProgrammingMode(ErrorFlag& flag) {
    if (Run('L', flag)) {
        connection_.WaitSeconds(kSettleSeconds);
    }
}

bool SerialCommands::ReadSignature(std::array<std::uint8_t, 3>& bytes, ErrorFlag& flag) {
    if (!Run('s', flag)) {
        return false;
    }
    bytes = {Reply(0), Reply(1), Reply(2)};
    return true;
}

void SerialCommands::SetAddress(std::int32_t address, ErrorFlag& flag) {
    const QByteArray arguments[] = {Byte(address / 256), Byte(address % 256)};
    Run('A', flag, arguments);
}

bool SerialCommands::ReadProgramWord(std::uint8_t& high, std::uint8_t& low, ErrorFlag& flag) {
    if (!Run('R', flag)) {
        return false;
    }
    high = Reply(0);
    low = Reply(1);
    return true;
}

void SerialCommands::WriteProgramWord(std::uint8_t high, std::uint8_t low, ErrorFlag& flag) {
    // A wrong reply to the low byte is reported and the high byte still goes out: it is what moves
    // the writer's address on.
    if (RunWithByte('c', low, flag)) {
        RunWithByte('C', high, flag);
    }
}

void SerialCommands::ReadDataByte(std::uint8_t& data, ErrorFlag& flag) {
    ReadByte('d', data, flag);
}

void SerialCommands::WriteDataByte(std::uint8_t data, ErrorFlag& flag) {
    RunWithByte('D', data, flag);
}

void SerialCommands::ChipErase(ErrorFlag& flag) {
    Run('e', flag);
}

void SerialCommands::WriteFuseBits(std::uint8_t fuses, ErrorFlag& flag) {
    RunWithByte('f', fuses, flag);
}

void SerialCommands::WriteLockBits(std::uint8_t lock, ErrorFlag& flag) {
    RunWithByte('l', lock, flag);
}

void SerialCommands::ReadLockFuseBits(std::uint8_t& bits, ErrorFlag& flag) {
    ReadByte('F', bits, flag);
}

void SerialCommands::ReadFuseBits(std::uint8_t& fuses, ErrorFlag& flag) {
    ReadByte('r', fuses, flag);
}

void SerialCommands::LedOn() {
    Run('x', sharedFlag_);
}

void SerialCommands::LedOff() {
    Run('y', sharedFlag_);
}

}  // namespace tolvex
