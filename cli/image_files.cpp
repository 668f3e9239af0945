// SPDX-License-Identifier: MIT
#include "cli/image_files.h"

#include <QBuffer>
#include <QFileInfo>
#include <QJsonArray>
#include <QSaveFile>
#include <algorithm>
#include <vector>

#include "image/hex_reader.h"
#include "image/hex_writer.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kStandard = u"-";
/// Of a memory of 64 KiB, even with a byte a line, a HEX file has less.
constexpr qsizetype kLargestFile = 16 << 20;

QString DataBeside(const QString& code) {
    const QString suffix = QFileInfo(code).suffix();
    return code == kStandard ? QString()
                             : code.chopped(suffix.isEmpty() ? 0 : suffix.size() + 1) + u".eep"_s;
}

bool SameFile(const QString& one, const QString& other) {
    const QFileInfo first(one);
    const QFileInfo second(other);
    // To Qt all files that don't exist are the same one.
    return first.exists() || second.exists()
               ? first == second
               : first.absoluteFilePath() == second.absoluteFilePath();
}

/// The whole content; nothing when it can't be read or is too large.
std::optional<QByteArray> Content(const QString& path) {
    QFile file;
    QByteArray text;
    if (!OpenInput(file, path)) {
        return std::nullopt;
    }
    for (QByteArray part = file.read(kLargestFile); !part.isEmpty() && text.size() <= kLargestFile;
         part = file.read(kLargestFile)) {
        text += part;
    }
    const bool whole = file.error() == QFileDevice::NoError && text.size() <= kLargestFile;
    return whole ? std::optional(text) : std::nullopt;
}

/// Whether the reader would take characters for something that does not stand there.
bool Misread(const HexReport& report) {
    return std::ranges::any_of(report.findings, [](const HexFinding& finding) {
        return finding.fault == HexFault::LowerCase || finding.fault == HexFault::Digit ||
               finding.fault == HexFault::Length;
    });
}

int TellFindings(Session& session, const QString& path, const HexReport& report, bool force) {
    QStringList lines;
    QJsonArray findings;
    for (const HexFinding& finding : report.findings) {
        lines << u"%1: %2"_s.arg(path, HexFindingText(finding));
        findings << HexFindingJson(finding);
    }
    session.Report()[u"findings"_s] = findings;
    const QString text = u"HEX ファイルに誤りがあります。\n"_s + lines.join(u'\n');
    if (!force || report.goodRecords == 0 || Misread(report)) {
        return session.Fail(cause::BadFile, text);
    }
    session.Remark(text + u"\n続けます。"_s);
    return kDone;
}

template <typename Image>
int LoadFile(Session& session, const QString& path, int memoryBytes, bool force, Image& image,
             HexReadResult (*read)(QIODevice&, Image&, ErrorFlag&), bool& lossless) {
    if (path.isEmpty()) {
        return kDone;
    }
    auto text = Content(path);
    if (!text) {
        return session.Fail(cause::FileNotReadable, u"ファイルを読めません: %1"_s.arg(path));
    }
    QBuffer buffer(&*text);
    buffer.open(QIODevice::ReadOnly);
    const HexReport report = CheckHex(buffer, memoryBytes);
    if (!report.Clean()) {
        if (const int status = TellFindings(session, path, report, force)) {
            return status;
        }
    }
    lossless = lossless && report.lossless;
    ErrorFlag flag;
    buffer.seek(0);
    read(buffer, image, flag);
    return kDone;
}

/// A regular file is replaced as a whole or not at all; anything else is written to.
std::unique_ptr<QFileDevice> OpenOutput(const QString& path) {
    std::unique_ptr<QFileDevice> file;
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) {
        file = std::make_unique<QFile>(path);
    } else {
        file = std::make_unique<QSaveFile>(path);
    }
    return file->open(QIODevice::WriteOnly) ? std::move(file) : nullptr;
}

bool Commit(QFileDevice& file) {
    auto* const safe = qobject_cast<QSaveFile*>(&file);
    return safe ? safe->commit() : file.flush();
}

}  // namespace

int ImageFiles::From(Session& session, const Call& call, Use use, ImageFiles& files) {
    const auto wrong = [&session](const QString& text) {
        return session.Fail(cause::WrongUse, text);
    };
    const QString first = call.arguments[0];
    if (call.Has("only")) {
        const QString only = call.options.value(u"only"_s);
        files.memories = {.flash = only == u"flash", .eeprom = only == u"eeprom"};
        if (files.memories.flash == files.memories.eeprom) {
            return wrong(u"--only は flash か eeprom です。"_s);
        }
        (files.memories.flash ? files.code : files.data) = first;
        return call.arguments.size() == 1 ? int{kDone}
                                          : wrong(u"--only ではファイルは一つです。"_s);
    }
    if (IsDataFileName(first)) {
        return wrong(u"EEPROM のファイルです。--only eeprom を指定してください: %1"_s.arg(first));
    }
    files.code = first;
    files.data = call.arguments.value(1, DataBeside(first));
    if (use == Use::Write && files.data.isEmpty()) {
        return wrong(
            u"標準出力には一つのメモリだけを書けます。--only か DATA を指定してください。"_s);
    }
    if (call.arguments.size() > 1) {
        return SameFile(files.code, files.data)
                   ? wrong(u"CODE と DATA が同じファイルです: %1"_s.arg(first))
                   : int{kDone};
    }
    if (use == Use::Read && !QFileInfo::exists(files.data)) {
        files.data.clear();
    }
    if (!files.data.isEmpty() && !call.Has("keep-eeprom")) {
        session.Tell(u"EEPROM のファイル: %1"_s.arg(files.data));
    }
    return kDone;
}

int LoadFiles(Session& session, const ImageFiles& files, bool force, LoadedFiles& loaded) {
    const CurrentDevice& device = session.Device();
    session.Report()[u"files"_s] = files.Json();
    if (const int status =
            LoadFile<FlashImage>(session, files.code, 2 * device.flashWords, force,
                                 loaded.images.flash, ReadCodeHex, loaded.lossless)) {
        return status;
    }
    return LoadFile<EepromImage>(session, files.data, device.eepromBytes, force,
                                 loaded.images.eeprom, ReadDataHex, loaded.lossless);
}

int SaveImages(Session& session, const ImageFiles& files, const MemoryImages& images) {
    const CurrentDevice& device = session.Device();
    struct Output {
        QString path;
        QByteArray text;
    };
    std::vector<std::unique_ptr<QFileDevice>> open;
    QStringList written;
    const auto failed = [&session](const QString& path) {
        return session.Fail(cause::FileNotWritten, u"ファイルを書けません: %1"_s.arg(path));
    };
    for (const Output& output :
         {Output{files.code, CodeHexText(images.flash, device.flashWords)},
          Output{files.data, DataHexText(images.eeprom, device.eepromBytes)}}) {
        if (output.path == kStandard) {
            session.Put(output.text);
        } else if (!output.path.isEmpty()) {
            open.push_back(OpenOutput(output.path));
            if (!open.back() || open.back()->write(output.text) != output.text.size() ||
                !open.back()->flush()) {
                return failed(output.path);
            }
            written << output.path;
        }
    }
    for (const auto& file : open) {
        if (!Commit(*file)) {
            return failed(file->fileName());
        }
    }
    if (!written.isEmpty()) {
        session.Tell(u"保存しました: %1"_s.arg(written.join(u", "_s)));
    }
    return kDone;
}

QJsonObject HexFindingJson(const HexFinding& finding) {
    QJsonObject object{{u"line"_s, finding.line},
                       {u"fault"_s, HexFaultName(finding.fault).toString()}};
    if (finding.address >= 0) {
        object[u"address"_s] = finding.address;
    }
    if (finding.more > 0) {
        object[u"more"_s] = finding.more;
    }
    return object;
}

bool OpenInput(QFile& file, const QString& path) {
    constexpr int kStandardInput = 0;
    file.setFileName(path);
    return path == kStandard ? file.open(kStandardInput, QIODevice::ReadOnly)
                             : file.open(QIODevice::ReadOnly);
}

}  // namespace tolvex
