// SPDX-License-Identifier: MIT
#include "cli/image_files.h"

#include <QFileInfo>
#include <QJsonArray>

#include "cli/hex_texts.h"
#include "image/hex_reader.h"
#include "image/hex_writer.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Empty when that would be the code file itself.
QString DataBeside(const QString& code) {
    const QString suffix = QFileInfo(code).suffix();
    const QString stem = suffix.isEmpty() ? code : code.chopped(suffix.size() + 1);
    return suffix == u"eep"_s ? QString() : stem + u".eep"_s;
}

int ProveFile(Session& session, const QString& path, int memoryBytes) {
    const HexReport report = CheckHex(path, memoryBytes);
    if (!report.readable) {
        return session.Fail(kWrongUse, "fileNotReadable", u"ファイルを読めません: %1"_s.arg(path));
    }
    if (report.Clean()) {
        return kDone;
    }
    QStringList lines;
    QJsonArray findings;
    for (const HexFinding& finding : report.findings) {
        lines << u"%1: %2"_s.arg(path, HexFindingText(finding));
        findings << HexFindingJson(finding);
    }
    session.Report()[u"findings"_s] = findings;
    return session.Fail(kWrongUse, "badFile",
                        u"HEX ファイルに誤りがあります。\n"_s + lines.join(u'\n'));
}

int CheckWritten(Session& session, const QString& path, HexWriteResult result) {
    return result == HexWriteResult::Written
               ? int{kDone}
               : session.Fail(kWrongUse, "fileNotWritten", u"ファイルを書けません: %1"_s.arg(path));
}

}  // namespace

ImageFiles ImageFiles::ToRead(const QStringList& arguments) {
    ImageFiles files = ToWrite(arguments);
    if (arguments.size() < 2 && !QFileInfo::exists(files.data)) {
        files.data.clear();
    }
    return files;
}

ImageFiles ImageFiles::ToWrite(const QStringList& arguments) {
    return {arguments[0], arguments.size() < 2 ? DataBeside(arguments[0]) : arguments[1]};
}

int ProveFiles(Session& session, const ImageFiles& files, bool force) {
    const CurrentDevice& device = session.Bench().state.device;
    const int sizes[] = {2 * device.flashWords, device.eepromBytes};
    const int* size = sizes;
    for (const QString& path : {files.code, files.data}) {
        int status = kDone;
        if (force && !path.isEmpty() && !FileExists(path)) {
            status =
                session.Fail(kWrongUse, "fileNotReadable", u"ファイルを読めません: %1"_s.arg(path));
        } else if (!force && !path.isEmpty()) {
            status = ProveFile(session, path, *size);
        }
        if (status != kDone) {
            return status;
        }
        ++size;
    }
    return kDone;
}

void FillImages(Session& session, const ImageFiles& files) {
    Workbench& bench = session.Bench();
    bench.state.images.ClearFlashImage();
    bench.state.images.ClearEepromImage();
    const bool code = ReadCodeHex(files.code, bench.state.images.flash, bench.state.errorFlag) ==
                      HexReadResult::Complete;
    const bool data = ReadDataHex(files.data, bench.state.images.eeprom, bench.state.errorFlag) ==
                      HexReadResult::Complete;
    if (!code) {
        session.Person().SetStatusText(kMessagePanel, u"HEX ファイルのオープンエラー"_s);
    }
    if (!data) {
        session.Person().SetStatusText(kMessagePanel, u"EEP  ファイルのオープンエラー"_s);
    }
}

int WriteImages(Session& session, const ImageFiles& files) {
    const Workbench& bench = session.Bench();
    const int status = CheckWritten(
        session, files.code,
        WriteCodeHex(files.code, bench.state.images.flash, bench.state.device.flashWords));
    return status != kDone || files.data.isEmpty()
               ? status
               : CheckWritten(session, files.data,
                              WriteDataHex(files.data, bench.state.images.eeprom,
                                           bench.state.device.eepromBytes));
}

}  // namespace tolvex
