// SPDX-License-Identifier: MIT
// The programs themselves, tolvex-cli in front of tolvex-writer, on a real pseudo-terminal.
#include <signal.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include "tests/support/real_files.h"

namespace tolvex::testing {
namespace {

using namespace Qt::StringLiterals;

constexpr int kLongestWait = 20'000;  // ms, for a loaded machine

class Programs : public ::testing::Test {
  protected:
    ~Programs() override { StopBoard(); }

    QString Path(const QString& name) const { return folder_.filePath(name); }
    QByteArray Content(const QString& name) const { return Bytes(Path(name)); }
    /// The terminal of the next ready line; empty when the board's program ended instead.
    QString Ready() {
        while (!board_.canReadLine() && board_.waitForReadyRead(kLongestWait)) {
        }
        const QString line = QString::fromUtf8(board_.readLine()).trimmed();
        return line.startsWith(u"ready "_s) ? line.mid(6) : QString();
    }
    QString StartBoard(const QString& options) {
        board_.start(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-writer"),
                     (options + u" --link "_s + Path(u"port"_s)).split(u' ', Qt::SkipEmptyParts));
        return Ready();
    }
    int StopBoard() {
        board_.terminate();
        return Status(board_);
    }
    /// -1 when it crashed or didn't come to its end.
    static int Status(QProcess& program) {
        const bool ended = program.waitForFinished(kLongestWait);
        return ended && program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }
    /// For `sh -c`, with $0 the tool and its options, $1 the folder and $2 the board's program.
    void Start(QString script) {
        script.replace(u"$0"_s, u"\"$0\" --port $1/port --device AT90S2313"_s);
        script.replace(u"$2"_s, u"\"$2\""_s);
        shell_.setWorkingDirectory(QStringLiteral(TOLVEX_SOURCE_DIR));
        shell_.start(u"sh"_s, {u"-c"_s, u"export XDG_CONFIG_HOME=$1/config; "_s + script,
                               QStringLiteral(TOLVEX_BIN_DIR "/tolvex-cli"), folder_.path(),
                               QStringLiteral(TOLVEX_BIN_DIR "/tolvex-writer")});
    }
    int End() {
        const int status = Status(shell_);
        error_ = shell_.readAllStandardError().replace(folder_.path().toUtf8() + '/', "@");
        return status;
    }
    int Run(const char* script) {
        Start(QString::fromLatin1(script));
        return End();
    }

    QTemporaryDir folder_;
    QProcess board_, shell_;
    QByteArray error_;
};

TEST_F(Programs, SignalsEndTheToolInOrder) {
    // A second signal waits for the orderly stop too; the third gives it up, of a board that hangs.
    for (const auto& [signal, times] :
         {std::pair(SIGINT, 2), {SIGTERM, 1}, {SIGHUP, 1}, {SIGINT, 3}}) {
        ::signal(signal, SIG_DFL);  // nohup or a script's & has ignored it, which is inherited
        const bool inOrder = times < 3;
        ASSERT_FALSE(StartBoard(u"--device AT90S2313 --log "_s + Path(u"log"_s)).isEmpty());
        Start(u"exec $0 program samples/blink.hex"_s);
        while (!Content(u"log"_s).contains("\nc ") && shell_.state() != QProcess::NotRunning) {
            shell_.waitForReadyRead(1);
        }
        ::kill(static_cast<pid_t>(board_.processId()), inOrder ? 0 : SIGSTOP);
        for (int sent = 0; sent < times && shell_.state() != QProcess::NotRunning; ++sent) {
            ::kill(static_cast<pid_t>(shell_.processId()), signal);
            shell_.waitForFinished(1);
        }
        EXPECT_EQ(End(), inOrder ? 128 + signal : -1);
        ::kill(static_cast<pid_t>(board_.processId()), SIGCONT);
        EXPECT_EQ(error_.contains("中断しました。\nチップは消去済みです。\nFlash: "), inOrder)
            << error_.data();
        EXPECT_EQ(Content(u"log"_s).endsWith("\nL -> 0D\n"), inOrder);
        StopBoard();
    }
}

/// What the surroundings of a program can do to it.
TEST_F(Programs, TheToolLivesWithAnyStreams) {
    const std::pair<const char*, int> cases[] = {
        {"$0 program samples/blink.hex && $0 read $1/r.hex && $0 verify $1/r.hex", 0},
        {"$0 verify samples/blink.hex && test ! -e $1/config", 0},
        {"$0 devices >/dev/full", 4},
        {"$0 devices >&-", 4},
        {"$0 --json --version >/dev/full", 4},
        {"$0 --json detect 2>&- <&- | grep -q '\"exitStatus\":0'", 0},
        {"$0 detect --trace /dev/full", 4},
        {"{ $0 program samples/blink.hex; echo $? >$1/status; } | head -1 && grep 4 $1/status", 0},
        {"cat samples/blink.hex | $0 program -", 0},
        {"cat samples/blink.hex | $0 --quiet verify --only flash - >&- 2>&- <&0", 0},
        {"$0 read --only flash - 2>/dev/null | $0 check -", 0},
        {"mkfifo $1/f; cat samples/blink.eep >$1/f & $0 check $1/f", 0},
        {"$0 check $(printf 'caf\\351').hex", 2},
        {"flock $(readlink -f $1/port) $0 doctor | grep -q '^  kill '", 0},
        {"env LC_ALL=C $0 --quiet detect 2>&1 | grep -c Qt", 1},
    };
    StartBoard(u"--baud 0 --device AT90S2313"_s);
    for (const auto& [script, status] : cases) {
        EXPECT_EQ(Run(script), status) << script << '\n' << error_.data();
    }
}

TEST_F(Programs, TheBoardKeepsChipLogAndLinkOverHangUpsAndRuns) {
    // Bytes that a terminal would take for control characters or new lines.
    PutFile(Path(u"raw.hex"_s), ":100000000003040A0D1113151617191A1C7F80FF1F\r\n:00000001FF\r\n");
    ASSERT_TRUE(QFile::link(u"/dev/pts/99999"_s, Path(u"port"_s)));  // left behind by a crash
    StartBoard(u"--device AT90S2313"_s);
    board_.kill();  // and a link to the terminal whose number mostly comes next
    board_.waitForFinished();
    PutFile(Path(u"port.new"_s), "mine");
    const QString state = u"--device AT90S2313 --state "_s + Path(u"state"_s);
    const QString terminal = StartBoard(
        state + u" --baud 0 --fault 3:wrong --fault 12:hang-up --log "_s + Path(u"log"_s));
    EXPECT_EQ(QFile::symLinkTarget(Path(u"port"_s)), terminal)
        << board_.readAllStandardError().data();
    EXPECT_EQ(Run("exec $2 --link $1/port"), 1);
    EXPECT_EQ(error_, "tolvex-writer: @port leads to " + terminal.toUtf8() + " already\n");
    EXPECT_EQ(Run("$0 detect | grep -q ': ?.0'"), 0);
    EXPECT_EQ(Run("$0 --json detect | grep -q lineLost"), 0);
    EXPECT_FALSE(Ready().isEmpty());
    EXPECT_EQ(Run("$0 program $1/raw.hex"), 0) << error_.data();
    EXPECT_TRUE(Content(u"log"_s).startsWith(
        "S -> 41 56 52 20 49 53 50\nV -> 33 39\nv -> 3F 30 (wrong)\nT 21 00 -> 0D\nP -> 0D\n"));
    EXPECT_TRUE(Content(u"log"_s).contains("\nP -> nothing (hang-up)\nS -> 41 "));
    EXPECT_EQ(StopBoard(), 0);
    EXPECT_FALSE(QFileInfo(Path(u"port"_s)).isSymLink());
    EXPECT_EQ(Content(u"port.new"_s), "mine");
    // 26 bytes of 33 ms each; and 7 replies that an adapter hands over every 100 ms.
    for (const auto& [line, least] :
         {std::pair{u" --baud 300"_s, 900}, {u" --baud 0 --latency 100"_s, 700}}) {
        StartBoard(state + line);
        QElapsedTimer timer;
        timer.start();
        EXPECT_EQ(Run("$0 detect"), 0);
        EXPECT_GE(timer.elapsed(), least);
        StopBoard();
    }
    StartBoard(state + u" --baud 0"_s);
    EXPECT_EQ(Run("$0 verify $1/raw.hex"), 0) << "the next run has the same chip";
}

TEST_F(Programs, TheBoardPlaysWhatTheToolHasRecordedAndEndsWithIt) {
    StartBoard(u"--baud 0 --device AT90S2313"_s);
    EXPECT_EQ(Run("$0 detect --trace $1/trace"), 0);
    StopBoard();
    for (const bool departs : {false, true}) {
        StartBoard(u"--replay "_s + Path(u"trace"_s));
        EXPECT_EQ(Run(departs ? "$0 --device AT90S1200 detect" : "$0 detect"), departs ? 1 : 0);
        EXPECT_EQ(Status(board_), departs ? 1 : 0);
        EXPECT_EQ(board_.readAllStandardError().contains("the PC sent 11 instead of 21"), departs);
    }
}

TEST_F(Programs, TheBoardEndsAtOnceWhenItCannotWork) {
    const std::tuple<const char*, int, const char*> cases[] = {
        // clang-format off
        {"exec $2 --baud x", 2, "--baud is a number from 0 to 4000000"},
        {"exec $2 --fault 0:silent", 2, "--fault is K:KIND, such as 3:silent, and not 0:silent"},
        {"exec $2 --empty --device 1", 2, "--empty goes with neither --device nor --state"},
        {"exec $2 --log x --log y", 2, "--log was given twice"},
        {"exec $2 --device 99", 2, "--device: no such chip: 99"},
        {"exec $2 blink.hex", 2, "unknown argument: blink.hex"},
        {"exec $2 --device 8 --state $1/state", 1, "state file @state holds another chip: AT90S2313"},
        {"echo { >$1/damaged; exec $2 --state $1/damaged", 1, "state file @damaged"},
        {"exec $2 --link $1/damaged", 1, "@damaged is in the way: it is no symbolic link"},
        {"ln -s /dev/null $1/adapter; exec $2 --link $1/adapter", 1, "@adapter leads to /dev/null already"},
        // clang-format on
    };
    StartBoard(u"--device AT90S2313 --state "_s + Path(u"state"_s));
    for (const auto& [script, status, complaint] : cases) {
        EXPECT_EQ(Run(script), status) << script;
        EXPECT_TRUE(error_.startsWith(QByteArray("tolvex-writer: ") + complaint)) << error_.data();
    }
    EXPECT_EQ(Content(u"damaged"_s), "{\n") << "what wasn't understood is left alone";
    EXPECT_EQ(QFile::symLinkTarget(Path(u"adapter"_s)), u"/dev/null"_s);
}

}  // namespace
}  // namespace tolvex::testing
