// SPDX-License-Identifier: MIT
#include "image/data_file_name.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(DataFileName, ThreeCharactersGiveWayAndAMissingFileIsLookedForInOtherCase) {
    const struct {
        QString chosen;
        QStringList there;
        QString found;
    } cases[] = {
        // clang-format off
        {u"blink.html"_s, {}, u"blink.heep"_s},
        {u"x.EEP"_s, {}, u"x.EEP"_s},
        {u"𠮷.hex"_s, {}, u"𠮷.eep"_s},
        {u"x𠮷𠮷𠮷"_s, {}, u"xeep"_s},
        {u"𠮷ab"_s, {}, u"eep"_s},
        {u".h"_s, {}, u"eep"_s},
        {u"BLINK.HEX"_s, {u"BLINK.EEP"_s, u"BLINK.EEPS"_s}, u"BLINK.EEP"_s},
        {u"BLINK.HEX"_s, {u"BLINK.EEP"_s, u"BLINK.eep"_s}, u"BLINK.eep"_s},
        {u"blink.hex"_s, {u"BLINK.EEP"_s, u"blink.EEP"_s}, u"blink.EEP"_s},
        {u"[a]*.hex"_s, {u"[A]*.EEP"_s}, u"[A]*.EEP"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        const QTemporaryDir folder;
        for (const QString& name : c.there) {
            testing::PutFile(folder.filePath(name), "x");
        }
        EXPECT_EQ(FindDataFile(folder.filePath(c.chosen)), folder.filePath(c.found));
    }
}

}  // namespace
}  // namespace tolvex
