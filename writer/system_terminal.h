// SPDX-License-Identifier: MIT
#pragma once

namespace tolvex {

// What a pseudo-terminal needs that differs from Unix to Unix.

/// A new raw pseudo-terminal at 19200 baud: the end that is served, and the device that clients
/// open. False when the system has none left; errno says why.
bool OpenTerminalPair(int& master, int& slave);

/// Marks the device as a running board's, until the process ends, however it ends.
void MarkAsServed(int slave);
/// Whether a running board has marked the device, opened by somebody else. True where marks are
/// not known.
bool IsServed(int terminal);

/// Lets this process' waits end on the nanosecond, where the system would stretch them.
void SharpenWaits();

}  // namespace tolvex
