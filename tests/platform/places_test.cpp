// SPDX-License-Identifier: MIT
// Where the program finds things: ports, its folder, the mark of a running instance, its settings.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <memory>

#include "platform/com_ports.h"
#include "platform/program_folder.h"
#include "platform/settings_file.h"
#include "platform/single_instance.h"
#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(ComPorts, NumbersWithoutALinkMeanTheSystemsDevices) {
    const std::pair<int, QString> cases[] = {
        // clang-format off
        {-1, u""_s}, {0, u""_s}, {1, u"/dev/ttyS0"_s}, {4, u"/dev/ttyS3"_s}, {5, u"/dev/ttyUSB0"_s},
        {12, u"/dev/ttyUSB7"_s}, {13, u"/dev/ttyACM0"_s}, {20, u"/dev/ttyACM7"_s}, {21, u""_s},
        // clang-format on
    };
    QTemporaryDir config;
    for (const auto& [number, path] : cases) {
        EXPECT_EQ(ComPorts(config.path()).DevicePath(number), path) << number;
        EXPECT_EQ(ComPorts(u"/missing/folder/"_s).DevicePath(number), path) << number;
    }
}

TEST(ComPorts, ALinkWinsEvenWhenItLeadsNowhere) {
    for (const auto& [target, present] :
         {std::pair{u"/dev/null"_s, true}, {u"/dev/none"_s, false}, {u"../gone"_s, false}}) {
        QTemporaryDir config;
        ASSERT_TRUE(QDir(config.path()).mkdir(u"ports"_s));
        const QString link = config.filePath(u"ports/com3"_s);
        ASSERT_TRUE(QFile::link(target, link));
        const QList<ComPort> all = ComPorts(config.path() + u'/').All();
        ASSERT_EQ(all.size(), kComPortCount);
        EXPECT_EQ(all[1].devicePath, u"/dev/ttyS1"_s);
        EXPECT_EQ(all[2].number, 3);
        EXPECT_EQ(all[2].devicePath, link);
        EXPECT_EQ(all[2].present, present) << target.toStdString();
    }
}

TEST(ProgramFolder, IsEnteredAndComesFirstForTheListings) {
    const QString before = QDir::currentPath();
    const QTemporaryDir folder;
    const QString user = folder.filePath(u"user"_s);
    for (const QString& program : {u"/proc/gone"_s, folder.path(), folder.path() + u'/'}) {
        const AppDir found = EnterProgramFolder(program, user);
        const bool there = QDir(program).exists();
        EXPECT_EQ(found.program, there ? folder.path() + u'/' : u"/proc/gone/"_s);
        EXPECT_EQ(found.listings, (QStringList{found.program, user + u'/'}));
        EXPECT_EQ(QDir::currentPath(), there ? QDir(program).canonicalPath() : before);
    }
    EXPECT_FALSE(QDir(user).exists()) << "made when it is needed";
    QDir::setCurrent(before);
}

TEST(SingleInstance, IsFirstUnlessAnotherRuns) {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"tolvex.lock"_s);
    auto first = std::make_unique<SingleInstance>(path);
    EXPECT_TRUE(first->IsFirst());
    EXPECT_FALSE(SingleInstance(path).IsFirst());
    EXPECT_FALSE(SingleInstance(path).IsFirst()) << "the refused one took the mark away";
    first.reset();
    EXPECT_TRUE(SingleInstance(path).IsFirst());
    EXPECT_TRUE(SingleInstance(u"/proc/gone/tolvex.lock"_s).IsFirst()) << "no place for the mark";

    const pid_t child = ::fork();
    if (child == 0) {
        const SingleInstance killed(path);
        ::_exit(killed.IsFirst() ? 0 : 1);  // no destructor runs
    }
    ::waitpid(child, nullptr, 0);
    ASSERT_TRUE(QFileInfo::exists(path));
    EXPECT_TRUE(SingleInstance(path).IsFirst()) << "a killed process does not count";
    for (const QByteArray& powerCut : {QByteArray(), QByteArray("\0\0\0\0", 4)}) {
        testing::PutFile(path, powerCut);
        EXPECT_TRUE(SingleInstance(path).IsFirst()) << powerCut.toHex().constData();
    }
}

struct SettingsFileTest : ::testing::Test {
    QTemporaryDir folder;
    QString path = folder.filePath(u"new/Tolvex.conf"_s);
};

TEST_F(SettingsFileTest, EveryTextComesBackExactly) {
    const QString texts[] = {
        // clang-format off
        u""_s, u"-7.5"_s, u"a, b ,c"_s, u" blanks "_s, u"C:\\temp\\new"_s, u"@home"_s, u"@Invalid()"_s, u","_s,
        u"say \"ja\"; #1 = %41"_s, u"/家/ﾌｫﾙﾀﾞ"_s, u"line\nbreak\ttab"_s, u"true"_s, u"[Settings]"_s,
        // clang-format on
    };
    for (const QString& text : texts) {
        SettingsFile(path).SaveSetting(u"OPEN_DIR"_s, text);
        // Moved aside, so that it is read from the disk and not from what the writer knew.
        const QString copy = folder.filePath(u"copy.conf"_s);
        QFile::remove(copy);
        ASSERT_TRUE(QFile::copy(path, copy));
        EXPECT_EQ(SettingsFile(copy).GetSetting(u"OPEN_DIR"_s, u"standard"_s), text)
            << text.toStdString();
    }
}

TEST_F(SettingsFileTest, DamageReadsAsDefaultsAndSavingKeepsTheOtherKeys) {
    const std::pair<QByteArray, QString> cases[] = {
        // clang-format off
        {"[Settings]\ndevice=/home/a,b\nComNox=3\n", u"/home/a,b"_s},  // comma without quotes
        {"[Settings]\ndevice\nComNox=3\n", u"0"_s},
        {"[Settings]\n\x01\xff\x80rubbish\nComNox=3\ndevice=5\n", u"5"_s},
        {"[Settings]\nComNox=3\n[brok\n", u"0"_s},
        {"[Settings]\ndevice=@Variant(\\0\\0\\0\\xff)\nComNox=3\n", u"0"_s},
        {"[Settings]\ndevice=@Invalid()\nComNox=3\n", u"0"_s},
        {"[Other]\ndevice=4\n[Settings]\nComNox=3\n", u"0"_s},
        {"[Settings]\r\ndevice=5\r\nComNox=3\r\n", u"5"_s},
        // clang-format on
    };
    for (const auto& [content, read] : cases) {
        QDir(folder.path()).mkpath(u"new"_s);
        testing::PutFile(path, content);
        SettingsFile settings(path);
        EXPECT_EQ(settings.GetSetting(u"device"_s, u"0"_s), read) << content.constData();
        settings.SaveSetting(u"MainTop"_s, u"42"_s);
        const QByteArray saved = testing::Bytes(path);
        EXPECT_TRUE(saved.contains("ComNox=3") && saved.contains("MainTop=42"))
            << content.constData() << '\n'
            << saved.constData();
        EXPECT_EQ(settings.GetSetting(u"device"_s, u"0"_s), read) << content.constData();
    }
}

TEST_F(SettingsFileTest, ASaveIsOnTheDiskBeforeItReturnsAndHoldsForThisRunWhereItCant) {
    SettingsFile settings(path);
    settings.SaveSetting(u"ComNox"_s, u"3"_s);
    settings.SaveSetting(u"device"_s, u"7"_s);
    EXPECT_EQ(testing::Bytes(path), "[Settings]\nComNox=3\ndevice=7\n");
    SettingsFile lost(u"/proc/no-such-folder/Tolvex.conf"_s);
    lost.SaveSetting(u"ComNox"_s, u"3"_s);
    EXPECT_EQ(lost.GetSetting(u"ComNox"_s, u"1"_s), u"3"_s);
}

}  // namespace
}  // namespace tolvex
