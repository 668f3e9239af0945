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

constexpr QStringView kStandard = u"-";
/// Of a memory of 64 KiB, even with a byte a line, a HEX file has less.
constexpr qsizetype kLargestFile = 16 << 20;

/// Nothing is beside the standard streams.
std::optional<QString> DataBeside(const QString& code) {
    if (code == kStandard) {
        return std::nullopt;
    }
    const QString suffix = QFileInfo(code).suffix();
    return code.chopped(suffix.isEmpty() ? 0 : suffix.size() + 1) + u".eep"_s;
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

Status JudgeFindings(Session& session, const QString& path, const HexReport& report, bool force) {
    QStringList lines;
    QJsonArray findings;
    for (const HexFinding& finding : report.findings) {
        lines << u"%1: %2"_s.arg(path, HexFindingText(finding));
        findings << HexFindingJson(finding);
    }
    session.output.Report(report::Findings, findings);
    const QString text = u"HEX ファイルに誤りがあります。\n"_s + lines.join(u'\n');
    if (!force || report.goodRecords == 0 || Misread(report)) {
        return Failure{cause::BadFile, text};
    }
    session.output.Remark(text + u"\n続けます。"_s);
    return {};
}

/// Takes the file's content into the image, and `lossless` when all of its data is there.
template <typename Image>
Status LoadFile(Session& session, const QString& path, int memoryBytes, bool force, Image& image,
                HexReadResult (*read)(QIODevice&, Image&, ErrorFlag&), bool& lossless) {
    auto text = Content(path);
    if (!text) {
        return Failure{cause::FileNotReadable, u"ファイルを読めません: %1"_s.arg(path)};
    }
    QBuffer buffer(&*text);
    buffer.open(QIODevice::ReadOnly);
    const HexReport report = CheckHex(buffer, memoryBytes);
    ErrorFlag flag;
    buffer.seek(0);
    read(buffer, image, flag);
    lossless = lossless && report.lossless;
    return report.Clean() ? Status{} : JudgeFindings(session, path, report, force);
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

Result<ImageFiles> ChooseImageFiles(Session& session, const Call& call, FileUse use) {
    const QString first = call.arguments[0];
    if (const auto only = call.Value("only")) {
        if (only != u"flash" && only != u"eeprom") {
            return Failure{cause::WrongUse, u"--only は flash か eeprom です。"_s};
        }
        if (call.arguments.size() > 1) {
            return Failure{cause::WrongUse, u"--only ではファイルは一つです。"_s};
        }
        return only == u"flash" ? ImageFiles{.code = first, .memories = {.eeprom = false}}
                                : ImageFiles{.data = first, .memories = {.flash = false}};
    }
    if (IsDataFileName(first)) {
        return Failure{cause::WrongUse,
                       u"EEPROM のファイルです。--only eeprom を指定してください: %1"_s.arg(first)};
    }
    if (call.arguments.size() > 1) {
        if (SameFile(first, call.arguments[1])) {
            return Failure{cause::WrongUse, u"CODE と DATA が同じファイルです: %1"_s.arg(first)};
        }
        return ImageFiles{.code = first, .data = call.arguments[1]};
    }
    ImageFiles files{.code = first, .data = DataBeside(first)};
    if (use == FileUse::Write && !files.data) {
        return Failure{
            cause::WrongUse,
            u"標準出力には一つのメモリだけを書けます。--only か DATA を指定してください。"_s};
    }
    if (use == FileUse::Read && files.data && !QFileInfo::exists(*files.data)) {
        files.data.reset();
    }
    if (files.data && !call.Has("keep-eeprom")) {
        session.output.Tell(u"EEPROM のファイル: %1"_s.arg(*files.data));
    }
    return files;
}

Result<LoadedFiles> LoadFiles(Session& session, const ImageFiles& files, bool force) {
    const CurrentDevice& device = session.access.Device();
    LoadedFiles loaded;
    session.output.Report(report::Files, files.Json());
    if (files.code) {
        if (const Status failed =
                LoadFile<FlashImage>(session, *files.code, 2 * device.flashWords, force,
                                     loaded.images.flash, ReadCodeHex, loaded.lossless)) {
            return *failed;
        }
    }
    if (files.data) {
        if (const Status failed =
                LoadFile<EepromImage>(session, *files.data, device.eepromBytes, force,
                                      loaded.images.eeprom, ReadDataHex, loaded.lossless)) {
            return *failed;
        }
    }
    return loaded;
}

Status SaveImages(Session& session, const ImageFiles& files, const MemoryImages& images) {
    const CurrentDevice& device = session.access.Device();
    const std::pair<std::optional<QString>, QByteArray> outputs[] = {
        {files.code, CodeHexText(images.flash, device.flashWords)},
        {files.data, DataHexText(images.eeprom, device.eepromBytes)}};
    std::vector<std::unique_ptr<QFileDevice>> open;
    QStringList written;
    const auto failure = [](const QString& path) {
        return Failure{cause::FileNotWritten, u"ファイルを書けません: %1"_s.arg(path)};
    };
    for (const auto& [path, text] : outputs) {
        if (path == kStandard) {
            session.output.Put(text);
        } else if (path) {
            open.push_back(OpenOutput(*path));
            if (!open.back() || open.back()->write(text) != text.size() || !open.back()->flush()) {
                return failure(*path);
            }
            written << *path;
        }
    }
    for (const auto& file : open) {
        if (!Commit(*file)) {
            return failure(file->fileName());
        }
    }
    if (!written.isEmpty()) {
        session.output.Tell(u"保存しました: %1"_s.arg(written.join(u", "_s)));
    }
    return {};
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
