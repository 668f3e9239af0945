// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <csignal>

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

/// File permissions bind while this lives, for root too: it then acts as the user "nobody".
class OrdinaryUser {
  public:
    OrdinaryUser() : root_(geteuid() == 0), bound_(!root_ || seteuid(65534) == 0) {}
    ~OrdinaryUser() {
        if (root_ && seteuid(0) != 0) {
            qFatal("can't become root again");
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;

    bool Bound() const { return bound_; }

  private:
    bool root_, bound_;
};

/// While this lives, no file grows beyond `bytes`, as on a disk that has just run full.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : before_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit full{bytes, limit_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, before_);
    }
    FullDisk(const FullDisk&) = delete;

  private:
    void (*before_)(int);
    rlimit limit_{};
};

/// Opening it for reading or writing waits for the other side, here for ever.
inline void MakeFifo(const QString& path) {
    if (::mkfifo(QFile::encodeName(path).constData(), 0600) != 0) {
        qFatal("can't make %s", qPrintable(path));
    }
}

/// Lets "nobody", who stays in root's group, reach what lies in a private temporary folder.
inline void OpenToAll(const QString& folder) {
    QFile::setPermissions(folder, QFile::permissions(folder) | QFile::ReadGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::ExeOther);
}

}  // namespace tolvex::testing
