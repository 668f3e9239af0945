// SPDX-License-Identifier: MIT
#include "link/writer_detector.h"

#include "app/settings_keys.h"

namespace tolvex {

using namespace Qt::StringLiterals;

bool WriterDetector::WriterCheck() {
    parts_.dialog.ShowMessage(MessageMode::Progress, u"ライタと通信中！"_s);
    parts_.connection.ClosePort();

    const int number = static_cast<int>(GetNumber(parts_.settings, keys::ComNox));
    parts_.connection.ConfigurePort(number);
    parts_.status.SetStatusText(kPortPanel, u"COM:"_s + QString::number(number));

    parts_.errorFlag.Clear();
    Stage stage = Stage::StoredPort;
    identity_ = {};
    found_ = ShakeHands(stage);
    if (!found_) {
        ReportFailure(stage);
        return false;
    }
    ReportSuccess();
    return true;
}

bool WriterDetector::ShakeHands(Stage& stage) {
    ErrorFlag& flag = parts_.errorFlag;
    if (GetNumber(parts_.settings, keys::ComNoxChosen) == 0) {
        return false;
    }
    stage = Stage::SoftwareId;
    if (!parts_.connection.IsOpen() && !parts_.connection.OpenPort()) {
        return false;
    }
    parts_.commands.ReadSoftwareId(identity_.identifier, flag);
    if (flag.Failed()) {
        return false;
    }
    stage = Stage::SoftwareVersion;
    parts_.commands.ReadSoftwareVersion(identity_.softwareVersion, flag);
    if (flag.Failed()) {
        return false;
    }
    stage = Stage::HardwareVersion;
    parts_.commands.ReadHardwareVersion(identity_.hardwareVersion, flag);
    if (flag.Failed()) {
        return false;
    }
    stage = Stage::SelectDevice;
    parts_.commands.SelectDeviceCode(parts_.device.deviceCode, flag);
    return !flag.Failed();
}

void WriterDetector::ReportSuccess() {
    parts_.status.SetStatusText(kWriterPanel, identity_.identifier + u" SW:"_s +
                                                  identity_.softwareVersion + u" HW:"_s +
                                                  identity_.hardwareVersion);
    parts_.status.SetStatusText(kMessagePanel, u"ライタを検出しました。 COM"_s +
                                                   QString::number(parts_.connection.PortNumber()));
    parts_.dialog.CloseMessage();
}

void WriterDetector::ReportFailure(Stage stage) {
    static constexpr QStringView kStageTexts[] = {
        u"ライタと通信ができませんでした。(レジストリリード)",
        u"ライタと通信ができませんでした。(Command_S)",
        u"ライタと通信ができませんでした。(Command_V)",
        u"ライタと通信ができませんでした。(Command_v)",
        u"ライタと通信ができませんでした。(Command_T)",
    };
    parts_.connection.ClosePort();
    parts_.dialog.ShowMessage(MessageMode::Message,
                              u"ライタと通信ができませんでした。\r\n"
                              "PCとライタの接続を確認後、メニューバーの\r\n"
                              "[通信チェック] [COMポート選択]を実行して下さい。\r\n"_s);
    // Replaces the failing command's own text.
    parts_.status.SetStatusText(kMessagePanel, kStageTexts[static_cast<int>(stage)].toString());
}

}  // namespace tolvex
