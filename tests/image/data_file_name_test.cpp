// SPDX-License-Identifier: MIT
#include "image/data_file_name.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(DataFileName, ThreeCharactersGiveWay) {
    const std::pair<QString, QString> cases[] = {
        {u"/a/blink.hex"_s, u"/a/blink.eep"_s},
        {u"/a/blink.html"_s, u"/a/blink.heep"_s},
        {u"/a/x.EEP"_s, u"/a/x.EEP"_s},
        {u"/a/𠮷.hex"_s, u"/a/𠮷.eep"_s},
        {u"/a/𠮷ab"_s, u"/a/eep"_s},
        {u"/a/x𠮷𠮷𠮷"_s, u"/a/xeep"_s},
        {u"/a/.h"_s, u"/a/eep"_s},
        {u"𠮷"_s, u"eep"_s},
    };
    for (const auto& [chosen, data] : cases) {
        EXPECT_EQ(DataFileNameFor(chosen), data) << chosen.toStdString();
    }
}

TEST(DataFileName, AMissingFileIsLookedForInOtherCase) {
    const struct {
        QString chosen;
        QStringList there;
        QString found;
    } cases[] = {
        {u"BLINK.HEX"_s, {u"BLINK.EEP"_s, u"BLINK.EEPS"_s}, u"BLINK.EEP"_s},
        {u"BLINK.HEX"_s, {u"BLINK.EEP"_s, u"BLINK.eep"_s}, u"BLINK.eep"_s},
        {u"blink.hex"_s, {u"BLINK.EEP"_s, u"blink.EEP"_s}, u"blink.EEP"_s},
        {u"blink.hex"_s, {u"BLINK.HEX"_s}, u"blink.eep"_s},
        {u"[a]*.hex"_s, {u"[A]*.EEP"_s}, u"[A]*.EEP"_s},
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
