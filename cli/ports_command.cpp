// SPDX-License-Identifier: MIT
#include "cli/ports_command.h"

#include <QJsonArray>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QString State(const ComPort& port, const PortFacts& facts) {
    if (!facts.exists) {
        return u"なし"_s;
    }
    const QString permission = facts.permitted ? u"使用可"_s : u"権限なし"_s;
    return port.present ? permission : permission + u" (未接続)"_s;
}

}  // namespace

PortsCommand::PortsCommand()
    : CliCommand({u"ports"_s, {}, 0, 0, u"COM ポートの一覧を表示する。"_s}) {}

int PortsCommand::Run(Session& session, const Call&) {
    QJsonArray ports;
    for (const ComPort& port : session.Ports().All()) {
        const PortFacts facts = session.Inspect(port.devicePath);
        session.Print(u"%1 %2 %3 %4"_s
                          .arg(u"COM%1"_s.arg(port.number).leftJustified(5),
                               port.devicePath.leftJustified(14), State(port, facts), port.adapter)
                          .trimmed());
        ports << QJsonObject{{u"number"_s, port.number},   {u"path"_s, port.devicePath},
                             {u"present"_s, port.present}, {u"adapter"_s, port.adapter},
                             {u"exists"_s, facts.exists},  {u"permitted"_s, facts.permitted}};
    }
    session.Report()[u"ports"_s] = ports;
    return kDone;
}

}  // namespace tolvex
