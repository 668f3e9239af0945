// SPDX-License-Identifier: MIT
#include "port/port_remedy.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

const QString kDeviceManager = u"devmgmt.msc"_s;

}  // namespace

QString Quoted(const QString& text) {
    return text.contains(u' ') ? u'"' + text + u'"' : text;
}

PortRemedy MissingPort(const ComPorts& ports, int number) {
    const QString path = ports.DevicePath(number);
    for (const ComPort& other : ports.All()) {
        if (other.present && other.number != number) {
            return {u"%1 はありません。%2 があります。"_s.arg(path, other.devicePath),
                    u"tolvex-cli --port %1 doctor"_s.arg(other.devicePath)};
        }
    }
    return {
        u"%1 はありません。アダプタを挿し直し、デバイス マネージャーの「ポート (COM と LPT)」で、"
        "ドライバーが入っていることと、番号が COM1 から COM20 までであることを確認してください。"_s
            .arg(path),
        kDeviceManager};
}

PortRemedy ForbiddenPort(const QString& path, const PortFacts&) {
    return {u"%1 を使う権限がありません。"_s.arg(path), kDeviceManager};
}

PortRemedy BusyPort(const QString& path, const PortFacts&, const QString& reason) {
    return {u"%1 を開けません: %2。ポートを使っているほかのプログラムを終了してください。"_s.arg(
                path, reason),
            u"taskmgr"_s};
}

PortRemedy SlowPort(const QString& path) {
    return {
        u"応答が遅すぎます。デバイス マネージャーで %1 のプロパティを開き、「ポートの設定」の"
        "「詳細設定」にある待ち時間 (Latency Timer) を 1 ミリ秒にしてください。"_s.arg(path),
        kDeviceManager};
}

PortRemedy LockedPort(const QString& lockFile) {
    return {u"終了したプログラムのロックファイルが残っています。"_s, u"del %1"_s.arg(lockFile)};
}

}  // namespace tolvex
