// SPDX-License-Identifier: MIT
#include "platform/single_instance.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
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

/// Whether another process that tries finds itself the first.
bool OtherProcessIsFirst(const QString& path) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(SingleInstance(path).IsFirst() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

TEST_F(SingleInstanceTest, ProcessesAreToldApart) {
    {
        SingleInstance first(path_);
        EXPECT_FALSE(OtherProcessIsFirst(path_));
    }
    EXPECT_TRUE(OtherProcessIsFirst(path_));
}

TEST_F(SingleInstanceTest, AKilledProcessDoesNotCount) {
    const pid_t child = ::fork();
    if (child == 0) {
        const SingleInstance killed(path_);
        ::_exit(0);  // no destructor runs
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

TEST_F(SingleInstanceTest, TheLockLiesInTheRuntimeFolderOrTheTemporaryOne) {
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder_.path()));
    EXPECT_TRUE(InstanceLockPath().startsWith(folder_.path() + u"/tolvex-"_s));
    qputenv("XDG_RUNTIME_DIR", "/gone");
    EXPECT_TRUE(InstanceLockPath().startsWith(QDir::tempPath() + u"/tolvex-"_s));
    before.isEmpty() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before);
}

}  // namespace
}  // namespace tolvex
