// SPDX-License-Identifier: MIT
#include "firmware/simulator/chip_rules.h"

namespace tolvex {

using namespace std::chrono_literals;

namespace {

constexpr BusyValues k7F7F{0x7F, 0x7F};
constexpr BusyValues k807F{0x80, 0x7F};
constexpr BusyValues kFFFF{0xFF, 0xFF};
constexpr BusyValues k00FF{0x00, 0xFF};

struct Row {
    int size, family;  ///< the signature's second and third byte
    ChipRules rules;
};

// The AT90S2323's data sheet has no values for polling; it is the AT90S2343 with other pins.
// clang-format off
constexpr Row kRows[] = {
    //           Flash  EEPROM  byte, low    bits, low   erase SCK    echoes
    {0x90, 0x01, {kFFFF, k00FF, 4ms, 9ms,  9ms, 20ms, 20ms, 4, 1, false}},  // AT90S1200
    {0x91, 0x01, {k7F7F, k807F, 4ms, 9ms,  9ms, 20ms, 20ms, 2, 2, true}},   // AT90S2313
    {0x91, 0x02, {kFFFF, k00FF, 9ms, 20ms, 9ms, 20ms, 20ms, 2, 2, true}},   // AT90S2323
    {0x91, 0x05, {kFFFF, k00FF, 9ms, 20ms, 9ms, 20ms, 20ms, 2, 2, true}},   // AT90S2333
    {0x91, 0x03, {kFFFF, k00FF, 9ms, 20ms, 9ms, 20ms, 20ms, 2, 2, true}},   // AT90S2343
    {0x92, 0x01, {k7F7F, k807F, 4ms, 9ms,  9ms, 20ms, 20ms, 2, 2, true}},   // AT90S4414
    {0x92, 0x03, {kFFFF, k00FF, 9ms, 20ms, 9ms, 20ms, 20ms, 2, 2, true}},   // AT90S4433
    {0x93, 0x01, {k7F7F, k807F, 4ms, 9ms,  9ms, 20ms, 20ms, 2, 2, true}},   // AT90S8515
    {0x93, 0x03, {kFFFF, k00FF, 9ms, 20ms, 9ms, 20ms, 20ms, 2, 2, true}},   // AT90S8535
};
// clang-format on

}  // namespace

ChipRules RulesOf(const ChipModel& model) {
    for (const Row& row : kRows) {
        if (model.signature[1] == row.size && model.signature[2] == row.family) {
            return row.rules;
        }
    }
    Q_ASSERT_X(false, "RulesOf", "a chip without a row");
    return kRows[0].rules;
}

}  // namespace tolvex
