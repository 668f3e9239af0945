// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>

namespace tolvex::testing {

/// What can be wrong with files: file_troubles_<system>.cpp. Windows has no such user and no such
/// limit; there neither is `Bound()`.

/// File permissions bind while this lives, for root too: it then acts as the user "nobody".
class OrdinaryUser {
  public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;

    bool Bound() const { return bound_; }

  private:
    bool root_ = false, bound_ = false;
};

/// While this lives, no file grows beyond `bytes`, as on a disk that has just run full.
class FullDisk {
  public:
    explicit FullDisk(std::uint64_t bytes);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;

    bool Bound() const { return bound_; }

  private:
    bool bound_ = false;
    std::uint64_t before_ = 0;
    void (*action_)(int) = nullptr;
};

/// Puts something there that is no file. On Unix it is a FIFO: opening it for reading or writing
/// waits for the other side, here for ever. On Windows it is a folder.
void MakeNoFile(const QString& path);

/// Lets "nobody", who stays in root's group, reach what lies in a private temporary folder.
void OpenToAll(const QString& folder);

}  // namespace tolvex::testing
