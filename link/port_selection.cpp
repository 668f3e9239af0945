// SPDX-License-Identifier: MIT
#include "link/port_selection.h"

#include "base/settings_keys.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The only firmware that knows the 28-pin chips.
constexpr QStringView kFullFirmware = u"3.9";

}  // namespace

QStringList PortSelection::Entries() {
    QStringList entries{u"????"_s};
    for (int number = 1; number <= kComPortCount; ++number) {
        entries << u"COM"_s + QString::number(number);
    }
    return entries;
}

int PortSelection::Load() {
    parts_.state.errorFlag.Set();
    parts_.connection.ClosePort();
    const int index = static_cast<int>(GetNumber(parts_.settings, keys::ComNoxChosen));
    if (index != 0) {
        parts_.connection.ConfigurePort(index);
    }
    parts_.person.status.SetStatusText(kMessagePanel, QString());
    return index;
}

bool PortSelection::Confirm(int index, const std::function<void()>& hideDialog) {
    parts_.connection.ClosePort();
    if (index <= 0) {
        ReportOpenFailure(u"COM?"_s);
        return false;
    }
    parts_.connection.ConfigurePort(index);
    const bool opened = parts_.connection.OpenPort();
    parts_.person.status.SetStatusText(kPortPanel, u"COM:"_s + QString::number(index));
    if (!opened) {
        ReportOpenFailure(u"COM"_s + QString::number(index));
        return false;
    }
    parts_.settings.SaveSetting(QString::fromLatin1(keys::ComNox.name), QString::number(index));
    hideDialog();
    parts_.detection.WriterCheck();
    parts_.state.errorFlag.Clear();
    if (parts_.commands.SoftwareVersion() != kFullFirmware) {
        parts_.person.status.SetStatusText(
            kMessagePanel,
            u"このファームウエアバージョンでは、AT90S2333/4433をサポートしません。"_s);
    }
    return true;
}

void PortSelection::Cancel() {
    parts_.person.status.SetStatusText(kMessagePanel, u"ライター接続確認が終了していません。"_s);
    parts_.state.errorFlag.Set();
}

void PortSelection::ReportOpenFailure(const QString& port) {
    parts_.person.dialogs.ShowBox(
        BoxIcon::Stop, u"ポートオープン失敗"_s,
        port + u" のオープンに失敗しました。\rポート番号を再設定してください。"_s);
    parts_.state.errorFlag.Set();
}

}  // namespace tolvex
