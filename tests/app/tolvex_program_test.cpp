// SPDX-License-Identifier: MIT
// The program itself, as a process without a screen.
#include <gtest/gtest.h>
#include <signal.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "tests/support/real_files.h"

namespace tolvex::testing {
namespace {

constexpr int kTimeOut = 20'000;  // ms, for a loaded machine

TEST(TolvexProgram, IgnoresArgumentsAndEndsInOrderWhenTheSystemAsks) {
    // The last row ends under the port dialog of a first start.
    for (const auto& [number, flag] : {std::pair(SIGTERM, '1'), {SIGINT, '1'}, {SIGHUP, '0'}}) {
        ::signal(number, SIG_DFL);  // nohup has ignored it, which a program inherits
        QTemporaryDir dir;  // with a copy of the program, because its listings lie beside it
        const auto bytes = [&dir](const QString& name) { return Bytes(dir.filePath(name)); };
        QFile::copy(QStringLiteral(TOLVEX_BIN_DIR "/tolvex"), dir.filePath(u"tolvex"_s));
        QDir(dir.path()).mkpath(u"Tolvex"_s);
        PutFile(dir.filePath(u"Tolvex/Tolvex.conf"_s),
                QByteArray("[Settings]\nIndex_First_Flag=1\ndevice=2\nMainLeft=3000\n") +
                    "Index_Com_Flag=" + flag);
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        for (const QString& folder :
             {u"XDG_CONFIG_HOME"_s, u"XDG_RUNTIME_DIR"_s, u"TMPDIR"_s, u"HOME"_s}) {
            environment.insert(folder, dir.path());
        }
        QProcess program, second;
        for (QProcess* one : {&program, &second}) {
            one->setProcessEnvironment(environment);
            one->setProgram(dir.filePath(u"tolvex"_s));
            one->setArguments({u"-platform"_s, u"none"_s, u"-qwindowgeometry"_s, u"99x99"_s});
        }
        program.start();
        ASSERT_TRUE(program.waitForStarted());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !bytes(u"avreep.txt"_s).isEmpty(); }, kTimeOut));
        EXPECT_EQ(bytes(u"avrhex.txt"_s).count('\n'), 128);
        second.start();  // one at a time
        EXPECT_TRUE(second.waitForFinished(kTimeOut) && second.exitCode() == 0);
        ::kill(static_cast<pid_t>(program.processId()), number);
        ASSERT_TRUE(program.waitForFinished(kTimeOut)) << number;
        EXPECT_TRUE(program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0);
        for (const char* line : {"MainLeft=3000", "MainWidth=11295", "SetTop=45"}) {
            EXPECT_TRUE(bytes(u"Tolvex/Tolvex.conf"_s).contains(line)) << number << line;
        }
        EXPECT_TRUE(bytes(u"avrhex.txt"_s).isEmpty());
    }
}

}  // namespace
}  // namespace tolvex::testing
