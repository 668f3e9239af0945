// SPDX-License-Identifier: MIT
#include "base/text.h"
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
            return {Text::tr("%1 はありません。%2 があります。").arg(path, other.devicePath),
                    u"tolvex-cli --port %1 doctor"_s.arg(other.devicePath)};
        }
    }
    return {Text::tr("%1 はありません。アダプタを挿し直し、"
                     "デバイス マネージャーの「ポート (COM と LPT)」で、"
                     "ドライバーが入っていることと、"
                     "番号が COM1 から COM20 までであることを確認してください。")
                .arg(path),
            kDeviceManager};
}

PortRemedy ForbiddenPort(const QString& path, const PortFacts&) {
    return {Text::tr("%1 を使う権限がありません。").arg(path), kDeviceManager};
}

PortRemedy BusyPort(const QString& path, const PortFacts&, const QString& reason) {
    return {Text::tr("%1 を開けません: %2。ポートを使っているほかのプログラムを終了してください。")
                .arg(path, reason),
            u"taskmgr"_s};
}

PortRemedy SlowPort(const QString& path) {
    return {
        Text::tr(
            "応答が遅すぎます。デバイス マネージャーで %1 のプロパティを開き、「ポートの設定」の"
            "「詳細設定」にある待ち時間 (Latency Timer) を 1 ミリ秒にしてください。")
            .arg(path),
        kDeviceManager};
}

PortRemedy LockedPort(const QString& lockFile) {
    return {Text::tr("終了したプログラムのロックファイルが残っています。"),
            u"del %1"_s.arg(lockFile)};
}

}  // namespace tolvex
