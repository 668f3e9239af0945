// SPDX-License-Identifier: MIT
// Everything that can befall an exchange, and a signal, at every exchange of every command of the
// terminal tool, in virtual time: tolvex_command_line_sweep [--full].
#include <QCoreApplication>
#include <QDir>
#include <cstdio>

#include "tests/cli/cli_bench.h"
#include "tests/sweep/troubled_port.h"

namespace tolvex::testing {
namespace {

using enum TroubledPort::Trouble;
constexpr int kForgotten = kEnd, kSignal = kEnd + 1;  ///< acknowledged, and not done; a signal

using Content = void (*)(ChipContents&);
void Same(ChipContents&) {}
void Put(QByteArray& memory, const QByteArray& bytes) {
    memory.fill('\xFF').replace(0, bytes.size(), bytes);
}
void Code(ChipContents& chip) {
    Put(chip.flash, kCode);
}
void Data(ChipContents& chip) {
    Put(chip.eeprom, kData);
}
void Both(ChipContents& chip) {
    Code(chip), Data(chip);
}
void Blank(ChipContents& chip) {
    Put(chip.flash, {}), Put(chip.eeprom, {});
}

/// A command, and what makes the chip before it, and what makes of that the chip that was asked
/// for.
const struct Case {
    int chip;
    const char* line;
    Content before, asked;
    bool shows = false;  ///< what it has read once is its result
} kCases[] = {
    {2, "detect", Same, Same},
    {0, "program @a.hex", Same, Both},
    {0, "program @a.hex --keep-eeprom", Same, Code},
    {0, "program @a.eep --only eeprom", Same, Data},
    {0, "program @blank.hex", Same, Blank},
    {0, "verify @a.hex", Both, Same},
    {0, "verify @a.eep --only eeprom", Data, Same},
    {0, "read @out.hex --overwrite", Same, Same, true},
    {0, "read @out.eep --only eeprom --overwrite", Same, Same, true},
    {0, "erase", Same, Blank},
    {0, "erase --backup @backup", Same, Blank},
    {5, "fuses", Same, Same, true},
    {3, "fuses FSTRT=Enable", Same, [](ChipContents& chip) { chip.fuses = 0xFE; }},
    {4, "fuses BODEN=Enable LOCK=write", Same,
     [](ChipContents& chip) { chip.fuses = 0xF3, chip.lock = 0xFD; }},
    {3, "lock full", Same, [](ChipContents& chip) { chip.lock = 0xF9; }},
};

/// A trouble, and the error code of a command that it ends; null where that depends on the letter.
constexpr const char* kTroubles[][2] = {
    // clang-format off
    {"silent", "writerSilent"}, {"short", "writerSilent"}, {"wrong", nullptr}, {"long", nullptr},
    {"late", "writerSilent"}, {"hang-up", "lineLost"}, {"dead", "writerSilent"},
    {"refused letter", "commandRefused"}, {"refused rest", nullptr},
    {"forgotten", nullptr}, {"signal", "interrupted"},
    // clang-format on
};

/// The tool in front of a chip that holds something.
struct World : CliBench {
    explicit World(const Case& c) : CliBench(c.chip), command(c) {
        Fill();
        before = chip->Contents();
        before.fuses = 0xFB;
        command.before(before);
        File(u"blank.hex"_s, HexRecord(0, "\xFF") + kHexEnd);
        File(u"out.hex"_s, "old");
        File(u"out.eep"_s, "old");
        old = Files();
        usedPort = &troubled;
    }
    /// With a fresh chip.
    int Run(int exchange = -1, int trouble = 0) {
        chip->SetContents(before);
        before = asked = chip->Contents();
        command.asked(asked);
        letters.clear();
        exchange < 0 || trouble >= kEnd ? troubled.Plan({}) : troubled.Plan({{exchange, trouble}});
        signal = [=, this, kept = std::optional(before)]() mutable {
            const bool past = letters.size() >= exchange;
            if (trouble == kForgotten && !past) {
                kept = chip->Contents();
            } else if (trouble == kForgotten && kept) {
                chip->SetContents(*std::exchange(kept, {}));
            }
            return trouble == kSignal && past ? 2 : 0;
        };
        return CliBench::Run(Words(command.line) + QStringList{u"--json"_s});
    }
    bool Holds() const { return chip->Contents() == asked; }
    QByteArray Files() const {
        QByteArray files;
        for (const QString& name : QDir(Path({})).entryList(QDir::Files | QDir::Hidden)) {
            files += name.toUtf8() + Contents(Path(name));
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
    TroubledPort troubled{board, clock, letters};
};

using Rule = std::pair<const char*, bool>;

/// The rules that a run has to keep, whatever befalls it.
QList<Rule> Judge(const World& w, const World& calm, int exchange, int trouble, int status) {
    const QJsonObject json = w.Json(), written = json["written"_L1].toObject();
    const QString code = json["error"_L1]["code"_L1].toString();
    const bool done = status == kDone, uncertain = written["uncertain"_L1].toBool();
    // A wrong byte of what nothing is compared with looks right: data come without a checksum.
    const bool unproven = trouble == Wrong && w.command.shows;
    const ChipContents& chip = w.chip->Contents();
    const bool counts = w.command.asked == Both && written["erased"_L1].toBool() && !uncertain &&
                        trouble != kForgotten;
    const bool acknowledged = QByteArray(w.command.line).startsWith("erase");
    const std::string words[] = {"", "0000", "0000-0001", "0000-0002"};
    const qsizetype used = counts ? chip.flash.size() - chip.flash.count('\xFF') : 0;
    return {
        {"a success is one", !done || w.Holds() || (trouble == kForgotten && acknowledged)},
        // Before an erase nobody needs the signature; after a lock it is the proof, before the L.
        {"a lost reply is none", !done || trouble == kSignal || !kTroubles[trouble][1] ||
                                     w.letters[exchange - 1] == u's' || w.chip->ReadProtected()},
        {"a success has done and looked at everything", !done || w.Deeds() == calm.Deeds()},
        {"what comes out is true",
         !done || unproven ||
             (json.value("part"_L1) == calm.Json().value("part"_L1) &&
              json.value("options"_L1) == calm.Json().value("options"_L1))},
        {"files are whole, old or new",
         w.Files() == (done ? calm.Files() : w.old) || (done && unproven)},
        {"one cause is told", done == code.isEmpty() && w.Err().count(u"tolvex-cli: "_s) == !done},
        {"a change is told", chip == w.before || uncertain || written["erased"_L1].toBool() ||
                                 written.contains("fuseByte"_L1) ||
                                 written.contains("lockByte"_L1)},
        {"no other change", w.command.asked != Same || chip == w.before},
        {"written words are told", !counts || (used % 2 == 0 && w.Written() == words[used / 2])},
        {"port closed", !w.troubled.IsOpen()},
        // A command cut in two swallows the L as its end.
        {"programming mode left", !w.board.InProgrammingMode() || code == u"lineLost" ||
                                      trouble == RefusedRest ||
                                      w.Err().contains(u"モードのまま"_s)},
        {"given up soon", w.clock.Now() < std::chrono::seconds(40)},
        {"a signal ends it, and nothing goes out but a word's other half and L",
         trouble != kSignal || ((!done || exchange == calm.letters.size()) &&
                                w.letters.size() <= exchange + 2 && !w.Err().contains(u"失敗"_s))},
        {"too much does no harm", done || trouble != Long || exchange == 0},
        {"a failure is told as what it is",
         done || (exchange == 0 ? status == kNoPort && w.letters.isEmpty()
                                : status == (trouble == kSignal ? 130 : kRefused) &&
                                      (!kTroubles[trouble][1] ||
                                       code == QLatin1StringView(kTroubles[trouble][1])))},
    };
}

/// The number of broken rules.
int Try(const Case& c, const World& calm, int exchange, int trouble) {
    World world(c);
    const int status = world.Run(exchange, trouble);
    QList<Rule> rules = Judge(world, calm, exchange, trouble, status);
    const QString told = world.Err();
    // A command cut in two leaves the board waiting for its end, which costs an attempt a byte.
    int next = kRefused;
    for (int attempts = trouble == RefusedRest ? 3 : 1; next != kDone && attempts > 0; --attempts) {
        next = world.Run();
    }
    rules << Rule{"the next one succeeds", next == kDone && world.Holds()};
    int broken = 0;
    for (const auto& [rule, kept] : rules) {
        if (!kept && ++broken == 1) {
            std::printf("%s, %s at %d, status %d: not so: %s\n%s\n", c.line, kTroubles[trouble][0],
                        exchange, status, rule, qPrintable(told));
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
        failures += calm.Run() != kDone || !calm.Holds();
        const int last = static_cast<int>(calm.letters.size());
        for (int exchange = 0; exchange <= last && failures < 10; ++exchange) {
            const bool loop = exchange > 1 && within.contains(calm.letters[exchange - 1]) &&
                              within.contains(calm.letters[exchange - 2]);
            const bool chosen = full || !loop || exchange % 101 == 0;
            for (int trouble = 0; chosen && trouble <= (exchange == 0 ? 0 : kSignal); ++trouble) {
                failures += Try(c, calm, exchange, trouble);
                ++runs;
            }
        }
    }
    std::printf("%d runs, %d failures\n", runs, failures);
    return failures == 0 ? 0 : 1;
}
