// SPDX-License-Identifier: MIT
#include "cli/image_files.h"

#include <QBuffer>
#include <QFileInfo>
#include <QJsonArray>
#include <QSaveFile>
#include <algorithm>
#include <filesystem>
#include <vector>

#include "image/hex_reader.h"
#include "image/hex_writer.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kStandard = u"-";
/// Of a memory of 64 KiB, even with a byte a line, a HEX file has less.
constexpr qsizetype kLargestFile = 16 << 20;

/// Why the system does not give the file.
QString WhyNot(const QString& path, bool tooLarge) {
    const QFileInfo file(path);
    if (tooLarge) {
        return u"大きすぎます"_s;
    }
    if (!file.exists()) {
        return file.isSymLink() ? u"リンクの先がありません"_s : u"ありません"_s;
    }
    return file.isDir()         ? u"フォルダです"_s
           : !file.isReadable() ? u"権限がありません"_s
                                : u"読み取りエラー"_s;
}

/// Whether the reader would take characters for something that does not stand there, or bytes from
/// far above to address 0.
bool Misread(const HexReport& report) {
    return std::ranges::any_of(report.findings, [](const HexFinding& finding) {
        return finding.fault == HexFault::LowerCase || finding.fault == HexFault::Digit ||
               finding.fault == HexFault::Length || finding.fault == HexFault::BaseAddress;
    });
}

Status JudgeFindings(Session& session, const QString& path, const HexReport& report, bool force) {
    QStringList lines;
    QJsonArray findings;
    for (const HexFinding& finding : report.findings) {
        lines << u"%1: %2"_s.arg(path, HexFindingText(finding));
        findings << HexFindingJson(finding);
    }
    if (const auto cure = CureOf(report)) {
        lines << *cure;
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
    const auto text = ReadInput(path);
    if (!text) {
        return text.Failed();
    }
    QBuffer buffer;
    buffer.setData(*text);
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

/// What stood there before; nothing = no file did.
void PutBack(const std::vector<std::pair<QString, std::optional<QByteArray>>>& files) {
    for (const auto& [path, text] : files) {
        if (!QFileInfo(path).isFile()) {
            continue;
        }
        QSaveFile file(path);
        if (!text) {
            QFile::remove(path);
        } else if (file.open(QIODevice::WriteOnly) && file.write(*text) == text->size()) {
            file.commit();
        }
    }
}

bool Commit(QFileDevice& file) {
    auto* const safe = qobject_cast<QSaveFile*>(&file);
    return safe ? safe->commit() : file.flush();
}

}  // namespace

std::optional<QString> DataBeside(const QString& code) {
    if (code == kStandard) {
        return std::nullopt;
    }
    const QString suffix = QFileInfo(code).suffix();
    return FindDataFile(code.chopped(suffix.isEmpty() ? 0 : suffix.size() + 1) + u".eep"_s);
}

bool IsSameFile(const QString& one, const QString& other) {
    std::error_code none;
    return QFileInfo(one).absoluteFilePath() == QFileInfo(other).absoluteFilePath() ||
           std::filesystem::equivalent(QFile::encodeName(one).toStdString(),
                                       QFile::encodeName(other).toStdString(), none);
}

Result<QByteArray> ReadInput(const QString& path) {
    QFile file;
    QByteArray text;
    const bool opened = OpenInput(file, path);
    while (opened && text.size() <= kLargestFile) {
        const QByteArray part = file.read(kLargestFile);
        if (part.isEmpty()) {
            break;
        }
        text += part;
    }
    const bool tooLarge = text.size() > kLargestFile;
    if (!opened || tooLarge || file.error() != QFileDevice::NoError) {
        return Failure{cause::FileNotReadable,
                       u"ファイルを読めません (%1): %2"_s.arg(WhyNot(path, tooLarge), path)};
    }
    return text;
}

std::optional<QString> CureOf(const HexReport& report) {
    const bool above = std::ranges::any_of(report.findings, [](const HexFinding& finding) {
        return finding.fault == HexFault::BaseAddress;
    });
    return above ? std::optional(
                       u"EEPROM などのデータが混ざっています。avr-objcopy に、コードのファイルでは "
                       "-R .eeprom を、EEPROM のファイルでは -j .eeprom --change-section-lma "
                       ".eeprom=0 を付けて作り直してください。"_s)
                 : std::nullopt;
}

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
        if (IsSameFile(first, call.arguments[1])) {
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
    // A dangling link counts as there: reading it fails, and nothing is taken for blank.
    if (use == FileUse::Read && files.data && !QFileInfo::exists(*files.data) &&
        !QFileInfo(*files.data).isSymLink()) {
        files.data.reset();
    }
    if (!call.Has("keep-eeprom")) {
        session.output.Tell(
            files.data ? u"EEPROM のファイル: %1"_s.arg(*files.data)
                       : u"EEPROM のファイルはありません。EEPROM は空（FF）として扱います。"_s);
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

Status RequirePlaces(const ImageFiles& files, bool replace) {
    for (const auto& path : {files.code, files.data}) {
        const QFileInfo file(path.value_or(kStandard.toString()));
        const QFileInfo folder(file.absolutePath());
        if (path && file.isFile() && !replace) {
            return FileExistsFailure(*path);
        }
        const bool stream = path == kStandard || (file.exists() && !file.isFile() && !file.isDir());
        if (path && !stream && (file.isDir() || !folder.isDir() || !folder.isWritable())) {
            const QString why = file.isDir()      ? u"フォルダです"_s
                                : !folder.isDir() ? u"フォルダがありません"_s
                                                  : u"フォルダに書く権限がありません"_s;
            return Failure{cause::FileNotWritten,
                           u"ファイルを書けません (%1): %2"_s.arg(why, *path)};
        }
    }
    return {};
}

Status SaveImages(Session& session, const ImageFiles& files, const MemoryImages& images,
                  bool replace) {
    const CurrentDevice& device = session.access.Device();
    const std::pair<std::optional<QString>, QByteArray> outputs[] = {
        {files.code, CodeHexText(images.flash, device.flashWords)},
        {files.data, DataHexText(images.eeprom, device.eepromBytes)}};
    std::vector<std::unique_ptr<QFileDevice>> open;
    QStringList written;
    const auto failure = [](const QFileDevice* file, const QString& path) {
        return Failure{cause::FileNotWritten,
                       u"ファイルを書けません (%1): %2"_s.arg(
                           file ? file->errorString() : u"開けません"_s, path)};
    };
    for (const auto& [path, text] : outputs) {
        if (path == kStandard) {
            session.output.Put(text);
        } else if (path) {
            open.push_back(OpenOutput(*path));
            if (!open.back() || open.back()->write(text) != text.size() || !open.back()->flush()) {
                return failure(open.back().get(), *path);
            }
            written << *path;
        }
    }
    // The files are a pair: when one can't be put in its place, those before it go back.
    std::vector<std::pair<QString, std::optional<QByteArray>>> before;
    for (const auto& file : open) {
        const QString path = file->fileName();
        QFile old(path);
        const bool existed = QFileInfo(path).isFile() && old.open(QIODevice::ReadOnly);
        if (existed && !replace) {
            PutBack(before);
            return FileExistsFailure(path);
        }
        before.emplace_back(path, existed ? std::optional(old.readAll()) : std::nullopt);
        old.close();
        if (!Commit(*file)) {
            before.pop_back();
            PutBack(before);
            return failure(file.get(), path);
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
