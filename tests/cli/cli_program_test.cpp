// SPDX-License-Identifier: MIT
// The program itself in front of the simulated board's program, on a real pseudo-terminal.
#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>

#include "tests/cli/cli_bench.h"
#include "writer/chip_state_file.h"

namespace tolvex::testing {
namespace {

constexpr int kPatience = 20'000;  // ms, for a loaded machine

class CliProgram : public ::testing::Test {
  protected:
    ~CliProgram() override { StopBoard(); }

    QString Path(const QString& name) const { return folder_.filePath(name); }

    void StartBoard(const QStringList& options) {
        board_.start(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-writer"),
                     options + QStringList{u"--link"_s, Path(u"port"_s)});
        while (!board_.canReadLine() && board_.waitForReadyRead(kPatience)) {
        }
        ASSERT_TRUE(board_.readLine().startsWith("ready ")) << board_.readAllStandardError().data();
    }
    /// Its exit status.
    int StopBoard() {
        board_.terminate();
        board_.waitForFinished(kPatience);
        return board_.exitCode();
    }

    void Start(const QStringList& arguments) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, Path(u"config"_s));
        tool_.setProcessEnvironment(environment);
        tool_.start(
            QStringLiteral(TOLVEX_BIN_DIR "/tolvex-cli"),
            QStringList{u"--port"_s, Path(u"port"_s), u"--device"_s, u"AT90S2313"_s} + arguments);
    }
    int End() {
        EXPECT_TRUE(tool_.waitForFinished(kPatience));
        error_ = QString::fromUtf8(tool_.readAllStandardError());
        return tool_.exitStatus() == QProcess::NormalExit ? tool_.exitCode() : -1;
    }
    int Run(const QStringList& arguments) {
        Start(arguments);
        return End();
    }

    QString Sample() const { return QStringLiteral(TOLVEX_SOURCE_DIR "/samples/blink.hex"); }

    QTemporaryDir folder_;
    QProcess board_, tool_;
    QString error_;
};

TEST_F(CliProgram, ProgramsReadsAndAgreesWithAnotherTool) {
    StartBoard({u"--baud"_s, u"0"_s, u"--device"_s, u"AT90S2313"_s, u"--state"_s, Path(u"chip"_s)});
    EXPECT_EQ(Run({u"program"_s, Sample()}), 0) << error_.toStdString();
    EXPECT_EQ(Run({u"read"_s, Path(u"read.hex"_s)}), 0) << error_.toStdString();
    EXPECT_FALSE(QFile::exists(Path(u"config"_s))) << "nothing is left behind in the settings";
    if (QStandardPaths::findExecutable(u"srec_cmp"_s).isEmpty()) {
        GTEST_SKIP() << "srecord is not installed";
    }
    EXPECT_EQ(QProcess::execute(u"srec_info"_s, {Path(u"read.hex"_s), u"-intel"_s}), 0);
    const QStringList blank{u"-fill"_s, u"0xFF"_s, u"0"_s, u"2048"_s};
    EXPECT_EQ(QProcess::execute(
                  u"srec_cmp"_s,
                  QStringList{Path(u"read.hex"_s), u"-intel"_s, Sample(), u"-intel"_s} + blank),
              0);
}

TEST_F(CliProgram, SignalsEndItInOrder) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        StartBoard({u"--device"_s, u"AT90S2313"_s, u"--log"_s, Path(u"log"_s)});
        Start({u"program"_s, Sample()});
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

TEST_F(CliProgram, APortInUseIsToldWithItsHolder) {
    StartBoard({u"--empty"_s});
    const int port = ::open(QFile::encodeName(Path(u"port"_s)).constData(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(::flock(port, LOCK_EX), 0);
    EXPECT_EQ(Run({u"detect"_s}), 3);
    EXPECT_TRUE(error_.contains(u"another program holds the device"_s)) << error_.toStdString();
    EXPECT_EQ(Run({u"doctor"_s}), 3);
    EXPECT_TRUE(tool_.readAllStandardOutput().startsWith("  kill ")) << "it is a process of ours";
    ::close(port);
}

TEST_F(CliProgram, ATraceReplaysWithoutTheChip) {
    StartBoard({u"--baud"_s, u"0"_s, u"--device"_s, u"AT90S2313"_s});
    EXPECT_EQ(Run({u"detect"_s, u"--trace"_s, Path(u"trace"_s)}), 0);
    EXPECT_EQ(StopBoard(), 0);
    StartBoard({u"--baud"_s, u"0"_s, u"--replay"_s, Path(u"trace"_s)});
    EXPECT_EQ(Run({u"detect"_s}), 0) << error_.toStdString();
    EXPECT_EQ(StopBoard(), 0);
    StartBoard({u"--baud"_s, u"0"_s, u"--replay"_s, Path(u"trace"_s)});
    EXPECT_EQ(Run({u"read"_s, Path(u"read.hex"_s)}), 1) << "another command than the recorded one";
    EXPECT_EQ(StopBoard(), 1);
}

/// What the surroundings of a program can do to it: `sh -c`, with $0 the tool and its options.
TEST_F(CliProgram, LivesWithAnyStreams) {
    struct Case {
        const char* script;
        int status;
    };
    const Case cases[] = {
        {"$0 devices >/dev/full", 4},
        {"$0 devices >&-", 4},
        {"$0 --json --version >/dev/full", 4},
        {"$0 --json detect 2>&- <&- | grep -q '\"exitStatus\":0'", 0},
        {"$0 detect --trace /dev/full", 4},
        {"{ $0 program samples/blink.hex; echo $? >$1/status; } | head -1 && grep 4 $1/status", 0},
        {"cat samples/blink.hex | $0 program -", 0},
        {"cat samples/blink.hex | $0 verify /dev/stdin samples/blink.eep", 1},
        {"cat samples/blink.hex | $0 --quiet verify --only flash - >&- 2>&- <&0", 0},
        {"$0 read --only flash - 2>/dev/null | $0 check -", 0},
        {"mkfifo $1/f; cat samples/blink.eep >$1/f & $0 check $1/f", 0},
        {"$0 check $(printf 'caf\\351').hex", 2},
        {"env LC_ALL=C $0 --quiet detect 2>&1 | grep -c Qt", 1},
    };
    StartBoard({u"--baud"_s, u"0"_s, u"--device"_s, u"AT90S2313"_s});
    for (const Case& c : cases) {
        SCOPED_TRACE(c.script);
        QString script = QString::fromLatin1(c.script);
        script.replace(u"$0"_s, u"$0 --port $1/port --device AT90S2313"_s);
        tool_.setWorkingDirectory(QStringLiteral(TOLVEX_SOURCE_DIR));
        tool_.start(u"sh"_s, {u"-c"_s, script, QStringLiteral(TOLVEX_BIN_DIR "/tolvex-cli"),
                              folder_.path()});
        EXPECT_EQ(End(), c.status) << error_.toStdString();
    }
}

}  // namespace
}  // namespace tolvex::testing

#endif
