// SPDX-License-Identifier: MIT
#include "writer/trace_replay.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TraceReplayTest : public ::testing::Test {
  protected:
    QString Load(const QByteArray& text) {
        QFile file(folder_.filePath(u"trace"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        return replay_.Load(file.fileName());
    }

    TraceReplay replay_;

  private:
    QTemporaryDir folder_;
};

TEST_F(TraceReplayTest, AnswersAfterTheRecordedTime) {
    ASSERT_EQ(
        Load("0 open COM1\n100 > 41\n150 > 00 10\n900 < 0D\n1900 < 0A\n2000 > 53\n3000 close\n"),
        QString());
    replay_.Send(QByteArray("\x41\x00", 2), 5s);
    EXPECT_FALSE(replay_.NextDue().has_value()) << "not before the command is complete";
    replay_.Send("\x10", 6s);
    EXPECT_EQ(replay_.NextDue(), 6s + 750us);
    EXPECT_EQ(replay_.Run(6s + 749us).bytes, "");
    EXPECT_EQ(replay_.Run(6s + 750us).bytes, "\r");
    EXPECT_EQ(replay_.Run(6s + 1750us).bytes, "\n");
    replay_.Send("\x53", 8s);
    EXPECT_FALSE(replay_.NextDue().has_value()) << "a silence is played too";
    EXPECT_EQ(replay_.Departure(), QString());
}

TEST_F(TraceReplayTest, InAHurryAnswersAtOnceAndHangsUpLast) {
    ASSERT_EQ(Load("0 > 53\n1000 < 41\n2000 lost\n"), QString());
    replay_.Hurry();
    replay_.Send("\x53", 1s);
    const auto events = replay_.Run(1s);
    EXPECT_EQ(events.bytes, "\x41");
    EXPECT_TRUE(events.hangUp);
}

TEST_F(TraceReplayTest, TellsWhereThePcLeavesTheRecord) {
    ASSERT_EQ(Load("0 > 53\n1000 < 41\n\n2000 > 56\n"), QString());
    replay_.Send("\x53", 0s);
    replay_.Send("\x76", 1s);
    EXPECT_EQ(replay_.Departure(), u"trace line 4: the PC sent 76 instead of 56"_s);
}

TEST_F(TraceReplayTest, TellsOfBytesAfterTheEnd) {
    ASSERT_EQ(Load("0 > 53\n"), QString());
    replay_.Send("\x53\x56", 0s);
    EXPECT_EQ(replay_.Departure(), u"the PC sent 56 after the end of the trace"_s);
}

TEST_F(TraceReplayTest, RefusesWhatIsNoTrace) {
    const char* const cases[] = {"hello\n",  "5\n",   "x > 53\n", "5 > 5\n",
                                 "5 > GG\n", "5 >\n", "5 ? 53\n"};
    for (const char* text : cases) {
        SCOPED_TRACE(text);
        EXPECT_TRUE(Load(QByteArray("0 open COM1\n") + text).contains(u": line 2: "_s));
    }
    EXPECT_TRUE(replay_.Load(u"/no/such/trace"_s).startsWith(u"trace /no/such/trace: "_s));
}

}  // namespace
}  // namespace tolvex
