// SPDX-License-Identifier: MIT
#include "port/port_remedy.h"
#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

TEST(DoctorCommand, SaysWhatHelpsOnWindows) {
    // Another port that the machine has, or where to look for one.
    const QString other = MissingPort(CliBench().comPorts, 20).command;
    const Fault slow = [](CliBench& b) { b.port.DelayReplies(std::chrono::milliseconds(16)); };
    const std::tuple<Fault, std::string, QString, QString> cases[] = {
        {kNothing, "0", u"COM20 "_s, {}},
        {Facts({}), "3 portMissing", u" はありません。"_s, other},
        {kBusy, "3 portBusy", u"ほかのプログラム"_s, u"taskmgr"_s},
        {slow, "1 highLatency", u"Latency Timer"_s, u"devmgmt.msc"_s},
    };
    for (const auto& [fault, outcome, text, fix] : cases) {
        CliBench b;
        fault(b);
        b.Run("doctor --port COM20");
        EXPECT_TRUE((b.Out() + b.Err()).contains(text)) << outcome;
        EXPECT_FALSE((b.Out() + b.Err()).contains(u"/dev"_s)) << outcome;
        EXPECT_EQ(b.Outcome("doctor --port COM20"), outcome);
        EXPECT_EQ(b.Json()["fix"_L1].toString(), fix) << outcome;
    }
}

}  // namespace
}  // namespace tolvex::testing
