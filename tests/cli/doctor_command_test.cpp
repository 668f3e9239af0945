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
        QString code;
        QString command;
    };
    const Case cases[] = {
        {"healthy", [](CliBench&) {}, kDone, u"healthy"_s, {}},
        {"missing", [](CliBench& b) { b.facts.exists = false; }, kNoPort, u"missing"_s, {}},
        {"forbidden",
         [](CliBench& b) {
             b.facts.permitted = false;
             b.facts.group = u"dialout"_s;
         },
         kNoPort, u"noPermission"_s, u"sudo usermod -aG dialout $USER"_s},
        {"forbidden to the group too", [](CliBench& b) { b.facts.permitted = false; }, kNoPort,
         u"noPermission"_s, u"sudo chmod a+rw /dev/ttyACM7"_s},
        {"in use by a known program",
         [](CliBench& b) {
             b.port.RefuseOpen();
             b.facts.holder = u"minicom"_s;
             b.facts.holderProcess = 4711;
         },
         kNoPort, u"inUse"_s, u"kill 4711"_s},
        {"in use", [](CliBench& b) { b.port.RefuseOpen(); }, kNoPort, u"inUse"_s,
         u"sudo fuser -k /dev/ttyACM7"_s},
        {"silent", [](CliBench& b) { b.board.SetFaultFrom(1, FaultKind::Silent); }, kRefused,
         u"silent"_s, u"tolvex-cli --port /dev/ttyACM7 --trace trace.txt detect"_s},
        {"falls silent", [](CliBench& b) { b.board.SetFaultFrom(9, FaultKind::Silent); }, kRefused,
         u"silent"_s, u"tolvex-cli --port /dev/ttyACM7 --trace trace.txt detect"_s},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CliBench bench;
        const QStringList arguments{u"doctor"_s, u"--port"_s, u"COM20"_s};
        c.prepare(bench);
        EXPECT_EQ(bench.Run(arguments), c.status);
        EXPECT_TRUE(c.command.isEmpty() || bench.Out().endsWith(u"\n  %1\n"_s.arg(c.command)))
            << bench.Out().toStdString();
        EXPECT_EQ(bench.RunJson(arguments), c.status);
        EXPECT_EQ(bench.Json()["diagnosis"_L1].toString(), c.code);
        EXPECT_FALSE(bench.port.IsOpen());
    }
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

TEST(DoctorCommand, MeasuresTheRoundTrip) {
    CliBench bench;
    EXPECT_EQ(bench.RunJson({u"doctor"_s}), kDone);
    EXPECT_NEAR(bench.Json()["roundTripMilliseconds"_L1].toDouble(), 3 * 10 / 19.2, 0.01);
}

TEST(DoctorCommand, NoticesAnAdapterThatHoldsBytesBack) {
    CliBench bench;
    bench.port.DelayReplies(std::chrono::milliseconds(16));
    EXPECT_EQ(bench.RunJson({u"doctor"_s, u"--port"_s, u"COM5"_s}), kRefused);
    EXPECT_EQ(bench.Json()["diagnosis"_L1].toString(), u"highLatency"_s);
    EXPECT_EQ(bench.Json()["mend"_L1].toString(),
              u"echo 1 | sudo tee /sys/bus/usb-serial/devices/ttyUSB0/latency_timer"_s);
    EXPECT_GT(bench.Json()["roundTripMilliseconds"_L1].toDouble(), 16);
}

}  // namespace
}  // namespace tolvex::testing
