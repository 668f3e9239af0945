// SPDX-License-Identifier: MIT
// Everything that can befall an exchange, and a signal, at every exchange of every command of the
// terminal tool, in virtual time: tolvex_command_line_sweep [--full | --brief].
#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <cstdio>
#include <set>

#include "tests/cli/cli_bench.h"
#include "tests/sweep/troubles.h"

namespace tolvex::testing {
namespace {

constexpr int kSignal = kEnd;

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
    bool IsIn(ChipContents chip) const {
        const ChipContents held = chip;
        Apply(chip);
        return chip == held;
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
    {0, "program @a.hex", {.lock = 0xF9}, {.flash = kCode, .eeprom = kData, .lock = 0xFF}},
    {0, "program @a.hex --if-different", kSame, kBoth},
    {0, "program @a.hex --if-different", kBoth, kSame},
    {0, "program @blank.hex", kSame, kBlank},
    {0, "blank", kBlank, kSame},
    {0, "dump --only eeprom", kSame, kSame, true},
    {0, "verify @a.hex", kBoth, kSame},
    {0, "verify @a.eep --only eeprom", kBoth, kSame},
    {0, "verify @blank.hex", kBlank, kSame},
    {0, "read @out.hex --overwrite", kSame, kSame, true},
    {0, "read @out.eep --only eeprom --overwrite", kSame, kSame, true},
    {0, "erase", kSame, kBlank},
    {0, "erase --backup @backup", kSame, kBlank},
    {5, "fuses", kSame, kSame, true},
    {3, "fuses FSTRT=Enable", kSame, {.fuses = 0xFE}},
    {4, "fuses BODEN=Enable LOCK=write", kSame, {.fuses = 0xF3, .lock = 0xFD}},
    {3, "lock full", kSame, {.lock = 0xF9}},
    {3, "lock none", kSame, kSame},
};

/// The error code of a command that a trouble of the line ends; null where that depends on the
/// letter, as it does for all others.
constexpr const char* kCodes[kEndOfLine] = {"writerSilent", "writerSilent", nullptr,
                                            nullptr,        "writerSilent", "lineLost",
                                            "writerSilent", "lineLost",     nullptr};

/// The tool in front of a chip that holds something.
struct World : CliBench {
    explicit World(const Case& c) : CliBench(c.chip, 0), command(c) {
        Fill();
        board.AcknowledgeBlindly();
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
        troubled.Plan(exchange < 0 || trouble >= kEnd ? Mishaps() : Mishaps{{exchange, trouble}});
        signal = [=, this] { return trouble == kSignal && letters.size() >= exchange ? 2 : 0; };
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
    TroubledLine troubled{port, board, *chip, letters};
};

constexpr ExitStatus kInterrupted = SignalledBy(2);
using Rule = std::pair<const char*, bool>;

/// The addresses of a list of ranges: "0000-0001", "0005".
std::set<int> Addresses(const QJsonValue& ranges) {
    std::set<int> addresses;
    for (const QJsonValue& range : ranges.toArray()) {
        const QString text = range.toString();
        const int last = text.last(4).toInt(nullptr, 16);
        for (int address = text.first(4).toInt(nullptr, 16); address <= last; ++address) {
            addresses.insert(address);
        }
    }
    return addresses;
}

/// Cells that were told as written hold what was asked for; all others are erased if that was told,
/// else as before. When something is uncertain they may hold anything; erased is erased.
bool Holds(const QByteArray& chip, const QByteArray& asked, const QByteArray& before,
           const std::set<int>& told, int bytes, const QJsonObject& written) {
    const bool erased = written["erased"_L1].toBool(), unsure = written["uncertain"_L1].toBool();
    for (int cell = 0; cell < chip.size(); ++cell) {
        const bool isAsked = chip[cell] == asked[cell];
        const bool isOld = chip[cell] == before[cell], isErased = chip[cell] == '\xFF';
        const bool survived = isOld && !isErased && !isAsked;
        const bool rest = unsure ? !erased || !survived : erased ? isErased : isOld;
        if (told.contains(cell / bytes) ? !isAsked : !rest) {
            return false;
        }
    }
    return true;
}

/// What the JSON says of the chip is so.
bool IsTrue(const QJsonObject& written, const World& w) {
    const ChipContents& chip = w.chip->Contents();
    const auto bits = [&](const char* key, int mask, int now, int then) {
        const QJsonValue told = written[QLatin1StringView(key)];
        return ((now ^ (told.isDouble() ? told.toInt() : then)) & mask) == 0;
    };
    const bool unsure = written["uncertain"_L1].toBool();
    const int lock = written["erased"_L1].toBool() ? 0xFF : w.before.lock;
    return Holds(chip.flash, w.asked.flash, w.before.flash, Addresses(written["flashWords"_L1]), 2,
                 written) &&
           Holds(chip.eeprom, w.asked.eeprom, w.before.eeprom, Addresses(written["eepromBytes"_L1]),
                 1, written) &&
           (bits("fuseByte", 0x1F, chip.fuses, w.before.fuses) ||
            (unsure && !written.contains("fuseByte"_L1))) &&
           (bits("lockByte", 0x06, chip.lock, lock) ||
            (unsure && !written.contains("lockByte"_L1)));
}

/// The chip missed something that the calm run did to it or read from it.
bool Missed(const World& calm, int exchange, int trouble) {
    const QString letters = calm.letters.join(QString()).mid(std::max(exchange - 1, 0));
    static const QRegularExpression forGood(u"[sRcCdDelfFr]"_s),
        beforeEntry(u"^[^PL]*[RcCdDelfFr]"_s), withEntry(u"^P[^PL]*[RcCdDelfFr]"_s);
    switch (trouble) {
        case High:
        case Low:
        case OtherPart:
            return letters.contains(forGood);
        case Reset:
        case OtherContent:
            return letters.contains(beforeEntry);
        case Undone:
        case Unheard:
        case Denied:
            return letters.contains(withEntry);
        default:
            return false;
    }
}

/// The rules that a run has to keep, whatever befalls it.
QList<Rule> Judge(const World& w, const World& calm, int exchange, int trouble, ExitStatus status) {
    const QJsonObject json = w.Json(), wanted = calm.Json(),
                      written = json["written"_L1].toObject();
    const QString code = json["error"_L1]["code"_L1].toString(), errors = w.Err();
    const bool done = status == ExitStatus::Done, unopened = exchange == 0,
               signalled = trouble == kSignal;
    const char* const wantedCode = signalled              ? "interrupted"
                                   : trouble < kEndOfLine ? kCodes[trouble]
                                                          : nullptr;
    const ChipContents& chip = w.chip->Contents();
    const QByteArrayView line = w.command.line;
    const bool changed = chip != w.before, worn = trouble == WornFlash || trouble == WornEeprom;
    // An erase is acknowledged and nothing is read back.
    const bool taken = chip == w.asked ||
                       (trouble == OtherContent && w.command.asked.IsIn(w.troubled.OtherChip())) ||
                       (line.startsWith("erase") && (worn || trouble == Undone));
    // A wrong byte of what nothing is compared with looks right: data come without a checksum; and
    // of two chips of one part nobody can tell which it is.
    const bool unproven = done && (trouble == OtherContent ||
                                   ((trouble == Wrong || trouble == Denied) && w.command.shows));
    // That a chip did not take what was acknowledged shows when it is read.
    const bool acknowledged = worn || trouble == OtherContent ||
                              (trouble == Undone && w.letters.value(exchange - 1) != u"P");
    const bool told = written["erased"_L1].toBool() || written["uncertain"_L1].toBool() ||
                      written.contains("fuseByte"_L1) || written.contains("lockByte"_L1);
    // Before an erase nobody needs the signature; after a lock it is the proof, before the L. That
    // a chip is locked can be seen whatever else was lost.
    const bool needed = wantedCode && !signalled &&
                        !w.letters.value(exchange - 1).startsWith(u's') && !w.chip->ReadLocked() &&
                        (w.before.lock == 0xFF || exchange > calm.letters.indexOf(u"e"_s));
    // What a comparison took for a difference is written anew.
    const bool anew = line.endsWith("--if-different") && written["erased"_L1].toBool();
    // A command cut in two swallows the L as its end.
    const bool may =
        code == u"lineLost" || trouble == RefusedRest || errors.contains(u"モードのまま"_s);
    // clang-format off
    return {
        {"a success is one", !done || taken},
        {"a success has reached the chip", !done || !Missed(calm, exchange, trouble)},
        {"a lost reply is none", !done || !needed},
        {"a success has done and looked at everything", !done || anew || w.Deeds() == calm.Deeds()},
        {"it knows the part", !done || unproven || json.value("part"_L1) == wanted.value("part"_L1)},
        {"it shows the bits", !done || unproven || json.value("options"_L1) == wanted.value("options"_L1)},
        {"files are whole, old or new", unproven || w.Files() == (done ? calm.Files() : w.old)},
        {"one cause is told", done == code.isEmpty() && errors.count(u"tolvex-cli: "_s) == !done},
        {"a change is told", !changed || told},
        {"no other change", !changed || w.asked != w.before},
        {"another part is not erased", !w.troubled.OtherPartErased()},
        {"what is told of the chip is true", acknowledged || IsTrue(written, w)},
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
        {"a success complains of nothing", !done || !errors.contains(QRegularExpression(u"ソケットにセット|プロテクト"_s))},
    };
    // clang-format on
}

/// Whether a rule was broken, which is told.
bool Fails(const Case& c, const World& calm, int exchange, int trouble) {
    World world(c);
    const ExitStatus status = world.Run(exchange, trouble);
    QList<Rule> rules = Judge(world, calm, exchange, trouble, status);
    const QString told = world.Err();
    const QByteArray first = Compact(world.Json()["written"_L1].toObject());
    // A command cut in two leaves the board waiting for its end, which costs an attempt a byte.
    auto next = ExitStatus::Refused;
    for (int attempts = trouble == RefusedRest ? 3 : 1; next != ExitStatus::Done && attempts > 0;
         --attempts) {
        next = world.Run();
    }
    rules << Rule{"the next one succeeds",
                  next == ExitStatus::Done && world.chip->Contents() == world.asked};
    const auto broken = std::ranges::find(rules, false, &Rule::second);
    if (broken == rules.end()) {
        return false;
    }
    std::printf("%s, %s at %d, status %d: not so: %s\n%s  %s\n", c.line,
                trouble == kSignal ? "signal" : kNames[trouble], exchange, static_cast<int>(status),
                broken->first, qPrintable(told), first.constData());
    return true;
}

}  // namespace
}  // namespace tolvex::testing

int main(int argc, char** argv) {
    using namespace tolvex;
    using namespace tolvex::testing;
    const QCoreApplication application(argc, argv);
    const bool full = QCoreApplication::arguments().contains(u"--full"_s);
    // Each trouble at every so many exchanges.
    const int every = full ? 1 : QCoreApplication::arguments().contains(u"--brief"_s) ? 8 : 2;
    const QString within = u"ARdcCD"_s;  // the memories' loops
    int runs = 0, failures = 0;
    for (const Case& c : kCases) {
        World calm(c);
        failures += calm.Run() != ExitStatus::Done || !(calm.chip->Contents() == calm.asked);
        for (int exchange = 0; exchange <= calm.letters.size(); ++exchange) {
            const bool loop = exchange > 1 && within.contains(calm.letters[exchange - 1]) &&
                              within.contains(calm.letters[exchange - 2]);
            const bool chosen = full || calm.letters.size() < 100 || !loop || exchange % 101 == 0;
            const int step = exchange == 0 ? 1 : every;
            const int end = chosen ? (exchange == 0 ? 1 : kSignal + 1) : 0;
            for (int trouble = exchange % step; trouble < end; trouble += step) {
                failures += Fails(c, calm, exchange, trouble);
                ++runs;
            }
        }
    }
    std::printf("%d runs, %d failures\n", runs, failures);
    return failures == 0 ? 0 : 1;
}
