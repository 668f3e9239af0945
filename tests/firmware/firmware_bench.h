// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "benchmark/board_line.h"
#include "benchmark/tool_run.h"
#include "firmware/simulator/firmware_board.h"

namespace tolvex::testing {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A chip, fresh from the factory or none, in the board that runs the HEX file.
class FirmwareSocket {
  public:
    explicit FirmwareSocket(SimulatedChip* chip, const ChipOptions& options = {},
                            FirmwareBoard::Start start = FirmwareBoard::Start::PowerOn)
        : socket(chip, options), board(socket, options.seed) {
        const QString hex =
            qEnvironmentVariable("TOLVEX_FIRMWARE_HEX", QStringLiteral(TOLVEX_FIRMWARE_HEX));
        EXPECT_EQ(board.Load(hex, start), std::nullopt);
    }
    /// Sends and awaits so many bytes, for as long as the PC would. Bytes that come too much are
    /// part of the next answer.
    QByteArray Ask(const QByteArray& bytes, qsizetype need) {
        const Board::Instant start = board.Now();
        QByteArray reply;
        board.Send(bytes, start);
        while (reply.size() < need && board.Now() < start + 5s) {
            reply += board.Run(*board.NextDue()).bytes;
        }
        return reply;
    }
    /// What comes without being asked for.
    QByteArray Await(Board::Instant time) { return board.Run(board.Now() + time).bytes; }
    std::string Violations() const { return board.Violations().join(u'\n').toStdString(); }

    ChipSocket socket;
    FirmwareBoard board;
};

/// The tool in front of that board, in simulated time.
class FirmwareBench {
  public:
    explicit FirmwareBench(int chipIndex, const ChipOptions& options = {})
        : chip(*FindChipModel(QString::number(chipIndex))),
          real(&chip, options),
          line_(real.board, real.board.Now()) {}

    /// The exit status; the board must have done nothing wrong and let go of the chip.
    ExitStatus Run(const QStringList& command) {
        const bench::ToolRun run = bench::RunTool(line_, line_, chip.Model(), command);
        words = run.words.toStdString();
        EXPECT_EQ(real.Violations(), "") << words;
        EXPECT_TRUE(real.board.ChipIsReleased()) << words;
        return run.status;
    }
    QString Path(const QString& name) const { return folder_.filePath(name); }

    SimulatedChip chip;
    FirmwareSocket real;
    std::string words;  ///< of the last run

  private:
    bench::BoardLine line_;
    QTemporaryDir folder_;
};

}  // namespace tolvex::testing
