// SPDX-License-Identifier: MIT
#include "firmware/simulator/programming_times.h"

#include <QTemporaryDir>
#include <algorithm>
#include <random>

#include "firmware/simulator/board_line.h"
#include "firmware/simulator/firmware_board.h"
#include "firmware/simulator/tool_run.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBaud = 19200;

QByteArray RandomBytes(int count) {
    std::mt19937 random;
    QByteArray bytes(count, '\0');
    std::ranges::generate(bytes, [&random] { return static_cast<char>(random()); });
    return bytes;
}

/// Times programs of one chip.
class Stopwatch {
  public:
    explicit Stopwatch(const ChipModel& model) : model_(model) {
        ready_ = WriteHex(Path(u"code.hex"_s), RandomBytes(2 * model.flashWords)) &&
                 WriteHex(Path(u"data.eep"_s), RandomBytes(model.eepromBytes));
    }

    template <typename Board>
    QString Time(Board& board) const {
        BoardLine<Board> line(board);
        const ToolRun run =
            RunTool(line, line, model_, {u"program"_s, Path(u"code.hex"_s), Path(u"data.eep"_s)});
        const double seconds = std::chrono::duration<double>(line.Now()).count();
        return ready_ && run.status == 0 ? u"%1 s"_s.arg(seconds, 0, 'f', 1) : run.words;
    }

  private:
    QString Path(const QString& name) const { return folder_.filePath(name); }

    const ChipModel& model_;
    QTemporaryDir folder_;
    bool ready_;
};

QString FirmwareTime(const Stopwatch& stopwatch, const ChipModel& model, const QString& hexFile) {
    SimulatedChip chip(model);
    ChipSocket socket(&chip);
    FirmwareBoard board(socket);
    const QString reason = board.Load(hexFile);
    if (!reason.isEmpty()) {
        return reason;
    }
    const QString time = stopwatch.Time(board);
    return board.Violations().isEmpty() ? time : board.Violations().join(u'\n');
}

}  // namespace

QString ProgrammingTimes(const QString& hexFile) {
    QString table =
        u"| Chip | Flash | EEPROM | Firmware | Simulated board |\n|---|---|---|---|---|\n"_s;
    for (const ChipModel& model : ChipModels()) {
        const Stopwatch stopwatch(model);
        SimulatedChip chip(model);
        SimulatedWriter writer(&chip);
        PacedBoard board(writer, kBaud);
        table += u"| %1 | %2 words | %3 bytes | %4 | %5 |\n"_s.arg(model.name)
                     .arg(model.flashWords)
                     .arg(model.eepromBytes)
                     .arg(FirmwareTime(stopwatch, model, hexFile), stopwatch.Time(board));
    }
    return table;
}

}  // namespace tolvex
