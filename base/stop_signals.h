// SPDX-License-Identifier: MIT
#pragma once

namespace tolvex {

/// Requests from outside to end the program in order: SIGINT (Ctrl-C), SIGTERM and SIGHUP (a
/// logout, a closed terminal). On Windows Ctrl-C counts as SIGINT, Ctrl-Break as SIGBREAK, and a
/// console that closes as SIGTERM; there the system ends the program some seconds after the console
/// was closed.

/// From now on a signal only asks (`StopSignal`, `StopDescriptor`). Signal number `endAt` of a kind
/// (2 or more) no longer asks, it ends the program at once. A signal that is ignored already, as
/// under nohup, stays ignored. A second call changes nothing.
void CatchStopSignals(int endAt);

/// The number of the last signal that asked; 0 = none has.
int StopSignal();

/// A descriptor that becomes readable when the first signal asks, and stays so. Owned by this unit,
/// not to be read from. -1 before `CatchStopSignals` and on Windows, where `StopSignal` must be
/// polled.
int StopDescriptor();

}  // namespace tolvex
