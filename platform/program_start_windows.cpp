// SPDX-License-Identifier: MIT
#include "platform/program_start.h"

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
