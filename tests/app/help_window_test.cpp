// SPDX-License-Identifier: MIT
#include "app/help_window.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>

#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

struct HelpWindowTest : ::testing::Test {
    HelpWindowTest() {
        const QString filler = u"\n\nline\n"_s.repeated(60);
        const QString text = u"# Tolvex の使い方\n\n[link](#ｺﾈｸﾀ-pins)\n\n[dead](#gone)\n"_s +
                             filler + u"## ライタ\n"_s + filler +
                             u"### ｺﾈｸﾀ, pins\n\nneedle one"_s + filler +
                             u"## ライタ\n\nneedle two"_s + filler;
        testing::PutFile(folder.filePath(u"help"_s), text.toUtf8());
        window.show();
        window.activateWindow();
        QApplication::processEvents();
        window.Load(folder.filePath(u"help"_s));
    }

    void Press(const char* name) {
        window.findChild<QAbstractButton*>(QLatin1StringView(name))->click();
    }
    void Choose(QTreeWidgetItem* heading) { Q_EMIT contents.itemActivated(heading, 0); }
    void ClickLink(const QString& text) {
        const QTextCursor link = page.document()->find(text);
        QTest::mouseClick(page.viewport(), Qt::LeftButton, {},
                          page.cursorRect(link).center() - QPoint(5, 0));
    }
    /// The line that the page shows at its top.
    QString TopLine() const { return page.cursorForPosition(QPoint(5, 15)).block().text(); }
    /// What the search says.
    QString SearchFor(const QString& text) {
        window.findChild<QLineEdit*>(u"txtSearch"_s)->setText(text);
        Press("cmdFindNext");
        return window.findChild<QLabel*>(u"LblFound"_s)->text();
    }

    QTemporaryDir folder;
    HelpWindow window;
    QTreeWidget& contents = *window.findChild<QTreeWidget*>(u"treeContents"_s);
    QTextBrowser& page = *window.findChild<QTextBrowser*>(u"txtHelp"_s);
};

TEST_F(HelpWindowTest, HeadingsAndLinksJumpAndTheWayBackIsKept) {
    const QString start = u"Tolvex の使い方"_s, pins = u"ｺﾈｸﾀ, pins"_s;
    QTreeWidgetItem* title = contents.topLevelItem(0);
    ASSERT_TRUE(contents.topLevelItemCount() == 1 && title->childCount() == 2);
    EXPECT_EQ(title->text(0), start);
    QTreeWidgetItem* section = title->child(0);
    const std::pair<std::function<void()>, QString> steps[] = {
        {[&] { Choose(section); }, u"ライタ"_s},
        {[&] { Choose(section->child(0)), Choose(section->child(0)); }, pins},  // counts once
        {[&] { Press("cmdBack"); }, u"ライタ"_s},
        {[&] { Press("cmdForward"); }, pins},
        {[&] { Press("cmdHome"); }, start},
        {[&] { ClickLink(u"dead"_s); }, start},
        {[&] { ClickLink(u"link"_s); }, pins},
        {[&] { Press("cmdBack"); }, start},
        {[&] { Press("cmdForward"); }, pins},
    };
    for (const auto& [step, line] : steps) {
        step();
        EXPECT_EQ(TopLine(), line);
    }
}

TEST_F(HelpWindowTest, SearchGoesOnFromMatchToMatchAndStartsAgain) {
    QList<int> places;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(SearchFor(u"NEEDLE"_s), QString());
        EXPECT_EQ(page.textCursor().selectedText(), u"needle"_s);
        places << page.textCursor().position();
    }
    EXPECT_LT(places[0], places[1]);
    EXPECT_EQ(places[2], places[0]);
    EXPECT_EQ(SearchFor(u"無い"_s), u"見つかりません。"_s);
    EXPECT_EQ(SearchFor(u"pins"_s), QString());
}

TEST_F(HelpWindowTest, OpensAgainAtTheBeginningAndReadsWhatHasChanged) {
    const QString file = folder.filePath(u"help"_s), gone = folder.filePath(u"gone.hlp"_s);
    Choose(contents.topLevelItem(0)->child(1));
    const int revision = page.document()->revision();
    window.Load(file);
    EXPECT_EQ(page.document()->revision(), revision) << "not read again: that takes its time";
    EXPECT_EQ(TopLine(), u"Tolvex の使い方"_s);
    EXPECT_FALSE(window.findChild<QAbstractButton*>(u"cmdBack"_s)->isEnabled());
    QFile changed(file);
    ASSERT_TRUE(changed.open(QIODevice::WriteOnly) && changed.write("# new\n") && changed.flush());
    changed.setFileTime(QDateTime::currentDateTime().addSecs(9), QFile::FileModificationTime);
    const QString missing =
        u"ヘルプファイルを開くことができません。\n"_s + QDir::toNativeSeparators(gone);
    for (const auto& [path, shown] :
         {std::pair(file, u"new"_s), {gone, missing}, {file, u"new"_s}}) {
        window.Load(path);
        EXPECT_EQ(page.toPlainText(), shown);
        EXPECT_EQ(contents.topLevelItemCount(), path == file ? 1 : 0);
    }
}

TEST_F(HelpWindowTest, FitsTheScreenAndIsUsedByKeyboard) {
    EXPECT_LE(window.width(), QGuiApplication::primaryScreen()->availableSize().width() - 24);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->role(), QAccessible::Window);
    window.activateWindow();
    QApplication::processEvents();
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(window.focusWidget()->objectName(), u"txtSearch"_s);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace tolvex
