// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

/// Why the system did not do it, in the user's language and not in the system's, without a full
/// stop. `error`: an errno, taken at once; 0 = the system gave none.
QString SystemCause(int error);

}  // namespace tolvex
