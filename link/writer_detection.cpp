// SPDX-License-Identifier: MIT
// Finding the writer, and choosing the port that it hangs on.
#include "base/text.h"
#include "link/link.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The command that decides ends the handshake; `failure` is then its text, untranslated.
Outcome ShakeHands(const LinkContext& link, DetectionResult& result, const char*& failure) {
    failure = QT_TRANSLATE_NOOP("Tolvex", "ライタと通信ができませんでした。(レジストリリード)");
    if (GetNumber(link.settings, keys::ComNoxChosen) == 0) {
        return Outcome::NotSent;
    }
    failure = QT_TRANSLATE_NOOP("Tolvex", "ライタと通信ができませんでした。(Command_S)");
    if (!link.connection.IsOpen() && !link.connection.OpenPort()) {
        return Outcome::NotSent;
    }
    Outcome outcome = link.commands.ReadSoftwareId(result.identifier);
    if (outcome != Outcome::Ok) {
        return outcome;
    }
    failure = QT_TRANSLATE_NOOP("Tolvex", "ライタと通信ができませんでした。(Command_V)");
    outcome = link.commands.ReadSoftwareVersion(result.softwareVersion);
    if (outcome != Outcome::Ok) {
        return outcome;
    }
    failure = QT_TRANSLATE_NOOP("Tolvex", "ライタと通信ができませんでした。(Command_v)");
    outcome = link.commands.ReadHardwareVersion(result.hardwareVersion);
    if (outcome != Outcome::Ok) {
        return outcome;
    }
    failure = QT_TRANSLATE_NOOP("Tolvex", "ライタと通信ができませんでした。(Command_T)");
    return link.commands.SelectDeviceCode(link.state.device.deviceCode);
}

void ReportSuccess(const LinkContext& link, const DetectionResult& result) {
    link.ui.SetStatusText(kWriterPanel, result.identifier + u" SW:"_s + result.softwareVersion +
                                            u" HW:"_s + result.hardwareVersion);
    link.ui.SetStatusText(
        kMessagePanel, Text::tr("ライタを検出しました。 COM%1").arg(link.connection.PortNumber()));
    link.ui.CloseMessage();
}

void ReportFailure(const LinkContext& link, const QString& statusText) {
    link.connection.ClosePort();
    const QString inMenus = Text::tr(
        "ライタと通信ができませんでした。\r\n"
        "PCとライタの接続を確認後、メニューバーの\r\n"
        "[通信チェック] [COMポート選択]を実行して下さい。\r\n");
    link.ui.ShowMessage(MessageKind::Failure, link.ui.NoWriterText().value_or(inMenus));
    // Replaces the failing command's own text.
    link.ui.SetStatusText(kMessagePanel, statusText, MessageKind::Failure);
}

void ReportOpenFailure(const LinkContext& link, const QString& port) {
    link.ui.ShowBox(
        BoxIcon::Stop, Text::tr("ポートオープン失敗"),
        Text::tr("%1 のオープンに失敗しました。\rポート番号を再設定してください。").arg(port));
    link.state.errorFlag.Set();
}

}  // namespace

DetectionResult WriterCheck(const LinkContext& link) {
    link.ui.ShowMessage(MessageKind::Progress, Text::tr("ライタと通信中！"));
    link.connection.ClosePort();
    const int number = static_cast<int>(GetNumber(link.settings, keys::ComNox));
    link.connection.ConfigurePort(number);
    link.ui.SetStatusText(kPortPanel, u"COM:"_s + QString::number(number));
    link.state.errorFlag.Clear();

    DetectionResult result;
    const char* failure = nullptr;
    result.outcome = ShakeHands(link, result, failure);
    if (result) {
        ReportSuccess(link, result);
    } else {
        ReportFailure(link, Text::tr(failure));
    }
    return result;
}

QStringList PortEntries() {
    QStringList entries{u"????"_s};
    for (int number = 1; number <= kComPortCount; ++number) {
        entries << u"COM"_s + QString::number(number);
    }
    return entries;
}

int BeginPortChoice(const LinkContext& link) {
    link.state.errorFlag.Set();
    link.connection.ClosePort();
    const int index = static_cast<int>(GetNumber(link.settings, keys::ComNoxChosen));
    if (index != 0) {
        link.connection.ConfigurePort(index);
    }
    link.ui.SetStatusText(kMessagePanel, QString());
    return index;
}

bool ConfirmPortChoice(const LinkContext& link, int index,
                       const std::function<void()>& hideDialog) {
    link.connection.ClosePort();
    if (index <= 0) {
        ReportOpenFailure(link, u"COM?"_s);
        return false;
    }
    link.connection.ConfigurePort(index);
    const bool opened = link.connection.OpenPort();
    link.ui.SetStatusText(kPortPanel, u"COM:"_s + QString::number(index));
    if (!opened) {
        ReportOpenFailure(link, u"COM"_s + QString::number(index));
        return false;
    }
    link.settings.SaveSetting(QString::fromLatin1(keys::ComNox.name), QString::number(index));
    hideDialog();
    WriterCheck(link);
    link.state.errorFlag.Clear();
    if (link.commands.SoftwareVersion() != kFullFirmware) {
        link.ui.SetStatusText(
            kMessagePanel,
            Text::tr("このファームウエアバージョンでは、AT90S2333/4433をサポートしません。"),
            MessageKind::Result);
    }
    return true;
}

void CancelPortChoice(const LinkContext& link) {
    link.ui.SetStatusText(kMessagePanel, Text::tr("ライター接続確認が終了していません。"),
                          MessageKind::Result);
    link.state.errorFlag.Set();
}

}  // namespace tolvex
