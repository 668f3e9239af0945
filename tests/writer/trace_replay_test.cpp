// SPDX-License-Identifier: MIT
#include "writer/trace_replay.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

struct TraceReplayTest : ::testing::Test {
    QString Load(const QByteArray& text) {
        testing::PutFile(folder_.filePath(u"trace"_s), text);
        return replay_.Load(folder_.filePath(u"trace"_s));
    }

    QTemporaryDir folder_;
    TraceReplay replay_;
};

TEST_F(TraceReplayTest, AnswersAfterTheRecordedTimeOrInAHurryAtOnce) {
    const QByteArray trace =
        "0 open COM1\n100 > 41\n150 > 00 10\n900 < 0D\n1900 < 0A\n\n2000 > 53\n3000 lost\n";
    ASSERT_EQ(Load(trace), QString());
    replay_.Send(QByteArray("\x41\x00", 2), 5s);
    EXPECT_FALSE(replay_.NextDue().has_value()) << "not before the command is complete";
    replay_.Send("\x10", 6s);
    EXPECT_EQ(replay_.NextDue(), 6s + 750us);
    EXPECT_EQ(replay_.Run(6s + 749us).bytes, "");
    EXPECT_EQ(replay_.Run(6s + 750us).bytes, "\r");
    EXPECT_EQ(replay_.Run(6s + 1750us).bytes, "\n");
    replay_.Hurry();
    replay_.Send("\x53", 8s);
    EXPECT_FALSE(replay_.Ended());
    EXPECT_TRUE(replay_.Run(8s).hangUp);
    EXPECT_TRUE(replay_.Ended());
    EXPECT_EQ(replay_.Departure(), QString());
}

TEST_F(TraceReplayTest, TellsWhereThePcLeavesTheRecordAndRefusesWhatIsNone) {
    ASSERT_EQ(Load("0 > 53\n1000 < 41\n\n2000 > 56\n"), QString());
    replay_.Send("\x53", 0s);
    replay_.Send("\x76", 1s);
    EXPECT_EQ(replay_.Departure(), u"trace line 4: the PC sent 76 instead of 56"_s);
    for (const char* text :
         {"hello\n", "5\n", "x > 53\n", "5 > 5\n", "5 > GG\n", "5 >\n", "5 ? 53\n"}) {
        EXPECT_TRUE(Load(QByteArray("0 open COM1\n") + text).contains(u": line 2: "_s)) << text;
    }
    EXPECT_TRUE(replay_.Load(u"/no/such/trace"_s).startsWith(u"trace /no/such/trace: "_s));
}

}  // namespace
}  // namespace tolvex
