// SPDX-License-Identifier: MIT
#include "tests/support/file_troubles.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <csignal>

namespace tolvex::testing {

OrdinaryUser::OrdinaryUser() : root_(geteuid() == 0), bound_(!root_ || seteuid(65534) == 0) {}

OrdinaryUser::~OrdinaryUser() {
    if (root_ && seteuid(0) != 0) {
        qFatal("can't become root again");
    }
}

FullDisk::FullDisk(std::uint64_t bytes) : bound_(true), action_(std::signal(SIGXFSZ, SIG_IGN)) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    before_ = std::exchange(limit.rlim_cur, bytes);
    setrlimit(RLIMIT_FSIZE, &limit);
}

FullDisk::~FullDisk() {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = before_;
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, action_);
}

void MakeNoFile(const QString& path) {
    if (::mkfifo(QFile::encodeName(path).constData(), 0600) != 0) {
        qFatal("can't make %s", qPrintable(path));
    }
}

void OpenToAll(const QString& folder) {
    QFile::setPermissions(folder, QFile::permissions(folder) | QFile::ReadGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::ExeOther);
}

}  // namespace tolvex::testing
