// SPDX-License-Identifier: MIT
// The program itself in front of the simulated board's program, on a real pseudo-terminal.
#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <signal.h>

#include <QElapsedTimer>
#include <QProcess>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

constexpr int kPatience = 20'000;  // ms, for a loaded machine

class CliProgram : public ::testing::Test {
  protected:
    ~CliProgram() override { StopBoard(); }

    QString Path(const QString& name) const { return folder_.filePath(name); }
    void StartBoard(const QString& options) {
        board_.start(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-writer"),
                     (options + u" --link "_s + Path(u"port"_s)).split(u' '));
        while (!board_.canReadLine() && board_.waitForReadyRead(kPatience)) {
        }
        ASSERT_TRUE(board_.readLine().startsWith("ready ")) << board_.readAllStandardError().data();
    }
    void StopBoard() {
        board_.terminate();
        board_.waitForFinished(kPatience);
    }
    /// For `sh -c`, with $0 the tool and its options and $1 the folder.
    void Start(QString script) {
        script.replace(u"$0"_s, u"\"$0\" --port $1/port --device AT90S2313"_s);
        tool_.setWorkingDirectory(QStringLiteral(TOLVEX_SOURCE_DIR));
        tool_.start(u"sh"_s, {u"-c"_s, u"export XDG_CONFIG_HOME=$1/config; "_s + script,
                              QStringLiteral(TOLVEX_BIN_DIR "/tolvex-cli"), folder_.path()});
    }
    int End() {
        EXPECT_TRUE(tool_.waitForFinished(kPatience));
        error_ = QString::fromUtf8(tool_.readAllStandardError());
        return tool_.exitStatus() == QProcess::NormalExit ? tool_.exitCode() : -1;
    }
    QTemporaryDir folder_;
    QProcess board_, tool_;
    QString error_;
};

TEST_F(CliProgram, SignalsEndItInOrder) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        StartBoard(u"--device AT90S2313 --log "_s + Path(u"log"_s));
        Start(u"exec $0 program samples/blink.hex"_s);
        QElapsedTimer timer;
        timer.start();
        while (!CliBench::Contents(Path(u"log"_s)).contains("\nc ") &&
               timer.elapsed() < kPatience) {
            tool_.waitForReadyRead(1);
        }
        ::kill(static_cast<pid_t>(tool_.processId()), signal);
        EXPECT_EQ(End(), 128 + signal);
        EXPECT_TRUE(error_.contains(u"中断しました。\nチップは消去済みです。\nFlash: "_s))
            << error_.toStdString();
        EXPECT_TRUE(CliBench::Contents(Path(u"log"_s)).endsWith("\nL -> 0D\n"));
        StopBoard();
    }
}

/// What the surroundings of a program can do to it.
TEST_F(CliProgram, LivesWithAnyStreams) {
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
    for (const auto& [line, status] : cases) {
        SCOPED_TRACE(line);
        Start(QString::fromLatin1(line));
        EXPECT_EQ(End(), status) << error_.toStdString();
    }
}

}  // namespace
}  // namespace tolvex::testing

#endif
