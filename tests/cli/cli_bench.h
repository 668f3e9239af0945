// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QBuffer>
#include <QJsonDocument>
#include <QRegularExpression>
#include <numeric>

#include "cli/command_line.h"
#include "tests/support/real_files.h"
#include "tests/support/test_bench.h"

namespace tolvex::testing {

using namespace Qt::StringLiterals;

/// A data record at `address`.
inline QByteArray HexRecord(int address, const QByteArray& bytes) {
    QByteArray record;
    for (const int byte : {static_cast<int>(bytes.size()), address / 256, address % 256, 0}) {
        record += static_cast<char>(byte);
    }
    record += bytes;
    record += static_cast<char>(-std::accumulate(record.cbegin(), record.cend(), 0));
    return ':' + record.toHex().toUpper() + "\r\n";
}

inline const QByteArray kHexEnd = ":00000001FF\r\n";
inline const QByteArray kCode = "\x01\x02\x03\x04\x05\x06";
inline const QByteArray kData = "\x41\x42";

/// The tool in front of a simulated board at COM1, in virtual time; nothing is stored but the port.
/// The folder holds a.hex and a.eep.
class CliBench : public Surroundings {
  public:
    /// The chip in the socket: its entry in the device list.
    explicit CliBench(int chipIndex = 2, int baud = 19200) : Surroundings(chipIndex, baud) {
        qunsetenv("TOLVEX_PORT");
        qunsetenv("TOLVEX_DEVICE");
        File(u"a.hex"_s, HexRecord(0, kCode) + kHexEnd);
        File(u"a.eep"_s, HexRecord(0, kData) + kHexEnd);
    }

    /// The exit status; `Out`, `Err` and `Json` tell of this run alone.
    ExitStatus Run(const QStringList& arguments) {
        out_.setData({});
        error_.setData({});
        out_.open(QIODevice::WriteOnly);
        error_.open(QIODevice::WriteOnly);
        Console console(out_, error_, [this] { return columns; });
        const ExitStatus status = RunCommandLine(
            QStringList{u"tolvex-cli"_s} + arguments,
            {port, [] { return u"busy"_s; }, [this] { return busy; }, clock, settings, comPorts,
             console, signal, [this](const QString&) { return facts; }});
        out_.close();
        error_.close();
        return status;
    }
    /// A line as it is typed: @ stands for the bench's folder, ~ for a blank inside a word, "" for
    /// an empty one.
    ExitStatus Run(const char* line) { return Run(Words(line)); }
    /// The same with --json: exit status and error code, "0" or "1 locked".
    std::string Outcome(const std::string& line) {
        const auto status = static_cast<int>(Run(Words(line.c_str()) + QStringList{u"--json"_s}));
        EXPECT_TRUE(Out().count(u'\n') == 1 && Out().endsWith(u"}\n"_s)) << "one object always";
        EXPECT_EQ(Json()["exitStatus"_L1].toInt(-1), status);
        const QString code = Json()["error"_L1]["code"_L1].toString();
        // Scripts are written from the page: it lists every key and every code.
        static const QString page =
            QString::fromUtf8(Bytes(QStringLiteral(TOLVEX_SOURCE_DIR "/docs/cli.md")));
        QStringList words = Json().keys();
        words << code;
        for (const QString& word : words) {
            EXPECT_TRUE(word.isEmpty() || page.contains(u"| `%1`"_s.arg(word)) ||
                        page.contains(u", `%1`"_s.arg(word)))
                << qPrintable(word);
        }
        return QString(QString::number(status) + u' ' + code).trimmed().toStdString();
    }
    QStringList Words(const char* line) const {
        QStringList words = QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts);
        return words.replaceInStrings(u"@"_s, Path({}) + u'/')
            .replaceInStrings(u"~"_s, u" "_s)
            .replaceInStrings(u"\"\""_s, QString());
    }

    QString Out() const { return QString::fromUtf8(out_.data()); }
    QString Err() const { return QString::fromUtf8(error_.data()); }
    QJsonObject Json() const { return QJsonDocument::fromJson(out_.data()).object(); }
    QString Path(const QString& name) const { return folder.filePath(name); }
    /// Fills the chip with what no file here holds.
    void Fill() const {
        ChipContents contents = chip->Contents();
        std::iota(contents.flash.begin(), contents.flash.end(), '\x10');
        std::iota(contents.eeprom.begin(), contents.eeprom.end(), '\7');
        chip->SetContents(contents);
    }
    /// Writes a file and gives its path.
    QString File(const QString& name, const QByteArray& text) const {
        PutFile(Path(name), text);
        return Path(name);
    }

    ComPorts comPorts{folder.path(), [] { return QList<QSerialPortInfo>(); }};
    int columns = 0;  ///< of the terminal
    /// Also the place to meddle with the board while a command runs.
    std::function<int()> signal = [] { return 0; };
    PortFacts facts{.exists = true, .permitted = true};
    bool busy = true;  ///< why a port can't be opened

  private:
    QBuffer out_, error_;
};

inline QByteArray Compact(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// What is wrong with board, chip or port.
using Fault = std::function<void(CliBench&)>;

/// Spoils the reply to a letter, at one of its occurrences or (0) at all.
inline Fault Spoil(char letter, FaultKind kind, int occurrence = 0) {
    return [=](CliBench& b) { b.board.SetLetterFault(letter, kind, occurrence); };
}
/// The wires to the chip break behind the first command with the letter.
inline Fault Break(Contact contact, char letter) {
    return [=](CliBench& b) {
        b.signal = [=, &b] {
            if (!b.port.Wire()
                     .filter(QRegularExpression(u'^' + QChar::fromLatin1(letter)))
                     .isEmpty()) {
                b.board.SetContact(contact);
            }
            return 0;
        };
    };
}
/// Puts another chip, or none, into the socket.
inline Fault Insert(const char* part) {
    static std::map<std::string, SimulatedChip> chips;
    const ChipModel* model = FindChipModel(QString::fromLatin1(part));
    SimulatedChip* chip = model ? &chips.try_emplace(part, *model).first->second : nullptr;
    return [=](CliBench& b) { b.board.SetChip(chip); };
}
inline Fault Lock(std::uint8_t byte) {
    return [=](CliBench& b) { b.chip->ProgramLock(byte); };
}
/// A port of which this is known; one that refuses to be opened.
inline Fault Facts(const PortFacts& port, bool refused = true) {
    return [=](CliBench& b) {
        b.facts = port;
        b.port.RefuseOpen(refused);
    };
}
inline const Fault kBusy = Facts({.exists = true, .permitted = true});
inline const Fault kNothing = [](CliBench&) {};

}  // namespace tolvex::testing
