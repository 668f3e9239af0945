// SPDX-License-Identifier: MIT
#pragma once

#include <QBuffer>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <memory>

#include "cli/command_line.h"
#include "tests/support/recorder.h"
#include "tests/support/simulated_port.h"
#include "tests/support/virtual_clock.h"
#include "writer/simulated_writer.h"

namespace tolvex::testing {

using namespace Qt::StringLiterals;

/// The tool in front of a simulated board at COM1, in virtual time; nothing is stored but the port.
class CliBench {
  public:
    /// The chip in the socket: its entry in the device list.
    explicit CliBench(int chipIndex = 2)
        : chip(std::make_unique<SimulatedChip>(*FindChipModel(QString::number(chipIndex)))),
          board(chip.get()),
          port(board, clock),
          comPorts(folder.path()) {
        settings.values[QStringLiteral("ComNox")] = QStringLiteral("1");
        settings.values[QStringLiteral("device")] = QString::number(chipIndex);
        facts.exists = true;
        facts.permitted = true;
        qunsetenv("TOLVEX_PORT");
        qunsetenv("TOLVEX_DEVICE");
    }

    /// The exit status; `Out`, `Err` and `Json` tell of this run alone.
    int Run(const QStringList& arguments) {
        out_.setData({});
        error_.setData({});
        out_.open(QIODevice::WriteOnly);
        error_.open(QIODevice::WriteOnly);
        Console console(out_, error_, [this] { return columns; });
        const int status = RunCommandLine(
            QStringList{QStringLiteral("tolvex-cli")} + arguments,
            {behind ? *behind : port, [] { return QStringLiteral("busy"); }, clock, settings,
             comPorts, console, signal, [this](const QString&) { return facts; }});
        out_.close();
        error_.close();
        return status;
    }
    /// The same with --json, which must leave one object.
    int RunJson(const QStringList& arguments) { return Run(arguments + QStringList{"--json"_L1}); }

    QString Out() const { return QString::fromUtf8(out_.data()); }
    QString Err() const { return QString::fromUtf8(error_.data()); }
    QJsonObject Json() const { return QJsonDocument::fromJson(out_.data()).object(); }
    std::string ErrorCode() const { return Json()["error"_L1]["code"_L1].toString().toStdString(); }

    QString Path(const QString& name) const { return folder.filePath(name); }
    /// Fills the chip with what no file here holds.
    void Fill() const {
        ChipContents contents = chip->Contents();
        for (qsizetype i = 0; i < contents.flash.size(); ++i) {
            contents.flash[i] = static_cast<char>(i * 7 + i / 256);
        }
        for (qsizetype i = 0; i < contents.eeprom.size(); ++i) {
            contents.eeprom[i] = static_cast<char>(i * 3);
        }
        chip->SetContents(contents);
    }
    /// Writes a file and gives its path.
    QString File(const QString& name, const QByteArray& text) const {
        QFile file(Path(name));
        file.open(QIODevice::WriteOnly);
        file.write(text);
        return file.fileName();
    }
    static QByteArray Contents(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    VirtualClock clock;
    std::unique_ptr<SimulatedChip> chip;
    SimulatedWriter board;
    SimulatedPort port;
    MemorySettings settings;
    QTemporaryDir folder;
    ComPorts comPorts;
    SerialPort* behind = nullptr;  ///< stands between the tool and `port` if there is one
    int columns = 0;               ///< of the terminal
    /// Also the place to meddle with the board while a command runs.
    std::function<int()> signal = [] { return 0; };
    PortFacts facts;

  private:
    QBuffer out_, error_;
};

/// A data record at `address`.
inline QByteArray HexRecord(int address, const QByteArray& bytes, int type = 0) {
    QByteArray record;
    record += static_cast<char>(bytes.size());
    record += static_cast<char>(address / 256);
    record += static_cast<char>(address % 256);
    record += static_cast<char>(type);
    record += bytes;
    int sum = 0;
    for (const char byte : record) {
        sum += static_cast<std::uint8_t>(byte);
    }
    record += static_cast<char>(-sum);
    return ':' + record.toHex().toUpper() + "\r\n";
}

inline const QByteArray kHexEnd = ":00000001FF\r\n";

}  // namespace tolvex::testing
