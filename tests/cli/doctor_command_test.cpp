// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>

#include "platform/settings_file.h"
#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

TEST(DoctorCommand, FindsTheCauseAndTheCommandThatMendsIt) {
    struct Case {
        const char* what;
        std::function<void(CliBench&)> prepare;
        int status;
        std::string code;
        QString command;
        bool login;  ///< a new one is needed
    };
    const QString trace = u"tolvex-cli --port /dev/ttyACM7 --trace trace.txt detect"_s;
    const Case cases[] = {
        {"healthy", [](CliBench&) {}, kDone, {}, {}, false},
        {"missing", [](CliBench& b) { b.facts.exists = false; }, kNoPort, "portMissing", {}, false},
        {"forbidden", [](CliBench& b) { b.facts = {.exists = true, .group = u"dialout"_s}; },
         kNoPort, "portForbidden", u"sudo usermod -aG dialout $USER"_s, true},
        {"forbidden until the next login",
         [](CliBench& b) { b.facts = {.exists = true, .group = u"dialout"_s, .member = true}; },
         kNoPort, "portForbidden", u"newgrp dialout"_s, true},
        {"forbidden to the group too", [](CliBench& b) { b.facts.permitted = false; }, kNoPort,
         "portForbidden", u"sudo chmod a+rw /dev/ttyACM7"_s, false},
        {"in use by a known program",
         [](CliBench& b) {
             b.port.RefuseOpen();
             b.facts.holder = u"minicom"_s;
             b.facts.holderProcess = 4711;
         },
         kNoPort, "portBusy", u"kill 4711"_s, false},
        {"in use", [](CliBench& b) { b.port.RefuseOpen(); }, kNoPort, "portBusy",
         u"sudo fuser -k /dev/ttyACM7"_s, false},
        {"falls silent", [](CliBench& b) { b.board.SetFaultFrom(9, FaultKind::Silent); }, kRefused,
         "writerSilent", trace, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CliBench bench;
        const QStringList arguments{u"doctor"_s, u"--port"_s, u"COM20"_s};
        c.prepare(bench);
        EXPECT_EQ(bench.Run(arguments), c.status);
        EXPECT_TRUE(c.command.isEmpty() || bench.Out().endsWith(u"  %1\n"_s.arg(c.command)))
            << bench.Out().toStdString();
        EXPECT_EQ(bench.Err().contains(u"ログインし直して"_s), c.login);
        EXPECT_EQ(bench.RunJson(arguments), c.status);
        EXPECT_EQ(bench.ErrorCode(), c.code);
        EXPECT_FALSE(bench.port.IsOpen());
    }
}

TEST(DoctorCommand, TellsABoardThatStartsLateFromASilentOne) {
    CliBench bench;
    bench.board.SetFault(1, FaultKind::Silent);
    EXPECT_EQ(bench.RunJson({u"doctor"_s}), kRefused);
    EXPECT_EQ(bench.Json()["diagnosis"_L1].toString(), u"startedLate"_s);
    EXPECT_EQ(bench.RunJson({u"doctor"_s}), kDone);
}

TEST(DoctorCommand, OffersADeviceThatIsThereInPlaceOfTheMissingOne) {
    CliBench bench;
    const QString other = bench.File(u"board"_s, {});
    ASSERT_TRUE(QDir(bench.Path({})).mkdir(u"ports"_s));
    const QString link = bench.Path(u"ports/com5"_s);
    ASSERT_TRUE(QFile::link(other, link));
    bench.facts.exists = false;
    EXPECT_EQ(bench.RunJson({u"doctor"_s, u"--port"_s, u"COM20"_s}), kNoPort);
    const QString folder = ConfigFolder() + u"/ports"_s;
    EXPECT_EQ(bench.Json()["mend"_L1].toString(),
              u"mkdir -p '%1' && ln -sfn %2 '%1/com20'"_s.arg(folder, link));
}

TEST(DoctorCommand, NoticesAnAdapterThatHoldsBytesBack) {
    CliBench bench;
    bench.port.DelayReplies(std::chrono::milliseconds(16));
    EXPECT_EQ(bench.RunJson({u"doctor"_s, u"--port"_s, u"COM5"_s}), kRefused);
    EXPECT_EQ(bench.ErrorCode(), "highLatency");
    EXPECT_EQ(bench.Json()["mend"_L1].toString(),
              u"echo 1 | sudo tee /sys/bus/usb-serial/devices/ttyUSB0/latency_timer"_s);
    EXPECT_NEAR(bench.Json()["roundTripMilliseconds"_L1].toDouble(), 16 + 3 * 10 / 19.2, 1);
}

}  // namespace
}  // namespace tolvex::testing
