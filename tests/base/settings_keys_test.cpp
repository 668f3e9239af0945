// SPDX-License-Identifier: MIT
#include "base/settings_keys.h"

#include <gtest/gtest.h>

#include "tests/support/recorder.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(SettingsKeys, DamagedValuesReadAsTheDefault) {
    const std::tuple<const char*, NumberKey, QString, double> cases[] = {
        {"words", keys::PgmWidth, u"wide"_s, 6900},
        {"not finite", keys::MainTop, u"inf"_s, 100},
        {"negative size", keys::MainHeight, u"-1"_s, 7900},
        {"port beyond COM20, asked whether one was chosen", keys::ComNoxChosen, u"21"_s, 0},
        {"flag of another number", keys::IndexComFlag, u"2"_s, 2},
    };
    for (const auto& [what, key, stored, read] : cases) {
        testing::MemorySettings settings;
        settings.values[QString::fromLatin1(key.name)] = stored;
        EXPECT_EQ(GetNumber(settings, key), read) << what;
    }
}

}  // namespace
}  // namespace tolvex
