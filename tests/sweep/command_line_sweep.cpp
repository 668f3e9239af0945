// SPDX-License-Identifier: MIT
// Everything that can befall an exchange, and a signal, at every exchange of every command of the
// terminal tool, in virtual time: tolvex_command_line_sweep [--full].
#include <QCoreApplication>
#include <QDir>
#include <cstdio>

#include "tests/cli/cli_bench.h"
#include "tests/sweep/troubles.h"

namespace tolvex::testing {
namespace {

constexpr int kForgotten = kEndOfLine,
              kSignal = kEndOfLine + 1;  ///< acknowledged, and not done; a signal

/// What a chip holds after one was changed so: nothing = as before, 0 = as before.
struct Change {
    std::optional<QByteArray> flash = {}, eeprom = {};
    std::uint8_t fuses = 0, lock = 0;

    void Apply(ChipContents& chip) const {
        chip.flash = flash ? flash->leftJustified(chip.flash.size(), '\xFF') : chip.flash;
        chip.eeprom = eeprom ? eeprom->leftJustified(chip.eeprom.size(), '\xFF') : chip.eeprom;
        chip.fuses = fuses != 0 ? fuses : chip.fuses;
        chip.lock = lock != 0 ? lock : chip.lock;
    }
};
const Change kSame, kBoth{kCode, kData}, kBlank{"", ""};

/// A command, the chip before it, and the chip that was asked for.
const struct Case {
    int chip;
    const char* line;
    Change before, asked;
    bool shows = false;  ///< what it has read once is its result
} kCases[] = {
    {2, "detect", kSame, kSame},
    {0, "program @a.hex", kSame, kBoth},
    {0, "program @a.hex --keep-eeprom", kSame, {kCode}},
    {0, "program @a.eep --only eeprom", kSame, {{}, kData}},
    {0, "program @blank.hex", kSame, kBlank},
    {0, "verify @a.hex", kBoth, kSame},
    {0, "verify @a.eep --only eeprom", kBoth, kSame},
    {0, "read @out.hex --overwrite", kSame, kSame, true},
    {0, "read @out.eep --only eeprom --overwrite", kSame, kSame, true},
    {0, "erase", kSame, kBlank},
    {0, "erase --backup @backup", kSame, kBlank},
    {5, "fuses", kSame, kSame, true},
    {3, "fuses FSTRT=Enable", kSame, {.fuses = 0xFE}},
    {4, "fuses BODEN=Enable LOCK=write", kSame, {.fuses = 0xF3, .lock = 0xFD}},
    {3, "lock full", kSame, {.lock = 0xF9}},
};

/// A trouble, and the error code of a command that it ends; null where that depends on the letter.
constexpr const char* kTroubles[][2] = {
    // clang-format off
    {"silent", "writerSilent"}, {"short", "writerSilent"}, {"wrong", nullptr}, {"long", nullptr},
    {"late", "writerSilent"}, {"hang-up", "lineLost"}, {"dead", "writerSilent"},
    {"refused letter", "lineLost"}, {"refused rest", nullptr},
    {"forgotten", nullptr}, {"signal", "interrupted"},
    // clang-format on
};

/// The tool in front of a chip that holds something.
struct World : CliBench {
    explicit World(const Case& c) : CliBench(c.chip, 0), command(c) {
        Fill();
        before = chip->Contents();
        before.fuses = 0xFB;
        command.before.Apply(before);
        File(u"blank.hex"_s, HexRecord(0, "\xFF") + kHexEnd);
        File(u"out.hex"_s, "old");
        File(u"out.eep"_s, "old");
        old = Files();
    }
    /// With a fresh chip.
    ExitStatus Run(int exchange = -1, int trouble = 0) {
        chip->SetContents(before);
        before = asked = chip->Contents();
        command.asked.Apply(asked);
        letters.clear();
        troubled.Plan(exchange < 0 || trouble >= kEndOfLine ? Mishaps()
                                                            : Mishaps{{exchange, trouble}});
        kept = before;
        commands = 0;
        signal = [=, this] {
            const bool past = letters.size() >= exchange;
            if (trouble == kForgotten && !past) {
                kept = chip->Contents();
                commands = board.CommandCount();
            } else if (trouble == kForgotten && kept && board.CommandCount() > commands) {
                chip->SetContents(*std::exchange(kept, {}));
            }
            return trouble == kSignal && past ? 2 : 0;
        };
        return CliBench::Run(Words(command.line) + QStringList{u"--json"_s});
    }
    QByteArray Files() const {
        QByteArray files;
        for (const QString& name : QDir(Path({})).entryList(QDir::Files | QDir::Hidden)) {
            files += name.toUtf8() + Bytes(Path(name));
        }
        return files;
    }
    /// What was done to the chip and read from it, without the ways in and out.
    QString Deeds() const {
        return letters.join(QString()).remove(QRegularExpression(u"[SVvTPLs]"_s));
    }

    const Case& command;
    ChipContents before, asked;
    QByteArray old;
    QStringList letters;
    std::optional<ChipContents> kept;  ///< before the command that is forgotten
    int commands = 0;                  ///< that the board had carried out then
    TroubledLine troubled{port, board, *chip, letters};
};

constexpr ExitStatus kInterrupted = SignalledBy(2);
using Rule = std::pair<const char*, bool>;

/// The rules that a run has to keep, whatever befalls it.
QList<Rule> Judge(const World& w, const World& calm, int exchange, int trouble, ExitStatus status) {
    const QJsonObject json = w.Json(), wanted = calm.Json(),
                      written = json["written"_L1].toObject();
    const QString code = json["error"_L1]["code"_L1].toString(), errors = w.Err();
    const char* const wantedCode = kTroubles[trouble][1];
    const ChipContents& chip = w.chip->Contents();
    const bool done = status == ExitStatus::Done, unopened = exchange == 0,
               signalled = trouble == kSignal;
    const bool changed = chip != w.before, uncertain = written["uncertain"_L1].toBool();
    const bool erased = written["erased"_L1].toBool(),
               onlyErases = QByteArrayView(w.command.line).startsWith("erase");
    // A wrong byte of what nothing is compared with looks right: data come without a checksum.
    const bool unproven = done && trouble == Wrong && w.command.shows;
    const bool counts =
        w.asked.flash.startsWith(kCode) && erased && !uncertain && trouble != kForgotten;
    const qsizetype used = counts ? chip.flash.size() - chip.flash.count('\xFF') : 0;
    const QString words[] = {{}, u"0000"_s, u"0000-0001"_s, u"0000-0002"_s};
    const bool told =
        erased || uncertain || written.contains("fuseByte"_L1) || written.contains("lockByte"_L1);
    // Before an erase nobody needs the signature; after a lock it is the proof, before the L.
    const bool needed = wantedCode && !signalled &&
                        !w.letters.value(exchange - 1).startsWith(u's') && !w.chip->ReadLocked();
    // A command cut in two swallows the L as its end.
    const bool may =
        code == u"lineLost" || trouble == RefusedRest || errors.contains(u"モードのまま"_s);
    // clang-format off
    return {
        {"a success is one", !done || chip == w.asked || (trouble == kForgotten && onlyErases)},
        {"a lost reply is none", !done || !needed},
        {"a success has done and looked at everything", !done || w.Deeds() == calm.Deeds()},
        {"it knows the part", !done || unproven || json.value("part"_L1) == wanted.value("part"_L1)},
        {"it shows the bits", !done || unproven || json.value("options"_L1) == wanted.value("options"_L1)},
        {"files are whole, old or new", unproven || w.Files() == (done ? calm.Files() : w.old)},
        {"one cause is told", done == code.isEmpty() && errors.count(u"tolvex-cli: "_s) == !done},
        {"a change is told", !changed || told},
        {"no other change", !changed || w.asked != w.before},
        {"written words are told", used % 2 == 0 && (!counts || written["flashWords"_L1][0].toString() == words[used / 2])},
        {"port closed", !w.port.IsOpen()},
        {"programming mode left", !w.board.InProgrammingMode() || may},
        {"given up soon", w.clock.Now() < std::chrono::seconds(40)},
        {"a hang-up ends it in a second", trouble != HangUp || w.port.SinceHangUp() <= kAfterHangUp},
        {"a signal ends it", !signalled || (status == kInterrupted && !errors.contains(u"失敗"_s)) || exchange == calm.letters.size()},
        {"and nothing goes out but a word's other half and L", !signalled || w.letters.size() <= exchange + 2},
        {"too much does no harm", done || trouble != Long},
        {"an unopened port is told", !unopened || (status == ExitStatus::NoPort && w.letters.isEmpty())},
        {"a failure is told as what it is", done || unopened || !wantedCode || code == QLatin1StringView(wantedCode)},
        {"and by its status", done || unopened || status == (signalled ? kInterrupted : ExitStatus::Refused)},
    };
    // clang-format on
}

/// The number of broken rules.
int Try(const Case& c, const World& calm, int exchange, int trouble) {
    World world(c);
    const ExitStatus status = world.Run(exchange, trouble);
    QList<Rule> rules = Judge(world, calm, exchange, trouble, status);
    const QString told = world.Err();
    // A command cut in two leaves the board waiting for its end, which costs an attempt a byte.
    auto next = ExitStatus::Refused;
    for (int attempts = trouble == RefusedRest ? 3 : 1; next != ExitStatus::Done && attempts > 0;
         --attempts) {
        next = world.Run();
    }
    rules << Rule{"the next one succeeds",
                  next == ExitStatus::Done && world.chip->Contents() == world.asked};
    int broken = 0;
    for (const auto& [rule, kept] : rules) {
        if (!kept && ++broken == 1) {
            std::printf("%s, %s at %d, status %d: not so: %s\n%s\n", c.line, kTroubles[trouble][0],
                        exchange, static_cast<int>(status), rule, qPrintable(told));
        }
    }
    return broken;
}

}  // namespace
}  // namespace tolvex::testing

int main(int argc, char** argv) {
    using namespace tolvex;
    using namespace tolvex::testing;
    const QCoreApplication application(argc, argv);
    const bool full = QCoreApplication::arguments().contains(u"--full"_s);
    const QString within = u"ARdcCD"_s;  // the memories' loops
    int runs = 0, failures = 0;
    for (const Case& c : kCases) {
        World calm(c);
        failures += calm.Run() != ExitStatus::Done || !(calm.chip->Contents() == calm.asked);
        for (int exchange = 0; exchange <= calm.letters.size() && failures < 10; ++exchange) {
            const bool loop = exchange > 1 && within.contains(calm.letters[exchange - 1]) &&
                              within.contains(calm.letters[exchange - 2]);
            const bool chosen = full || calm.letters.size() < 100 || !loop || exchange % 101 == 0;
            const int step = full || exchange == 0 ? 1 : 2;  // each trouble at every other exchange
            const int end = chosen ? (exchange == 0 ? 1 : kSignal + 1) : 0;
            for (int trouble = exchange % step; trouble < end; trouble += step) {
                failures += Try(c, calm, exchange, trouble);
                ++runs;
            }
        }
    }
    std::printf("%d runs, %d failures\n", runs, failures);
    return failures == 0 ? 0 : 1;
}
