// SPDX-License-Identifier: MIT
// The program itself, as a process without a screen.
#include <gtest/gtest.h>
#include <signal.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPatience = 20'000;  // ms, for a loaded machine

struct TolvexProgram : ::testing::Test {
    TolvexProgram() {
        // A copy: the listings of this run lie beside it.
        QFile::copy(QStringLiteral(TOLVEX_BIN_DIR "/tolvex"), Path(u"tolvex"_s));
        QDir(dir.path()).mkpath(u"Tolvex"_s);
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        for (const char* folder : {"XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR", "HOME"}) {
            environment.insert(QString::fromLatin1(folder), dir.path());
        }
        program.setProcessEnvironment(environment);
    }
    ~TolvexProgram() override {
        program.kill();
        program.waitForFinished();
    }
    QString Path(const QString& name) const { return dir.filePath(name); }
    QByteArray Settings() const { return testing::Bytes(Path(u"Tolvex/Tolvex.conf"_s)); }
    /// Starts it and waits until `ready` says so.
    bool Start(const QByteArray& settings, const QStringList& arguments,
               std::function<bool()> ready) {
        testing::PutFile(Path(u"Tolvex/Tolvex.conf"_s), "[Settings]\n" + settings);
        program.start(Path(u"tolvex"_s), arguments);
        QElapsedTimer waited;
        waited.start();
        while (program.waitForStarted() && !ready() && waited.elapsed() < kPatience) {
            QThread::msleep(10);
        }
        return ready();
    }

    QTemporaryDir dir;
    QProcess program;
};

TEST_F(TolvexProgram, EndsInOrderWhenTheSystemAsks) {
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        const bool started =
            Start("Index_First_Flag=1\nIndex_Com_Flag=1\ndevice=2\nMainLeft=3000\n",
                  {u"-platform"_s, u"none"_s, u"-qwindowgeometry"_s, u"99x99+1+1"_s, u"x.hex"_s},
                  [this] { return QFile::exists(Path(u"avreep.txt"_s)); });
        ASSERT_TRUE(started) << program.readAllStandardError().toStdString();
        EXPECT_EQ(testing::Bytes(Path(u"avrhex.txt"_s)).count('\n'), 128);
        QThread::msleep(200);  // into the event loop
        ::kill(static_cast<pid_t>(program.processId()), number);
        ASSERT_TRUE(program.waitForFinished(kPatience));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << number;
        EXPECT_EQ(program.exitCode(), 0) << number;
        EXPECT_TRUE(Settings().contains("MainLeft=3000") && Settings().contains("SetTop=45"));
        EXPECT_TRUE(Settings().contains("MainWidth=11295"));
        EXPECT_FALSE(QFile::exists(Path(u"avrhex.txt"_s)));
    }
}

TEST_F(TolvexProgram, EndsUnderAModalDialogToo) {
    // The board panel is the first thing that a first start shows, and the list of devices the
    // last.
    ASSERT_TRUE(Start("", {}, [this] { return program.state() == QProcess::Running; }));
    QThread::msleep(1500);
    QProcess second;
    second.setProcessEnvironment(program.processEnvironment());
    second.start(Path(u"tolvex"_s), QStringList());
    EXPECT_TRUE(second.waitForFinished(kPatience) && second.exitCode() == 0);  // one at a time
    ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
    ASSERT_TRUE(program.waitForFinished(kPatience));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_TRUE(Settings().contains("MainTop="));
    EXPECT_FALSE(Settings().contains("Index_Com_Flag"));
}

}  // namespace
}  // namespace tolvex
