// SPDX-License-Identifier: MIT
#include "base/settings_keys.h"

#include <gtest/gtest.h>

#include "tests/support/recorder.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(SettingsKeys, DamagedValuesReadAsTheDefault) {
    const struct {
        const char* what;
        NumberKey key;
        QString stored;
        double read;
    } cases[] = {
        {"whole", keys::MainLeft, u"-30000"_s, -30000},
        {"fraction", keys::MainLeft, u"12.5"_s, 12.5},
        {"words", keys::PgmWidth, u"wide"_s, 6900},
        {"empty", keys::PgmWidth, u""_s, 6900},
        {"not finite", keys::MainTop, u"inf"_s, 100},
        {"negative size", keys::MainHeight, u"-1"_s, 7900},
        {"device beyond the list", keys::Device, u"10"_s, 0},
        {"port beyond COM20", keys::ComNox, u"21"_s, 1},
        {"the same, asked whether one was chosen", keys::ComNoxChosen, u"21"_s, 0},
        {"flag of another number", keys::IndexComFlag, u"2"_s, 2},
    };
    for (const auto& c : cases) {
        testing::MemorySettings settings;
        settings.values[QString::fromLatin1(c.key.name)] = c.stored;
        EXPECT_EQ(GetNumber(settings, c.key), c.read) << c.what;
    }
}

}  // namespace
}  // namespace tolvex
