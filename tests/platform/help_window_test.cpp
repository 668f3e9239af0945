// SPDX-License-Identifier: MIT
#include "platform/help_window.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
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
        const QString text = u"# Tolvex の使い方\n"_s + filler + u"## ライタ\n"_s + filler +
                             u"### ｺﾈｸﾀ, pins\n\nneedle one"_s + filler +
                             u"## ライタ\n\nneedle two"_s + filler;
        testing::PutFile(folder.filePath(u"help"_s), text.toUtf8());
        window.show();
        window.Load(folder.filePath(u"help"_s));
    }

    void Press(const QString& name) { window.findChild<QAbstractButton*>(name)->click(); }
    /// The line that the page shows at its top.
    QString TopLine() const { return page.cursorForPosition(QPoint(5, 15)).block().text(); }
    /// What the search says.
    QString SearchFor(const QString& text) {
        window.findChild<QLineEdit*>(u"txtSearch"_s)->setText(text);
        Press(u"cmdFindNext"_s);
        return window.findChild<QLabel*>(u"LblFound"_s)->text();
    }

    QTemporaryDir folder;
    HelpWindow window;
    QTreeWidget& contents = *window.findChild<QTreeWidget*>(u"treeContents"_s);
    QTextBrowser& page = *window.findChild<QTextBrowser*>(u"txtHelp"_s);
};

TEST_F(HelpWindowTest, HeadingsAndLinksJumpAndTheWayBackIsKept) {
    ASSERT_EQ(contents.topLevelItemCount(), 1);
    QTreeWidgetItem* title = contents.topLevelItem(0);
    EXPECT_EQ(title->text(0), u"Tolvex の使い方"_s);
    ASSERT_EQ(title->childCount(), 2);
    ASSERT_EQ(title->child(0)->childCount(), 1);
    EXPECT_EQ(title->child(0)->child(0)->text(0), u"ｺﾈｸﾀ, pins"_s);
    Q_EMIT contents.itemActivated(title->child(0), 0);
    EXPECT_EQ(TopLine(), u"ライタ"_s);
    for (int i = 0; i < 2; ++i) {  // a click and its activation count once
        Q_EMIT contents.itemActivated(title->child(0)->child(0), 0);
    }
    EXPECT_EQ(TopLine(), u"ｺﾈｸﾀ, pins"_s);
    Press(u"cmdBack"_s);
    EXPECT_EQ(TopLine(), u"ライタ"_s);
    Press(u"cmdForward"_s);
    EXPECT_EQ(TopLine(), u"ｺﾈｸﾀ, pins"_s);
    Press(u"cmdBack"_s);
    Press(u"cmdHome"_s);
    EXPECT_EQ(TopLine(), u"Tolvex の使い方"_s);
    for (const QString& link : {u"#ｺﾈｸﾀ-pins"_s, u"#gone"_s}) {
        Q_EMIT page.anchorClicked(QUrl(link));
        EXPECT_EQ(TopLine(), u"ｺﾈｸﾀ, pins"_s);
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
    const QString file = folder.filePath(u"help"_s);
    Q_EMIT contents.itemActivated(contents.topLevelItem(0)->child(1), 0);
    EXPECT_EQ(TopLine(), u"ライタ"_s);
    const int revision = page.document()->revision();
    window.Load(file);
    EXPECT_EQ(page.document()->revision(), revision);  // not read again: that takes its time
    EXPECT_EQ(TopLine(), u"Tolvex の使い方"_s);
    EXPECT_FALSE(window.findChild<QAbstractButton*>(u"cmdBack"_s)->isEnabled());
    testing::PutFile(file, "# new\n");
    QFile changed(file);
    EXPECT_TRUE(changed.open(QIODevice::ReadWrite) &&
                changed.setFileTime(QDateTime::currentDateTime().addSecs(9),
                                    QFileDevice::FileModificationTime));
    window.Load(file);
    EXPECT_EQ(page.toPlainText(), u"new"_s);
    EXPECT_EQ(contents.topLevelItemCount(), 1);
    for (int i = 0; i < 2; ++i) {
        window.Load(folder.filePath(u"gone.hlp"_s));
        EXPECT_EQ(page.toPlainText(),
                  u"ヘルプファイルを開くことができません。\n"_s + folder.filePath(u"gone.hlp"_s));
        EXPECT_EQ(contents.topLevelItemCount(), 0);
    }
    window.Load(file);
    EXPECT_EQ(page.toPlainText(), u"new"_s);
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
