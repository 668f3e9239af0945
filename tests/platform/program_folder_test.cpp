// SPDX-License-Identifier: MIT
#include "platform/program_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

class ProgramFolderTest : public ::testing::Test {
  protected:
    ~ProgramFolderTest() override { QDir::setCurrent(before_); }

    QString before_ = QDir::currentPath();
    QTemporaryDir folder_;
};

TEST_F(ProgramFolderTest, AWritableProgramFolderTakesTheListings) {
    const QString program = folder_.path();
    for (const QString& given : {program, program + u'/'}) {
        const ProgramFolder found = EnterProgramFolder(given, folder_.filePath(u"user"_s));
        EXPECT_EQ(found.appDir.program, program + u'/');
        EXPECT_EQ(found.appDir.listings, program + u'/');
        EXPECT_TRUE(found.isCurrent);
        EXPECT_TRUE(found.canWriteListings);
    }
    EXPECT_EQ(QDir::currentPath(), QDir(program).canonicalPath());
    EXPECT_TRUE(QDir(program).isEmpty()) << "the trial left something behind";
}

TEST_F(ProgramFolderTest, ListingsOfAReadOnlyProgramGoToTheUsersFolder) {
    // Nobody can create files in /proc, whatever its permission bits say to root.
    const QString user = folder_.filePath(u"deep/user"_s);
    const ProgramFolder found = EnterProgramFolder(u"/proc"_s, user);
    EXPECT_EQ(found.appDir.program, u"/proc/"_s);
    EXPECT_EQ(found.appDir.listings, user + u'/');
    EXPECT_TRUE(found.isCurrent);
    EXPECT_TRUE(found.canWriteListings);
    QFile listing(found.appDir.listings + u"avrhex.txt"_s);
    EXPECT_TRUE(listing.open(QIODevice::WriteOnly));
}

TEST_F(ProgramFolderTest, FailuresAreReported) {
    const ProgramFolder found = EnterProgramFolder(u"/proc/gone"_s, u"/proc/neither"_s);
    EXPECT_FALSE(found.isCurrent);
    EXPECT_FALSE(found.canWriteListings);
    EXPECT_EQ(QDir::currentPath(), before_);
    EXPECT_EQ(found.appDir.listings, u"/proc/neither/"_s);
    EXPECT_EQ(EnterProgramFolder(u"/"_s, folder_.path()).appDir.program, u"/"_s);
}

}  // namespace
}  // namespace tolvex
