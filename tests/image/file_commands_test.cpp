// SPDX-License-Identifier: MIT
#include "image/file_commands.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QTemporaryDir>
#include <algorithm>

#include "base/settings_keys.h"
#include "image/listing_files.h"
#include "tests/support/real_files.h"
#include "tests/support/recorder.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::Bytes;
using testing::Chosen;
using Command = void (FileCommands::*)();

const QString kFlashShown = u"flash listing"_s;
const QString kEepromShown = u"eeprom listing"_s;
const QString kOpened = u"status 1: ファイルをオープンしました。"_s;
const QString kCannotOpen = u"message OK: 指定されたファイルを開くことができませんでした。"_s;
const QString kCannotOpenBox =
    u"box Information Tolvex 1.2.3|指定されたファイルを開くことができませんでした。"_s;
const QString kHexError = u"status 1: HEX ファイルのオープンエラー"_s;
const QString kEepError = u"status 1: EEP  ファイルのオープンエラー"_s;

const QString kQuestion = u"question ファイル保存|ファイルが存在します。上書きしますか？"_s;
const QString kRefused = u"box Stop ファイル保存|リードオンリーファイルにアクセスしました。"_s;
const QString kFailed = u"box Stop ファイル保存|ファイル保存できませんでした。"_s;
const QString kSaved = u"status 1: ファイルを保存しました．"_s;

const Command kOpen = &FileCommands::mnuFileOpen_Click;
const Command kOpenCode = &FileCommands::mnuFileOpenCode_Click;
const Command kOpenData = &FileCommands::mnuFileOpenData_Click;
const Command kReload = &FileCommands::mnuReLoad_Click;
const Command kDrop = nullptr;
const Command kSave = &FileCommands::mnuFileSave_Click;
const Command kSaveBoth = &FileCommands::mnuFileSaveAs_Click;
const Command kSaveCode = &FileCommands::mnuFileSaveAsCode_Click;
const Command kSaveData = &FileCommands::mnuFileSaveAsData_Click;

const QByteArray kCode = ":020000000C945E\r\n:00000001FF\r\n";
const QByteArray kData = ":0100000048B7\r\n:00000001FF\r\n";

/// What an image holds: "kept" as `FileCommandBench` filled it, "cleared", "loaded" with the one
/// value of the test's file, or anything else.
template <typename Image>
QString Look(const Image& image, std::initializer_list<std::uint8_t> loaded) {
    Image expected;
    for (const auto& [fill, name] : {std::pair{0x77, u"kept"_s}, {0xFF, u"cleared"_s}}) {
        expected.fill(static_cast<std::uint8_t>(fill));
        if (image == expected) {
            return name;
        }
    }
    std::ranges::copy(loaded, expected.begin());
    return image == expected ? u"loaded"_s : u"other"_s;
}

/// A command and the names of the files that its dialog returns, none for a cancel, or those that
/// are dropped.
struct Step {
    Command command;
    QStringList chosen = {};
};

/// The file commands over real files in a folder of their own, with a scripted person.
struct FileCommandBench {
    FileCommandBench() { Forget(); }

    QTemporaryDir dir, listingDir;
    testing::Recorder person;
    const Person all = person.AsPerson();
    testing::MemorySettings settings;
    ProgramState state{.device = {u"AT90S1200"_s, 0x13, 512, 64, FuseGroup::LockOnly}};
    ListingFiles listings{{.folders = {listingDir.path() + u'/'}, .person = all, .state = state}};
    FileCommands commands{{.listings = listings,
                           .settings = settings,
                           .person = all,
                           .state = state,
                           .mainCaption = [] { return u"Tolvex 1.2.3"_s; }}};

    QString Path(const QString& name) const { return dir.filePath(name); }
    /// `text` with this bench's folder cut out wherever it stands.
    QString Short(QString text) const { return text.remove(dir.path() + u'/'); }
    void Do(const Step& step) {
        QStringList paths;
        for (const QString& name : step.chosen) {
            paths << Path(name);
        }
        if (step.command == kDrop) {
            commands.OpenDropped(paths);
            return;
        }
        person.fileAnswers = {paths.isEmpty() ? FileDialogAnswer{} : Chosen(paths.first())};
        (commands.*step.command)();
    }
    void Forget() {
        state.images.flash.fill(0x77);
        state.images.eeprom.fill(0x77);
        settings.values.clear();
        person.calls.clear();
    }
    /// What the person met since, dialogs left out.
    QStringList Met() const {
        static const QRegularExpression dialog(u"^(?!(open|save) dialog)"_s);
        return person.calls.filter(dialog);
    }
    QString Stored(const char* key) const {
        const QString value = settings.values.value(QString::fromLatin1(key), u"never"_s);
        return value == dir.path() ? u"stored"_s : value;
    }
    /// Captions, names, what the images hold, and the directory.
    QString Left() const {
        const QStringList left{person.flashCaption,
                               person.eepromCaption,
                               state.names.CodeFileName,
                               state.names.DataFileName,
                               Look(state.images.flash, {0x94, 0x0C}),
                               Look(state.images.eeprom, {0x48}),
                               Stored(keys::OpenDir)};
        return Short(left.join(u'|'));
    }
    /// The files of the folder and the directory: "out.eep=old out.hex=image stored".
    QString Folder() const {
        QString files;
        for (const QString& name : QDir(dir.path()).entryList(QDir::Files, QDir::Name)) {
            const QByteArray bytes = Bytes(Path(name));
            const bool image = bytes.startsWith(":1000000077") && bytes.endsWith("1FF\r\n");
            files += name + u'=' + (image ? u"image"_s : QString::fromLatin1(bytes)) + u' ';
        }
        return files + Stored(keys::SaveDir);
    }
};

TEST(FileCommands, WhatTheDialogsAskFor) {
    const QString openCode = u"Hex File|*.hex;*.rom|All Files|*.*|"_s;
    const QString saveCode = u"Hex File|*.HEX|All Files|*.*|"_s;
    const struct {
        Command command;
        QString title, filter, suffix, directory, initialName;
    } cases[] = {
        // clang-format off
        {kOpenCode, u"コードファイル(*.hex)を開く"_s, openCode, u"hex;rom"_s, u"/c/open"_s, u""_s},
        {kOpenData, u"データファイル(*.eep)を開く"_s, u"eep File|*.eep|All Files|*.*|"_s, u"eep"_s, u"/c/open"_s, u""_s},
        {kOpen, u"コードファイル ＆ データファイルを開く"_s, openCode, u"hex;rom"_s, u"/c/open"_s, u"before.hex"_s},
        {kSaveCode, u"コードファイル(*.hex)の保存"_s, saveCode, u"hex"_s, u"/c/save"_s, u"*.hex"_s},
        {kSaveData, u"データファイル(*.eep)の保存"_s, u"Eep File|*.eep|All Files|*.*|"_s, u"eep"_s, u"/c/save"_s, u"*.eep"_s},
        {kSaveBoth, u"コードファイル ＆ データファイルの保存"_s, saveCode, u"hex"_s, u"/c/save"_s, u"before.hex"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        FileCommandBench bench;
        testing::PutFile(bench.Path(u"before.hex"_s), kCode);
        bench.Do({kDrop, {u"before.hex"_s}});
        bench.settings.values = {{u"OPEN_DIR"_s, u"/c/open"_s}, {u"SAVE_DIR"_s, u"/c/save"_s}};
        bench.Do({c.command});
        ASSERT_EQ(bench.person.fileRequests.size(), 1);
        const FileDialogRequest& request = bench.person.fileRequests[0];
        EXPECT_EQ(request.title, c.title);
        EXPECT_EQ(request.filter, c.filter);
        EXPECT_EQ(request.defaultSuffix, c.suffix);
        EXPECT_EQ(request.directory, c.directory);
        EXPECT_EQ(bench.Short(request.initialName), c.initialName);
        const QString dialog = c.directory == u"/c/open" ? u"open dialog "_s : u"save dialog "_s;
        EXPECT_TRUE(bench.person.calls.contains(dialog + c.title));
    }
}

TEST(FileCommands, OpeningLeavesBehind) {
    const QString hex = u"blink.hex"_s, eep = u"blink.eep"_s, deep = u"a.hex/sub/a.hex"_s;
    const QStringList allShown{kFlashShown, kEepromShown, kOpened};
    const QString once =
        u"message OK: コードファイルとデータファイルは1つずつドロップしてください。"_s;
    const QMap<QString, QByteArray> files = {{hex, kCode},
                                             {eep, kData},
                                             {deep, kCode},
                                             {u"B.ROM"_s, kCode},
                                             {u"B.EEP"_s, kData},
                                             {u"c.txt"_s, kCode},
                                             {u"far.hex"_s, ":02FFFF001122\n"},
                                             {u"far.eep"_s, ":01FFFF0011\n"},
                                             {u"bad.hex"_s, "nonsense"},
                                             {u"bad.eep"_s, "nonsense"}};
    // What the last step leaves behind: calls, then captions, names, images, directory.
    const struct {
        QList<Step> steps;
        QStringList met;
        QString left;
    } cases[] = {
        // clang-format off
        {{{kOpen, {hex}}}, allShown, u"Program : blink.hex|EEPROM : blink.eep|blink.hex|blink.eep|loaded|loaded|stored"_s},
        {{{kOpen, {u"B.ROM"_s}}}, allShown, u"Program : B.ROM|EEPROM : B.EEP|B.ROM|B.EEP|loaded|loaded|stored"_s},
        {{{kOpen, {u"far.hex"_s}}}, {}, u"Program : far.hex||far.hex|far.eep|other|kept|never"_s},
        {{{kOpen, {eep}}}, {kCannotOpen}, u"|||blink.eep|kept|kept|never"_s},
        {{{kOpen, {u"gone.hex"_s}}}, {kFlashShown, kCannotOpen}, u"Program : Not found HEX file|||gone.eep|cleared|kept|never"_s},
        {{{kOpenCode, {u"bad.hex"_s}}}, {kHexError, kFlashShown}, u"Program : bad.hex||bad.hex||cleared|kept|stored"_s},
        {{{kOpenCode, {u"far.hex"_s}}}, {}, u"Program : far.hex||far.hex||other|kept|never"_s},
        {{{kOpenCode, {u"c.txt"_s}}}, {kCannotOpenBox}, u"||||kept|kept|never"_s},
        {{{kOpenData, {hex}}}, {kEepromShown}, u"|EEPROM : blink.eep||blink.eep|kept|loaded|never"_s},
        {{{kOpenData, {u"bad.eep"_s}}}, {kEepError, kEepromShown}, u"|EEPROM : bad.eep||bad.eep|kept|cleared|never"_s},
        {{{kOpenData, {u"far.eep"_s}}}, {}, u"|EEPROM : far.eep||far.eep|kept|cleared|never"_s},
        {{{kOpenData, {u"gone.eep"_s}}}, {kEepromShown}, u"|EEPROM memory : Not found EEP file||gone.eep|kept|cleared|never"_s},
        {{{kOpenData}}, {kEepromShown}, u"|EEPROM memory : Not found EEP file|||kept|cleared|never"_s},
        // Again: reloaded, or with the dialog cancelled, which then ends with its initial name.
        {{{kOpen, {hex}}, {kReload}}, allShown, u"Program : blink.hex|EEPROM : blink.eep|blink.hex|blink.eep|loaded|loaded|stored"_s},
        {{{kOpenCode, {hex}}, {kReload}}, allShown, u"Program : blink.hex|EEPROM memory : Not found EEP file|blink.hex||loaded|cleared|stored"_s},
        {{{kOpen, {hex}}, {kOpenCode}, {kReload}}, {kFlashShown}, u"Program : blink.hex|EEPROM : blink.eep|blink.hex|blink.eep|loaded|kept|never"_s},
        {{{kOpen, {hex}}, {kOpen}}, allShown, u"Program : blink.hex|EEPROM : blink.eep|blink.hex|blink.eep|loaded|loaded|stored"_s},
        // Dropped; the directory ends before the first bare name.
        {{{kDrop, {deep}}}, allShown, u"Program : a.hex/sub/a.hex|EEPROM memory : Not found EEP file|a.hex/sub/a.hex|a.hex/sub/a.eep|loaded|cleared|stored"_s},
        {{{kDrop, {u"B.EEP"_s, u"folder.hex"_s}}}, {kEepromShown}, u"|EEPROM : B.EEP||B.EEP|kept|loaded|never"_s},
        {{{kDrop, {u"B.EEP"_s, hex}}}, allShown, u"Program : blink.hex|EEPROM : B.EEP|blink.hex|B.EEP|loaded|loaded|stored"_s},
        {{{kDrop, {u"c.txt"_s}}}, {kCannotOpen}, u"|||c.eep|kept|kept|never"_s},
        {{{kDrop, {hex, eep, deep}}}, {once}, u"||||kept|kept|never"_s},
        {{{kDrop, {eep, u"far.eep"_s}}}, {once}, u"||||kept|kept|never"_s},
        {{{kDrop, {u"folder.hex"_s, u"fifo.hex"_s, u"gone.hex"_s}}}, {}, u"||||kept|kept|never"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        FileCommandBench bench;
        QDir(bench.dir.path()).mkpath(u"a.hex/sub"_s);
        QDir(bench.dir.path()).mkpath(u"folder.hex"_s);
        testing::MakeFifo(bench.Path(u"fifo.hex"_s));
        for (auto file = files.begin(); file != files.end(); ++file) {
            testing::PutFile(bench.Path(file.key()), file.value());
        }
        for (const Step& step : c.steps) {
            bench.Forget();
            bench.Do(step);
        }
        EXPECT_EQ(bench.Met(), c.met) << c.left.toStdString();
        EXPECT_EQ(bench.Left(), c.left);
        EXPECT_FALSE(bench.state.names.ReloadFlag);
    }
}

TEST(FileCommands, SavingLeavesBehind) {
    const QString a = u"a.hex"_s, aData = u"a.eep"_s, locked = u"locked.hex"_s;
    const QString noFile = u"message OK: ファイルがオープンされていません．"_s;
    const QString noFileStatus = u"status 1: ファイルがオープンされていません"_s;
    const struct {
        Step step;
        QString code, data;  ///< opened
        QStringList old;     ///< files that are there before
        bool overwrite;      ///< the answer to the question
        QStringList met;
        QString folder;
    } cases[] = {
        // clang-format off
        {{kSaveCode, {a}}, {}, {}, {aData}, false, {}, u"a.eep=old a.hex=image stored"_s},
        {{kSaveCode, {a}}, {}, {}, {a}, false, {kQuestion}, u"a.hex=old never"_s},
        {{kSaveData, {a}}, {}, {}, {a}, false, {}, u"a.eep=image a.hex=old stored"_s},
        {{kSaveData, {u"A.EEP"_s}}, {}, {}, {u"A.EEP"_s}, true, {kQuestion}, u"A.EEP=image stored"_s},
        {{kSaveData, {u"𠮷ab"_s}}, {}, {}, {}, false, {}, u"eep=image stored"_s},
        {{kSaveBoth, {a}}, {}, {}, {aData}, false, {}, u"a.eep=image a.hex=image stored"_s},
        {{kSaveBoth, {a}}, {}, {}, {u"A.EEP"_s}, false, {}, u"A.EEP=old a.eep=image a.hex=image stored"_s},
        {{kSaveBoth, {a}}, {}, {}, {aData, a}, true, {kQuestion}, u"a.eep=image a.hex=image stored"_s},
        {{kSaveBoth, {a}}, {}, {}, {aData, a}, false, {kQuestion}, u"a.eep=old a.hex=old never"_s},
        {{kSaveBoth}, a, {}, {a}, true, {}, u"a.hex=old never"_s},
        {{kSave}, a, u"b.eep"_s, {a}, false, {kSaved}, u"a.hex=image b.eep=image never"_s},
        {{kSave}, {}, u"b.eep"_s, {}, false, {noFile, noFileStatus}, u"never"_s},
        {{kSave}, a, {}, {}, false, {kFailed, kSaved}, u"a.hex=image never"_s},
        {{kSave}, locked, u"fifo.eep"_s, {locked}, false, {kRefused, kFailed, kSaved}, u"locked.hex=old never"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        FileCommandBench bench;
        for (const QString& name : c.old) {
            testing::PutFile(bench.Path(name), "old");
            QFile::setPermissions(bench.Path(name),
                                  QFileDevice::Permissions(name == locked ? 0x4444 : 0x6666));
        }
        testing::MakeFifo(bench.Path(u"fifo.eep"_s));
        QFile::setPermissions(bench.dir.path(), QFileDevice::Permissions(0x7777));
        bench.state.names.CodeFileName = c.code.isEmpty() ? QString() : bench.Path(c.code);
        bench.state.names.DataFileName = c.data.isEmpty() ? QString() : bench.Path(c.data);
        bench.person.okCancelAnswers << c.overwrite;
        const testing::OrdinaryUser user;
        if (!user.Bound()) {
            GTEST_SKIP() << "root can't give up its rights here";
        }
        bench.Do(c.step);
        EXPECT_EQ(bench.Met(), c.met) << c.folder.toStdString();
        EXPECT_EQ(bench.Folder(), c.folder);
        EXPECT_EQ(bench.Left().section(u'|', 2, 3), c.code + u'|' + c.data) << "stay as they were";
    }
}

}  // namespace
}  // namespace tolvex
