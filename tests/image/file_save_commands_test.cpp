// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "app/settings_keys.h"
#include "tests/image/file_command_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::Bytes;
using testing::FileCommandBench;
using Command = void (FileCommands::*)();

const QString kQuestion = u"question ファイル保存|ファイルが存在します。上書きしますか？"_s;
const QString kRefused = u"box Stop ファイル保存|リードオンリーファイルにアクセスしました。"_s;
const QString kFailed = u"box Stop ファイル保存|ファイル保存できませんでした。"_s;
const QString kSaved = u"status 1: ファイルを保存しました．"_s;

const Command kSaveBoth = &FileCommands::mnuFileSaveAs_Click;
const Command kSaveCode = &FileCommands::mnuFileSaveAsCode_Click;
const Command kSaveData = &FileCommands::mnuFileSaveAsData_Click;

TEST(SaveCommands, WhatTheDialogsAskFor) {
    struct {
        Command command;
        QString title, filter, initialName;
    } const cases[] = {
        {kSaveBoth, u"コードファイル ＆ データファイルの保存"_s, u"Hex File|*.HEX|All Files|*.*|"_s,
         u"/c/before.hex"_s},
        {kSaveCode, u"コードファイル(*.hex)の保存"_s, u"Hex File|*.HEX|All Files|*.*|"_s,
         u"*.hex"_s},
        {kSaveData, u"データファイル(*.eep)の保存"_s, u"Eep File|*.eep|All Files|*.*|"_s,
         u"*.eep"_s},
    };
    for (const auto& c : cases) {
        FileCommandBench bench;
        bench.settings.values[u"OPEN_DIR"_s] = u"/c/open"_s;
        bench.settings.values[u"SAVE_DIR"_s] = u"/c/save"_s;
        bench.commands.OpenDropped(u"/c/before.hex"_s);
        (bench.commands.*c.command)();
        ASSERT_EQ(bench.person.fileRequests.size(), 1);
        const FileDialogRequest& request = bench.person.fileRequests[0];
        EXPECT_EQ(bench.person.calls.last(), u"save dialog "_s + c.title);
        EXPECT_EQ(request.filter, c.filter);
        EXPECT_EQ(request.defaultSuffix, QString());
        EXPECT_EQ(request.directory, u"/c/save"_s);
        EXPECT_EQ(request.initialName, c.initialName);
    }
}

TEST(SaveCommands, SaveBothStartsWithWhatTheLastDialogEndedWith) {
    struct {
        const char* what;
        Command command;
        QString chosen;
        QString remembered;
    } const cases[] = {
        {"opened", &FileCommands::mnuFileOpenCode_Click, u"a.hex"_s, u"a.hex"_s},
        {"opened, though missing", &FileCommands::mnuFileOpenData_Click, u"a.hex"_s, u"a.hex"_s},
        {"open cancelled", &FileCommands::mnuFileOpenCode_Click, u""_s, u""_s},
        {"open both cancelled", &FileCommands::mnuFileOpen_Click, u""_s, u"first.hex"_s},
        {"saved", kSaveData, u"b.hex"_s, u"b.hex"_s},
        {"save cancelled", kSaveCode, u""_s, u"*.hex"_s},
        {"save both cancelled", kSaveBoth, u""_s, u"first.hex"_s},
    };
    for (const auto& c : cases) {
        FileCommandBench bench;
        bench.commands.OpenDropped(bench.Path(u"first.hex"_s));
        bench.Choose(c.chosen);
        (bench.commands.*c.command)();
        bench.commands.mnuFileSaveAs_Click();
        EXPECT_EQ(bench.Short(bench.person.fileRequests.last().initialName), c.remembered)
            << c.what;
    }
}

/// What stands in a file of the folder: nothing, the bytes put there before, or the image.
enum class Content { None, Old, Image };

Content Look(const FileCommandBench& bench, const QString& name, const QByteArray& image) {
    const QByteArray bytes = Bytes(bench.Path(name));
    EXPECT_TRUE(bytes.isEmpty() || bytes == "old" || bytes.startsWith(image)) << bytes.constData();
    return bytes.isEmpty() ? Content::None : bytes == "old" ? Content::Old : Content::Image;
}

struct Saving {
    const char* what;
    Command command;
    QString chosen;
    QStringList existing;
    bool overwrite;
    QStringList met;
    Content code, data;  ///< of out.hex and out.eep afterwards
};

TEST(SaveCommands, SaveAs) {
    using enum Content;
    const QString hex = u"out.hex"_s, eep = u"out.eep"_s;
    const Saving cases[] = {
        {"code, new", kSaveCode, hex, {}, false, {}, Image, None},
        {"code, over an old one", kSaveCode, hex, {hex, eep}, true, {kQuestion}, Image, Old},
        {"code, kept", kSaveCode, hex, {hex}, false, {kQuestion}, Old, None},
        {"code, cancelled", kSaveCode, u""_s, {hex}, true, {}, Old, None},
        {"data, new", kSaveData, eep, {}, false, {}, None, Image},
        {"data, named hex", kSaveData, hex, {hex}, false, {}, Old, Image},
        {"data, over an old one", kSaveData, hex, {eep}, true, {kQuestion}, None, Image},
        {"data, kept", kSaveData, eep, {eep}, false, {kQuestion}, None, Old},
        {"both, new", kSaveBoth, hex, {}, false, {}, Image, Image},
        {"both, old data goes unasked", kSaveBoth, hex, {eep}, false, {}, Image, Image},
        {"both, over old ones", kSaveBoth, hex, {hex, eep}, true, {kQuestion}, Image, Image},
        {"both, kept", kSaveBoth, hex, {hex, eep}, false, {kQuestion}, Old, Old},
    };
    for (const Saving& c : cases) {
        FileCommandBench bench;
        bench.images.flash[1] = 0x12;
        bench.images.eeprom[0] = 0x34;
        bench.names.CodeFileName = u"opened.hex"_s;
        for (const QString& name : c.existing) {
            testing::PutFile(bench.Path(name), "old");
        }
        bench.Choose(c.chosen);
        bench.person.okCancelAnswers << c.overwrite;
        (bench.commands.*c.command)();

        EXPECT_EQ(bench.Met(), c.met) << c.what;
        EXPECT_EQ(Look(bench, hex, ":1000000012FF"), c.code) << c.what;
        EXPECT_EQ(Look(bench, eep, ":1000000034FF"), c.data) << c.what;
        const bool written = c.code == Image || c.data == Image;
        EXPECT_EQ(bench.Setting(keys::SaveDir), written ? bench.dir.path() : u"never stored"_s)
            << c.what;
        EXPECT_EQ(bench.names.CodeFileName, u"opened.hex"_s) << c.what;
        EXPECT_EQ(bench.names.DataFileName, QString()) << c.what;
    }
}

TEST(SaveCommands, SaveUnderTheOpenedNames) {
    FileCommandBench bench;
    bench.names.CodeFileName = bench.Path(u"out.hex"_s);
    bench.names.DataFileName = bench.Path(u"out.eep"_s);
    testing::PutFile(bench.names.CodeFileName, "old");
    bench.commands.mnuFileSave_Click();
    EXPECT_EQ(bench.Met(), QStringList(kSaved));
    EXPECT_EQ(Bytes(bench.names.CodeFileName).count('\n'), 65);
    EXPECT_EQ(Bytes(bench.names.DataFileName).count('\n'), 5);
    EXPECT_EQ(bench.names.CodeSaveName, bench.names.CodeFileName);
    EXPECT_EQ(bench.names.DataSaveName, bench.names.DataFileName);
    EXPECT_EQ(bench.Setting(keys::SaveDir), u"never stored"_s);
}

TEST(SaveCommands, SaveWithNothingOpened) {
    FileCommandBench bench;
    bench.names.DataFileName = bench.Path(u"out.eep"_s);
    bench.commands.mnuFileSave_Click();
    EXPECT_EQ(bench.Met(), QStringList({u"message OK: ファイルがオープンされていません．"_s,
                                        u"status 1: ファイルがオープンされていません"_s}));
    EXPECT_FALSE(QFile::exists(bench.names.DataFileName));
}

TEST(SaveCommands, SaveWithOnlyACodeFileOpened) {
    FileCommandBench bench;
    bench.names.CodeFileName = bench.Path(u"out.hex"_s);
    bench.commands.mnuFileSave_Click();
    EXPECT_EQ(bench.Met(), QStringList({kFailed, kSaved}));
    EXPECT_EQ(Bytes(bench.names.CodeFileName).count('\n'), 65);
}

TEST(SaveCommands, AFailedCodeFileDoesNotStopTheDataFile) {
    FileCommandBench bench;
    ASSERT_TRUE(QDir(bench.dir.path()).mkdir(u"out.hex"_s));
    bench.Choose(u"out.hex"_s);
    bench.commands.mnuFileSaveAs_Click();
    EXPECT_EQ(bench.Met(), QStringList(kFailed));
    EXPECT_EQ(Bytes(bench.Path(u"out.eep"_s)).count('\n'), 5);
}

TEST(SaveCommands, AReadOnlyFileHasAMessageOfItsOwn) {
    FileCommandBench bench;
    bench.names.CodeFileName = bench.Path(u"out.hex"_s);
    bench.names.DataFileName = bench.dir.path();
    testing::PutFile(bench.names.CodeFileName, "old");
    testing::MakeReadOnly(bench.names.CodeFileName);
    testing::OpenToAll(bench.dir.path());
    const testing::OrdinaryUser user;
    if (!user.Bound()) {
        GTEST_SKIP() << "root can't give up its rights here";
    }
    bench.commands.mnuFileSave_Click();
    EXPECT_EQ(bench.Met(), QStringList({kRefused, kFailed, kSaved}));
    EXPECT_EQ(Bytes(bench.names.CodeFileName), "old");
}

}  // namespace
}  // namespace tolvex
