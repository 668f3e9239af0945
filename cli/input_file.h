// SPDX-License-Identifier: MIT
#pragma once

#include "cli/session.h"
#include "image/elf_file.h"
#include "image/hex_check.h"

namespace tolvex {

/// Stands for the standard input or output.
inline constexpr QStringView kStandardStream = u"-";

/// The whole content of a file or of "-", up to 16 MiB.
Result<QByteArray> ReadInput(const QString& path);

/// What a file is. All but raw binary is told by the content, whatever the name.
enum class FileKind { Hex, SRecord, Elf, Binary };

/// A file that was read, and found to be of a known kind.
struct InputFile {
    QString path;
    FileKind kind = FileKind::Hex;
    QByteArray text = {};  ///< the content; S-records as Intel HEX, and digits in upper case
    ElfFile elf = {};
    bool lowerCase =
        false;  ///< there were lower-case digits, which the windows' reader takes for 0
};

/// With `binary` a content of no other kind counts as raw binary. Without it such a file is refused
/// in a sentence, and so is an ELF file that can't be read.
Result<InputFile> TakeInput(const QString& path, bool binary);
/// The same of a file that is raw binary, whatever it looks like.
Result<InputFile> TakeBinary(const QString& path);

/// Takes the Flash's or the EEPROM's bytes of the file into the image and tells, as strictly as
/// the kind allows, what is wrong with them. `memoryBytes`: the size of the memory.
HexReport FillImage(const InputFile& file, int memoryBytes, FlashImage& image);
HexReport FillImage(const InputFile& file, int memoryBytes, EepromImage& image);

/// "blink.hex: 12 行目: ..." for each finding, and what helps against it.
QStringList FindingLines(const QString& path, const HexReport& report);
/// {"line": 12, "fault": "checksum"}, with an "address" and a number "more" where there is one, and
/// without a line where the file has none.
QJsonObject HexFindingJson(const HexFinding& finding);

}  // namespace tolvex
