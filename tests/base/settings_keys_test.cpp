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
        {"words", keys::PgmWidth, u"wide"_s, 6900},
        {"not finite", keys::MainTop, u"inf"_s, 100},
        {"negative size", keys::MainHeight, u"-1"_s, 7900},
        {"port beyond COM20, asked whether one was chosen", keys::ComNoxChosen, u"21"_s, 0},
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
