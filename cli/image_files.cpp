// SPDX-License-Identifier: MIT
#include "cli/image_files.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QSaveFile>
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <vector>

#include "base/command_line_help.h"
#include "base/system_cause.h"
#include "base/text.h"
#include "image/hex_writer.h"
#include "image/srecord.h"
#include "platform/program_start.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Whether the reader would take characters for something that does not stand there, or bytes from
/// far above to address 0.
bool Misread(const HexReport& report) {
    return std::ranges::any_of(report.findings, [](const HexFinding& finding) {
        return finding.fault == HexFault::Digit || finding.fault == HexFault::Length ||
               finding.fault == HexFault::BaseAddress;
    });
}

Status JudgeFindings(Session& session, const InputFile& file, const HexReport& report, bool force) {
    QJsonArray findings;
    for (const HexFinding& finding : report.findings) {
        findings << HexFindingJson(finding);
    }
    session.output.Report(report::Findings, findings);
    const bool hex = file.kind == FileKind::Hex;
    const QString text = (hex ? Text::tr("HEX ファイルに誤りがあります。")
                              : Text::tr("ファイルに誤りがあります。")) +
                         u'\n' + FindingLines(file.path, report).join(u'\n');
    if (!force || report.goodRecords == 0 || Misread(report)) {
        return Failure{cause::BadFile, text};
    }
    session.output.Remark(text + u'\n' + Text::tr("続けます。"));
    return {};
}

Result<InputFile> TakeFile(const QString& path, FileFormat format, bool named) {
    const bool binary = format == FileFormat::Binary;
    return binary && named ? TakeBinary(path) : TakeInput(path, binary);
}

/// Takes the file's content into the image, and `lossless` when all of its data is there.
template <typename Image>
Status LoadFile(Session& session, const InputFile& file, int memoryBytes, bool force, Image& image,
                bool& lossless) {
    const HexReport report = FillImage(file, memoryBytes, image);
    const bool text = file.kind == FileKind::Hex || file.kind == FileKind::SRecord;
    if (!text && report.bytes == 0 && report.findings.isEmpty()) {
        return Failure{cause::BadFile,
                       Text::tr("ファイルにこのメモリのデータがありません: %1").arg(file.path)};
    }
    lossless = lossless && report.lossless;
    return report.Clean() ? Status{} : JudgeFindings(session, file, report, force);
}

/// A command that programs or compares both memories tells what it found for the second.
void TellData(Session& session, const ImageFiles& files, bool elf) {
    if (files.foundData) {
        session.output.Tell(
            !files.data
                ? Text::tr("EEPROM のファイルはありません。EEPROM は空（FF）として扱います。")
            : elf ? Text::tr("EEPROM のファイル: %1 (.eeprom)").arg(*files.data)
                  : Text::tr("EEPROM のファイル: %1").arg(*files.data));
    }
}

Result<FileFormat> ChooseFormat(const Call& call, FileUse use) {
    const QString format = call.Value("format").value_or(u"hex"_s);
    if (format == u"bin") {
        return FileFormat::Binary;
    }
    if (use == FileUse::Read && call.Has("format")) {
        return Failure{
            cause::WrongUse,
            Text::tr("ここでの --format は bin だけです。ほかの形式は内容で分かります: %1")
                .arg(format)};
    }
    if (format != u"hex" && format != u"srec") {
        return Failure{cause::WrongUse,
                       Text::tr("--format は hex、bin、srec のどれかです: %1").arg(format)};
    }
    return format == u"srec" ? FileFormat::SRecord : FileFormat::Hex;
}

QByteArray OutputText(FileFormat format, const QByteArray& bytes) {
    return format == FileFormat::Binary    ? bytes
           : format == FileFormat::SRecord ? SRecordText(bytes)
                                           : HexText(bytes);
}

/// A regular file is replaced as a whole or not at all; anything else is written to.
std::unique_ptr<QFileDevice> OpenOutput(const QString& path) {
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) {
        auto stream = std::make_unique<QFile>(path);
        return OpenStream(*stream) ? std::move(stream) : nullptr;
    }
    auto file = std::make_unique<QSaveFile>(path);
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

/// Takes the name of a file to be made. False: in the meantime somebody else did.
bool Reserve(const QFileDevice& file) {
    const QString path = file.fileName();
    const bool isLink = QFileInfo(path).isSymLink();
    return qobject_cast<const QSaveFile*>(&file) == nullptr || isLink ||
           QFile(path).open(QIODevice::WriteOnly | QIODevice::NewOnly);
}

bool Commit(QFileDevice& file) {
    auto* const safe = qobject_cast<QSaveFile*>(&file);
    return safe ? SyncToDisk(file) && safe->commit() : file.flush();
}

/// Why no file can be put there; nothing = it can, or it is a stream.
std::optional<QString> WhyNoPlace(const QString& path) {
    constexpr qsizetype kLongestName = 255;
    const QFileInfo file(path);
    const QFileInfo folder(file.absolutePath());
    std::error_code error;
    const auto target = std::filesystem::status(QFile::encodeName(path).toStdString(), error);
    if (path == kStandardStream || (file.exists() && !file.isFile() && !file.isDir())) {
        return std::nullopt;
    }
    if (file.isDir()) {
        return Text::tr("フォルダです");
    }
    if (!folder.isDir()) {
        return Text::tr("フォルダがありません");
    }
    if (!folder.isWritable()) {
        return Text::tr("フォルダに書く権限がありません");
    }
    if (target.type() == std::filesystem::file_type::none &&
        error == std::errc::too_many_symbolic_link_levels) {
        return Text::tr("リンクが自分自身を指しています");
    }
    return QFile::encodeName(file.fileName()).size() > kLongestName
               ? std::optional(Text::tr("名前が長すぎます"))
               : std::nullopt;
}

}  // namespace

std::optional<QString> DataBeside(const QString& code) {
    if (code == kStandardStream) {
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

QString TakesFiles(const CurrentDevice&) {
    return HelpParagraph(Text::tr(
               "CODE は Flash、DATA は EEPROM のファイルです。DATA を省略すると、CODE の隣の .eep "
               "か、ELF ファイルの .eeprom を使います。- は標準入力か標準出力です。")) +
           u'\n' +
           HelpParagraph(Text::tr("読めるもの: Intel HEX、S レコード、AVR 用の ELF（内容で判断）。"
                                  "バイナリは --format bin で指定します。"));
}

Result<Memories> ChooseMemories(const Call& call) {
    const auto only = call.Value("only");
    if (only && only != u"flash" && only != u"eeprom") {
        return Failure{cause::WrongUse, Text::tr("--only は flash か eeprom です。")};
    }
    return Memories{.flash = only != u"eeprom", .eeprom = only != u"flash"};
}

Result<ImageFiles> ChooseImageFiles(Session& session, const Call& call, FileUse use) {
    const QString first = call.arguments[0];
    const auto format = ChooseFormat(call, use);
    if (!format) {
        return format.Failed();
    }
    const auto memories = ChooseMemories(call);
    if (!memories) {
        return memories.Failed();
    }
    if (!memories->Both()) {
        if (call.arguments.size() > 1) {
            return Failure{cause::WrongUse, Text::tr("--only ではファイルは一つです。")};
        }
        return memories->flash
                   ? ImageFiles{.code = first, .memories = *memories, .format = *format}
                   : ImageFiles{.data = first, .memories = *memories, .format = *format};
    }
    if (IsDataFileName(first)) {
        return Failure{
            cause::WrongUse,
            Text::tr("EEPROM のファイルです。--only eeprom を指定してください: %1").arg(first)};
    }
    if (call.arguments.size() > 1) {
        if (IsSameFile(first, call.arguments[1])) {
            return Failure{cause::WrongUse,
                           Text::tr("CODE と DATA が同じファイルです: %1").arg(first)};
        }
        return ImageFiles{.code = first, .data = call.arguments[1], .format = *format};
    }
    ImageFiles files{
        .code = first, .data = DataBeside(first), .foundData = true, .format = *format};
    if (use == FileUse::Write) {
        if (!files.data) {
            return Failure{
                cause::WrongUse,
                Text::tr(
                    "標準出力には一つのメモリだけを書けます。--only か DATA を指定してください。")};
        }
        TellData(session, files, false);
    } else if (files.data && !QFileInfo::exists(*files.data) &&
               !QFileInfo(*files.data).isSymLink()) {
        // A dangling link counts as there: reading it fails, and nothing is taken for blank.
        files.data.reset();
    }
    return files;
}

Result<LoadedFiles> LoadFiles(Session& session, const ImageFiles& files, bool force) {
    const CurrentDevice& device = session.access.Device();
    ImageFiles used = files;
    LoadedFiles loaded;
    session.output.Report(report::Files, used.Json());
    std::optional<InputFile> code, data;
    if (used.code) {
        const auto taken = TakeFile(*used.code, used.format, true);
        if (!taken) {
            return taken.Failed();
        }
        code = *taken;
    }
    if (used.foundData && code && !code->elf.eeprom.isEmpty()) {
        data = code;
        used.data = used.code;
    } else if (used.data) {
        const auto taken = TakeFile(*used.data, used.format, !used.foundData);
        if (!taken) {
            return taken.Failed();
        }
        data = *taken;
    }
    session.output.Report(report::Files, used.Json());
    TellData(session, used, data && data->kind == FileKind::Elf);
    if (code && code->elf.hasOther) {
        session.output.Tell(Text::tr("ELF ファイルのヒューズやロックビットは書き込みません。"));
    }
    if (code) {
        if (const Status failed = LoadFile(session, *code, 2 * device.flashWords, force,
                                           loaded.images.flash, loaded.lossless)) {
            return *failed;
        }
    }
    if (data) {
        if (const Status failed = LoadFile(session, *data, device.eepromBytes, force,
                                           loaded.images.eeprom, loaded.lossless)) {
            return *failed;
        }
    }
    return loaded;
}

Status RequirePlaces(const ImageFiles& files, bool replace) {
    for (const auto& path : {files.code, files.data}) {
        if (path && QFileInfo(*path).isFile() && !replace) {
            return FileExistsFailure(*path);
        }
        if (const auto why = path ? WhyNoPlace(*path) : std::nullopt) {
            return Failure{cause::FileNotWritten,
                           Text::tr("ファイルを書けません (%1): %2").arg(*why, *path)};
        }
    }
    return {};
}

Status SaveImages(Session& session, const ImageFiles& files, const MemoryImages& images,
                  bool replace) {
    const CurrentDevice& device = session.access.Device();
    const std::pair<std::optional<QString>, QByteArray> outputs[] = {
        {files.code, OutputText(files.format, CodeBytes(images.flash, device.flashWords))},
        {files.data, OutputText(files.format, DataBytes(images.eeprom, device.eepromBytes))}};
    std::vector<std::unique_ptr<QFileDevice>> open;
    QStringList written;
    const auto failure = [](int error, const QString& path) {
        return Failure{cause::FileNotWritten,
                       Text::tr("ファイルを書けません (%1): %2").arg(SystemCause(error), path)};
    };
    for (const auto& [path, text] : outputs) {
        if (path == kStandardStream) {
            session.output.Put(text);
        } else if (path) {
            errno = 0;
            open.push_back(OpenOutput(*path));
            if (!open.back() || open.back()->write(text) != text.size() || !open.back()->flush()) {
                return failure(errno, *path);
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
        if (!replace && (existed || !Reserve(*file))) {
            PutBack(before);
            return FileExistsFailure(path);
        }
        before.emplace_back(path, existed ? std::optional(old.readAll()) : std::nullopt);
        old.close();
        errno = 0;
        if (!Commit(*file)) {
            const int error = errno;
            if (existed) {
                before.pop_back();
            }
            PutBack(before);
            return failure(error, path);
        }
    }
    if (!written.isEmpty()) {
        session.output.Tell(Text::tr("保存しました: %1").arg(written.join(u", "_s)));
    }
    return {};
}

}  // namespace tolvex
