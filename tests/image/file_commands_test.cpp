// SPDX-License-Identifier: MIT
#include "image/file_commands.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QTemporaryDir>

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
const QString kHexMissing = u"Program : Not found HEX file"_s;
const QString kEepMissing = u"EEPROM memory : Not found EEP file"_s;

const QString kQuestion = u"question ファイル保存|ファイルが存在します。上書きしますか？"_s;
const QString kRefused = u"box Stop ファイル保存|リードオンリーファイルにアクセスしました。"_s;
const QString kFailed = u"box Stop ファイル保存|ファイル保存できませんでした。"_s;
const QString kSaved = u"status 1: ファイルを保存しました．"_s;

const Command kSaveBoth = &FileCommands::mnuFileSaveAs_Click;
const Command kSaveCode = &FileCommands::mnuFileSaveAsCode_Click;
const Command kSaveData = &FileCommands::mnuFileSaveAsData_Click;

const Command kOpen = &FileCommands::mnuFileOpen_Click;
const Command kOpenCode = &FileCommands::mnuFileOpenCode_Click;
const Command kOpenData = &FileCommands::mnuFileOpenData_Click;
const Command kReload = &FileCommands::mnuReLoad_Click;

const QByteArray kCode = ":020000000C945E\r\n:00000001FF\r\n";
const QByteArray kData = ":0100000048B7\r\n:00000001FF\r\n";

/// The file commands over real files in a folder of their own, with a scripted person.
struct FileCommandBench {
    explicit FileCommandBench(const QString& listingFolder = u"/"_s)
        : listings({.folders = {dir.path() + listingFolder}, .windows = person, .state = state}) {}

    QTemporaryDir dir;
    testing::Recorder person;
    const Person all = person.AsPerson();
    testing::MemorySettings settings;
    ProgramState state{.device = {u"AT90S1200"_s, 0x13, 512, 64, FuseGroup::LockOnly}};
    ListingFiles listings;
    FileCommands commands{{.listings = listings,
                           .settings = settings,
                           .person = all,
                           .state = state,
                           .mainCaption = [] { return u"Tolvex 1.2.3"_s; }}};

    QString Path(const QString& name) const { return dir.filePath(name); }
    /// `text` with this bench's folder cut out wherever it stands.
    QString Short(QString text) const { return text.remove(dir.path() + u'/'); }
    QString Setting(const char* key) const {
        return settings.values.value(QString::fromLatin1(key), u"never stored"_s);
    }
    /// What the person met since the last look, dialogs left out.
    QStringList Met() {
        static const QRegularExpression dialog(u"^(?!(open|save) dialog)"_s);
        return std::exchange(person.calls, {}).filter(dialog);
    }
    /// The next file dialog returns the file of this name; an empty name cancels it.
    void Choose(const QString& name) {
        person.fileAnswers << (name.isEmpty() ? FileDialogAnswer{} : Chosen(Path(name)));
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
        {kOpen, u"コードファイル ＆ データファイルを開く"_s, openCode, u"hex;rom"_s, u"/c/open"_s, u"/c/before.hex"_s},
        {kSaveCode, u"コードファイル(*.hex)の保存"_s, saveCode, u""_s, u"/c/save"_s, u"*.hex"_s},
        {kSaveData, u"データファイル(*.eep)の保存"_s, u"Eep File|*.eep|All Files|*.*|"_s, u""_s, u"/c/save"_s, u"*.eep"_s},
        {kSaveBoth, u"コードファイル ＆ データファイルの保存"_s, saveCode, u""_s, u"/c/save"_s, u"/c/before.hex"_s},
        // clang-format on
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
        EXPECT_EQ(request.directory, c.directory);
        EXPECT_EQ(request.initialName, c.initialName);
        const QString dialog = c.directory == u"/c/open" ? u"open dialog "_s : u"save dialog "_s;
        EXPECT_TRUE(bench.person.calls.contains(dialog + c.title));
    }
}

TEST(FileCommands, OpeningLeavesBehind) {
    const QString hex = u"blink.hex"_s, rom = u"blink.ROM"_s, eep = u"blink.eep"_s,
                  txt = u"blink.txt"_s;
    const QString hexShown = u"Program : blink.hex"_s, eepShown = u"EEPROM : blink.eep"_s;
    const QByteArray noColon = ":020000000C945E\nnonsense\n";
    const QByteArray beyondFlash = ":02FFFF001122\n", beyondEeprom = ":01FFFF0011\n";
    const QStringList allShown{kFlashShown, kEepromShown, kOpened};
    // Files that exist (empty content = no such file), and everything a command leaves behind.
    const struct {
        const char* what;
        Command command;
        QString chosen;  ///< empty = the dialog is cancelled
        QByteArray code, data;
        QStringList met;
        QString flashCaption, eepromCaption;
        QString codeName, dataName;
        bool directoryStored;
        int flashCell1, eepromCell0;  ///< 0x77 before the command
    } cases[] = {
        // clang-format off
        {"both there", kOpen, hex, kCode, kData, allShown, hexShown, eepShown, hex, eep, true, 0x0C, 0x48},
        {"no data file", kOpen, hex, kCode, "", allShown, hexShown, kEepMissing, hex, eep, true, 0x0C, 0xFF},
        {"extension in upper case", kOpen, rom, kCode, kData, allShown,
         u"Program : blink.ROM"_s, eepShown, rom, eep, true, 0x0C, 0x48},
        {"both, code without a colon", kOpen, hex, noColon, kData, QStringList(kHexError) + allShown,
         hexShown, eepShown, hex, eep, true, 0x0C, 0x48},
        {"both, data without a colon", kOpen, hex, kCode, "nonsense",
         {kFlashShown, kEepError, kEepromShown, kOpened}, hexShown, eepShown, hex, eep, true, 0x0C, 0xFF},
        {"both, code beyond the image ends it", kOpen, hex, beyondFlash, kData, {},
         hexShown, u""_s, hex, eep, false, 0xFF, 0x77},
        {"both, data beyond the image ends it", kOpen, hex, kCode, beyondEeprom, {kFlashShown},
         hexShown, eepShown, hex, eep, true, 0x0C, 0xFF},
        {"both, a data file chosen", kOpen, eep, kCode, kData, {kCannotOpen},
         u""_s, u""_s, u""_s, eep, false, 0x77, 0x77},
        {"both, no code file", kOpen, hex, "", kData, {kFlashShown, kCannotOpen},
         kHexMissing, u""_s, u""_s, eep, false, 0xFF, 0x77},
        {"both, cancelled at the start", kOpen, u""_s, kCode, kData, {kCannotOpen},
         u""_s, u""_s, u""_s, u""_s, false, 0x77, 0x77},
        {"code there", kOpenCode, hex, kCode, kData, {kFlashShown},
         hexShown, u""_s, hex, u""_s, true, 0x0C, 0x77},
        {"code without a colon", kOpenCode, hex, "nonsense", kData, {kHexError, kFlashShown},
         hexShown, u""_s, hex, u""_s, true, 0xFF, 0x77},
        {"code beyond the image", kOpenCode, hex, beyondFlash, kData, {},
         hexShown, u""_s, hex, u""_s, false, 0xFF, 0x77},
        {"code missing", kOpenCode, hex, "", kData, {}, u""_s, u""_s, hex, u""_s, false, 0x77, 0x77},
        {"code of another extension", kOpenCode, txt, kCode, kData, {kCannotOpenBox},
         u""_s, u""_s, u""_s, u""_s, false, 0x77, 0x77},
        {"code cancelled at the start", kOpenCode, u""_s, kCode, kData, {},
         u""_s, u""_s, u""_s, u""_s, false, 0x77, 0x77},
        {"data there", kOpenData, eep, kCode, kData, {kEepromShown},
         u""_s, eepShown, u""_s, eep, false, 0x77, 0x48},
        {"data, the code file chosen", kOpenData, hex, kCode, kData, {kEepromShown},
         u""_s, eepShown, u""_s, eep, false, 0x77, 0x48},
        {"data without a colon", kOpenData, eep, kCode, "nonsense", {kEepError, kEepromShown},
         u""_s, eepShown, u""_s, eep, false, 0x77, 0xFF},
        {"data beyond the image", kOpenData, eep, kCode, beyondEeprom, {},
         u""_s, eepShown, u""_s, eep, false, 0x77, 0xFF},
        {"data missing", kOpenData, eep, kCode, "", {kEepromShown},
         u""_s, kEepMissing, u""_s, eep, false, 0x77, 0xFF},
        {"data cancelled at the start", kOpenData, u""_s, kCode, kData, {kEepromShown},
         u""_s, kEepMissing, u""_s, u""_s, false, 0x77, 0xFF},
        // clang-format on
    };
    for (const auto& c : cases) {
        FileCommandBench bench;
        bench.state.images.flash.fill(0x77);
        bench.state.images.eeprom.fill(0x77);
        for (const QString& name :
             {u"blink.hex"_s, u"blink.ROM"_s, u"blink.txt"_s, u"blink.eep"_s}) {
            const QByteArray& content = name.endsWith(u"eep"_s) ? c.data : c.code;
            if (!content.isEmpty()) {
                testing::PutFile(bench.Path(name), content);
            }
        }
        bench.Choose(c.chosen);
        (bench.commands.*c.command)();

        EXPECT_EQ(bench.Met(), c.met) << c.what;
        const QStringList left{bench.person.flashCaption, bench.person.eepromCaption,
                               bench.state.names.CodeFileName, bench.state.names.DataFileName};
        EXPECT_EQ(bench.Short(left.join(u'|')),
                  QStringList({c.flashCaption, c.eepromCaption, c.codeName, c.dataName}).join(u'|'))
            << c.what;
        EXPECT_EQ(bench.Setting(keys::OpenDir),
                  c.directoryStored ? bench.dir.path() : u"never stored"_s)
            << c.what;
        EXPECT_EQ(bench.state.images.flash[1], c.flashCell1) << c.what;
        EXPECT_EQ(bench.state.images.eeprom[0], c.eepromCell0) << c.what;
    }
}

struct Step {
    Command command;
    QString chosen = {};  ///< empty = cancelled, or no dialog at all
};

TEST(FileCommands, OpeningAgain) {
    const QString hex = u"blink.hex"_s, eep = u"blink.eep"_s;
    const QStringList allShown{kFlashShown, kEepromShown, kOpened};
    const struct {
        const char* what;
        QList<Step> before;
        bool codeFileGone;
        Command again;  ///< its dialog is cancelled
        QStringList met;
        bool directoryStored;
        int flashCell1, eepromCell0;  ///< 0x77 before `again`
    } cases[] = {
        // clang-format off
        {"reload both", {{kOpen, hex}}, false, kReload, allShown, true, 0x0C, 0x48},
        {"reload without a file", {}, false, kReload, {kCannotOpen}, false, 0x77, 0x77},
        {"reload a code file alone", {{kOpenCode, hex}}, false, kReload, allShown, true, 0x0C, 0xFF},
        {"reload a file that is gone", {{kOpen, hex}}, true, kReload, {kFlashShown, kCannotOpen}, false, 0xFF, 0x77},
        {"cancelled code dialog", {{kOpen, hex}}, false, kOpenCode, {kFlashShown}, false, 0x0C, 0x77},
        {"reload after that stops before the data", {{kOpen, hex}, {kOpenCode}}, false, kReload, {kFlashShown},
         false, 0x0C, 0x77},
        {"cancelled open both takes its initial name", {{kOpen, hex}}, false, kOpen, allShown, true, 0x0C, 0x48},
        {"cancelled data dialog", {{kOpenData, eep}}, false, kOpenData, {kEepromShown}, false, 0x77, 0x48},
        // clang-format on
    };
    for (const auto& c : cases) {
        FileCommandBench bench;
        testing::PutFile(bench.Path(hex), kCode);
        testing::PutFile(bench.Path(eep), kData);
        for (const Step& step : c.before) {
            bench.Choose(step.chosen);
            (bench.commands.*step.command)();
        }
        bench.state.images.flash.fill(0x77);
        bench.state.images.eeprom.fill(0x77);
        bench.settings.values.clear();
        bench.Met();
        if (c.codeFileGone) {
            QFile::remove(bench.Path(hex));
        }
        (bench.commands.*c.again)();
        EXPECT_EQ(bench.Met(), c.met) << c.what;
        EXPECT_EQ(bench.Setting(keys::OpenDir),
                  c.directoryStored ? bench.dir.path() : u"never stored"_s)
            << c.what;
        EXPECT_EQ(bench.state.images.flash[1], c.flashCell1) << c.what;
        EXPECT_EQ(bench.state.images.eeprom[0], c.eepromCell0) << c.what;
        EXPECT_FALSE(bench.state.names.ReloadFlag) << c.what;
    }
}

TEST(FileCommands, DroppedFilesOpenByTheirExtension) {
    FileCommandBench bench;
    ASSERT_TRUE(QDir(bench.dir.path()).mkpath(u"a.hex/sub"_s));
    testing::PutFile(bench.Path(u"a.hex/sub/a.hex"_s), kCode);
    testing::PutFile(bench.Path(u"blink.eep"_s), kData);
    bench.commands.OpenDropped(bench.Path(u"a.hex/sub/a.hex"_s));
    EXPECT_EQ(bench.Met(), QStringList({kFlashShown, kEepromShown, kOpened}));
    EXPECT_EQ(bench.Setting(keys::OpenDir), bench.dir.path()) << "ends before the first bare name";

    bench.commands.OpenDropped(bench.Path(u"blink.eep"_s));
    EXPECT_EQ(bench.Met(), QStringList(kEepromShown));
    EXPECT_EQ(bench.state.images.eeprom[0], 0x48);
    bench.commands.OpenDropped(bench.Path(u"blink.txt"_s));
    EXPECT_EQ(bench.Met().last(), kCannotOpen);
    EXPECT_TRUE(bench.person.fileRequests.isEmpty());
}

TEST(FileCommands, AListingThatCannotBeWrittenEndsTheCommand) {
    for (const Command command : {kOpen, kOpenCode}) {
        FileCommandBench bench(u"/gone/"_s);
        testing::PutFile(bench.Path(u"blink.hex"_s), kCode);
        bench.Choose(u"blink.hex"_s);
        (bench.commands.*command)();
        EXPECT_EQ(bench.Met(), QStringList());
        EXPECT_EQ(bench.Setting(keys::OpenDir), u"never stored"_s);
    }
}

TEST(FileCommands, SaveBothStartsWithWhatTheLastDialogEndedWith) {
    const struct {
        const char* what;
        Command command;
        QString chosen, remembered;
    } cases[] = {
        {"opened, though missing", &FileCommands::mnuFileOpenData_Click, u"a.hex"_s, u"a.hex"_s},
        {"open cancelled", &FileCommands::mnuFileOpenCode_Click, u""_s, u""_s},
        {"open both cancelled", &FileCommands::mnuFileOpen_Click, u""_s, u"first.hex"_s},
        {"saved", kSaveData, u"b.hex"_s, u"b.hex"_s},
        {"save cancelled", kSaveCode, u""_s, u"*.hex"_s},
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

Content Look(const QByteArray& bytes, const QByteArray& image) {
    EXPECT_TRUE(bytes.isEmpty() || bytes == "old" || bytes.startsWith(image)) << bytes.constData();
    return bytes.isEmpty() ? Content::None : bytes == "old" ? Content::Old : Content::Image;
}

TEST(FileCommands, SaveAs) {
    using enum Content;
    const QString hex = u"out.hex"_s, eep = u"out.eep"_s;
    const struct {
        const char* what;
        Command command;
        QString chosen;
        QStringList existing;
        bool overwrite;
        QStringList met;
        Content code, data;  ///< of out.hex and out.eep afterwards
    } cases[] = {
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
    for (const auto& c : cases) {
        FileCommandBench bench;
        bench.state.images.flash[1] = 0x12;
        bench.state.images.eeprom[0] = 0x34;
        bench.state.names.CodeFileName = u"opened.hex"_s;
        for (const QString& name : c.existing) {
            testing::PutFile(bench.Path(name), "old");
        }
        bench.Choose(c.chosen);
        bench.person.okCancelAnswers << c.overwrite;
        (bench.commands.*c.command)();

        EXPECT_EQ(bench.Met(), c.met) << c.what;
        EXPECT_EQ(Look(Bytes(bench.Path(hex)), ":1000000012FF"), c.code) << c.what;
        EXPECT_EQ(Look(Bytes(bench.Path(eep)), ":1000000034FF"), c.data) << c.what;
        const bool written = c.code == Image || c.data == Image;
        EXPECT_EQ(bench.Setting(keys::SaveDir), written ? bench.dir.path() : u"never stored"_s)
            << c.what;
        EXPECT_EQ(bench.state.names.CodeFileName + bench.state.names.DataFileName, u"opened.hex"_s)
            << c.what;
    }
}

TEST(FileCommands, SaveUnderTheOpenedNames) {
    FileCommandBench bench;
    bench.state.names.CodeFileName = bench.Path(u"out.hex"_s);
    bench.state.names.DataFileName = bench.Path(u"out.eep"_s);
    testing::PutFile(bench.state.names.CodeFileName, "old");
    bench.commands.mnuFileSave_Click();
    EXPECT_EQ(bench.Met(), QStringList(kSaved));
    EXPECT_EQ(Bytes(bench.state.names.CodeFileName).count('\n'), 65);
    EXPECT_EQ(Bytes(bench.state.names.DataFileName).count('\n'), 5);
    EXPECT_EQ(bench.state.names.CodeSaveName, bench.state.names.CodeFileName);
    EXPECT_EQ(bench.state.names.DataSaveName, bench.state.names.DataFileName);
    EXPECT_EQ(bench.Setting(keys::SaveDir), u"never stored"_s);
}

TEST(FileCommands, SaveNeedsBothNames) {
    FileCommandBench bench;
    bench.state.names.DataFileName = bench.Path(u"out.eep"_s);
    bench.commands.mnuFileSave_Click();
    EXPECT_EQ(bench.Met(), QStringList({u"message OK: ファイルがオープンされていません．"_s,
                                        u"status 1: ファイルがオープンされていません"_s}));
    EXPECT_FALSE(QFile::exists(bench.state.names.DataFileName));

    bench.state.names.CodeFileName = bench.Path(u"out.hex"_s);
    bench.state.names.DataFileName.clear();
    bench.commands.mnuFileSave_Click();
    EXPECT_EQ(bench.Met(), QStringList({kFailed, kSaved}));
    EXPECT_EQ(Bytes(bench.state.names.CodeFileName).count('\n'), 65);
}

TEST(FileCommands, AReadOnlyFileHasAMessageOfItsOwn) {
    FileCommandBench bench;
    bench.state.names.CodeFileName = bench.Path(u"out.hex"_s);
    bench.state.names.DataFileName = bench.dir.path();
    testing::PutFile(bench.state.names.CodeFileName, "old");
    testing::MakeReadOnly(bench.state.names.CodeFileName);
    testing::OpenToAll(bench.dir.path());
    const testing::OrdinaryUser user;
    if (!user.Bound()) {
        GTEST_SKIP() << "root can't give up its rights here";
    }
    bench.commands.mnuFileSave_Click();
    EXPECT_EQ(bench.Met(), QStringList({kRefused, kFailed, kSaved}));
    EXPECT_EQ(Bytes(bench.state.names.CodeFileName), "old");
}

}  // namespace
}  // namespace tolvex
