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
#include "base/language.h"
#include "link/frmCom.h"
#include "tests/app/window_bench.h"
#include "widgets/fonts.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

/// Whether `control` shows all of its text at its size.
bool IsWhole(const QWidget& control, const QString& text) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        const int height = label->heightForWidth(label->width());
        const QSize needed = label->wordWrap() ? QSize(0, height) : label->sizeHint();
        return label->size().expandedTo(needed) == label->size();
    }
    const QFontMetrics metrics = control.fontMetrics();
    return metrics.horizontalAdvance(QString(text).remove(u'&')) + 4 <= control.width() &&
           metrics.height() <= control.height();
}

/// The texts of all labels, buttons, boxes, lists and frames, sorted. None is cut, or lies outside
/// the window or on another; only frames hold others, and the boxes stand in their labels' gaps.
std::string Texts(QWidget& window) {
    window.show();
    QApplication::processEvents();
    QStringList texts;
    QRegion taken;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        const QRect place(control->mapTo(&window, QPoint()), control->size());
        const auto text = [control](const char* name) {
            return control->property(name).toString();
        };
        const bool isFrame = !text("title").isEmpty();
        const QString shown = text("title") + text("currentText") + text("text");
        const bool isLine = qobject_cast<const QLineEdit*>(control) != nullptr;
        if (!control->isVisible() || (shown.isEmpty() && !isLine)) {
            continue;
        }
        EXPECT_TRUE(IsWhole(*control, shown)) << qPrintable(shown);
        EXPECT_TRUE(window.rect().contains(place)) << qPrintable(shown);
        EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()))
            << qPrintable(shown);
        if (!isFrame && !isLine) {
            EXPECT_FALSE(taken.intersects(place)) << qPrintable(shown);
            taken += place;
        }
        texts << shown;
    }
    texts.sort();
    return texts.join(u'|').toStdString();
}

using enum Language;

TEST(Panels, SayWhatTheyShouldInAnyFontAndClose) {
    const QFont before = QApplication::font();
    for (const auto& [points, language] :
         {std::pair(7, Japanese), {20, Japanese}, {7, English}, {20, English}}) {
        const auto translator = InstallTexts(language);
        QApplication::setFont(QFont(before.family(), points));
        QList<QUrl> opened;
        frmAbout about(nullptr, [&opened](const QUrl& page) { opened << page; });
        frmIndex board;
        const std::string aboutTexts = Texts(about), boardTexts = Texts(board);
        if (language == English) {
            continue;  // whole
        }
        // clang-format off
        EXPECT_EQ(aboutTexts, "AT90Sシリーズ用シリアルISPライタのプログラミングソフトウエア|"
            "MITライセンスで配布されているフリーソフトウエアです。|Tolvex|Version " TOLVEX_VERSION "|サポートホームページへジャンプ|閉じる|"
            "ｻﾎﾟｰﾄﾍﾟｰｼﾞ : https://tolvex.example/support");
        EXPECT_EQ(boardTexts, " 4MHz  OSC|20pin|28pin Socket|"
            "28pinマイコンを使用するには、28ピンソケットを追加し、ボード上のコネクタCN1と結線する必要があります。"
            "XTAL1(9ピン)、XTAL2(10ピン)には、4MHzの発振子を取り付けてください。|40pin|8pin|"
            "8pinマイコンを使用するときは、上図、赤線部分の結線が必要です。|CN1|"
            "GND\r\nRESET\r\nVDD\r\nSCK\r\nMISO\r\nMOSI|ZIP Socket|閉じる|"
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

TEST(Panels, SettingsAndPortDialogAreWhole) {
    const QFont before = QApplication::font();
    QApplication::setFont(WindowFont(QFont(before.family(), 14)));
    for (const int device : {0, 1, 7}) {  // the longest names, and all lists
        const auto translator = InstallTexts(English);
        testing::RunningBench b(device);
        Texts(*b.Child("frmSetting")->widget());
        frmCom dialog(b.program.Bench().chip, {}, nullptr);
        Texts(dialog);
    }
    testing::RunningBench b(7);
    // clang-format off
    EXPECT_EQ(Texts(*b.Child("frmSetting")->widget()),
        "0|2.7V|64ms + 16K CK|AT90S4433|BOD ENABLE|BOD LEVEL|Buffer READ|Buffer WRITE|Disable|EEPROM|EEPROM メモリサイズ : 256 byte|"
        "FF|FSTRT|Fuse|Lock|Lock/Fuse READ|Lock/Fuse WRITE|Lock/Fuse ビット|PCバッファメモリ修正|PROGRAM|"
        "Programメモリサイズ : 2048 word|RCEN|Reset Delay|アドレス:        (Hex)|デ ー タ:        (Hex)|デバイス選択|"
        "バッファ修正のみ。デバイスには書込みません。|プロテクトなし");
    frmCom dialog(b.program.Bench().chip, {}, nullptr);
    EXPECT_EQ(Texts(dialog), "CANCEL|COM1|OK|通信ポートを選んでください。");
    // clang-format on
    QApplication::setFont(before);
}

TEST(Frame, LeavesAGapInItsLineForTheCaption) {
    QPalette colours;
    colours.setColor(QPalette::Disabled, QPalette::Window, Qt::red);  // as in a dark theme
    Frame frame(u"frame"_s, u"    "_s, nullptr);
    frame.setPalette(colours);
    frame.setEnabled(false);
    frame.resize(200, 50);
    QPixmap picture(frame.size());
    picture.fill(Qt::blue);
    frame.render(&picture, {}, {}, QWidget::DrawChildren);
    const QImage image = picture.toImage();
    const int line = Frame::kCaptionHeight / 2;
    EXPECT_EQ(image.pixelColor(12, line), Qt::blue);
    EXPECT_EQ(image.pixelColor(12, line - 3), Qt::blue);
    EXPECT_EQ(image.pixelColor(2, line), image.pixelColor(150, line));
    EXPECT_NE(image.pixelColor(2, line), Qt::blue);
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
