// SPDX-License-Identifier: MIT
#include "platform/system.h"

namespace tolvex {

void ChooseUtf8Locale() {}

void OpenStandardStreams() {}

int TerminalColumns() {
    return 0;
}

QString UserMark() {
    return qEnvironmentVariable("USERNAME");
}

}  // namespace tolvex
