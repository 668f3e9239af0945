// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <filesystem>

namespace tolvex {

/// `path` for the standard library, in the letters of the system's file names; it takes any text.
/// The library's own conversion throws on half a surrogate pair.
std::filesystem::path NativePath(const QString& path);

}  // namespace tolvex
