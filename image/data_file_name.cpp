// SPDX-License-Identifier: MIT
#include "image/data_file_name.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// What the extension "hex" takes.
constexpr int kExtensionCharacters = 3;

/// A character outside the basic plane is two code units, which go together; half a pair would be
/// no file name. The cut stays inside the name, however short that is.
QString WithoutExtension(QString path) {
    const qsizetype nameStart = path.lastIndexOf(u'/') + 1;
    for (int i = 0; i < kExtensionCharacters && path.size() > nameStart; ++i) {
        const bool pair = path.back().isLowSurrogate() && path.chopped(1).back().isHighSurrogate();
        path.chop(pair ? 2 : 1);
    }
    return path;
}

}  // namespace

bool IsDataFileName(const QString& path) {
    return path.endsWith(u".eep"_s, Qt::CaseInsensitive);
}

QString DataFileNameFor(const QString& chosen) {
    return IsDataFileName(chosen) ? chosen : WithoutExtension(chosen) + u"eep"_s;
}

QString FindDataFile(const QString& chosen) {
    const QString derived = DataFileNameFor(chosen);
    const QFileInfo wanted(derived);
    if (wanted.exists()) {
        return derived;
    }
    QStringList names = wanted.dir().entryList(QDir::Files, QDir::Name);
    names.removeIf([&](const QString& name) {
        return name.compare(wanted.fileName(), Qt::CaseInsensitive) != 0;
    });
    if (names.isEmpty()) {
        return derived;
    }
    const auto sameStem = std::ranges::find_if(
        names, [&](const QString& name) { return name.startsWith(wanted.completeBaseName()); });
    return wanted.dir().filePath(sameStem != names.end() ? *sameStem : names.first());
}

}  // namespace tolvex
