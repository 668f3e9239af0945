// SPDX-License-Identifier: MIT
#include <QDir>

#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

TEST(DoctorCommand, FindsTheCauseAndTheCommandThatFixesIt) {
    const PortFacts outside{.exists = true, .group = u"dialout"_s};
    const PortFacts noRule{.exists = true, .group = u"dialout"_s, .udevRule = UdevRule::Missing};
    const PortFacts member{.exists = true, .group = u"dialout"_s, .member = true};
    const PortFacts held{
        .exists = true, .permitted = true, .holder = DeviceHolder{u"minicom"_s, 4711}};
    const std::tuple<Fault, std::string, const char*> cases[] = {
        {kNothing, "0", ""},
        {Facts({}), "3 portMissing", ""},
        {Facts(outside), "3 portForbidden", "sudo usermod -aG dialout $USER"},
        {Facts(member), "3 portForbidden", "newgrp dialout"},
        {Facts(noRule), "3 portForbidden", "sudo usermod -aG dialout $USER"},
        {Facts({.exists = true}), "3 portForbidden", "sudo chmod a+rw /dev/ttyACM7"},
        {Facts({.exists = true, .permitted = true, .staleLockFile = u"/var/lock/LCK..ttyACM7"_s},
               false),
         "0", "sudo rm /var/lock/LCK..ttyACM7"},
        {Facts(held), "3 portBusy", "kill 4711"},
        {kBusy, "3 portBusy", "sudo fuser -v /dev/ttyACM7"},
        {Facts({.exists = true, .serial = false}), "3 noSerialPort", "tolvex-cli ports"},
        {[](CliBench& b) { kBusy(b), b.busy = false; }, "3 noSerialPort", "tolvex-cli ports"},
        {Spoil('T', FaultKind::Wrong, 1), "0", ""},
        {Spoil('T', FaultKind::Wrong), "1 commandRefused",
         "tolvex-cli --port /dev/ttyACM7 --trace trace.txt detect"},
        {[](CliBench& b) { b.board.SetFaultFrom(9, FaultKind::Silent); }, "1 writerSilent",
         "tolvex-cli --port /dev/ttyACM7 --trace trace.txt detect"},
    };
    for (const auto& [fault, outcome, command] : cases) {
        SCOPED_TRACE(outcome + command);
        CliBench b;
        fault(b);
        EXPECT_EQ(static_cast<int>(b.Run("doctor --port COM20")), outcome[0] - '0');
        EXPECT_TRUE(b.Out().endsWith(QString::fromUtf8(command) + u'\n')) << b.Out().toStdString();
        EXPECT_EQ(b.Err().contains(u"ログインし直して"_s), QByteArray(command).contains("dialout"));
        EXPECT_EQ(b.Err().contains(u"パッケージ"_s), b.facts.udevRule != UdevRule::NotForDevice);
        EXPECT_EQ(b.Outcome("doctor --port COM20"), outcome);
    }
}

TEST(DoctorCommand, QuotesWhatIsPasted) {
    CliBench b;
    Facts({.exists = true})(b);
    EXPECT_EQ(b.Run({u"doctor"_s, u"--port"_s, u"/tmp/a b;id %2'"_s}), ExitStatus::NoPort);
    EXPECT_TRUE(b.Out().contains(u"sudo chmod a+rw '/tmp/a b;id %2'\\'''\n"_s))
        << b.Out().toStdString();
}

TEST(DoctorCommand, OffersADeviceThatIsThereInPlaceOfTheMissingOne) {
    CliBench b;
    ASSERT_TRUE(QDir(b.Path({})).mkdir(u"ports"_s));
    const QString link = b.Path(u"ports/com5"_s);
    ASSERT_TRUE(QFile::link(b.File(u"board"_s, {}), link));
    b.facts.exists = false;
    EXPECT_EQ(b.Outcome("doctor --port COM20"), "3 portMissing");
    EXPECT_EQ(b.Json()["fix"_L1].toString(),
              u"mkdir -p %1 && ln -sfn %2 %1/com20"_s.arg(b.Path(u"ports"_s), link));
}

/// One that starts late, which isn't a silent one, and an adapter that holds bytes back.
TEST(DoctorCommand, NoticesABoardThatIsntInTime) {
    CliBench b;
    b.board.SetFault(1, FaultKind::Silent);
    EXPECT_EQ(b.Outcome("doctor"), "1 startedLate");
    EXPECT_EQ(b.Outcome("doctor"), "0");
    b.port.DelayReplies(std::chrono::milliseconds(16));
    EXPECT_EQ(b.Outcome("doctor --port COM5"), "1 highLatency");
    EXPECT_EQ(b.Json()["fix"_L1].toString(),
              u"echo 1 | sudo tee /sys/bus/usb-serial/devices/ttyUSB0/latency_timer"_s);
    EXPECT_NEAR(b.Json()["roundTripMilliseconds"_L1].toDouble(), 16 + 3 * 10 / 19.2, 1);
}

}  // namespace
}  // namespace tolvex::testing
