// SPDX-License-Identifier: MIT
// The tool programs chips through the firmware that would be burnt, in simulated time.
#include <random>

#include "cli/exit_status.h"
#include "tests/firmware/firmware_bench.h"
#include "tests/support/real_files.h"

namespace tolvex::testing {
namespace {

/// All values, and among them more of those that can't be polled.
QByteArray RandomBytes(int count, unsigned seed) {
    static constexpr std::uint8_t kAwkward[] = {0x00, 0x7F, 0x80, 0xFF};
    std::mt19937 random(seed);
    QByteArray bytes;
    while (bytes.size() < count) {
        const auto value = random();
        bytes += static_cast<char>(value % 16 == 0 ? kAwkward[value / 16 % 4] : value / 16);
    }
    return bytes;
}

/// Blank but for both ends, since writing is what takes time.
QByteArray Flash(const ChipModel& model) {
    constexpr int kEnd = 150;
    QByteArray bytes = RandomBytes(2 * model.flashWords, 1);
    const qsizetype blank = bytes.size() - 2 * kEnd;
    return bytes.replace(kEnd, blank, QByteArray(blank, '\xFF'));
}

int ProgramAndVerify(FirmwareBench& tool) {
    const ChipModel& model = tool.chip.Model();
    const QString code = tool.Path(u"code.hex"_s), data = tool.Path(u"data.eep"_s);
    const QByteArray flash = Flash(model), eeprom = RandomBytes(model.eepromBytes, 2);
    EXPECT_TRUE(bench::WriteHex(code, flash) && bench::WriteHex(data, eeprom));
    const int status = tool.Run({u"program"_s, code, data});
    EXPECT_EQ(tool.chip.Contents().flash, flash) << tool.words;
    EXPECT_EQ(tool.chip.Contents().eeprom, eeprom) << tool.words;
    return status;
}

class EveryChip : public ::testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Firmware, EveryChip,
                         ::testing::Range(0, static_cast<int>(ChipModels().size())));

TEST_P(EveryChip, IsProgrammedReadLockedAndErased) {
    FirmwareBench tool(GetParam());
    const ChipModel& model = tool.chip.Model();
    EXPECT_EQ(tool.Run({u"detect"_s}), kDone) << tool.words;
    EXPECT_EQ(ProgramAndVerify(tool), kDone) << tool.words;
    const QString code = tool.Path(u"r.hex"_s), data = tool.Path(u"r.eep"_s);
    EXPECT_EQ(tool.Run({u"read"_s, code, data}), kDone) << tool.words;
    EXPECT_EQ(Bytes(code), Bytes(tool.Path(u"code.hex"_s)));
    EXPECT_EQ(Bytes(data), Bytes(tool.Path(u"data.eep"_s)));

    EXPECT_EQ(tool.Run({u"lock"_s, u"full"_s}), kDone);
    EXPECT_TRUE(tool.chip.ReadLocked());
    EXPECT_EQ(tool.Run({u"detect"_s}), kRefused) << "locked";
    EXPECT_EQ(tool.Run({u"erase"_s}), kDone) << tool.words;
    EXPECT_EQ(tool.Run({u"detect"_s}), kDone);
    EXPECT_EQ(tool.chip.Contents().flash, QByteArray(2 * model.flashWords, '\xFF'));
    EXPECT_EQ(tool.chip.Contents().lock, 0xFF);
}

TEST(Firmware, CopesWithChipsAsTheyAre) {
    constexpr int k1200 = 0, k2313 = 2, k2323 = 3, k4433 = 7;
    const std::tuple<const char*, int, ChipOptions> cases[] = {
        {"slow clock", k1200, {.ownClockHertz = 500'000}},
        {"lowest supply", k2313, {.lowSupply = true}},
        {"lowest supply, zero can't be polled", k2323, {.lowSupply = true}},
        {"first enable missed", k2323, {.missedClocks = 1}},
        {"several enables missed", k4433, {.missedClocks = 3}},
    };
    for (const auto& [name, chip, options] : cases) {
        SCOPED_TRACE(name);
        FirmwareBench tool(chip, options);
        EXPECT_EQ(ProgramAndVerify(tool), kDone) << tool.words;
    }
}

}  // namespace
}  // namespace tolvex::testing
