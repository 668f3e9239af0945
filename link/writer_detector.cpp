// SPDX-License-Identifier: MIT
#include "link/writer_detector.h"

#include "base/settings_keys.h"

namespace tolvex {

using namespace Qt::StringLiterals;

DetectionResult WriterDetector::WriterCheck() {
    parts_.person.dialog.ShowMessage(MessageMode::Progress, u"ライタと通信中！"_s);
    parts_.connection.ClosePort();

    const int number = static_cast<int>(GetNumber(parts_.settings, keys::ComNox));
    parts_.connection.ConfigurePort(number);
    parts_.person.status.SetStatusText(kPortPanel, u"COM:"_s + QString::number(number));

    parts_.state.errorFlag.Clear();
    Stage stage = Stage::StoredPort;
    DetectionResult result;
    result.found = ShakeHands(result.identity, stage);
    if (result.found) {
        ReportSuccess(result.identity);
    } else {
        ReportFailure(stage);
    }
    return result;
}

bool WriterDetector::ShakeHands(WriterIdentity& identity, Stage& stage) {
    ErrorFlag& flag = parts_.state.errorFlag;
    if (GetNumber(parts_.settings, keys::ComNoxChosen) == 0) {
        return false;
    }
    stage = Stage::SoftwareId;
    if (!parts_.connection.IsOpen() && !parts_.connection.OpenPort()) {
        return false;
    }
    parts_.commands.ReadSoftwareId(identity.identifier, flag);
    if (flag.Failed()) {
        return false;
    }
    stage = Stage::SoftwareVersion;
    parts_.commands.ReadSoftwareVersion(identity.softwareVersion, flag);
    if (flag.Failed()) {
        return false;
    }
    stage = Stage::HardwareVersion;
    parts_.commands.ReadHardwareVersion(identity.hardwareVersion, flag);
    if (flag.Failed()) {
        return false;
    }
    stage = Stage::SelectDevice;
    parts_.commands.SelectDeviceCode(parts_.state.device.deviceCode, flag);
    return !flag.Failed();
}

void WriterDetector::ReportSuccess(const WriterIdentity& identity) {
    parts_.person.status.SetStatusText(kWriterPanel, identity.identifier + u" SW:"_s +
                                                         identity.softwareVersion + u" HW:"_s +
                                                         identity.hardwareVersion);
    parts_.person.status.SetStatusText(
        kMessagePanel,
        u"ライタを検出しました。 COM"_s + QString::number(parts_.connection.PortNumber()));
    parts_.person.dialog.CloseMessage();
}

void WriterDetector::ReportFailure(Stage stage) {
    static constexpr QStringView kStageTexts[] = {
        u"ライタと通信ができませんでした。(レジストリリード)",
        u"ライタと通信ができませんでした。(Command_S)",
        u"ライタと通信ができませんでした。(Command_V)",
        u"ライタと通信ができませんでした。(Command_v)",
        u"ライタと通信ができませんでした。(Command_T)",
    };
    static_assert(std::size(kStageTexts) == static_cast<std::size_t>(Stage::Count));
    parts_.connection.ClosePort();
    parts_.person.dialog.ShowMessage(MessageMode::Message,
                                     u"ライタと通信ができませんでした。\r\n"
                                     "PCとライタの接続を確認後、メニューバーの\r\n"
                                     "[通信チェック] [COMポート選択]を実行して下さい。\r\n"_s);
    // Replaces the failing command's own text.
    parts_.person.status.SetStatusText(kMessagePanel,
                                       kStageTexts[static_cast<int>(stage)].toString());
}

}  // namespace tolvex
