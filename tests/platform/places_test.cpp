// SPDX-License-Identifier: MIT
// Where the program finds things: its folder, the mark of a running instance, its settings.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <memory>

#include "base/language.h"
#include "base/product.h"
#include "base/settings.h"
#include "platform/program_start.h"
#include "platform/settings_file.h"
#include "tests/support/real_files.h"
#include "tests/support/recorder.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(ProgramFolder, IsEnteredAndComesFirstForTheListings) {
    const QString before = QDir::currentPath();
    const QTemporaryDir folder;
    const QString user = folder.filePath(u"user"_s), gone = u"/proc/gone"_s;
    for (const QString& program : {gone, folder.path(), folder.path() + u'/'}) {
        const AppDir found = EnterProgramFolder(program, user);
        EXPECT_EQ(found.program, program == gone ? gone + u'/' : folder.path() + u'/');
        EXPECT_EQ(found.listings, (QStringList{found.program, user + u'/'}));
        EXPECT_EQ(QDir::currentPath(), program == gone ? before : QDir(program).canonicalPath());
    }
    QDir::setCurrent(before);
}

TEST(SingleInstance, IsFirstUnlessAnotherRuns) {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"tolvex.lock"_s);
    QByteArray killed, reused;  // the number by this process
    {
        const SingleInstance first(path);
        const QByteArray mark = testing::Bytes(path);
        killed = "2147483646" + mark.mid(mark.indexOf('\n'));
        reused = mark;
        EXPECT_TRUE(first.IsFirst());
        EXPECT_FALSE(SingleInstance(path).IsFirst());
        EXPECT_FALSE(SingleInstance(path).IsFirst()) << "the refused one took the mark away";
    }
    EXPECT_TRUE(SingleInstance(path).IsFirst());
    for (const QByteArray& left : {killed, reused, QByteArray(), QByteArray("\0\0\0\0", 4)}) {
        testing::PutFile(path, left);  // the others by a power cut
        EXPECT_TRUE(SingleInstance(path).IsFirst()) << left.toHex().constData();
    }
    EXPECT_TRUE(SingleInstance(u"/proc/gone/tolvex.lock"_s).IsFirst()) << "no place for the mark";

    SingleInstance first(path);
    QStringList taken;
    first.TakeFiles([&taken](const QString& file) { taken << file; });
    EXPECT_TRUE(SingleInstance(path).HandOver(u"/a/点滅.hex"_s));
    const QDeadlineTimer limit(std::chrono::seconds(10));
    while (taken.isEmpty() && !limit.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    EXPECT_EQ(taken, QStringList{u"/a/点滅.hex"_s});
    EXPECT_EQ(QFileInfo(path).dir().entryList({u"*open*"_s}), QStringList()) << "left behind";
}

TEST(SettingsKeys, DamagedValuesReadAsTheDefault) {
    const std::tuple<NumberKey, QString, double> cases[] = {
        // clang-format off
        {keys::PgmWidth, u"wide"_s, 6900}, {keys::MainTop, u"inf"_s, 100},
        {keys::MainHeight, u"-1"_s, 7900}, {keys::ComNoxChosen, u"21"_s, 0},
        {keys::IndexComFlag, u"2"_s, 2}, {keys::ComNox, u""_s, 1},
        // clang-format on
    };
    for (const auto& [key, stored, read] : cases) {
        testing::MemorySettings settings;
        settings.values[QString::fromLatin1(key.name)] = stored;
        EXPECT_EQ(GetNumber(settings, key), read) << key.name;
    }
}

TEST(Language, IsTheOneThatWasAskedForFirst) {
    using enum Language;
    struct {
        QByteArray asked, all, messages, lang;
        QString stored;
        Language window, terminal;
    } const cases[] = {
        {"", "", "", "", u""_s, Japanese, English},
        {"", "", "", "ja_JP.UTF-8", u"en"_s, English, Japanese},
        {"en", "ja_JP", "", "", u"ja"_s, English, English},
        {"ja", "C", "", "", u"en"_s, Japanese, Japanese},
        {"de", "", "ja", "C", u"xx"_s, Japanese, Japanese},
        {"", "C", "ja", "ja", u"ja"_s, Japanese, English},
    };
    const char* const names[] = {"TOLVEX_LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};
    QByteArray before[4];
    std::ranges::transform(names, before, [](const char* name) { return qgetenv(name); });
    for (const auto& c : cases) {
        const QByteArray values[] = {c.asked, c.all, c.messages, c.lang};
        for (int i = 0; i < 4; ++i) {
            qputenv(names[i], values[i]);
        }
        testing::MemorySettings settings;
        settings.values[QString::fromLatin1(keys::Language)] = c.stored;
        EXPECT_EQ(WindowLanguage(settings), c.window) << c.asked.constData() << c.lang.constData();
        EXPECT_EQ(TerminalLanguage(), c.terminal) << c.asked.constData() << c.lang.constData();
    }
    for (int i = 0; i < 4; ++i) {
        before[i].isNull() ? qunsetenv(names[i]) : qputenv(names[i], before[i]);
    }
    {
        const auto texts = InstallTexts(English);
        EXPECT_EQ(product::LicenseNote(), u"Free software under the MIT licence."_s);
    }
    EXPECT_TRUE(product::LicenseNote().startsWith(u"MITライセンス"));
}

TEST(SettingsFile, EveryTextComesBackExactlyAndDamageReadsAsTheDefault) {
    const std::pair<QByteArray, QString> cases[] = {
        // clang-format off
        {"device=5\r\nComNox=3\r\n", u"5"_s}, {"device=/home/a,b\nComNox=3\n", u"/home/a,b"_s},
        {"\x01\xff\x80rubbish\nComNox=3\ndevice=5\n", u"5"_s}, {"ComNox=3\n[brok\n", u"0"_s},
        {"device\nComNox=3\n", u"0"_s}, {"device=@Variant(\\0\\0\\0\\xff)\nComNox=3\n", u"0"_s},
        {"ComNox=3\n[Other]\ndevice=4\n", u"0"_s},
        // clang-format on
    };
    const QString text = u"/家/ﾌｫﾙﾀﾞ, say \"ja\"; #1 = %41"_s;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Tolvex.conf"_s), copy = folder.filePath(u"copy"_s);
    for (const auto& [content, read] : cases) {
        testing::PutFile(path, "[Settings]\n" + content);
        std::make_unique<SettingsFile>(path)->SaveSetting(u"OPEN_DIR"_s, text);
        testing::PutFile(copy, testing::Bytes(path));  // of which nothing is remembered
        const SettingsFile saved(copy);
        EXPECT_EQ(saved.GetSetting(u"ComNox"_s, u"1"_s), u"3"_s) << content.constData();
        EXPECT_EQ(saved.GetSetting(u"device"_s, u"0"_s), read) << content.constData();
        EXPECT_EQ(saved.GetSetting(u"OPEN_DIR"_s, u""_s), text) << content.constData();
    }
}

TEST(SettingsFile, AStepsSavesAreOneWriteWhenItIsDone) {
    QTemporaryDir folder;
    const char* const variable =
        QSysInfo::productType() == u"windows" ? "APPDATA" : "XDG_CONFIG_HOME";
    const QByteArray before = qgetenv(variable);
    qputenv(variable, folder.path().toUtf8());
    const QString path = folder.filePath(u"Tolvex/Tolvex.conf"_s);
    ASSERT_EQ(SettingsPath(), path);
    SettingsFile settings(path);
    settings.SaveSetting(u"ComNox"_s, u"3"_s);
    settings.SaveSetting(u"device"_s, u"7"_s);
    EXPECT_FALSE(QFileInfo::exists(path)) << "the step still runs";
    EXPECT_EQ(settings.GetSetting(u"device"_s, u"0"_s), u"7"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(testing::Bytes(path).replace("\r", ""), "[Settings]\nComNox=3\ndevice=7\n");
    before.isNull() ? qunsetenv(variable) : qputenv(variable, before);
}

}  // namespace
}  // namespace tolvex
