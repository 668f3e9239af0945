// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

/// What a program asks of its process, and what differs between systems: system_<system>.cpp.

/// Before the application object: Qt wants UTF-8, takes it in any case, and from version 6.5 on
/// says so in every run under LANG=C.
void ChooseUtf8Locale();

/// Before any file is opened: one must not take the number of a standard stream that was closed, or
/// progress would go down the serial line. What is written to such a stream afterwards fails, and
/// so does writing to a reader that went away, instead of ending the program.
void OpenStandardStreams();

/// Width of the terminal that the error stream is; 0 = it is none.
int TerminalColumns();

/// Tells the users of this machine apart.
QString UserMark();

}  // namespace tolvex
