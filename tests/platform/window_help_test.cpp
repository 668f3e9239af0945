// SPDX-License-Identifier: MIT
#include "platform/window_help.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

class HelpWindowTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const QString filler = u"\n\nline\n"_s.repeated(60);
        const QString text = u"# Tolvex の使い方\n"_s + filler + u"## ライタ\n"_s + filler +
                             u"### ｺﾈｸﾀ, pins\n\nneedle one"_s + filler +
                             u"## ライタ\n\nneedle two"_s + filler;
        ASSERT_TRUE(Write(text.toUtf8()));
        window_.show();
        window_.Load(file_);
    }

    bool Write(const QByteArray& content) const {
        QFile file(file_);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    }

    template <typename Widget>
    Widget& Find(const QString& name) const {
        return *window_.findChild<Widget*>(name);
    }

    void Press(const QString& name) const { Find<QAbstractButton>(name).click(); }

    bool Enabled(const QString& name) const { return Find<QAbstractButton>(name).isEnabled(); }

    /// The line that the page shows at its top.
    QString TopLine() const {
        const auto& page = Find<QTextBrowser>(u"txtHelp"_s);
        return page.cursorForPosition(QPoint(5, 15)).block().text();
    }

    void Choose(QTreeWidgetItem* item) const {
        Q_EMIT Find<QTreeWidget>(u"treeContents"_s).itemActivated(item, 0);
    }

    void SearchFor(const QString& text) const {
        Find<QLineEdit>(u"txtSearch"_s).setText(text);
        Press(u"cmdFindNext"_s);
    }

    QTemporaryDir folder_;
    QString file_ = folder_.filePath(u"tolvex.hlp"_s);
    HelpWindow window_;
};

TEST_F(HelpWindowTest, ContentsListTheHeadingsByLevel) {
    const auto& contents = Find<QTreeWidget>(u"treeContents"_s);
    ASSERT_EQ(contents.topLevelItemCount(), 1);
    const QTreeWidgetItem* title = contents.topLevelItem(0);
    EXPECT_EQ(title->text(0), u"Tolvex の使い方"_s);
    ASSERT_EQ(title->childCount(), 2);
    EXPECT_EQ(title->child(0)->text(0), u"ライタ"_s);
    ASSERT_EQ(title->child(0)->childCount(), 1);
    EXPECT_EQ(title->child(0)->child(0)->text(0), u"ｺﾈｸﾀ, pins"_s);
    EXPECT_EQ(title->child(1)->childCount(), 0);
}

TEST_F(HelpWindowTest, HeadingsJumpAndTheWayBackIsKept) {
    EXPECT_EQ(TopLine(), u"Tolvex の使い方"_s);
    EXPECT_FALSE(Enabled(u"cmdBack"_s));
    QTreeWidgetItem* title = Find<QTreeWidget>(u"treeContents"_s).topLevelItem(0);
    Choose(title->child(0));
    EXPECT_EQ(TopLine(), u"ライタ"_s);
    Choose(title->child(0)->child(0));
    Choose(title->child(0)->child(0));  // a click and its activation count once
    EXPECT_EQ(TopLine(), u"ｺﾈｸﾀ, pins"_s);
    EXPECT_FALSE(Enabled(u"cmdForward"_s));
    Press(u"cmdBack"_s);
    EXPECT_EQ(TopLine(), u"ライタ"_s);
    Press(u"cmdForward"_s);
    EXPECT_EQ(TopLine(), u"ｺﾈｸﾀ, pins"_s);
    Press(u"cmdBack"_s);
    Press(u"cmdHome"_s);
    EXPECT_EQ(TopLine(), u"Tolvex の使い方"_s);
    EXPECT_FALSE(Enabled(u"cmdForward"_s)) << "a new way forgets the old one";
    EXPECT_TRUE(Enabled(u"cmdBack"_s));
}

TEST_F(HelpWindowTest, LinksWithinTheTextJumpToTheirHeading) {
    Q_EMIT Find<QTextBrowser>(u"txtHelp"_s).anchorClicked(QUrl(u"#ｺﾈｸﾀ-pins"_s));
    EXPECT_EQ(TopLine(), u"ｺﾈｸﾀ, pins"_s);
    Q_EMIT Find<QTextBrowser>(u"txtHelp"_s).anchorClicked(QUrl(u"#gone"_s));
    EXPECT_EQ(TopLine(), u"ｺﾈｸﾀ, pins"_s);
}

TEST_F(HelpWindowTest, SearchGoesOnFromMatchToMatchAndStartsAgain) {
    const auto& page = Find<QTextBrowser>(u"txtHelp"_s);
    QList<int> places;
    for (int i = 0; i < 3; ++i) {
        SearchFor(u"NEEDLE"_s);
        EXPECT_EQ(page.textCursor().selectedText(), u"needle"_s);
        places << page.textCursor().position();
    }
    EXPECT_LT(places[0], places[1]);
    EXPECT_EQ(places[2], places[0]);
    SearchFor(u"無い"_s);
    EXPECT_EQ(Find<QLabel>(u"LblFound"_s).text(), u"見つかりません。"_s);
    SearchFor(u"pins"_s);
    EXPECT_EQ(Find<QLabel>(u"LblFound"_s).text(), QString());
}

TEST_F(HelpWindowTest, AFileThatCannotBeReadIsReportedOnThePage) {
    for (const QString& path : {folder_.filePath(u"gone.hlp"_s), folder_.path()}) {
        window_.Load(path);
        EXPECT_EQ(Find<QTextBrowser>(u"txtHelp"_s).toPlainText(),
                  u"ヘルプファイルを開くことができません。\n"_s + path);
        EXPECT_EQ(Find<QTreeWidget>(u"treeContents"_s).topLevelItemCount(), 0);
        SearchFor(u"needle"_s);
        Press(u"cmdHome"_s);
    }
}

TEST_F(HelpWindowTest, EveryControlCanBeSaidAndReached) {
    for (const char* name : {"cmdBack", "cmdForward", "cmdHome", "txtSearch", "cmdFindNext",
                             "treeContents", "txtHelp"}) {
        const auto* control = window_.findChild<QWidget*>(QString::fromLatin1(name));
        ASSERT_NE(control, nullptr) << name;
        EXPECT_FALSE(control->accessibleName().isEmpty()) << name;
        EXPECT_NE(control->focusPolicy() & Qt::TabFocus, 0) << name;
    }
}

TEST(WindowHelp, OneWindowServesEveryCall) {
    QTemporaryDir folder;
    const auto windows = [] {
        QList<QWidget*> found;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"helpWindow"_s) {
                found << window;
            }
        }
        return found;
    };
    WindowHelp help;
    EXPECT_EQ(windows().size(), 0);
    help.ShowContents(folder.filePath(u"a.hlp"_s));
    ASSERT_EQ(windows().size(), 1);
    QWidget* window = windows().first();
    EXPECT_FALSE(window->isModal());
    window->close();
    help.ShowContents(folder.filePath(u"b.hlp"_s));
    ASSERT_EQ(windows(), QList<QWidget*>{window});
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->findChild<QTextBrowser*>()->toPlainText().endsWith(u"b.hlp"_s));
}

}  // namespace
}  // namespace tolvex
