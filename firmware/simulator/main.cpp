// SPDX-License-Identifier: MIT
// tolvex-firmware: the board that anyone can build, running the HEX file that would be burnt, on a
// pseudo-terminal.
#include <QCoreApplication>

#include "base/language.h"
#include "base/text.h"
#include "firmware/simulator/firmware_board.h"
#include "firmware/simulator/firmware_options.h"
#include "writer/board_program.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

/// Until a signal asks for the end, or the firmware breaks a rule.
std::optional<QString> Serve(const FirmwareOptions& options) {
    BoardProgram program(options.board);
    if (const auto reason = program.TakeChip()) {
        return reason;
    }
    ChipSocket socket(program.Chip(), options.chip);
    FirmwareBoard board(socket, options.chip.seed);
    if (const auto reason = board.Load(options.hex)) {
        return reason;
    }
    if (options.vcd) {
        if (const auto reason = board.Record(*options.vcd)) {
            return reason;
        }
    }
    if (const auto reason = program.OpenTerminal()) {
        return reason;
    }
    board.StartsAt(std::chrono::steady_clock::now().time_since_epoch());
    auto reason = program.Serve(board);
    if (reason) {
        *reason += u'\n' + Text::tr("（雑音: --seed %1）").arg(options.chip.seed);
    }
    const auto unsaved = program.SaveChip();
    return reason ? reason : unsaved;
}

int Main(const QStringList& arguments) {
    const QString hex =
        QCoreApplication::applicationDirPath() + u"/../firmware/tolvex_writer.hex"_s;
    const auto parsed = ParseFirmwareOptions(arguments, hex);
    if (const auto* answer = std::get_if<OptionAnswer>(&parsed)) {
        return ExitStatus(u"tolvex-firmware"_s, *answer);
    }
    return ExitStatus(u"tolvex-firmware"_s, Serve(std::get<FirmwareOptions>(parsed)));
}

}  // namespace
}  // namespace tolvex

int main(int argc, char** argv) {
    const tolvex::Language language = tolvex::PrepareBoardProcess();
    const QCoreApplication application(argc, argv);
    const auto texts = tolvex::InstallTexts(language);
    return tolvex::Main(QCoreApplication::arguments());
}
