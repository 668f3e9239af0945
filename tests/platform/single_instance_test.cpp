// SPDX-License-Identifier: MIT
#include "platform/single_instance.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <memory>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

class SingleInstanceTest : public ::testing::Test {
  protected:
    QTemporaryDir folder_;
    QString path_ = folder_.filePath(u"tolvex.lock"_s);
};

TEST_F(SingleInstanceTest, TheSecondIsNotFirstUntilTheFirstIsGone) {
    auto first = std::make_unique<SingleInstance>(path_);
    EXPECT_TRUE(first->IsFirst());
    EXPECT_FALSE(SingleInstance(path_).IsFirst());
    EXPECT_FALSE(SingleInstance(path_).IsFirst()) << "the refused one took the mark away";
    first.reset();
    EXPECT_TRUE(SingleInstance(path_).IsFirst());
}

TEST_F(SingleInstanceTest, AKilledProcessDoesNotCount) {
    const pid_t child = ::fork();
    if (child == 0) {
        const SingleInstance killed(path_);
        ::_exit(killed.IsFirst() ? 0 : 1);  // no destructor runs
    }
    ::waitpid(child, nullptr, 0);
    ASSERT_TRUE(QFileInfo::exists(path_));
    EXPECT_TRUE(SingleInstance(path_).IsFirst());
}

TEST_F(SingleInstanceTest, LeftOversOfAPowerCutDoNotCount) {
    for (const QByteArray& rest : {QByteArray(), QByteArray("\0\0\0\0", 4), QByteArray("12")}) {
        QFile file(path_);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(rest);
        file.close();
        EXPECT_TRUE(SingleInstance(path_).IsFirst()) << rest.toHex().constData();
    }
}

TEST_F(SingleInstanceTest, WithoutAPlaceForTheMarkTheProgramRuns) {
    EXPECT_TRUE(SingleInstance(u"/proc/gone/tolvex.lock"_s).IsFirst());
}

}  // namespace
}  // namespace tolvex
