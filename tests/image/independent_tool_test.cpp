// SPDX-License-Identifier: MIT
// Another tool's opinion of the files that the program writes.
#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>

#include "device/catalogue.h"
#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::Chosen;
using testing::TestBench;

TEST(IndependentTool, AgreesThatAChipReadBackAndSavedIsWhatWasProgrammed) {
    const QString srecCmp = QStandardPaths::findExecutable(u"srec_cmp"_s);
    if (srecCmp.isEmpty()) {
        GTEST_SKIP() << "srec_cmp (Debian: srecord) is not installed";
    }
    for (int index = 0; index < static_cast<int>(Catalogue().size()); ++index) {
        TestBench b(index);
        b.FillImages(static_cast<unsigned>(index + 100));
        const QString source = b.folder.filePath(u"source.hex"_s);
        const QString readBack = b.folder.filePath(u"readback.hex"_s);
        b.person.fileAnswers = {Chosen(source), Chosen(readBack)};
        b.bench.toolbar.Click(u"Save");
        b.bench.toolbar.Click(u"Program");
        b.bench.toolbar.Click(u"Clear");
        b.bench.toolbar.Click(u"Read");
        b.bench.toolbar.Click(u"Save");
        for (const QString& suffix : {u"hex"_s, u"eep"_s}) {
            const int same = QProcess::execute(
                srecCmp, {b.folder.filePath(u"source."_s + suffix), u"-intel"_s,
                          b.folder.filePath(u"readback."_s + suffix), u"-intel"_s});
            EXPECT_EQ(same, 0) << b.bench.state.device.name.toStdString();
        }
    }
}

}  // namespace
}  // namespace tolvex
