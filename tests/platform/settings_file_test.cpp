// SPDX-License-Identifier: MIT
#include "platform/settings_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

class SettingsFileTest : public ::testing::Test {
  protected:
    QString Path() const { return folder_.filePath(u"new/Tolvex.conf"_s); }

    /// The file as another program sees it; Qt shares its own reading between objects.
    QByteArray OnDisk() const {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void Write(const QByteArray& content) const {
        QDir(folder_.path()).mkpath(u"new"_s);
        QFile file(Path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir folder_;
};

TEST_F(SettingsFileTest, EveryTextComesBackExactly) {
    const QString texts[] = {
        u""_s,
        u"6900"_s,
        u"-7.5"_s,
        u"/home/a,b"_s,
        u"a, b ,c"_s,
        u" blanks "_s,
        u"C:\\temp\\new"_s,
        u"say \"ja\"; #1 = %41"_s,
        u"@Invalid()"_s,
        u"@home"_s,
        u"/家/ﾌｫﾙﾀﾞ"_s,
        u"line\nbreak\ttab"_s,
        u"true"_s,
        u"[Settings]"_s,
        u","_s,
    };
    for (const QString& text : texts) {
        SettingsFile(Path()).SaveSetting(u"OPEN_DIR"_s, text);
        // Moved aside, so that it is read from the disk and not from what the writer knew.
        const QString copy = folder_.filePath(u"copy.conf"_s);
        QFile::remove(copy);
        ASSERT_TRUE(QFile::copy(Path(), copy));
        EXPECT_EQ(SettingsFile(copy).GetSetting(u"OPEN_DIR"_s, u"standard"_s), text)
            << text.toStdString();
    }
}

TEST_F(SettingsFileTest, ASaveIsOnTheDiskBeforeItReturns) {
    SettingsFile settings(Path());
    settings.SaveSetting(u"ComNox"_s, u"3"_s);
    EXPECT_EQ(OnDisk(), "[Settings]\nComNox=3\n");
    settings.SaveSetting(u"device"_s, u"7"_s);
    EXPECT_EQ(OnDisk(), "[Settings]\nComNox=3\ndevice=7\n");
}

struct HandEdited {
    const char* what;
    QByteArray content;
    QString read;  ///< of the key "device", whose default is "0"
};

TEST_F(SettingsFileTest, DamageReadsAsDefaultsAndSavingKeepsTheOtherKeys) {
    const HandEdited cases[] = {
        {"comma without quotes", "[Settings]\ndevice=/home/a,b\nComNox=3\n", u"/home/a,b"_s},
        {"no value", "[Settings]\ndevice\nComNox=3\n", u"0"_s},
        {"line of rubbish", "[Settings]\n\x01\xff\x80rubbish\nComNox=3\ndevice=5\n", u"5"_s},
        {"open bracket", "[Settings]\nComNox=3\n[brok\n", u"0"_s},
        {"object of no use", "[Settings]\ndevice=@Variant(\\0\\0\\0\\xff)\nComNox=3\n", u"0"_s},
        {"nothing", "[Settings]\ndevice=@Invalid()\nComNox=3\n", u"0"_s},
        {"other group", "[Other]\ndevice=4\n[Settings]\nComNox=3\n", u"0"_s},
        {"carriage returns", "[Settings]\r\ndevice=5\r\nComNox=3\r\n", u"5"_s},
    };
    for (const HandEdited& c : cases) {
        Write(c.content);
        SettingsFile settings(Path());
        EXPECT_EQ(settings.GetSetting(u"device"_s, u"0"_s), c.read) << c.what;
        settings.SaveSetting(u"MainTop"_s, u"42"_s);
        const QByteArray saved = OnDisk();
        EXPECT_TRUE(saved.contains("ComNox=3")) << c.what << '\n' << saved.constData();
        EXPECT_TRUE(saved.contains("MainTop=42")) << c.what << '\n' << saved.constData();
        EXPECT_EQ(settings.GetSetting(u"device"_s, u"0"_s), c.read) << c.what;
    }
}

TEST_F(SettingsFileTest, WhatCannotBeWrittenStillHoldsForThisRun) {
    SettingsFile settings(u"/proc/no-such-folder/Tolvex.conf"_s);
    settings.SaveSetting(u"ComNox"_s, u"3"_s);
    EXPECT_EQ(settings.GetSetting(u"ComNox"_s, u"1"_s), u"3"_s);
}

TEST_F(SettingsFileTest, TheStandardFileFollowsTheConfigurationFolder) {
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    const bool wasSet = qEnvironmentVariableIsSet("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder_.path()));
    EXPECT_EQ(SettingsPath(), folder_.filePath(u"Tolvex/Tolvex.conf"_s));
    if (wasSet) {
        qputenv("XDG_CONFIG_HOME", before);
    } else {
        qunsetenv("XDG_CONFIG_HOME");
    }
}

}  // namespace
}  // namespace tolvex
