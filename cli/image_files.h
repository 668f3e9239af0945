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
/// Writes the memories that have a file. An old file stays whole until all new ones are.
Status SaveImages(Session& session, const ImageFiles& files, const MemoryImages& images);

/// {"line": 12, "fault": "checksum"}, with an "address" and a number "more" where there is one.
QJsonObject HexFindingJson(const HexFinding& finding);

/// Opens a file or "-" for reading.
bool OpenInput(QFile& file, const QString& path);

}  // namespace tolvex
