// SPDX-License-Identifier: MIT
#pragma once

#include <QTemporaryDir>

#include "image/file_commands.h"
#include "image/listing_files.h"
#include "tests/image/real_files.h"
#include "tests/support/recorder.h"

namespace tolvex::testing {

/// The file commands over real files in a folder of their own, with a scripted person.
struct FileCommandBench {
    explicit FileCommandBench(const QString& listingFolder = QStringLiteral("/"))
        : listings(images, device, dir.path() + listingFolder, person) {}

    QTemporaryDir dir;
    MemoryImages images;
    FileNames names;
    CurrentDevice device{QStringLiteral("AT90S1200"), 0x13, 512, 64, FuseGroup::LockOnly};
    Recorder person;
    MemorySettings settings;
    ErrorFlag flag;
    ListingFiles listings;
    FileCommands commands{{.images = images,
                           .names = names,
                           .device = device,
                           .listings = listings,
                           .windows = person,
                           .panels = person,
                           .messages = person,
                           .settings = settings,
                           .dialogs = person,
                           .errorFlag = flag,
                           .mainCaption = [] { return QStringLiteral("Tolvex 1.2.3"); }}};

    QString Path(const QString& name) const { return dir.filePath(name); }
    /// `text` with this bench's folder cut out wherever it stands.
    QString Short(QString text) const { return text.remove(dir.path() + QLatin1Char('/')); }
    QString Setting(const char* key) const {
        return settings.values.value(QString::fromLatin1(key), QStringLiteral("never stored"));
    }
    /// What the person met since the last look, dialogs left out.
    QStringList Met() {
        QStringList met;
        for (const QString& call : person.calls) {
            if (!call.startsWith(QStringLiteral("open dialog")) &&
                !call.startsWith(QStringLiteral("save dialog"))) {
                met << call;
            }
        }
        person.calls.clear();
        return met;
    }
    /// The next file dialog returns the file of this name; an empty name cancels it.
    void Choose(const QString& name) {
        person.fileAnswers << (name.isEmpty() ? FileDialogAnswer{} : Chosen(Path(name)));
    }
};

}  // namespace tolvex::testing
