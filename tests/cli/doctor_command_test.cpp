// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>

#include "platform/settings_file.h"
#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

TEST(DoctorCommand, FindsTheCauseAndTheCommandThatMendsIt) {
    struct Case {
        std::function<void(CliBench&)> prepare;
        int status;
        const char* code;
        const char* command;
        bool login = false;  ///< a new one is needed
    };
    const auto facts = [](PortFacts port, bool refused = false) {
        return [=](CliBench& b) {
            b.facts = port;
            b.port.RefuseOpen(refused);
        };
    };
    const PortFacts held{
        .exists = true, .permitted = true, .holder = u"minicom"_s, .holderProcess = 4711};
    const Case cases[] = {
        {Nothing, kDone, "", ""},
        {facts({}), kNoPort, "portMissing", ""},
        {facts({.exists = true, .group = u"dialout"_s}), kNoPort, "portForbidden",
         "sudo usermod -aG dialout $USER", true},
        {facts({.exists = true, .group = u"dialout"_s, .member = true}), kNoPort, "portForbidden",
         "newgrp dialout", true},
        {facts({.exists = true}), kNoPort, "portForbidden", "sudo chmod a+rw /dev/ttyACM7"},
        {facts(held, true), kNoPort, "portBusy", "kill 4711"},
        {RefusePort, kNoPort, "portBusy", "sudo fuser -k /dev/ttyACM7"},
        {[](CliBench& b) { b.board.SetFaultFrom(9, FaultKind::Silent); }, kRefused, "writerSilent",
         "tolvex-cli --port /dev/ttyACM7 --trace trace.txt detect"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        CliBench b;
        c.prepare(b);
        EXPECT_EQ(b.Run("doctor --port COM20"), c.status);
        EXPECT_TRUE(b.Out().endsWith(QString::fromUtf8(c.command) + u'\n'))
            << b.Out().toStdString();
        EXPECT_EQ(b.Err().contains(u"ログインし直して"_s), c.login);
        EXPECT_EQ(b.RunJson("doctor --port COM20"), c.status);
        EXPECT_EQ(b.ErrorCode(), c.code);
        EXPECT_FALSE(b.port.IsOpen());
    }
}

TEST(DoctorCommand, TellsABoardThatStartsLateFromASilentOne) {
    CliBench b;
    b.board.SetFault(1, FaultKind::Silent);
    EXPECT_EQ(b.RunJson("doctor"), kRefused);
    EXPECT_EQ(b.ErrorCode(), "startedLate");
    EXPECT_EQ(b.RunJson("doctor"), kDone);
}

TEST(DoctorCommand, OffersADeviceThatIsThereInPlaceOfTheMissingOne) {
    CliBench b;
    ASSERT_TRUE(QDir(b.Path({})).mkdir(u"ports"_s));
    const QString link = b.Path(u"ports/com5"_s);
    ASSERT_TRUE(QFile::link(b.File(u"board"_s, {}), link));
    b.facts.exists = false;
    EXPECT_EQ(b.RunJson("doctor --port COM20"), kNoPort);
    EXPECT_EQ(b.Json()["mend"_L1].toString(),
              u"mkdir -p '%1' && ln -sfn %2 '%1/com20'"_s.arg(ConfigFolder() + u"/ports"_s, link));
}

TEST(DoctorCommand, NoticesAnAdapterThatHoldsBytesBack) {
    CliBench b;
    b.port.DelayReplies(std::chrono::milliseconds(16));
    EXPECT_EQ(b.RunJson("doctor --port COM5"), kRefused);
    EXPECT_EQ(b.ErrorCode(), "highLatency");
    EXPECT_EQ(b.Json()["mend"_L1].toString(),
              u"echo 1 | sudo tee /sys/bus/usb-serial/devices/ttyUSB0/latency_timer"_s);
    EXPECT_NEAR(b.Json()["roundTripMilliseconds"_L1].toDouble(), 16 + 3 * 10 / 19.2, 1);
}

}  // namespace
}  // namespace tolvex::testing
