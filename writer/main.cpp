// SPDX-License-Identifier: MIT
// tolvex-writer: the simulated writer board on a pseudo-terminal, for people and tests without a
// board at hand.
#include <QCoreApplication>
#include <cerrno>

#include "base/language.h"
#include "base/system_cause.h"
#include "base/text.h"
#include "writer/board_program.h"
#include "writer/paced_board.h"
#include "writer/socket_file.h"
#include "writer/trace_replay.h"
#include "writer/writer_options.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

/// A board with a chip: until a signal asks for the end.
std::optional<QString> ServeChip(const WriterOptions& options) {
    BoardProgram program(options.board);
    if (const auto reason = program.TakeChip()) {
        return reason;
    }
    QFile log;
    if (options.log) {
        log.setFileName(*options.log);
        if (!log.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            return Text::tr("記録 %1 を書けません: %2").arg(*options.log, SystemCause(errno));
        }
    }
    if (const auto reason = program.OpenTerminal()) {
        return reason;
    }
    SimulatedWriter writer(program.Chip(), options.firmware);
    for (const WriterOptions::PlannedFault& fault : options.faults) {
        writer.SetFault(fault.command, fault.kind);
    }
    PacedBoard board(writer, options.baud, options.latency);
    QFile* const lines = options.log ? &log : nullptr;
    if (options.socket) {
        SocketFile socket(*options.socket, writer);
        const auto reason = program.Serve(board, lines, [&socket] { return socket.Look(); });
        return reason ? reason : socket.Save();
    }
    const auto reason = program.Serve(board, lines);
    const auto unsaved = program.SaveChip();
    return reason ? reason : unsaved;
}

/// A recorded session: until it ends or the PC leaves the record, and then as long as the PC needs
/// to take the last reply and to close, or to stop waiting for one that never came.
std::optional<QString> ServeTrace(const WriterOptions& options) {
    TraceReplay replay;
    if (const auto reason = replay.Load(*options.replay)) {
        return reason;
    }
    if (options.baud == 0) {
        replay.SkipDelays();
    }
    BoardProgram program(options.board);
    if (const auto reason = program.OpenTerminal()) {
        return reason;
    }
    const auto reason = program.Serve(replay);
    if (!reason) {
        program.AwaitLastClient(replay);
    }
    return reason ? reason : replay.Failure();
}

int Main(const QStringList& arguments) {
    const auto parsed = ParseWriterOptions(arguments);
    if (const auto* answer = std::get_if<OptionAnswer>(&parsed)) {
        return ExitStatus(u"tolvex-writer"_s, *answer);
    }
    const auto& options = std::get<WriterOptions>(parsed);
    return ExitStatus(u"tolvex-writer"_s,
                      options.replay ? ServeTrace(options) : ServeChip(options));
}

}  // namespace
}  // namespace tolvex

int main(int argc, char** argv) {
    const tolvex::Language language = tolvex::PrepareBoardProcess();
    const QCoreApplication application(argc, argv);
    const auto texts = tolvex::InstallTexts(language);
    return tolvex::Main(QCoreApplication::arguments());
}
