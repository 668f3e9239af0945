// SPDX-License-Identifier: MIT
#pragma once

#include "cli/command.h"
#include "image/hex_check.h"

namespace tolvex {

/// The files of a command that takes CODE [DATA], or with --only the one file. "-" stands for the
/// standard input or output.
struct ImageFiles {
    std::optional<QString> code = {};
    std::optional<QString> data = {};
    Memories memories = {};

    /// A file that there is none of is an empty text.
    QJsonObject Json() const {
        return {{QStringLiteral("code"), code.value_or(QString())},
                {QStringLiteral("data"), data.value_or(QString())}};
    }
};

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
/// The whole content of a file or of "-", up to 16 MiB.
Result<QByteArray> ReadInput(const QString& path);
/// What helps against data that a code file or a data file should not have.
std::optional<QString> CureOf(const HexReport& report);

/// {"line": 12, "fault": "checksum"}, with an "address" and a number "more" where there is one.
QJsonObject HexFindingJson(const HexFinding& finding);

/// Opens a file or "-" for reading.
bool OpenInput(QFile& file, const QString& path);

}  // namespace tolvex
