// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "app/settings_keys.h"
#include "tests/image/file_command_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::FileCommandBench;
using Command = void (FileCommands::*)();

const QString kFlashShown = u"flash listing"_s;
const QString kEepromShown = u"eeprom listing"_s;
const QString kOpened = u"status 1: ファイルをオープンしました。"_s;
const QString kCannotOpen = u"message OK: 指定されたファイルを開くことができませんでした。"_s;
const QString kCannotOpenBox =
    u"box Information Tolvex 1.2.3|指定されたファイルを開くことができませんでした。"_s;
const QString kHexError = u"status 1: HEX ファイルのオープンエラー"_s;
const QString kEepError = u"status 1: EEP  ファイルのオープンエラー"_s;
const QString kHexMissing = u"Program : Not found HEX file"_s;
const QString kEepMissing = u"EEPROM memory : Not found EEP file"_s;

const QByteArray kCode = ":020000000C945E\r\n:00000001FF\r\n";
const QByteArray kData = ":0100000048B7\r\n:00000001FF\r\n";

TEST(OpenCommands, WhatTheDialogsAskFor) {
    struct {
        Command command;
        QString title, filter, suffix, initialName;
    } const cases[] = {
        {&FileCommands::mnuFileOpenCode_Click, u"コードファイル(*.hex)を開く"_s,
         u"Hex File|*.hex;*.rom|All Files|*.*|"_s, u"hex;rom"_s, u""_s},
        {&FileCommands::mnuFileOpenData_Click, u"データファイル(*.eep)を開く"_s,
         u"eep File|*.eep|All Files|*.*|"_s, u"eep"_s, u""_s},
        {&FileCommands::mnuFileOpen_Click, u"コードファイル ＆ データファイルを開く"_s,
         u"Hex File|*.hex;*.rom|All Files|*.*|"_s, u"hex;rom"_s, u"/c/before.hex"_s},
    };
    for (const auto& c : cases) {
        FileCommandBench bench;
        bench.settings.values[u"OPEN_DIR"_s] = u"/c/open"_s;
        bench.settings.values[u"SAVE_DIR"_s] = u"/c/save"_s;
        bench.commands.OpenDropped(u"/c/before.hex"_s);
        (bench.commands.*c.command)();
        ASSERT_EQ(bench.person.fileRequests.size(), 1);
        const FileDialogRequest& request = bench.person.fileRequests[0];
        EXPECT_EQ(request.title, c.title);
        EXPECT_EQ(request.filter, c.filter);
        EXPECT_EQ(request.defaultSuffix, c.suffix);
        EXPECT_EQ(request.directory, u"/c/open"_s);
        EXPECT_EQ(request.initialName, c.initialName);
    }
}

/// A command over files that exist (empty content = no such file), and everything it leaves behind.
struct Opening {
    const char* what;
    QString chosen;  ///< empty = the dialog is cancelled
    QByteArray code, data;
    QStringList met;
    QString flashCaption, eepromCaption;
    QString codeName, dataName;
    bool directoryStored;
    int flashCell1, eepromCell0;  ///< 0x77 before the command
};

void Check(Command command, const Opening& c) {
    FileCommandBench bench;
    bench.images.flash.fill(0x77);
    bench.images.eeprom.fill(0x77);
    if (!c.code.isEmpty()) {
        testing::PutFile(bench.Path(u"blink.hex"_s), c.code);
        testing::PutFile(bench.Path(u"blink.ROM"_s), c.code);
        testing::PutFile(bench.Path(u"blink.txt"_s), c.code);
    }
    if (!c.data.isEmpty()) {
        testing::PutFile(bench.Path(u"blink.eep"_s), c.data);
    }
    bench.Choose(c.chosen);
    (bench.commands.*command)();

    EXPECT_EQ(bench.Met(), c.met) << c.what;
    EXPECT_EQ(bench.Short(bench.person.flashCaption), c.flashCaption) << c.what;
    EXPECT_EQ(bench.Short(bench.person.eepromCaption), c.eepromCaption) << c.what;
    EXPECT_EQ(bench.Short(bench.names.CodeFileName), c.codeName) << c.what;
    EXPECT_EQ(bench.Short(bench.names.DataFileName), c.dataName) << c.what;
    EXPECT_EQ(bench.Setting(keys::OpenDir),
              c.directoryStored ? bench.dir.path() : u"never stored"_s)
        << c.what;
    EXPECT_EQ(bench.images.flash[1], c.flashCell1) << c.what;
    EXPECT_EQ(bench.images.eeprom[0], c.eepromCell0) << c.what;
}

TEST(OpenCommands, OpenBoth) {
    const QString hex = u"blink.hex"_s, eep = u"blink.eep"_s;
    const QString hexShown = u"Program : blink.hex"_s, eepShown = u"EEPROM : blink.eep"_s;
    const QByteArray noColon = ":020000000C945E\nnonsense\n";
    const QByteArray beyondFlash = ":02FFFF001122\n", beyondEeprom = ":01FFFF0011\n";
    const Opening cases[] = {
        // clang-format off
        {"both there", hex, kCode, kData, {kFlashShown, kEepromShown, kOpened},
         hexShown, eepShown, hex, eep, true, 0x0C, 0x48},
        {"no data file", hex, kCode, "", {kFlashShown, kEepromShown, kOpened},
         hexShown, kEepMissing, hex, eep, true, 0x0C, 0xFF},
        {"extension in upper case", u"blink.ROM"_s, kCode, kData,
         {kFlashShown, kEepromShown, kOpened},
         u"Program : blink.ROM"_s, eepShown, u"blink.ROM"_s, eep, true, 0x0C, 0x48},
        {"code without a colon", hex, noColon, kData,
         {kHexError, kFlashShown, kEepromShown, kOpened},
         hexShown, eepShown, hex, eep, true, 0x0C, 0x48},
        {"data without a colon", hex, kCode, "nonsense",
         {kFlashShown, kEepError, kEepromShown, kOpened},
         hexShown, eepShown, hex, eep, true, 0x0C, 0xFF},
        {"code beyond the image ends the command", hex, beyondFlash, kData, {},
         hexShown, u""_s, hex, eep, false, 0xFF, 0x77},
        {"data beyond the image ends the command", hex, kCode, beyondEeprom, {kFlashShown},
         hexShown, eepShown, hex, eep, true, 0x0C, 0xFF},
        {"a data file chosen", eep, kCode, kData, {kCannotOpen},
         u""_s, u""_s, u""_s, eep, false, 0x77, 0x77},
        {"another extension", u"blink.txt"_s, kCode, kData, {kCannotOpen},
         u""_s, u""_s, u""_s, eep, false, 0x77, 0x77},
        {"no code file", hex, "", kData, {kFlashShown, kCannotOpen},
         kHexMissing, u""_s, u""_s, eep, false, 0xFF, 0x77},
        {"cancelled at the start", u""_s, kCode, kData, {kCannotOpen},
         u""_s, u""_s, u""_s, u""_s, false, 0x77, 0x77},
        // clang-format on
    };
    for (const Opening& c : cases) {
        Check(&FileCommands::mnuFileOpen_Click, c);
    }
}

TEST(OpenCommands, OpenCode) {
    const QString hex = u"blink.hex"_s, shown = u"Program : blink.hex"_s;
    const Opening cases[] = {
        // clang-format off
        {"there", hex, kCode, kData, {kFlashShown}, shown, u""_s, hex, u""_s, true, 0x0C, 0x77},
        {"no colon", hex, "nonsense", kData, {kHexError, kFlashShown},
         shown, u""_s, hex, u""_s, true, 0xFF, 0x77},
        {"beyond the image", hex, ":02FFFF001122", kData, {},
         shown, u""_s, hex, u""_s, false, 0xFF, 0x77},
        {"missing", hex, "", kData, {}, u""_s, u""_s, hex, u""_s, false, 0x77, 0x77},
        {"another extension", u"blink.txt"_s, kCode, kData, {kCannotOpenBox},
         u""_s, u""_s, u""_s, u""_s, false, 0x77, 0x77},
        {"cancelled at the start", u""_s, kCode, kData, {},
         u""_s, u""_s, u""_s, u""_s, false, 0x77, 0x77},
        // clang-format on
    };
    for (const Opening& c : cases) {
        Check(&FileCommands::mnuFileOpenCode_Click, c);
    }
}

TEST(OpenCommands, OpenData) {
    const QString eep = u"blink.eep"_s, shown = u"EEPROM : blink.eep"_s;
    const Opening cases[] = {
        // clang-format off
        {"there", eep, kCode, kData, {kEepromShown}, u""_s, shown, u""_s, eep, false, 0x77, 0x48},
        {"the code file chosen", u"blink.hex"_s, kCode, kData, {kEepromShown},
         u""_s, shown, u""_s, eep, false, 0x77, 0x48},
        {"no colon", eep, kCode, "nonsense", {kEepError, kEepromShown},
         u""_s, shown, u""_s, eep, false, 0x77, 0xFF},
        {"beyond the image", eep, kCode, ":01FFFF0011", {},
         u""_s, shown, u""_s, eep, false, 0x77, 0xFF},
        {"missing", eep, kCode, "", {kEepromShown},
         u""_s, kEepMissing, u""_s, eep, false, 0x77, 0xFF},
        {"cancelled at the start", u""_s, kCode, kData, {kEepromShown},
         u""_s, kEepMissing, u""_s, u""_s, false, 0x77, 0xFF},
        // clang-format on
    };
    for (const Opening& c : cases) {
        Check(&FileCommands::mnuFileOpenData_Click, c);
    }
}

struct ReloadTest : ::testing::Test {
    FileCommandBench bench;

    ReloadTest() {
        testing::PutFile(bench.Path(u"blink.hex"_s), kCode);
        testing::PutFile(bench.Path(u"blink.eep"_s), kData);
    }
    void Run(Command command, const QString& chosen = {}) {
        bench.Choose(chosen);
        (bench.commands.*command)();
    }
    /// Changes the images, so that a reload shows.
    void Spoil() {
        bench.images.flash.fill(0x77);
        bench.images.eeprom.fill(0x77);
        bench.Met();
    }
};

TEST_F(ReloadTest, BothFilesAgainWithoutAsking) {
    Run(&FileCommands::mnuFileOpen_Click, u"blink.hex"_s);
    Spoil();
    bench.commands.mnuReLoad_Click();
    EXPECT_EQ(bench.Met(), QStringList({kFlashShown, kEepromShown, kOpened}));
    EXPECT_EQ(bench.images.flash[1], 0x0C);
    EXPECT_EQ(bench.images.eeprom[0], 0x48);
    EXPECT_EQ(bench.person.fileRequests.size(), 1);
    EXPECT_FALSE(bench.names.ReloadFlag);
}

TEST_F(ReloadTest, NothingOpened) {
    bench.commands.mnuReLoad_Click();
    EXPECT_EQ(bench.person.calls, QStringList(kCannotOpen));
    EXPECT_FALSE(bench.names.ReloadFlag);
}

TEST_F(ReloadTest, OnlyACodeFileOpened) {
    Run(&FileCommands::mnuFileOpenCode_Click, u"blink.hex"_s);
    Spoil();
    bench.commands.mnuReLoad_Click();
    EXPECT_EQ(bench.Met(), QStringList({kFlashShown, kEepromShown, kOpened}));
    EXPECT_EQ(bench.person.eepromCaption, kEepMissing);
    EXPECT_EQ(bench.images.eeprom[0], 0xFF);
}

TEST_F(ReloadTest, TheFileIsGone) {
    Run(&FileCommands::mnuFileOpen_Click, u"blink.hex"_s);
    Spoil();
    QFile::remove(bench.Path(u"blink.hex"_s));
    bench.commands.mnuReLoad_Click();
    EXPECT_EQ(bench.Met(), QStringList({kFlashShown, kCannotOpen}));
    EXPECT_EQ(bench.person.flashCaption, kHexMissing);
    EXPECT_EQ(bench.images.flash[1], 0xFF);
    EXPECT_EQ(bench.images.eeprom[0], 0x77);
    EXPECT_EQ(bench.names.CodeFileName, QString());
    EXPECT_EQ(bench.names.DataFileName, bench.Path(u"blink.eep"_s));
}

TEST_F(ReloadTest, ACancelledCodeDialogLeavesNoDirectory) {
    Run(&FileCommands::mnuFileOpen_Click, u"blink.hex"_s);
    bench.settings.values.clear();
    Spoil();
    Run(&FileCommands::mnuFileOpenCode_Click);
    EXPECT_EQ(bench.Met(), QStringList(kFlashShown));
    EXPECT_EQ(bench.images.flash[1], 0x0C);
    EXPECT_EQ(bench.Setting(keys::OpenDir), u"never stored"_s);

    // The reload too stops before the data file.
    Spoil();
    bench.commands.mnuReLoad_Click();
    EXPECT_EQ(bench.Met(), QStringList(kFlashShown));
    EXPECT_EQ(bench.images.flash[1], 0x0C);
    EXPECT_EQ(bench.images.eeprom[0], 0x77);
    EXPECT_FALSE(bench.names.ReloadFlag);
}

TEST_F(ReloadTest, ACancelledOpenBothTakesItsInitialNameAgain) {
    Run(&FileCommands::mnuFileOpen_Click, u"blink.hex"_s);
    Spoil();
    Run(&FileCommands::mnuFileOpen_Click);
    EXPECT_EQ(bench.Met(), QStringList({kFlashShown, kEepromShown, kOpened}));
    EXPECT_EQ(bench.images.flash[1], 0x0C);
    EXPECT_EQ(bench.Setting(keys::OpenDir), bench.dir.path());
}

TEST_F(ReloadTest, ACancelledDataDialogReadsTheDataFileAgain) {
    Run(&FileCommands::mnuFileOpenData_Click, u"blink.eep"_s);
    Spoil();
    Run(&FileCommands::mnuFileOpenData_Click);
    EXPECT_EQ(bench.Met(), QStringList(kEepromShown));
    EXPECT_EQ(bench.images.eeprom[0], 0x48);
}

TEST_F(ReloadTest, DroppedFiles) {
    bench.commands.OpenDropped(bench.Path(u"blink.hex"_s));
    EXPECT_EQ(bench.Met(), QStringList({kFlashShown, kEepromShown, kOpened}));
    EXPECT_EQ(bench.Setting(keys::OpenDir), bench.dir.path());

    Spoil();
    bench.commands.OpenDropped(bench.Path(u"blink.eep"_s));
    EXPECT_EQ(bench.Met(), QStringList(kEepromShown));
    EXPECT_EQ(bench.images.flash[1], 0x77);
    EXPECT_EQ(bench.images.eeprom[0], 0x48);

    bench.commands.OpenDropped(bench.Path(u"blink.txt"_s));
    EXPECT_EQ(bench.Met().last(), kCannotOpen);
    EXPECT_TRUE(bench.person.fileRequests.isEmpty());
}

TEST(OpenCommands, TheDirectoryEndsBeforeTheFirstBareName) {
    FileCommandBench bench;
    ASSERT_TRUE(QDir(bench.dir.path()).mkpath(u"a.hex/sub"_s));
    testing::PutFile(bench.Path(u"a.hex/sub/a.hex"_s), kCode);
    bench.Choose(u"a.hex/sub/a.hex"_s);
    bench.commands.mnuFileOpenCode_Click();
    EXPECT_EQ(bench.Setting(keys::OpenDir), bench.dir.path());
}

TEST(OpenCommands, AListingThatCannotBeWrittenEndsTheCommand) {
    for (const Command command :
         {&FileCommands::mnuFileOpen_Click, &FileCommands::mnuFileOpenCode_Click}) {
        for (const bool there : {true, false}) {
            FileCommandBench bench(u"/gone/"_s);
            if (there) {
                testing::PutFile(bench.Path(u"blink.hex"_s), kCode);
            }
            bench.Choose(u"blink.hex"_s);
            (bench.commands.*command)();
            EXPECT_EQ(bench.Met(), QStringList());
            EXPECT_EQ(bench.Setting(keys::OpenDir), u"never stored"_s);
        }
    }
}

}  // namespace
}  // namespace tolvex
