// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QString>

namespace tolvex::testing {

using namespace Qt::StringLiterals;

inline void PutFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("can't write %s", qPrintable(path));
    }
}

inline QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The lines of a text file, each of which must end with CRLF.
inline QList<QByteArray> Lines(const QString& path) {
    const QByteArray text = Bytes(path);
    EXPECT_EQ(text.count('\n'), text.count("\r\n"));
    EXPECT_TRUE(text.endsWith("\r\n"));
    return text.chopped(2).replace('\r', "").split('\n');
}

}  // namespace tolvex::testing
