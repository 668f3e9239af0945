// SPDX-License-Identifier: MIT
// Files as the tools give them: Intel HEX, S-records, ELF and raw binary.
#include "cli/input_file.h"

#include <QBuffer>
#include <QFileInfo>
#include <algorithm>
#include <vector>

#include "base/text.h"
#include "image/hex_reader.h"
#include "image/srecord.h"
#include "platform/program_start.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Of a memory of 64 KiB, even with a byte a line, a HEX file has less.
constexpr qsizetype kLargestFile = 16 << 20;

/// Why the system does not give the file.
QString WhyNot(const QString& path, bool tooLarge) {
    const QFileInfo file(path);
    if (tooLarge) {
        return Text::tr("大きすぎます");
    }
    if (!file.exists()) {
        return file.isSymLink() ? Text::tr("リンクの先がありません") : Text::tr("ありません");
    }
    return file.isDir()         ? Text::tr("フォルダです")
           : !file.isReadable() ? Text::tr("権限がありません")
                                : Text::tr("読み取りエラー");
}

/// An empty file is one of the text kinds with everything missing. A file with lines of a kind
/// among others is of that kind, and what is wrong with the others can be told by line.
std::optional<FileKind> KindOf(const QByteArray& content) {
    if (IsElf(content)) {
        return FileKind::Elf;
    }
    if (content.contains('\0')) {
        return std::nullopt;
    }
    for (qsizetype line = 0; line >= 0 && line < content.size();) {
        const char first = content[line];
        const char second = line + 1 < content.size() ? content[line + 1] : '\0';
        if (first == ':') {
            return FileKind::Hex;
        }
        if ((first == 'S' || first == 's') && second >= '0' && second <= '9') {
            return FileKind::SRecord;
        }
        const qsizetype feed = content.indexOf('\n', line);
        const qsizetype end = feed < 0 ? content.indexOf('\r', line) : feed;
        line = end < 0 ? -1 : end + 1;
    }
    return content.trimmed().isEmpty() ? std::optional(FileKind::Hex) : std::nullopt;
}

Failure UnknownKind(const QString& path) {
    return {
        cause::BadFile,
        Text::tr("Intel HEX、S レコード、ELF のどれでもありません: %1\n"
                 "ほかの形式からは avr-objcopy -O ihex INPUT OUTPUT.hex で HEX "
                 "ファイルを作れます。メモリの内容そのものなら --format bin を指定してください。")
            .arg(path)};
}

Failure BadElf(const QString& path, ElfFault fault) {
    const QString why = fault == ElfFault::NotAvr      ? Text::tr("AVR 用ではありません")
                        : fault == ElfFault::NotLinked ? Text::tr("リンクされていません")
                                                       : Text::tr("壊れています");
    return {cause::BadFile, Text::tr("ELF ファイルを使えません (%1): %2").arg(why, path)};
}

/// The file has a word's low byte first, the image its high byte.
void Store(FlashImage& image, std::size_t address, char byte) {
    image[address ^ 1U] = static_cast<std::uint8_t>(byte);
}
void Store(EepromImage& image, std::size_t address, char byte) {
    image[address] = static_cast<std::uint8_t>(byte);
}

/// Each fault is told once a part, at its first byte.
template <typename Image>
HexReport PlaceParts(const QList<MemoryPart>& parts, int memoryBytes, Image& image) {
    HexReport report{.readable = true};
    std::vector<bool> filled(static_cast<std::size_t>(memoryBytes));
    for (const auto& [start, bytes] : parts) {
        const qint64 end = qint64{start} + bytes.size();
        bool overlaps = false;
        for (int address = start; address < std::min<qint64>(end, memoryBytes); ++address) {
            const auto cell = static_cast<std::size_t>(address);
            if (filled[cell] && !overlaps) {
                report.findings << HexFinding{HexFault::Overlap, 0, address};
                overlaps = true;
            }
            report.bytes += filled[cell] ? 0 : 1;
            filled[cell] = true;
            Store(image, cell, bytes[address - start]);
        }
        if (end > memoryBytes) {
            report.findings << HexFinding{HexFault::OutsideMemory, 0, std::max(start, memoryBytes)};
        }
        ++report.records;
        report.goodRecords += end <= memoryBytes && !overlaps ? 1 : 0;
    }
    report.lossless = report.findings.isEmpty();
    return report;
}

template <typename Image>
HexReport Fill(const InputFile& file, const QList<MemoryPart>& elfParts, int memoryBytes,
               Image& image, HexReadResult (*read)(QIODevice&, Image&, ErrorFlag&)) {
    if (file.kind == FileKind::Elf) {
        return PlaceParts(elfParts, memoryBytes, image);
    }
    if (file.kind == FileKind::Binary) {
        return PlaceParts({{0, file.text}}, memoryBytes, image);
    }
    QBuffer buffer;
    buffer.setData(file.text);
    buffer.open(QIODevice::ReadOnly);
    const HexReport report = CheckHex(buffer, memoryBytes);
    ErrorFlag flag;
    buffer.seek(0);
    read(buffer, image, flag);
    return report;
}

/// What helps against data that a code file or a data file should not have.
std::optional<QString> CureOf(const HexReport& report) {
    const bool above = std::ranges::any_of(report.findings, [](const HexFinding& finding) {
        return finding.fault == HexFault::BaseAddress;
    });
    return above ? std::optional(Text::tr(
                       "EEPROM などのデータが混ざっています。avr-objcopy に、コードのファイルでは "
                       "-R .eeprom を、EEPROM のファイルでは -j .eeprom --change-section-lma "
                       ".eeprom=0 を付けて作り直してください。"))
                 : std::nullopt;
}

}  // namespace

Result<QByteArray> ReadInput(const QString& path) {
    std::optional<QByteArray> text;
    QFile file(path);
    if (path == kStandardStream) {
        text = ReadStandardInput(kLargestFile + 1);
    } else if (file.open(QIODevice::ReadOnly)) {
        text = file.read(kLargestFile + 1);
    }
    const bool tooLarge = text && text->size() > kLargestFile;
    if (!text || tooLarge || file.error() != QFileDevice::NoError) {
        return Failure{cause::FileNotReadable,
                       Text::tr("ファイルを読めません (%1): %2").arg(WhyNot(path, tooLarge), path)};
    }
    return *text;
}

Result<InputFile> TakeInput(const QString& path, bool binary) {
    const auto content = ReadInput(path);
    if (!content) {
        return content.Failed();
    }
    const auto kind = KindOf(*content);
    if (!kind && !binary) {
        return UnknownKind(path);
    }
    InputFile file{.path = path, .kind = kind.value_or(FileKind::Binary), .text = *content};
    if (file.kind == FileKind::Elf) {
        ElfFault fault{};
        const auto elf = ReadElf(*content, fault);
        if (!elf) {
            return BadElf(path, fault);
        }
        file.elf = *elf;
    } else if (file.kind == FileKind::SRecord) {
        file.text = HexOfSRecords(*content);
    } else if (file.kind == FileKind::Hex) {
        file.text = content->toUpper();
        file.lowerCase = std::ranges::any_of(*content, [](char c) { return c >= 'a' && c <= 'f'; });
    }
    return file;
}

Result<InputFile> TakeBinary(const QString& path) {
    const auto content = ReadInput(path);
    if (!content) {
        return content.Failed();
    }
    return InputFile{.path = path, .kind = FileKind::Binary, .text = *content};
}

HexReport FillImage(const InputFile& file, int memoryBytes, FlashImage& image) {
    return Fill<FlashImage>(file, file.elf.flash, memoryBytes, image, ReadCodeHex);
}

HexReport FillImage(const InputFile& file, int memoryBytes, EepromImage& image) {
    return Fill<EepromImage>(file, file.elf.eeprom, memoryBytes, image, ReadDataHex);
}

QStringList FindingLines(const QString& path, const HexReport& report) {
    QStringList lines;
    for (const HexFinding& finding : report.findings) {
        lines << u"%1: %2"_s.arg(path, HexFindingText(finding));
    }
    if (const auto cure = CureOf(report)) {
        lines << *cure;
    }
    return lines;
}

QJsonObject HexFindingJson(const HexFinding& finding) {
    QJsonObject object{{u"fault"_s, HexFaultName(finding.fault).toString()}};
    if (finding.line > 0) {
        object[u"line"_s] = finding.line;
    }
    if (finding.address >= 0) {
        object[u"address"_s] = finding.address;
    }
    if (finding.more > 0) {
        object[u"more"_s] = finding.more;
    }
    return object;
}

}  // namespace tolvex
