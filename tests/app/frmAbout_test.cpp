// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTextBrowser>

#include "app/frmIndex.h"
#include "app/japanese_texts.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

/// The texts of all labels, sorted. None is cut, or lies outside the panel or on another.
std::string Texts(QWidget& panel) {
    panel.show();
    QApplication::processEvents();
    QStringList texts;
    QRegion taken;
    for (const QLabel* label : panel.findChildren<QLabel*>()) {
        const QRect place(label->mapTo(&panel, QPoint()), label->size());
        const int height = label->heightForWidth(label->width());
        const QSize needed = label->wordWrap() ? QSize(0, height) : label->sizeHint();
        EXPECT_EQ(place.size().expandedTo(needed), place.size()) << qPrintable(label->text());
        EXPECT_TRUE(panel.rect().contains(place)) << qPrintable(label->text());
        EXPECT_FALSE(taken.intersects(place)) << qPrintable(label->text());
        taken += place;
        texts << label->text();
    }
    texts.sort();
    return texts.join(u'|').toStdString();
}

TEST(Panels, SayWhatTheyShouldInAnyFontAndClose) {
    const QFont before = QApplication::font();
    for (const int points : {7, 20}) {
        QApplication::setFont(QFont(before.family(), points));
        QList<QUrl> opened;
        frmAbout about(nullptr, [&opened](const QUrl& page) { opened << page; });
        frmIndex board;
        // clang-format off
        EXPECT_EQ(Texts(about), "|AT90Sシリーズ用シリアルISPライタのプログラミングソフトウエア|"
            "MITライセンスで配布されているフリーソフトウエアです。|Tolvex|Version " TOLVEX_VERSION "|"
            "ｻﾎﾟｰﾄﾍﾟｰｼﾞ : https://tolvex.example/support");
        EXPECT_EQ(Texts(board), " 4MHz  OSC|20pin|28pin Socket|"
            "28pinマイコンを使用するには、28ピンソケットを追加し、ボード上のコネクタCN1と結線する必要があります。"
            "XTAL1(9ピン)、XTAL2(10ピン)には、4MHzの発振子を取り付けてください。|40pin|8pin|"
            "8pinマイコンを使用するときは、上図、赤線部分の結線が必要です。|CN1|"
            "GND\r\nRESET\r\nVDD\r\nSCK\r\nMISO\r\nMOSI|ZIP Socket|"
            "２８pinマイコンを使用するときはファームウエアバージョンSW3.9以降が必要です。|"
            "８pin、２８pinマイコンを使用するときは、ボードの修正が必要です。");
        // clang-format on
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
    QSet<QString> texts;
    for (const QObject* parent :
         std::initializer_list<QObject*>{line.createStandardContextMenu(), child.systemMenu(),
                                         page.createStandardContextMenu(), &dialog}) {
        for (const QObject* part : parent->findChildren<QObject*>()) {
            texts << part->property("text").toString().section(u'\t', 0, 0);
            texts << part->property("accessibleName").toString();
        }
    }
    const JapaneseTexts japanese;
    EXPECT_GT(texts.size(), 25);
    for (const QString& text : texts) {
        const bool joined = text.isEmpty() || text.startsWith(u"Show ");
        EXPECT_TRUE(joined || !japanese.translate("", qPrintable(text), "", -1).isEmpty())
            << qPrintable(text);
    }
    EXPECT_EQ(QLineEdit::tr("Select All"), u"すべて選択"_s);
}

}  // namespace
}  // namespace tolvex
