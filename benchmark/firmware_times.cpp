// SPDX-License-Identifier: MIT
// tolvex_firmware_times HEX [NAME]: how long the tool takes to program and verify full chips
// through the firmware in the HEX file, in simulated time, as a table in Markdown.
// `./bench --firmware` builds and starts it.
#include <QCoreApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <random>

#include "benchmark/board_line.h"
#include "benchmark/tool_run.h"
#include "firmware/simulator/chip_rules.h"
#include "firmware/simulator/firmware_board.h"

namespace tolvex::bench {
namespace {

using namespace Qt::StringLiterals;

constexpr double kSecondsPerWireByte = 10.0 / 19200;

QByteArray RandomBytes(int count) {
    std::mt19937 random;
    QByteArray bytes(count, '\0');
    std::ranges::generate(bytes, [&random] { return static_cast<char>(random()); });
    return bytes;
}

/// A row of the table, or nothing when something went wrong, which is printed.
std::optional<QString> Row(const ChipModel& model, const QString& hexFile) {
    const QTemporaryDir folder;
    const QString code = folder.filePath(u"code.hex"_s), data = folder.filePath(u"data.eep"_s);
    const QByteArray flash = RandomBytes(2 * model.flashWords);
    const QByteArray eeprom = RandomBytes(model.eepromBytes);
    SimulatedChip chip(model);
    ChipSocket socket(&chip);
    FirmwareBoard board(socket);
    if (const auto reason = board.Load(hexFile)) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(*reason));
        return std::nullopt;
    }
    BoardLine line(board, board.Now());
    const bool ready = WriteHex(code, flash) && WriteHex(data, eeprom);
    const ToolRun run = RunTool(line, line, model, {u"program"_s, code, data});
    if (!ready || run.status != ExitStatus::Done || board.Failure()) {
        std::fprintf(stderr, "%s\n%s\n", qUtf8Printable(run.words),
                     qUtf8Printable(board.Failure().value_or(QString())));
        return std::nullopt;
    }
    const auto written = flash.size() - flash.count('\xFF') + eeprom.size() - eeprom.count('\xFF');
    const double chipTime = static_cast<double>(written) *
                            std::chrono::duration<double>(RulesOf(model).byteWrite).count();
    const double wireTime = static_cast<double>(line.ByteCount()) * kSecondsPerWireByte;
    const double time = std::chrono::duration<double>(line.Now()).count();
    return u"| %1 | %2 words, %3 bytes | %4 s | %5 s | %6 s | %7 |\n"_s.arg(model.name)
        .arg(model.flashWords)
        .arg(model.eepromBytes)
        .arg(time, 0, 'f', 1)
        .arg(chipTime, 0, 'f', 1)
        .arg(wireTime, 0, 'f', 1)
        .arg(time / (chipTime + wireTime), 0, 'f', 2);
}

}  // namespace
}  // namespace tolvex::bench

int main(int argc, char** argv) {
    using namespace Qt::StringLiterals;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2 || arguments.size() > 3) {
        std::fputs("Usage: tolvex_firmware_times HEX [NAME]\n", stderr);
        return 2;
    }
    const tolvex::ChipModel* only =
        arguments.size() == 3 ? tolvex::FindChipModel(arguments[2]) : nullptr;
    if (arguments.size() == 3 && !only) {
        std::fprintf(stderr, "no such chip: %s\n", qUtf8Printable(arguments[2]));
        return 2;
    }
    std::puts(
        "| Chip | Flash, EEPROM | Program and verify | Chip | Wire | Ratio |\n"
        "|---|---|---|---|---|---|");
    bool allWell = true;
    for (const tolvex::ChipModel& model : tolvex::ChipModels()) {
        if (only && only != &model) {
            continue;
        }
        const auto row = tolvex::bench::Row(model, arguments[1]);
        allWell = allWell && row;
        std::fputs(qUtf8Printable(row.value_or(QString())), stdout);
        std::fflush(stdout);
    }
    return allWell ? 0 : 1;
}
