// SPDX-License-Identifier: MIT
#include "writer/paced_board.h"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

using namespace std::chrono_literals;

TEST(PacedBoard, KeepsToTheWireHoweverLateItIsRun) {
    SimulatedWriter writer(nullptr);
    PacedBoard board(writer, 10'000);  // a byte a millisecond
    EXPECT_EQ(board.NextDue(), std::nullopt);
    board.Send("V", 5ms);
    EXPECT_EQ(board.NextDue(), 6ms);
    EXPECT_TRUE(board.Run(5ms).commands.isEmpty());
    PacedBoard::Events events = board.Run(7500us);
    EXPECT_EQ(events.commands.size(), 1);
    EXPECT_EQ(events.bytes, "3") << "the command ended at 6 ms, whenever that was noticed";
    EXPECT_EQ(events.lastByte, 7ms);
    EXPECT_EQ(board.NextDue(), 8ms);
    EXPECT_EQ(board.Run(20ms).bytes, "9");
    EXPECT_EQ(board.NextDue(), std::nullopt);
}

TEST(PacedBoard, QueuesBytesBehindEachOther) {
    SimulatedWriter writer(nullptr);
    PacedBoard board(writer, 10'000);
    board.Send("SV", 0ms);
    EXPECT_EQ(board.Run(2ms).commands.size(), 2) << "the line works both ways at once";
    EXPECT_EQ(board.Run(9ms).bytes, "VR ISP3");
    EXPECT_EQ(board.Run(10ms).bytes, "9");
}

TEST(PacedBoard, LosesWhatIsUnderWayWhenTheFarEndGoes) {
    SimulatedWriter writer(nullptr);
    writer.SetFault(1, FaultKind::HangUp);
    PacedBoard board(writer, 10'000);
    board.Send("PV", 0ms);
    EXPECT_FALSE(board.Run(1ms).hangUp);
    const PacedBoard::Events events = board.Run(9ms);
    EXPECT_TRUE(events.hangUp);
    EXPECT_EQ(events.bytes, "");
    EXPECT_EQ(board.NextDue(), std::nullopt);
    board.Send("V", 9ms);
    EXPECT_EQ(board.Run(12ms).bytes, "39");
}

}  // namespace
}  // namespace tolvex
