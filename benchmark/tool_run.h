// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "base/event_clock.h"
#include "base/serial_port.h"
#include "cli/result.h"
#include "writer/chip_models.h"

namespace tolvex::bench {

struct ToolRun {
    ExitStatus status;  ///< as tolvex-cli would exit with
    QString words;      ///< all that it would print
};

/// Runs a command of tolvex-cli on `model` at a port of one's own, in that port's time.
ToolRun RunTool(SerialPort& port, EventClock& clock, const ChipModel& model,
                const QStringList& command);

/// Writes an Intel HEX file with `bytes` from address 0 on. False when that failed.
bool WriteHex(const QString& path, const QByteArray& bytes);

}  // namespace tolvex::bench
