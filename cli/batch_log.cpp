// SPDX-License-Identifier: MIT
#include "cli/batch_log.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Only a text serial can hold what would end a value early.
QString Quoted(const QString& value) {
    const bool plain = !value.contains(u',') && !value.contains(u'"');
    return plain ? value : u'"' + QString(value).replace(u'"', u"\"\""_s) + u'"';
}

QByteArray Line(QStringList values) {
    for (QString& value : values) {
        value = Quoted(value);
    }
    return values.join(u',').toUtf8() + '\n';
}

}  // namespace

bool BatchLog::Open(const QString& path, const QStringList& heads) {
    file_.setFileName(path);
    if (!file_.open(QIODevice::ReadWrite | QIODevice::Append | QIODevice::Unbuffered)) {
        return false;
    }
    if (file_.size() == 0) {
        return Write(Line(heads));
    }
    // A line that lost its end, say by hand, is not continued.
    char last = '\n';
    file_.seek(file_.size() - 1);
    return file_.getChar(&last) && (last == '\n' || Write("\n"));
}

bool BatchLog::Append(const QStringList& values) {
    return Write(Line(values));
}

/// Of a line that did not fit nothing stays.
bool BatchLog::Write(const QByteArray& line) {
    const qint64 before = file_.size();
    if (file_.write(line) == line.size()) {
        return true;
    }
    if (!file_.isSequential()) {
        file_.resize(before);
    }
    return false;
}

}  // namespace tolvex
