// SPDX-License-Identifier: MIT
// The window in English: all texts of a session, and nothing left in Japanese.
#include <gtest/gtest.h>

#include <QMenu>
#include <QRegularExpression>

#include "app/help_window.h"
#include "base/language.h"
#include "tests/app/window_bench.h"
#include "tests/support/real_files.h"

namespace tolvex::testing {
namespace {

/// What `root` and everything in it shows or says, if it is Japanese. The dot of the listings is
/// none.
QStringList JapaneseIn(QObject& root) {
    static const QRegularExpression kJapanese(
        u"[\\x{3000}-\\x{9FFF}\\x{FF00}-\\x{FF64}\\x{FF66}-\\x{FFEF}]"_s);
    QStringList found;
    for (const QObject* object : QObjectList{&root} + root.findChildren<QObject*>()) {
        for (const char* name : {"text", "title", "windowTitle", "toolTip", "currentText",
                                 "accessibleName", "accessibleDescription"}) {
            const QString text = object->property(name).toString();
            if (text.contains(kJapanese)) {
                found << text;
            }
        }
        const auto* list = qobject_cast<const QComboBox*>(object);
        for (int entry = 0; list != nullptr && entry < list->count(); ++entry) {
            if (list->itemText(entry).contains(kJapanese)) {
                found << list->itemText(entry);
            }
        }
    }
    return found;
}

struct EnglishWindow : ::testing::Test {
    std::unique_ptr<QTranslator> texts = InstallTexts(Language::English);
};

TEST_F(EnglishWindow, SaysAWholeSessionInEnglish) {
    RunningBench b(2);
    const QString code = b.folder.filePath(u"blink.hex"_s);
    PutFile(code, ":020000001234B8\r\n:00000001FF\r\n");
    // A file that is dropped, a button, a menu item; the window that it opens is answered by a
    // button.
    const char* const steps[][4] = {
        {"", "", "", "Files opened."},
        {"Program", "", "Verify  Flash: OK / EEPROM: OK", "Programming finished."},
        {"Verify", "", "Verify  Flash: OK / EEPROM: OK", "Verifying finished."},
        {"Clear", "", nullptr, "Buffers cleared."},
        {"Verify", "", "Verify  Flash: NG / EEPROM: OK", "Verifying finished."},
        {"Read", "", "", "Reading finished."},
        {"cmdFuseWrite", "", "Lock and fuse bits written.", "Writer found at COM1."},
        {"mnuFileSave", "", nullptr, "Files saved."},
        {"ComSelect", "Command_cancel", nullptr,
         "The connection to the writer has not been checked."},
        {"mmuIndex", "Command1", nullptr, nullptr},
        {"mnuHelpAbout", "cmdOK", nullptr, nullptr},
        {"mnuHelpSub", "", nullptr, nullptr},
        {"Erase", "", "", "Lock bits, Flash and EEPROM erased."}};
    for (const auto& [name, answer, message, status] : steps) {
        b.DuringDialog([](QWidget& dialog) { EXPECT_EQ(JapaneseIn(dialog), QStringList()); });
        b.AnswerDialogs(QString::fromLatin1(answer).split(u' ', Qt::SkipEmptyParts));
        if (*name == '\0') {
            Q_EMIT b.window.FilesDropped({code});
            QApplication::processEvents();
        } else {
            b.Click(name);
        }
        EXPECT_TRUE(message == nullptr || b.Message() == QString::fromLatin1(message))
            << name << ": " << qPrintable(b.Message());
        EXPECT_TRUE(status == nullptr || b.Panel(1) == QString::fromLatin1(status))
            << name << ": " << qPrintable(b.Panel(1));
        EXPECT_EQ(JapaneseIn(b.window), QStringList()) << name;
    }
    EXPECT_EQ(b.dialogsSeen,
              (QStringList{u"Select port"_s, u"Board modifications"_s, u"About Tolvex"_s}));
    EXPECT_EQ(b.helpShown.section(u'/', -1), u"tolvex_en.hlp");
    HelpWindow help;
    EXPECT_EQ(JapaneseIn(help), QStringList());
}

TEST_F(EnglishWindow, GivesEachMenuItsOwnLetters) {
    RunningBench b;
    QList<QList<QAction*>> menus{b.window.menuBar()->actions()};
    for (const QAction* top : menus.first()) {
        menus << (top->menu() == nullptr ? QList<QAction*>() : top->menu()->actions());
    }
    for (const QList<QAction*>& menu : menus) {
        QString letters;
        for (const QAction* item : menu) {
            const qsizetype mark = item->text().indexOf(u'&');
            EXPECT_TRUE(mark >= 0 || item->isSeparator()) << qPrintable(item->text());
            const QString letter = mark < 0 ? QString() : item->text().mid(mark + 1, 1).toUpper();
            EXPECT_TRUE(letter.isEmpty() || !letters.contains(letter)) << qPrintable(item->text());
            letters += letter;
        }
    }
}

}  // namespace
}  // namespace tolvex::testing
