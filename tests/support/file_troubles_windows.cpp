// SPDX-License-Identifier: MIT
#include <QDir>

#include "tests/support/file_troubles.h"

namespace tolvex::testing {

OrdinaryUser::OrdinaryUser() = default;
OrdinaryUser::~OrdinaryUser() = default;
FullDisk::FullDisk(std::uint64_t) {}
FullDisk::~FullDisk() = default;

void MakeNoFile(const QString& path) {
    QDir().mkpath(path);
}

void OpenToAll(const QString&) {}

}  // namespace tolvex::testing
