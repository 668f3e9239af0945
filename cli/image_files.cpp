// SPDX-License-Identifier: MIT
#include "cli/image_files.h"

#include <QFileInfo>

#include "image/hex_reader.h"

namespace tolvex {

using namespace Qt::StringLiterals;

ImageFiles ImageFiles::From(const QStringList& arguments) {
    ImageFiles files{arguments.value(0), arguments.value(1)};
    if (arguments.size() < 2) {
        const QFileInfo code(files.code);
        const QString beside = code.path() + u'/' + code.completeBaseName() + u".eep"_s;
        if (QFileInfo::exists(beside)) {
            files.data = beside;
        }
    }
    return files;
}

int LoadImages(Session& session, const ImageFiles& files) {
    Workbench& bench = session.Bench();
    for (const QString& file : {files.code, files.data}) {
        if (!file.isEmpty() && !FileExists(file)) {
            return session.Fail(kWrongUse, "fileNotFound", u"ファイルを開けません: %1"_s.arg(file));
        }
    }
    bench.images.ClearFlashImage();
    bench.images.ClearEepromImage();
    ReadCodeHex(files.code, bench.images.flash, bench.errorFlag);
    ReadDataHex(files.data, bench.images.eeprom, bench.errorFlag);
    return kDone;
}

}  // namespace tolvex
