// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include "link/serial_connection.h"
#include "platform/event_loop_clock.h"
#include "platform/qt_serial_port.h"
#include "tests/support/real_files.h"
#include "writer/chip_state_file.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPatience = 20'000;  // ms, for a loaded machine

/// The program itself, started in an empty folder, and this program's own port COM1 to talk to it.
struct WriterProgram : ::testing::Test {
    ~WriterProgram() override {
        program.kill();
        program.waitForFinished();
    }

    QString Path(const QString& name) const { return dir.filePath(name); }
    void Start(const QString& arguments) {
        program.start(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-writer"), arguments.split(u' '));
    }
    /// The terminal of the next ready line; empty when the program ended instead.
    QString Ready() {
        while (!program.canReadLine() && program.waitForReadyRead(kPatience)) {
        }
        const QString line = QString::fromUtf8(program.readLine()).trimmed();
        return line.startsWith(u"ready "_s) ? line.mid(6) : QString();
    }
    void Connect() {
        connection.ClosePort();
        connection.ConfigurePort(1);
        EXPECT_TRUE(connection.OpenPort());
    }
    /// The reply in hexadecimal digits; null without one.
    QByteArray Ask(char letter, int need, const QByteArray& arguments = {}) {
        const QByteArray list[] = {arguments};
        return connection.Exchange({letter, list, 0, need, std::chrono::seconds(9)})
                   ? connection.RxBuffer().toHex()
                   : QByteArray();
    }
    /// The exit status after the end, -1 when it crashed or didn't come.
    int End() {
        const bool ended = program.waitForFinished(kPatience);
        return ended && program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }

    QTemporaryDir dir;
    QString link = Path(u"ports/com1"_s);
    QProcess program;
    ComPorts ports{dir.path()};
    QtSerialPort port{ports};
    EventLoopClock clock;
    SerialConnection connection{port, clock};
};

TEST_F(WriterProgram, KeepsChipLogAndLinkOverHangUpsAndRuns) {
    ASSERT_TRUE(QDir(dir.path()).mkdir(u"ports"_s));
    ASSERT_TRUE(QFile::link(u"/dev/pts/99999"_s, link));  // left behind by a crash
    testing::PutFile(link + u".new"_s, "mine");
    const QString paths = u"--link %1 --state %2 "_s.arg(link, Path(u"state"_s));
    Start(paths + u"--device AT90S8515 --fault 5:wrong --fault 7:hang-up --log "_s +
          Path(u"log"_s));
    const QString terminal = Ready();
    ASSERT_FALSE(terminal.isEmpty()) << program.readAllStandardError().constData();
    EXPECT_EQ(QFile::symLinkTarget(link), terminal);
    QProcess second;
    second.start(program.program(), {u"--link"_s, link});
    EXPECT_TRUE(second.waitForFinished(kPatience) && second.exitCode() == 1);
    EXPECT_EQ(second.readAllStandardError(),
              u"tolvex-writer: %1 leads to %2 already\n"_s.arg(link, terminal).toUtf8());
    Connect();
    EXPECT_EQ(Ask('s', 3), "01931e");
    // The line is raw: bytes that a terminal would take for control characters or new lines.
    EXPECT_EQ(Ask('P', 1), "0d");
    EXPECT_EQ(Ask('A', 1, QByteArray("\x00\x0D", 2)), "0d");
    EXPECT_EQ(Ask('D', 1, "\x03"), "0d");
    EXPECT_EQ(Ask('d', 1), "3f");
    Connect();
    EXPECT_EQ(Ask('d', 1), "03") << "another client finds the board as the first left it";
    EXPECT_EQ(Ask('V', 2), QByteArray()) << "the line is dead";
    ASSERT_FALSE(Ready().isEmpty());
    Connect();
    EXPECT_EQ(Ask('V', 2), "3339");
    EXPECT_EQ(QString::fromUtf8(testing::Bytes(Path(u"log"_s))).split(u'\n').join(u", "),
              u"s -> 01 93 1E, P -> 0D, A 00 0D -> 0D, D 03 -> 0D, d -> 3F (wrong), d -> 03, "
              "V -> nothing (hang-up), V -> 33 39, "_s);
    program.terminate();
    EXPECT_EQ(End(), 0);
    EXPECT_FALSE(QFileInfo(link).isSymLink());
    EXPECT_EQ(testing::Bytes(link + u".new"_s), "mine");

    Start(paths + u"--baud 1200 --latency 60"_s);
    ASSERT_FALSE(Ready().isEmpty());
    Connect();
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(Ask('s', 3), "01931e") << "the next run has the same chip";
    EXPECT_GE(timer.nsecsElapsed(), 4 * 8'333'000) << "4 bytes of 8.33 ms each";
    for (int again = 0; again < 4; ++again, Ask('s', 3)) {
    }
    EXPECT_GE(timer.elapsed(), 4 * 60) << "the adapter hands over what has come every 60 ms";
    Ask('P', 1);
    Ask('A', 1, QByteArray("\x00\x0D", 2));
    EXPECT_EQ(Ask('d', 1), "03") << "and what was written into it";
}

TEST_F(WriterProgram, EndsWithTheTraceThatItPlays) {
    ASSERT_TRUE(QDir(dir.path()).mkpath(u"ports"_s));
    testing::PutFile(Path(u"trace"_s), "0 open COM1\n100 > 53\n300 < 41 42\n900 close\n");
    for (const bool departs : {false, true}) {
        Start(u"--link %1 --replay %2"_s.arg(link, Path(u"trace"_s)));
        ASSERT_FALSE(Ready().isEmpty());
        Connect();
        EXPECT_EQ(Ask('S', 2), "4142");
        departs ? void(port.Write("V")) : connection.ClosePort();
        EXPECT_EQ(End(), departs ? 1 : 0);
        EXPECT_EQ(program.readAllStandardError().contains("sent 56 after the end"), departs);
    }
}

TEST_F(WriterProgram, EndsAtOnceWhenItCannotWork) {
    ASSERT_EQ(SaveChip(SimulatedChip(ChipModels()[2]), Path(u"state"_s)), QString());
    testing::PutFile(Path(u"damaged"_s), "{");
    ASSERT_TRUE(QFile::link(u"/dev/null"_s, Path(u"adapter"_s)));
    const QString file = Path(u"damaged"_s);
    // clang-format off
    const struct { QString arguments; int status; QString complaint; } cases[] = {
        {u"--baud x"_s, 2, u"--baud is a number from 0 to 4000000"_s},
        {u"--fault 0:silent"_s, 2, u"--fault is K:KIND, such as 3:silent, and not 0:silent"_s},
        {u"--empty --device 1"_s, 2, u"--empty goes with neither --device nor --state"_s},
        {u"--log x --log y"_s, 2, u"--log was given twice"_s},
        {u"--device 99"_s, 2, u"--device: no such chip: 99"_s},
        {u"blink.hex"_s, 2, u"unknown argument: blink.hex"_s},
        {u"--device 8 --state "_s + Path(u"state"_s), 1,
         u"state file %1 holds a chip of another kind: AT90S2313"_s.arg(Path(u"state"_s))},
        {u"--state "_s + file, 1, u"state file "_s + file},
        {u"--link "_s + file, 1, file + u" is in the way: it is no symbolic link"_s},
        {u"--link "_s + Path(u"adapter"_s), 1, Path(u"adapter"_s) + u" leads to /dev/null already"_s},
    };
    // clang-format on
    for (const auto& c : cases) {
        Start(c.arguments);
        EXPECT_EQ(End(), c.status) << c.complaint.toStdString();
        const QString complaint = QString::fromUtf8(program.readAllStandardError());
        EXPECT_TRUE(complaint.startsWith(u"tolvex-writer: "_s + c.complaint))
            << complaint.toStdString();
    }
    EXPECT_EQ(testing::Bytes(file), "{") << "what wasn't understood is left alone";
    EXPECT_EQ(QFile::symLinkTarget(Path(u"adapter"_s)), u"/dev/null"_s);
}

}  // namespace
}  // namespace tolvex
