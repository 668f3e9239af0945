// SPDX-License-Identifier: MIT
#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include "writer/chip_state_file.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPatience = 20'000;  // ms, for a loaded machine

/// The program itself, started in an empty folder.
class WriterProgram : public ::testing::Test {
  protected:
    ~WriterProgram() override {
        Hang();
        program_.kill();
        program_.waitForFinished();
    }

    QString Path(const QString& name) const { return dir_.filePath(name); }

    void Start(const QStringList& arguments) {
        program_.start(QStringLiteral(TOLVEX_BIN_DIR "/tolvex-writer"), arguments);
    }

    /// The terminal of the next ready line; empty when the program ended instead.
    QString Ready() {
        while (!program_.canReadLine() && program_.waitForReadyRead(kPatience)) {
        }
        const QString line = QString::fromUtf8(program_.readLine()).trimmed();
        return line.startsWith(u"ready "_s) ? line.mid(6) : QString();
    }

    void Connect(const QString& terminal) {
        Hang();
        line_ = ::open(QFile::encodeName(terminal).constData(), O_RDWR | O_NOCTTY);
    }

    void Hang() {
        if (line_ >= 0) {
            ::close(line_);
            line_ = -1;
        }
    }

    /// Sends and collects `need` bytes; fewer when the line is dead.
    QByteArray Ask(const QByteArray& bytes, int need) {
        EXPECT_EQ(::write(line_, bytes.constData(), static_cast<size_t>(bytes.size())),
                  bytes.size());
        QByteArray reply;
        pollfd readable{line_, POLLIN, 0};
        while (reply.size() < need && ::poll(&readable, 1, kPatience) > 0) {
            char buffer[64];
            const ssize_t count = ::read(line_, buffer, sizeof buffer);
            if (count <= 0) {
                break;
            }
            reply.append(buffer, count);
        }
        return reply;
    }

    /// The exit status after the end, -1 when it crashed or didn't come.
    int End() {
        return program_.waitForFinished(kPatience) && program_.exitStatus() == QProcess::NormalExit
                   ? program_.exitCode()
                   : -1;
    }

    int Stop() {
        program_.terminate();
        return End();
    }

    QString Complaint() { return QString::fromUtf8(program_.readAllStandardError()).trimmed(); }

    QStringList Log() const {
        QFile file(Path(u"log"_s));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

  private:
    QTemporaryDir dir_;
    QProcess program_;
    int line_ = -1;
};

TEST_F(WriterProgram, KeepsChipLogAndLink) {
    Start({u"--link"_s, Path(u"com1"_s), u"--state"_s, Path(u"state"_s), u"--log"_s, Path(u"log"_s),
           u"--device"_s, u"AT90S8515"_s, u"--fault"_s, u"5:wrong"_s});
    const QString terminal = Ready();
    ASSERT_FALSE(terminal.isEmpty()) << Complaint().toStdString();
    EXPECT_EQ(QFile::symLinkTarget(Path(u"com1"_s)), terminal);
    Connect(Path(u"com1"_s));
    EXPECT_EQ(Ask("s", 3).toHex(), "01931e");
    // The line is raw: bytes that a terminal would take for control characters or new lines.
    EXPECT_EQ(Ask("P", 1), "\r");
    EXPECT_EQ(Ask(QByteArray("A\x00\x0D", 3), 1), "\r");
    EXPECT_EQ(Ask("D\x03", 1), "\r");
    EXPECT_EQ(Ask("d", 1), "?");
    Hang();
    Connect(Path(u"com1"_s));
    EXPECT_EQ(Ask("d", 1), "\x03") << "another client finds the board as the first left it";
    EXPECT_EQ(Log().join(u", ").toStdString(),
              "s -> 01 93 1E, P -> 0D, A 00 0D -> 0D, D 03 -> 0D, d -> 3F (wrong), d -> 03");
    EXPECT_EQ(Stop(), 0);
    EXPECT_FALSE(QFileInfo(Path(u"com1"_s)).isSymLink());
    EXPECT_EQ(LoadChip(Path(u"state"_s)).chip->Contents().eeprom[0x0D], 3);

    Start({u"--state"_s, Path(u"state"_s)});
    Connect(Ready());
    EXPECT_EQ(Ask("s", 3).toHex(), "01931e") << "the next run has the same chip";
    Ask("P", 1);
    Ask(QByteArray("A\x00\x0D", 3), 1);
    EXPECT_EQ(Ask("d", 1), "\x03");
}

TEST_F(WriterProgram, GivesBytesTheirTime) {
    Start({u"--baud"_s, u"1200"_s});
    Connect(Ready());
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(Ask("S", 7), "AVR ISP");
    EXPECT_GE(timer.nsecsElapsed(), 8 * 8'333'000) << "8 bytes of 8.33 ms each";
}

TEST_F(WriterProgram, ComesBackAfterAHangUp) {
    Start({u"--empty"_s, u"--link"_s, Path(u"com1"_s), u"--fault"_s, u"2:hang-up"_s});
    const QString first = Ready();
    Connect(first);
    EXPECT_EQ(Ask("V", 2), "39");
    EXPECT_EQ(Ask("P", 1), "") << "the line is dead";
    const QString second = Ready();
    EXPECT_EQ(QFile::symLinkTarget(Path(u"com1"_s)), second);
    Connect(second);
    EXPECT_EQ(Ask("V", 2), "39");
    EXPECT_EQ(Stop(), 0);
    EXPECT_FALSE(QFileInfo(Path(u"com1"_s)).isSymLink());
}

TEST_F(WriterProgram, ReplacesALinkButNothingElse) {
    ASSERT_TRUE(QFile::link(Path(u"nowhere"_s), Path(u"stale"_s)));
    Start({u"--link"_s, Path(u"stale"_s)});
    EXPECT_EQ(QFile::symLinkTarget(Path(u"stale"_s)), Ready());
    EXPECT_EQ(Stop(), 0);

    QFile file(Path(u"precious"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    Start({u"--link"_s, file.fileName()});
    EXPECT_EQ(End(), 1);
    EXPECT_EQ(Complaint(),
              u"tolvex-writer: %1 is in the way: it is no symbolic link"_s.arg(file.fileName()));
    EXPECT_TRUE(QFile::exists(file.fileName()));
}

TEST_F(WriterProgram, LeavesALinkThatAnotherBoardTookOver) {
    Start({u"--link"_s, Path(u"com1"_s)});
    ASSERT_FALSE(Ready().isEmpty());
    ASSERT_TRUE(QFile::remove(Path(u"com1"_s)));
    ASSERT_TRUE(QFile::link(Path(u"other"_s), Path(u"com1"_s)));
    EXPECT_EQ(Stop(), 0);
    EXPECT_TRUE(QFileInfo(Path(u"com1"_s)).isSymLink());
}

TEST_F(WriterProgram, EndsAtOnceWhenItCannotWork) {
    ASSERT_EQ(SaveChip(SimulatedChip(ChipModels()[2]), Path(u"state"_s)), QString());
    QFile damaged(Path(u"damaged"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("{");
    damaged.close();
    struct Case {
        QStringList arguments;
        int status;
        QString complaint;
    };
    const Case cases[] = {
        {{u"--baud"_s, u"x"_s}, 2, u"--baud is a number from 0 to 4000000"_s},
        {{u"--state"_s, Path(u"state"_s), u"--device"_s, u"8"_s},
         1,
         u"state file %1 holds a chip of another kind: AT90S2313"_s.arg(Path(u"state"_s))},
        {{u"--state"_s, damaged.fileName()}, 1, u"state file "_s + damaged.fileName()},
        {{u"--state"_s, Path(u"no/state"_s)}, 1, u"state file "_s + Path(u"no/state"_s)},
        {{u"--log"_s, Path(u"no/log"_s)}, 1, u"log file "_s + Path(u"no/log"_s)},
    };
    for (const Case& c : cases) {
        Start(c.arguments);
        EXPECT_EQ(End(), c.status);
        EXPECT_TRUE(Complaint().startsWith(u"tolvex-writer: "_s + c.complaint))
            << c.complaint.toStdString();
    }
    ASSERT_TRUE(damaged.open(QIODevice::ReadOnly));
    EXPECT_EQ(damaged.readAll(), "{") << "a file that wasn't understood is left alone";
}

}  // namespace
}  // namespace tolvex

#endif
