// SPDX-License-Identifier: MIT
// Everything that can befall an exchange, at every exchange of every operation, alone and in pairs,
// in virtual time: tolvex_workbench_sweep [--full] [--seed N].
#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <cstdio>
#include <random>
#include <ranges>

#include "tests/support/test_bench.h"
#include "tests/sweep/troubles.h"

namespace tolvex::testing {
namespace {

/// A run as one line: the letters sent, "=" or "!" behind a row of them (all well, or a command has
/// told that it failed), "「text」" status panel 1, "<text>" progress, "『text』" a message, "_"
/// the dialog closed, "1" and "2" a listing brought up to date, "3" the verify report, "#" a box.
QString Line(const QStringList& transcript) {
    static const QRegularExpression failure(
        u"^status 1: (?:ｺﾐﾆｭｹｰｼｮﾝ失敗|返答ﾃﾞｰﾀﾐｽ) : .*? (\\w)(?: .)?$"_s);
    static const QStringList beginnings[] = {
        {u"status 1: "_s, u"「%1」"_s},   {u"progress: "_s, u"<%1>"_s},
        {u"message OK: "_s, u"『%1』"_s}, {u"close message"_s, u"_%1"_s},
        {u"flash listing"_s, u"1%1"_s},   {u"eeprom listing"_s, u"2%1"_s},
        {u"verify report"_s, u"3%1"_s},   {u"box Stop ポートオープン失敗|COM1 "_s, u"#%1"_s}};
    QString line, letter, row;
    for (const QString& entry : transcript) {
        if (entry.size() == 1) {
            line += letter = entry;
            row = row.isEmpty() ? u"="_s : row;
        } else if (const auto match = failure.match(entry); match.hasMatch()) {
            // Without a low byte's reply the high byte isn't sent.
            line += entry.contains(u"Low byte Write Program"_s) ? u"^"_s : QString();
            row = match.captured(1) == letter ? u"!"_s : u"failure of another command"_s;
        } else {
            for (const QStringList& shape : beginnings) {
                if (entry.startsWith(shape[0])) {
                    line += std::exchange(row, {}) + shape[1].arg(entry.mid(shape[0].size()));
                }
            }
        }
    }
    return line + row;
}

/// The rules: what a run may look like, whatever befalls it. %1 and %2: the device's words and
/// bytes; the others: words and bytes to program, and words and bytes to compare afterwards.
const QString kGrammar =
    uR"((?(DEFINE)
(?<lost>『ライタと通信ができませんでした。[^』]*』「ライタと通信ができませんでした。.Command_)
(?<code>=「ｺﾏﾝﾄﾞ送信[ ]:[ ]Select[ ]device[ ]command[ ]T[ ],[ ]0x[12][12]」)
(?<found><ライタと通信中！>SVv(?&code)T=「ライタを検出しました。[ ]COM1」_)
(?<nobody><ライタと通信中！>((S!)?(?&lost)S|SV!(?&lost)V|SVv!(?&lost)v|SVv(?&code)T!(?&lost)T).」)
(?<passed>Ps{1,5}L)
(?<refused>Ps{1,5}(L!|[=!]『デ[^』]*』L[=!]))
(?<erase>s{1,5}[=!](『デ[^』]*』)?<Eraseing[ ]Flash[ ]&[ ]EEPROM[ ]memory[ ]!>PeL)
(?<unerased>!「(Flash[ ]&[ ]EEPROM[ ]メモリクリアー失敗)」『\g{-1}』)
(?<ok>「(ベリファイ　FLASH[ ]:[ ]OK[ ]/[ ]EEPROM[ ]:[ ]OK)」『\g{-1}』)
(?<ng>3「(ベリファイ　FLASH[ ]:[ ](OK[ ]/[ ]EEPROM[ ]:[ ]NG|NG[ ]/[ ]EEPROM[ ]:[ ](OK|NG)))」『\g{-3}』)
(?<unsure>!「(ベリファイ　通信エラー)」『\g{-1}』)
(?<flashEnd>L(=|!「(Flash[ ]メモリ[ ]ベリファイ失敗)」『\g{-1}』)<EEPROM[ ]Data[ ]Memory[ ]Verifying[ ]!>P)
(?<fuseEnd>=『Lock/Fuse[ ]bit[ ](リード|ライト)が完了しました。』|!『Lock/Fuse[ ]bit[ ](リード|ライト)に失敗しました。』)
(?<whole>PAR{%1}(?&flashEnd)(Ad){%2}L(=((?&ok)|(?&ng))|(?&unsure)))
(?<used>PAR{%5}(?&flashEnd)(Ad){%6}L(=((?&ok)|(?&ng))|(?&unsure)))
(?<write>PA(cC|c\^){%3}L(=1_|!「(Flashメモリ[ ]ライト失敗)」『\g{-1}』)
  <EEPROM[ ]Data[ ]Memory[ ]Programming[ ]!>P(AD){%4}L(=2_|!「EEPROMメモリ[ ]ライト失敗」『EEROMメモリ[ ]ライト失敗』)
  <Flash[ ]Program[ ]Memory[ ]Verifying[ ]!>(?&used))
(?<broken>PA(?<words>R{1,%1})!)
(?<read>PAR{%1}L(=1_|!「(Flashメモリ[ ]リード失敗)」『\g{-1}』)
  <EEPROM[ ]Data[ ]Memory[ ]Reading[ ]!>P(Ad){%2}L(=2_|!「EEPROMメモリ[ ]リード失敗」『EEROMメモリ[ ]リード失敗』))
(?<Program>「」((?&nobody)|(?&found)(?&erase)(=2_|(?&unerased))<Flash[ ]Program[ ]Memory[ ]Programming[ ]!>
  ((?&passed)(?&write)|(?&refused)「プログラミングを中止しました。」)「プログラム終了しました。」))
(?<Nothing>「」((?&nobody)|(?&found)(?&erase)(=2_|(?&unerased))<Flash[ ]Program[ ]Memory[ ]Programming[ ]!>
  『(Lock[ ]bit[ ]&[ ]プログラム/EEPROMデータ[ ]メモリクリアー完了。)』「\g{-1}」「プログラム終了しました。」))
(?<Erase>「」((?&nobody)|(?&found)(?&erase)(=2_「Lock[ ]bit[ ]&[ ]Flash[ ]&[ ]EEPROM[ ]メモリクリアー完了。」|(?&unerased))))
(?<Verify>「」((?&nobody)|(?&found)<Flash[ ]Program[ ]Memory[ ]Verifying[ ]!>
  ((?&passed)(?&whole)|(?&refused)「ベリファイを中止しました。」)「ベリファイ終了しました。」))
(?<Read>「」((?&nobody)|(?&found)<Flash[ ]Program[ ]Memory[ ]Reading[ ]!>
  ((?&passed)((?&read)|(?&broken))|(?&refused)「リードを中止しました。」)「リード終了しました。」))
(?<FuseWrite>(?&nobody)|(?&found)<Lock/Fuse[ ]bit[ ]ライト中....>((?&passed)(PfL)?PlL(?&fuseEnd)|(?&refused)))
(?<FuseRead>(?&nobody)|(?&found)<Lock/Fuse[ ]bit[ ]リード中...>
  ((?&passed)(PrL)?PFL(?&fuseEnd)|(?&refused)『設定デバイスと、ソケット上のデバイスがミスマッチです。』))
(?<Port>「」(\#[^「]*|((?&nobody)|(?&found))(「このファームウエアバージョンでは、AT90S2333/4433をサポートしません。」)?))
)^(?&%7)$)"_s;

/// An operation on a device.
struct Case {
    QString rule;
    int device;
    void (*images)(MemoryImages&) = [](MemoryImages&) {};  ///< the chip holds what they were before
    int words = 0, bytes = 0, lastWord = 0, lastByte = 0;  ///< to program
};

void Clear(MemoryImages& images) {
    images = {};
}
void OneWord(MemoryImages& images) {
    images = {};
    images.flash[1] = 0x55;
}
void AFew(MemoryImages& images) {
    std::fill(images.flash.begin() + 10, images.flash.end(), kErased);
    images.eeprom.fill(kErased);
    images.eeprom[0] = images.eeprom[7] = images.eeprom[9] = 0x5A;
}
void Change(MemoryImages& images) {
    images.flash[99] = images.eeprom[9] ^= 1;
}

QList<Case> Cases() {
    QList<Case> cases = {{u"Program"_s, 0, OneWord, 2, 0, 0, 0},
                         {u"Nothing"_s, 0, Clear},
                         {u"Verify"_s, 0},
                         {u"Verify"_s, 0, Change},
                         {u"Read"_s, 0, Clear},
                         {u"Erase"_s, 0},
                         {u"Port"_s, 0}};
    // A device of each kind of fuses.
    for (const int device : {0, 3, 4, 5}) {
        cases << Case{u"Program"_s, device, AFew, 5, 3, 4, 9} << Case{u"FuseWrite"_s, device};
        if (TestBench(device).bench.state.device.fuseGroup != FuseGroup::LockOnly) {
            cases << Case{u"FuseRead"_s, device};
        }
    }
    return cases;
}

/// A program in front of a chip that holds something, on a line that faults befall.
struct World : TestBench {
    explicit World(const Case& c)
        : TestBench(c.device), button(c.rule == u"Nothing" ? u"Program"_s : c.rule) {
        FillImages(1);
        before = {FlashOfImages(), EepromOfImages(), 0xFF, 0xFA};
        chip->SetContents(before);
        board.AcknowledgeBlindly();
        c.images(bench.state.images);
        bench.state.options[OptionList::LockBit] = 1;
        bench.state.options[OptionList::CKSEL] = 5;
        chosen = bench.state.options;
        user.ShowSettings();
    }
    void Run(const Mishaps& faults) {
        troubled.Plan(faults);
        Forget();
        success = Press(button);
        line = Line(user.calls);
    }
    QByteArray Images() const {
        return {reinterpret_cast<const char*>(&bench.state.images), sizeof bench.state.images};
    }
    QByteArray Held() const {
        const ChipContents& holds = chip->Contents();
        QByteArray held = Images() + holds.flash + holds.eeprom + static_cast<char>(holds.lock) +
                          static_cast<char>(holds.fuses);
        for (const int entry : bench.state.options.entries) {
            held += static_cast<char>(entry);
        }
        return held;
    }

    TroubledLine troubled{port, board, *chip, user.calls};
    QString button;
    ChipContents before;
    OptionChoice chosen;
    QString line;
    bool success = false;
};

class Sweep {
  public:
    explicit Sweep(const Case& c) : case_(c), calm_(c), start_(calm_.Images()) {
        const CurrentDevice& device = calm_.bench.state.device;
        QString grammar = kGrammar;
        for (const int count : {device.flashWords, device.eepromBytes, c.words, c.bytes,
                                c.lastWord + 1, c.lastByte + 1}) {
            grammar = grammar.arg(count);
        }
        grammar_ = QRegularExpression(grammar.arg(c.rule),
                                      QRegularExpression::ExtendedPatternSyntaxOption);
        calm_.Run({});
        letters_ = calm_.line;
        letters_.remove(QRegularExpression(u"「[^」]*」|<[^>]*>|『[^』]*』|[^A-Za-z]"_s));
        Judge(calm_, {});
    }
    int Exchanges() const { return static_cast<int>(letters_.size()); }

    void Try(const Mishaps& faults) {
        World world(case_);
        world.Run(faults);
        Judge(world, faults);
        // With a fresh chip, because lock bits that came through alone keep the fuses as they are.
        // A command cut in two leaves the board waiting for its end, which costs an attempt a byte.
        for (int attempt = 0; attempt == 0 || (attempt < 3 && world.line != calm_.line);
             ++attempt) {
            world.chip->SetContents(world.before);
            world.bench.state.options = world.chosen;  // of which a locked chip changes one
            world.Run({});
        }
        Must(world.line == calm_.line && world.Held() == calm_.Held(), "the next one works", faults,
             world.line);
        ++runs;
    }

    static inline int runs = 0, failures = 0;

  private:
    void Must(bool holds, const char* what, const Mishaps& faults, const QString& line) const {
        if (holds || ++failures > 10) {
            return;
        }
        std::printf("%s, device %d", qPrintable(case_.rule), case_.device);
        for (const Mishap& fault : faults) {
            std::printf(", %s at %d", kNames[fault.trouble], fault.exchange);
        }
        std::printf(": not so: %s\n  %s\n", what, qPrintable(line));
    }

    /// With a mark where no run goes on like that.
    QString Marked(const QString& line) const {
        const auto lengths = std::views::iota(1, static_cast<int>(line.size()) + 1);
        const auto fits = [&](int length) {
            const auto match = grammar_.match(line.first(length), 0,
                                              QRegularExpression::PartialPreferCompleteMatch);
            return match.hasMatch() || match.hasPartialMatch();
        };
        return QString(line).insert(std::ranges::partition_point(lengths, fits) - lengths.begin(),
                                    u" >>> "_s);
    }

    /// What a chip's data are nobody can tell but the chip: a wrong byte of a read looks right.
    void Judge(World& world, const Mishaps& faults) const {
        const auto must = [&](bool holds, const char* what) {
            Must(holds, what, faults, world.line);
        };
        const auto any = [&faults](int trouble) {
            return std::ranges::find(faults, trouble, &Mishap::trouble) != faults.end();
        };
        // The fixed sequences believe what the board acknowledges.
        const bool socket = std::ranges::any_of(
            faults, [](const Mishap& fault) { return fault.trouble >= kEndOfLine; });
        const auto match = grammar_.match(world.line);
        Must(match.hasMatch(), "told and done as the rules say", faults, Marked(world.line));
        must(world.user.shownOptions == world.bench.state.options,
             "the settings window is in step");
        const QString& dialog = world.user.message;
        const bool unopened = !faults.isEmpty() && faults[0].exchange == 0;
        const bool lost = unopened || dialog.startsWith(u"ライタと通信が"_s);
        const bool well = (dialog.isNull() || dialog.contains(u"完了"_s) ||
                           dialog.startsWith(u"ベリファイ　FLASH"_s)) &&
                          !(case_.rule == u"Nothing"_s && world.line.contains(u"クリアー失敗"_s));
        const bool port = case_.rule == u"Port"_s;
        must(world.bench.state.errorFlag.Failed() == (unopened ? port : !port && !well), "flag");
        must(world.port.IsOpen() != lost || any(HangUp), "port state");
        must(faults.size() != 1 || !any(HangUp) || world.port.SinceHangUp() <= kAfterHangUp,
             "a hang-up ends it in a second");
        const bool broken = world.line.contains(QRegularExpression(u"R!「リード終"_s));
        must(any(HangUp) || any(RefusedLetter) || any(RefusedRest) ||
                 world.board.InProgrammingMode() == broken,
             "programming mode left");
        must(case_.rule == u"Read"_s || world.Images() == start_, "images kept");
        double bar = 0;
        for (const double step : world.user.progress) {
            must(step >= bar || (step == 0 && (bar == 1 || !world.success)), "the bar moves on");
            bar = step;
        }
        must(!world.success || case_.words == 0 || bar == 1, "the bar ends full");
        if (socket) {
            return;
        }
        if (broken && faults.size() == 1) {
            const qsizetype got = 2 * (world.line.count(u'R') - world.line.count(u"Re"_s) - 1);
            must(world.Images().first(got) == calm_.Images().first(got) &&
                     world.Images().sliced(got) == start_.sliced(got),
                 "what was read stays, the rest too");
        }
        const bool unproven = any(Wrong) && case_.rule.endsWith(u"ead"_s);
        must(!world.success || (calm_.success && (unproven || world.Held() == calm_.Held())),
             "no false success");
        if (faults.size() == 1 && !unopened) {
            const auto [exchange, trouble] = faults[0];
            const QChar letter = letters_[exchange - 1];
            static const QRegularExpression beforeErase(u"\\Gs+Pe"_s);
            const bool harmless =
                beforeErase.match(letters_, exchange - 1).hasMatch() ||  // which comes all the same
                (trouble == Long) || (trouble == Wrong && u"SVvsRdFr"_s.contains(letter)) ||
                (trouble == RefusedRest && !u"TAcCDfl"_s.contains(letter));
            must(!world.success || harmless, "noticed");
            must(world.success == calm_.success || trouble != Long, "too much does no harm");
        }
    }

    const Case& case_;
    World calm_;
    QByteArray start_;
    QRegularExpression grammar_;
    QString letters_;
};

/// What the process holds, where the system tells.
struct Holding {
    double megabytes = 0;
    qsizetype descriptors = 0;

    static Holding Now() {
        QFile memory(u"/proc/self/statm"_s);
        const bool open = memory.open(QIODevice::ReadOnly);
        return {(open ? memory.readAll().split(' ').value(1).toDouble() : 0) * 4096 / 1e6,
                QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System).size()};
    }
};

}  // namespace
}  // namespace tolvex::testing

int main(int argc, char** argv) {
    using namespace tolvex::testing;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool full = arguments.contains(u"--full"_s);
    const qsizetype given = arguments.indexOf(u"--seed"_s);
    const unsigned seed = given > 0 ? arguments.value(given + 1).toUInt()
                          : full    ? std::random_device()()
                                    : 1;
    std::printf("seed %u\n", seed);
    std::mt19937 random(seed);
    const auto any = [&random](int least, int most) {
        return std::uniform_int_distribution(least, most)(random);
    };
    const QList<Case> cases = Cases();
    std::optional<Holding> early;
    for (const Case& c : cases) {
        Sweep sweep(c);
        const int last = sweep.Exchanges();
        sweep.Try({{0, Silent}});
        for (int exchange = 1; exchange <= last; ++exchange) {
            const bool chosen =
                full || exchange <= 12 || exchange > last - 6 || exchange % 101 == 0;
            for (int trouble = 0; chosen && trouble < kEnd; ++trouble) {
                sweep.Try({{exchange, trouble}});
            }
        }
        for (int pair = 0; pair < (full ? 1000 : 40); ++pair) {
            sweep.Try({{any(1, last), any(0, kEnd - 1)}, {any(1, last), any(0, kEnd - 1)}});
        }
        early = early ? early : Holding::Now();
    }
    const Holding late = Holding::Now();
    std::printf("%d runs, %d failures, %.1f MB and %lld descriptors grew to %.1f MB and %lld\n",
                Sweep::runs, Sweep::failures, early->megabytes,
                static_cast<long long>(early->descriptors), late.megabytes,
                static_cast<long long>(late.descriptors));
    // A sanitizer keeps memory back.
    const bool grown =
        late.descriptors > early->descriptors || (full && late.megabytes > early->megabytes + 2);
    return Sweep::failures == 0 && !grown ? 0 : 1;
}
