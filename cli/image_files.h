// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"
#include "cli/input_file.h"

namespace tolvex {

enum class FileFormat { Hex, Binary, SRecord };

/// The files of a command that takes CODE [DATA], or with --only the one file. "-" stands for the
/// standard input or output.
struct ImageFiles {
    std::optional<QString> code = {};
    std::optional<QString> data = {};
    Memories memories = {};
    /// DATA was not named: the .eeprom of a CODE that is an ELF file goes before `data`.
    bool foundData = false;
    FileFormat format = FileFormat::Hex;  ///< as which they are written, or read where it is Binary

    /// A file that there is none of is an empty text.
    QJsonObject Json() const {
        return {{QStringLiteral("code"), code.value_or(QString())},
                {QStringLiteral("data"), data.value_or(QString())}};
    }
};

/// The memories that --only names; both without it.
Result<Memories> ChooseMemories(const Call& call);

enum class FileUse { Read, Write };
/// A DATA that is not named is the .eep beside CODE; to be read, if it exists.
Result<ImageFiles> ChooseImageFiles(Session& session, const Call& call, FileUse use);

/// What the files hold.
struct LoadedFiles {
    MemoryImages images;   ///< what they don't name is erased
    bool lossless = true;  ///< all of their data is in the images
};

/// Reads each file once and proves it strictly; with `force` a fault is told and only a file
/// without data, or one that can't be read as it stands, is refused.
Result<LoadedFiles> LoadFiles(Session& session, const ImageFiles& files, bool force);
/// Before the chip is read: the files can stand where they are wanted. Without `replace` none may
/// be there.
Status RequirePlaces(const ImageFiles& files, bool replace);
/// Writes the memories that have a file. An old file stays whole until all new ones are, and comes
/// back when the other one can't be put in its place.
Status SaveImages(Session& session, const ImageFiles& files, const MemoryImages& images,
                  bool replace);

/// The data file that goes with a code file, whether it exists or not, by the rule of the windows.
/// Nothing is beside the standard streams.
std::optional<QString> DataBeside(const QString& code);
/// By links of either kind, too.
bool IsSameFile(const QString& one, const QString& other);

}  // namespace tolvex
