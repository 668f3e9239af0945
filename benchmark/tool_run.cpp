// SPDX-License-Identifier: MIT
#include "benchmark/tool_run.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include "cli/command_line.h"

namespace tolvex::bench {

using namespace Qt::StringLiterals;

namespace {

/// Nothing is stored but the port.
class OnlyPort : public Settings {
  public:
    QString GetSetting(const QString& key, const QString& standard) const override {
        return key == u"ComNox"_s ? u"1"_s : standard;
    }
    void SaveSetting(const QString&, const QString&) override {}
};

QByteArray HexRecord(qsizetype address, const QByteArray& data) {
    QByteArray record;
    for (const qsizetype byte : {data.size(), address / 256, address % 256, qsizetype(0)}) {
        record += static_cast<char>(byte);
    }
    record += data;
    int sum = 0;
    for (const char byte : record) {
        sum -= byte;
    }
    record += static_cast<char>(sum);
    return ':' + record.toHex().toUpper() + "\r\n";
}

}  // namespace

ToolRun RunTool(SerialPort& port, EventClock& clock, const ChipModel& model,
                const QStringList& command) {
    QBuffer words;
    words.open(QIODevice::WriteOnly);
    Console console(words, words, [] { return 0; });
    const OnlyPort settings;
    const QTemporaryDir noLinks;
    ComPorts comPorts(noLinks.path());
    PortFacts facts;
    facts.exists = true;
    facts.permitted = true;
    const ExitStatus status = RunCommandLine(
        QStringList{u"tolvex-cli"_s, u"--device"_s, model.name.toString()} + command,
        {port, [] { return QString(); }, [] { return false; }, clock, settings, comPorts, console,
         [] { return 0; }, [facts](const QString&) { return facts; }});
    return {status, QString::fromUtf8(words.data())};
}

bool WriteHex(const QString& path, const QByteArray& bytes) {
    constexpr qsizetype kBytesPerRecord = 16;
    QByteArray text;
    for (qsizetype address = 0; address < bytes.size(); address += kBytesPerRecord) {
        text += HexRecord(address, bytes.mid(address, kBytesPerRecord));
    }
    text += ":00000001FF\r\n";
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

}  // namespace tolvex::bench
