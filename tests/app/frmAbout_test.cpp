// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTextBrowser>
#include <QToolButton>

#include "app/frmIndex.h"
#include "app/japanese_texts.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The texts of labels that are cut, or lie outside their panel or on each other.
QStringList Faults(QWidget& panel) {
    QStringList faults;
    QRegion taken;
    for (const QLabel* label : panel.findChildren<QLabel*>()) {
        const QRect place(label->mapTo(&panel, QPoint()), label->size());
        const int height = label->heightForWidth(label->width());
        const QSize needed = label->wordWrap() ? QSize(0, height) : label->sizeHint();
        if (place.size().expandedTo(needed) != place.size() || !panel.rect().contains(place) ||
            taken.intersects(place)) {
            faults << label->text();
        }
        taken += place;
    }
    return faults;
}

/// "name: text" of every label, sorted.
std::string Texts(const QWidget& panel) {
    QStringList texts;
    for (const QLabel* label : panel.findChildren<QLabel*>()) {
        EXPECT_TRUE(label->accessibleName().isEmpty() || label->text().isEmpty());
        texts << label->objectName() + u": "_s + label->text();
    }
    texts.sort();
    return texts.join(u'\n').toStdString();
}

TEST(Panels, SayWhatTheyShouldInAnyFontAndClose) {
    const QFont before = QApplication::font();
    for (const int points : {7, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        QList<QUrl> opened;
        frmAbout about(nullptr, [&opened](const QUrl& page) { opened << page; });
        frmIndex board;
        about.show();
        board.show();
        QApplication::processEvents();
        EXPECT_EQ(Faults(about) + Faults(board), QStringList()) << points << " points";
        EXPECT_EQ(Texts(about),
                  u"Label1: MITライセンスで配布されているフリーソフトウエアです。\n"
                  "lblDescription: AT90Sシリーズ用シリアルISPライタのプログラミングソフトウエア\n"
                  "lblDisclaimer: ｻﾎﾟｰﾄﾍﾟｰｼﾞ : https://tolvex.example/support\n"
                  "lblTitle: Tolvex\nlblVersion: Version 1.40.25\npicIcon: "_s.toStdString());
        EXPECT_EQ(Texts(board),
                  u"Label1: 20pin\nLabel1: 28pin Socket\nLabel1: 40pin\nLabel1: 8pin\n"
                  "Label1: ZIP Socket\n"
                  "Label2: "
                  "28pinマイコンを使用するには、28ピンソケットを追加し、ボード上のコネクタCN1と結線"
                  "する必要があります。XTAL1(9ピン)、XTAL2(10ピン)"
                  "には、4MHzの発振子を取り付けてください。\n"
                  "Label2: 8pinマイコンを使用するときは、上図、赤線部分の結線が必要です。\n"
                  "Label3: "
                  "２８pinマイコンを使用するときはファームウエアバージョンSW3.9以降が必要です。\n"
                  "Label3: ８pin、２８pinマイコンを使用するときは、ボードの修正が必要です。\n"
                  "Label4: GND\r\nRESET\r\nVDD\r\nSCK\r\nMISO\r\nMOSI\n"
                  "Label5:  4MHz  OSC\nLabel6: CN1"_s.toStdString());
        about.findChild<QPushButton*>(u"Command1"_s)->click();
        EXPECT_EQ(opened, QList<QUrl>{QUrl(u"https://tolvex.example/support"_s)});
        about.findChild<QPushButton*>(u"cmdOK"_s)->click();
        board.findChild<QPushButton*>(u"Command1"_s)->click();
        EXPECT_FALSE(about.isVisible() || board.isVisible());
    }
    QApplication::setFont(before);
}

TEST(JapaneseTexts, CoverWhatQtShows) {
    QLineEdit line(u"x"_s);
    QTextBrowser page;
    QMdiSubWindow child;
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    QStringList texts;
    QList<QAction*> actions = dialog.findChildren<QAction*>();
    for (const QMenu* menu :
         {line.createStandardContextMenu(), page.createStandardContextMenu(), child.systemMenu()}) {
        actions += menu->actions();
    }
    for (const QAction* action : actions) {
        texts << action->text().section(u'\t', 0, 0);
    }
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        texts << label->text();
    }
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        texts << button->text() << button->toolTip() << button->accessibleName();
    }
    texts.removeAll(QString());
    texts.removeDuplicates();
    texts.removeIf([](const QString& text) { return text.startsWith(u"Show "); });  // joined
    EXPECT_GT(texts.size(), 25);
    const JapaneseTexts japanese;
    for (const QString& text : texts) {
        EXPECT_FALSE(japanese.translate("", qPrintable(text), "", -1).isEmpty())
            << qPrintable(text);
    }
    EXPECT_EQ(QLineEdit::tr("Select All"), u"すべて選択"_s);
}

}  // namespace
}  // namespace tolvex
