// SPDX-License-Identifier: MIT
#include "image/file_commands.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include "base/settings.h"
#include "tests/support/file_troubles.h"
#include "tests/support/real_files.h"
#include "tests/support/test_bench.h"

namespace tolvex::testing {
namespace {

using F = FileCommands;

const QString kFlashShown = u"flash listing"_s, kEepromShown = u"eeprom listing"_s;
const QString kCannotOpen = u"message OK: 指定されたファイルを開くことができませんでした。"_s;
const QString kQuestion = u"question ファイル保存|ファイルが存在します。上書きしますか？"_s;
const QString kFailed = u"box Stop ファイル保存|ファイル保存できませんでした。"_s;
const QString kOpened = u"status 1: ファイルをオープンしました。"_s;
const QString kSaved = u"status 1: ファイルを保存しました．"_s;

using Command = void (FileCommands::*)();

/// A command and the files that its dialog returns, none for a cancel; or the files dropped.
struct Step {
    Command command;
    QStringList chosen = {};
};
constexpr std::nullptr_t kDrop = nullptr;

/// The file commands over real files in a folder of their own, with a scripted user.
struct FileCommandBench : TestBench {
    FileCommandBench() { Fresh(); }

    QTemporaryDir dir;
    ProgramState& state = bench.state;

    QString Path(const QString& name) const { return dir.filePath(name); }
    /// Without this bench's folder, wherever it stands.
    QString Short(QString text) const { return text.remove(dir.path() + u'/'); }
    void Do(const Step& step) {
        QStringList paths = step.chosen;
        paths.replaceInStrings(QRegularExpression(u"^"_s), dir.path() + u'/');
        if (step.command == kDrop) {
            return bench.files.OpenDropped(paths);
        }
        user.fileAnswers = paths.mid(0, 1);
        (bench.files.*step.command)();
    }
    void Fresh() {
        state.images.flash.fill(0x77);
        state.images.eeprom.fill(0x77);
        settings.values.clear();
        user.calls.clear();
    }
    /// What the user met since, dialogs left out.
    QStringList Met() const {
        static const QRegularExpression dialog(u"^(?!(open|save) dialog)"_s);
        return user.calls.filter(dialog);
    }
    QString Stored(const char* key) const {
        const QString value = settings.values.value(QString::fromLatin1(key), u"never"_s);
        return value == dir.path() ? u"stored"_s : value;
    }
    /// Captions, names, the images' first cells and last one, and the directory.
    QString Left() const {
        const auto& [flash, eeprom] = state.images;
        const QString code = HexByte(flash[0]) + HexByte(flash[1]) + u'-' + HexByte(flash.back());
        const QString data = HexByte(eeprom[0]) + u'-' + HexByte(eeprom.back());
        QStringList left{user.flashCaption, user.eepromCaption};
        left << state.names.CodeFileName << state.names.DataFileName << code << data;
        return Short(left.join(u'|') + u'|' + Stored(keys::OpenDir));
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

TEST(DataFileName, ThreeCharactersGiveWayAndAMissingFileIsLookedForInOtherCase) {
    const std::tuple<QString, QStringList, QString> cases[] = {
        {u"blink.html"_s, {}, u"blink.heep"_s},
        {u"x.EEP"_s, {}, u"x.EEP"_s},
        {u"𠮷.hex"_s, {}, u"𠮷.eep"_s},
        {u"x𠮷𠮷𠮷"_s, {}, u"xeep"_s},
        {u"𠮷ab"_s, {}, u"eep"_s},
        {u".h"_s, {}, u"eep"_s},
        {u"BLINK.HEX"_s, {u"BLINK.EEP"_s, u"BLINK.EEPS"_s}, u"BLINK.EEP"_s},
        {u"BLINK.HEX"_s, {u"BLINK.EEP"_s, u"BLINK.eep"_s}, u"BLINK.eep"_s},
        {u"blink.hex"_s, {u"BLINK.EEP"_s, u"blink.EEP"_s}, u"blink.EEP"_s},
        {u"[a]*.hex"_s, {u"[A]*.EEP"_s}, u"[A]*.EEP"_s},
    };
    for (const auto& [chosen, there, found] : cases) {
        const QTemporaryDir folder;
        for (const QString& name : there) {
            PutFile(folder.filePath(name), "x");
        }
        EXPECT_EQ(FindDataFile(folder.filePath(chosen)), folder.filePath(found));
    }
}

TEST(FileCommands, WhatTheDialogsAskFor) {
    const std::pair<Command, QString> cases[] = {
        // clang-format off
        {&F::mnuFileOpenCode_Click, u"open コードファイル(*.hex)を開く@Hex File|*.hex;*.rom|All Files|*.*|@hex;rom@/c/open@"_s},
        {&F::mnuFileOpenData_Click, u"open データファイル(*.eep)を開く@eep File|*.eep|All Files|*.*|@eep@/c/open@"_s},
        {&F::mnuFileOpen_Click, u"open コードファイル ＆ データファイルを開く@Hex File|*.hex;*.rom|All Files|*.*|@hex;rom@/c/open@last.hex"_s},
        {&F::mnuFileSaveAsCode_Click, u"save コードファイル(*.hex)の保存@Hex File|*.HEX|All Files|*.*|@hex@/c/save@*.hex"_s},
        {&F::mnuFileSaveAsData_Click, u"save データファイル(*.eep)の保存@Eep File|*.eep|All Files|*.*|@eep@/c/save@*.eep"_s},
        {&F::mnuFileSaveAs_Click, u"save コードファイル ＆ データファイルの保存@Hex File|*.HEX|All Files|*.*|@hex@/c/save@last.hex"_s},
        // clang-format on
    };
    for (const auto& [command, expected] : cases) {
        FileCommandBench b;
        b.Do({&F::mnuFileOpenData_Click, {u"last.hex"_s}});
        b.settings.values = {{u"OPEN_DIR"_s, u"/c/open"_s}, {u"SAVE_DIR"_s, u"/c/save"_s}};
        b.Do({command});
        const FileDialogRequest& r = b.user.fileRequests.last();
        const QStringList asked{r.title, r.filter, r.defaultSuffix, r.directory, r.initialName};
        EXPECT_EQ(expected.left(5) + b.Short(asked.join(u'@')), expected);
        EXPECT_TRUE(b.user.calls.contains(expected.left(5) + u"dialog "_s + r.title));
    }
}

TEST(FileCommands, OpeningLeavesBehind) {
    const QString hex = u"blink.hex"_s, eep = u"blink.eep"_s, deep = u"a.hex/sub/a.hex"_s;
    const QStringList allShown{kFlashShown, kEepromShown, kOpened};
    const QByteArray code = ":020000000C945E\r\n:00000001FF\r\n", data = ":0100000048B7\r\n";
    const std::pair<QString, QByteArray> files[] = {
        // clang-format off
        {hex, code}, {eep, data}, {deep, code}, {u"B.ROM"_s, code}, {u"B.EEP"_s, data}, {u"c.txt"_s, code},
        {u"far.hex"_s, ":02FFFF001122\n"}, {u"far.eep"_s, ":01FFFF0011\n"}, {u"bad.hex"_s, "x"}, {u"bad.eep"_s, "x"},
        // clang-format on
    };
    // What the last step leaves behind: calls, then captions, names, images, directory.
    const std::tuple<QList<Step>, QStringList, QString> cases[] = {
        // clang-format off
        {{{&F::mnuFileOpen_Click, {u"B.ROM"_s}}}, allShown, u"Program : B.ROM|EEPROM : B.EEP|B.ROM|B.EEP|940C-FF|48-FF|stored"_s},
        {{{&F::mnuFileOpen_Click, {u"far.hex"_s}}}, {}, u"Program : far.hex||far.hex|far.eep|FFFF-FF|77-77|never"_s},
        {{{&F::mnuFileOpen_Click, {eep}}}, {kCannotOpen}, u"|||blink.eep|7777-77|77-77|never"_s},
        {{{&F::mnuFileOpen_Click, {u"gone.hex"_s}}}, {kFlashShown, kCannotOpen}, u"Program : Not found HEX file|||gone.eep|FFFF-FF|77-77|never"_s},
        {{{&F::mnuFileOpenCode_Click, {u"bad.hex"_s}}}, {u"status 1: HEX ファイルのオープンエラー"_s, kFlashShown}, u"Program : bad.hex||bad.hex||FFFF-FF|77-77|stored"_s},
        {{{&F::mnuFileOpenCode_Click, {u"c.txt"_s}}}, {u"box Information Tolvex 1.2.3|指定されたファイルを開くことができませんでした。"_s}, u"||||7777-77|77-77|never"_s},
        {{{&F::mnuFileOpenData_Click, {hex}}}, {kEepromShown}, u"|EEPROM : blink.eep||blink.eep|7777-77|48-FF|never"_s},
        {{{&F::mnuFileOpenData_Click, {u"bad.eep"_s}}}, {u"status 1: EEP  ファイルのオープンエラー"_s, kEepromShown}, u"|EEPROM : bad.eep||bad.eep|7777-77|FF-FF|never"_s},
        {{{&F::mnuFileOpenData_Click, {u"far.eep"_s}}}, {}, u"|EEPROM : far.eep||far.eep|7777-77|FF-FF|never"_s},
        {{{&F::mnuFileOpenData_Click}}, {kEepromShown}, u"|EEPROM memory : Not found EEP file|||7777-77|FF-FF|never"_s},
        // Again: reloaded, or with the dialog cancelled, which then ends with its initial name.
        {{{&F::mnuFileOpen_Click, {hex}}, {&F::mnuReLoad_Click}}, allShown, u"Program : blink.hex|EEPROM : blink.eep|blink.hex|blink.eep|940C-FF|48-FF|stored"_s},
        {{{&F::mnuFileOpenCode_Click, {hex}}, {&F::mnuReLoad_Click}}, allShown, u"Program : blink.hex|EEPROM memory : Not found EEP file|blink.hex||940C-FF|FF-FF|stored"_s},
        {{{&F::mnuFileOpen_Click, {hex}}, {&F::mnuFileOpenCode_Click}, {&F::mnuReLoad_Click}}, {kFlashShown}, u"Program : blink.hex|EEPROM : blink.eep|blink.hex|blink.eep|940C-FF|77-77|never"_s},
        {{{&F::mnuFileOpen_Click, {hex}}, {&F::mnuFileOpen_Click}}, allShown, u"Program : blink.hex|EEPROM : blink.eep|blink.hex|blink.eep|940C-FF|48-FF|stored"_s},
        // A pattern, with which another dialog was cancelled, is no file name.
        {{{&F::mnuFileOpen_Click, {hex}}, {&F::mnuFileSaveAsData_Click}, {&F::mnuFileOpen_Click}}, {kFlashShown}, u"Program : blink.hex|EEPROM : blink.eep|blink.hex|blink.eep|940C-FF|77-77|never"_s},
        // Dropped; the directory ends before the first bare name.
        {{{kDrop, {deep}}}, allShown, u"Program : a.hex/sub/a.hex|EEPROM memory : Not found EEP file|a.hex/sub/a.hex|a.hex/sub/a.eep|940C-FF|FF-FF|stored"_s},
        {{{kDrop, {u"B.EEP"_s, u"folder.hex"_s}}}, {kEepromShown}, u"|EEPROM : B.EEP||B.EEP|7777-77|48-FF|never"_s},
        {{{kDrop, {u"B.EEP"_s, hex}}}, allShown, u"Program : blink.hex|EEPROM : B.EEP|blink.hex|B.EEP|940C-FF|48-FF|stored"_s},
        {{{kDrop, {u"c.txt"_s}}}, {kCannotOpen}, u"|||c.eep|7777-77|77-77|never"_s},
        {{{kDrop, {hex, eep, deep}}}, {u"message OK: コードファイルとデータファイルは1つずつドロップしてください。"_s}, u"||||7777-77|77-77|never"_s},
        {{{kDrop, {eep, u"far.eep"_s}}}, {u"message OK: コードファイルとデータファイルは1つずつドロップしてください。"_s}, u"||||7777-77|77-77|never"_s},
        {{{kDrop, {u"folder.hex"_s, u"fifo.hex"_s, u"gone.hex"_s}}}, {}, u"||||7777-77|77-77|never"_s},
        // clang-format on
    };
    for (const auto& [steps, met, left] : cases) {
        FileCommandBench b;
        QDir(b.dir.path()).mkpath(u"a.hex/sub"_s);
        QDir(b.dir.path()).mkpath(u"folder.hex"_s);
        MakeNoFile(b.Path(u"fifo.hex"_s));
        for (const auto& [name, content] : files) {
            PutFile(b.Path(name), content);
        }
        for (const Step& step : steps) {
            b.Fresh();
            b.Do(step);
        }
        EXPECT_EQ(b.Met(), met) << left.toStdString();
        const bool anyCase = QFile::exists(b.Path(u"b.eep"_s));  // for this file system, B.EEP
        EXPECT_EQ(anyCase ? b.Left().toUpper() : b.Left(), anyCase ? left.toUpper() : left);
        EXPECT_FALSE(b.state.names.ReloadFlag);
    }
}

TEST(FileCommands, SavingLeavesBehind) {
    const QString a = u"a.hex"_s, aData = u"a.eep"_s, locked = u"locked.hex"_s;
    // A step; the files opened; those there before; whether they may be overwritten; what is met.
    const std::tuple<Step, QString, QString, QStringList, bool, QStringList, QString> cases[] = {
        // clang-format off
        {{&F::mnuFileSaveAsCode_Click, {a}}, {}, {}, {aData}, false, {}, u"a.eep=old a.hex=image stored"_s},
        {{&F::mnuFileSaveAsCode_Click, {a}}, {}, {}, {a}, false, {kQuestion}, u"a.hex=old never"_s},
        {{&F::mnuFileSaveAsData_Click, {a}}, {}, {}, {a}, false, {}, u"a.eep=image a.hex=old stored"_s},
        {{&F::mnuFileSaveAsData_Click, {u"A.EEP"_s}}, {}, {}, {u"A.EEP"_s}, true, {kQuestion}, u"A.EEP=image stored"_s},
        {{&F::mnuFileSaveAsData_Click, {u"𠮷ab"_s}}, {}, {}, {}, false, {}, u"eep=image stored"_s},
        {{&F::mnuFileSaveAs_Click, {a}}, {}, {}, {u"A.EEP"_s}, false, {}, u"A.EEP=old a.eep=image a.hex=image stored"_s},
        {{&F::mnuFileSaveAs_Click, {a}}, {}, {}, {aData, a}, true, {kQuestion}, u"a.eep=image a.hex=image stored"_s},
        {{&F::mnuFileSaveAs_Click, {a}}, {}, {}, {aData, a}, false, {kQuestion}, u"a.eep=old a.hex=old never"_s},
        {{&F::mnuFileSaveAs_Click}, a, {}, {a}, true, {}, u"a.hex=old never"_s},
        {{&F::mnuFileSave_Click}, a, u"b.eep"_s, {a}, false, {kSaved}, u"a.hex=image b.eep=image never"_s},
        {{&F::mnuFileSave_Click}, {}, u"b.eep"_s, {}, false, {u"message OK: ファイルがオープンされていません．"_s, u"status 1: ファイルがオープンされていません"_s}, u"never"_s},
        {{&F::mnuFileSave_Click}, a, {}, {}, false, {kFailed, kSaved}, u"a.hex=image never"_s},
        {{&F::mnuFileSave_Click}, locked, u"fifo.eep"_s, {locked}, false, {u"box Stop ファイル保存|リードオンリーファイルにアクセスしました。"_s, kFailed, kSaved}, u"locked.hex=old never"_s},
        // clang-format on
    };
    for (const auto& [step, code, data, old, overwrite, met, folder] : cases) {
        FileCommandBench b;
        for (const QString& name : old) {
            PutFile(b.Path(name), "old");
            QFile::setPermissions(b.Path(name),
                                  QFile::Permissions(name == locked ? 0x4444 : 0x6666));
        }
        MakeNoFile(b.Path(u"fifo.eep"_s));
        QFile::setPermissions(b.dir.path(), QFileDevice::Permissions(0x7777));
        b.state.names.CodeFileName = code.isEmpty() ? QString() : b.Path(code);
        b.state.names.DataFileName = data.isEmpty() ? QString() : b.Path(data);
        b.user.okCancelAnswers << overwrite;
        const OrdinaryUser user;
        if (!user.Bound()) {
            GTEST_SKIP() << "root can't give up its rights here";
        }
        b.Do(step);
        EXPECT_EQ(b.Met(), met) << folder.toStdString();
        EXPECT_EQ(b.Folder(), folder);
        EXPECT_EQ(b.Left().section(u'|', 2, 3), code + u'|' + data) << "stay as they were";
    }
}

}  // namespace
}  // namespace tolvex::testing
