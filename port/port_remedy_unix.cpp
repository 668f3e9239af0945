// SPDX-License-Identifier: MIT
#include "base/text.h"
#include "port/port_remedy.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The system lists these whether hardware is there or not.
bool IsBoardPort(const QString& path) {
    return path.startsWith(u"/dev/ttyS"_s);
}

QString GroupText(UdevRule rule) {
    switch (rule) {
        case UdevRule::NotForDevice:
            break;
        case UdevRule::Missing:
            return Text::tr(
                "%1 を使う権限がありません。パッケージをインストールしてアダプタを挿し直すと、"
                "マシンの前にいる人は使えます。または、次のコマンドを実行し、"
                "ログインし直してください。");
        case UdevRule::Installed:
            return Text::tr(
                "%1 を使う権限がありません。"
                "パッケージの udev の規則では、マシンの前にいる人が使えます。"
                "インストールの前に挿したアダプタは挿し直してください。それでも使えなければ、"
                "次のコマンドを実行し、ログインし直してください。");
    }
    return Text::tr("%1 を使う権限がありません。次のコマンドを実行し、ログインし直してください。");
}

}  // namespace

QString Quoted(const QString& text) {
    static const QRegularExpression plain(u"^[A-Za-z0-9_./:@%+=,-]+$"_s);
    if (plain.match(text).hasMatch()) {
        return text;
    }
    return u'\'' + QString(text).replace(u'\'', u"'\\''"_s) + u'\'';
}

PortRemedy MissingPort(const ComPorts& ports, int number) {
    const QString path = ports.DevicePath(number);
    for (const ComPort& other : ports.All()) {
        if (ports.LinkFolder() && other.present && other.devicePath != path &&
            !IsBoardPort(other.devicePath)) {
            return {Text::tr("%1 はありません。%2 があります。").arg(path, other.devicePath),
                    u"mkdir -p %1 && ln -sfn %2 %3"_s.arg(
                        Quoted(*ports.LinkFolder()), Quoted(other.devicePath),
                        Quoted(*ports.LinkFolder() + u"/com"_s + QString::number(number)))};
        }
    }
    return {Text::tr("%1 はありません。アダプタを挿し直し、認識されたか調べてください。").arg(path),
            u"ls -l /dev/ttyUSB* /dev/ttyACM*"_s};
}

PortRemedy ForbiddenPort(const QString& path, const PortFacts& facts) {
    if (!facts.group || facts.group == u"root"_s) {
        return {Text::tr("%1 を使う権限がありません。").arg(path),
                u"sudo chmod a+rw %1"_s.arg(Quoted(path))};
    }
    if (facts.member) {
        return {Text::tr("%1 を使う権限がありません。"
                         "グループ %2 には登録済みです。ログインし直してください。")
                    .arg(path, *facts.group),
                u"newgrp %1"_s.arg(Quoted(*facts.group))};
    }
    return {GroupText(facts.udevRule).arg(path),
            u"sudo usermod -aG %1 $USER"_s.arg(Quoted(*facts.group))};
}

PortRemedy BusyPort(const QString& path, const PortFacts& facts, const QString& reason) {
    if (facts.holder) {
        const auto& [program, process] = *facts.holder;
        return {
            Text::tr(
                "%1 は %2 (PID %3) が使っています。そのプログラムを終了してください。"
                "できなければ次のコマンドで止められますが、そこで保存していない内容は失われます。")
                .arg(path, program, QString::number(process)),
            u"kill %1"_s.arg(process)};
    }
    return {Text::tr("%1 をほかのプログラムが使っています (%2)。次のコマンドで調べられます。")
                .arg(path, reason),
            u"sudo fuser -v %1"_s.arg(Quoted(path))};
}

PortRemedy SlowPort(const QString& path) {
    const QString name =
        QFileInfo(QFileInfo(path).exists() ? QFileInfo(path).canonicalFilePath() : path).fileName();
    return {
        Text::tr("応答が遅すぎます。アダプタの待ち時間を短くしてください。"),
        name.startsWith(u"ttyUSB"_s)
            ? u"echo 1 | sudo tee /sys/bus/usb-serial/devices/%1/latency_timer"_s.arg(Quoted(name))
            : u"sudo setserial %1 low_latency"_s.arg(Quoted(path))};
}

PortRemedy LockedPort(const QString& lockFile) {
    return {Text::tr("終了したプログラムのロックファイルが残っています。ここでは無視しますが、"
                     "ほかのプログラムは開けません。"),
            u"sudo rm %1"_s.arg(Quoted(lockFile))};
}

}  // namespace tolvex
