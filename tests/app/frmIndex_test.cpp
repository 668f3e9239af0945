// SPDX-License-Identifier: MIT
#include "app/frmIndex.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPushButton>

#include "app/frmBoardDrawing.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QStringList Texts(const QWidget& panel, const QString& name) {
    QStringList texts;
    for (const QLabel* label : panel.findChildren<QLabel*>(name)) {
        texts << label->text();
    }
    texts.sort();
    return texts;
}

/// Empty when every label of the panel is whole, inside the panel and clear of its siblings.
QStringList Faults(QWidget& panel) {
    QStringList faults;
    const QList<QLabel*> labels = panel.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        const QSize needed =
            label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
        const QRect place(label->mapTo(&panel, QPoint()), label->size());
        if (needed.width() > label->width() || needed.height() > label->height()) {
            faults << u"cut: "_s + label->text();
        }
        if (!panel.rect().contains(place)) {
            faults << u"outside: "_s + label->text();
        }
        for (const QLabel* other : labels) {
            if (other != label &&
                place.intersects({other->mapTo(&panel, QPoint()), other->size()})) {
                faults << u"%1 covers %2"_s.arg(label->text(), other->text());
            }
        }
    }
    return faults;
}

TEST(BoardPanel, SaysWhatToDoToTheCharacter) {
    const struct {
        QString name;
        QStringList texts;  // sorted
    } cases[] = {
        {u"Label1"_s, {u"20pin"_s, u"28pin Socket"_s, u"40pin"_s, u"8pin"_s, u"ZIP Socket"_s}},
        {u"Label2"_s,
         {u"28pinマイコンを使用するには、28ピンソケットを追加し、ボード上のコネクタCN1と結線する必要があります。XTAL1(9ピン)、XTAL2(10ピン)には、4MHzの発振子を取り付けてください。"_s,
          u"8pinマイコンを使用するときは、上図、赤線部分の結線が必要です。"_s}},
        {u"Label3"_s,
         {u"２８pinマイコンを使用するときはファームウエアバージョンSW3.9以降が必要です。"_s,
          u"８pin、２８pinマイコンを使用するときは、ボードの修正が必要です。"_s}},
        {u"Label4"_s, {u"GND\r\nRESET\r\nVDD\r\nSCK\r\nMISO\r\nMOSI"_s}},
        {u"Label5"_s, {u" 4MHz  OSC"_s}},
        {u"Label6"_s, {u"CN1"_s}},
    };
    const frmIndex panel;
    EXPECT_EQ(panel.windowTitle(), u"ボードの修正"_s);
    for (const auto& row : cases) {
        EXPECT_EQ(Texts(panel, row.name), row.texts) << row.name.toStdString();
    }
}

TEST(BoardPanel, ShowsEveryLabelWholeInAnyFont) {
    const QFont before = QApplication::font();
    for (const int points : {7, 9, 14, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        frmIndex panel;
        panel.show();
        QApplication::processEvents();
        EXPECT_EQ(Faults(panel), QStringList()) << points << " points";
    }
    QApplication::setFont(before);
}

TEST(BoardPanel, FollowsAFontThatChangesWhileItIsOpen) {
    frmIndex panel;
    panel.show();
    QFont larger = panel.font();
    larger.setPointSize(16);
    panel.setFont(larger);
    QApplication::processEvents();
    EXPECT_EQ(Faults(panel), QStringList());
}

TEST(BoardDrawing, LeadsARedWireToEachOfTheSixPins) {
    frmBoardDrawing drawing(frmIndex::PinNames());
    drawing.resize(drawing.sizeHint());
    QImage picture(drawing.size(), QImage::Format_RGB32);
    drawing.render(&picture);
    const auto* pinNames = drawing.findChild<QLabel*>(u"Label4"_s);
    // Left of the names, past the connector itself, a wire runs at the height of every name.
    const int lineHeight = pinNames->height() / 6;
    const int column = pinNames->x() - 2 * lineHeight;
    for (int pin = 0; pin < 6; ++pin) {
        const int middle = pinNames->y() + lineHeight / 2 + pin * lineHeight;
        bool red = false;
        for (int y = middle - 3; y <= middle + 3; ++y) {
            const QColor colour = picture.pixelColor(column, y);
            red = red || (colour.red() > 200 && colour.green() < 120 && colour.blue() < 120);
        }
        EXPECT_TRUE(red) << "pin " << pin;
    }
}

TEST(BoardPanel, ClosesWithItsButton) {
    frmIndex panel;
    panel.show();
    auto* close = panel.findChild<QPushButton*>(u"Command1"_s);
    ASSERT_NE(close, nullptr);
    EXPECT_EQ(close->text(), u"閉じる"_s);
    close->click();
    EXPECT_FALSE(panel.isVisible());
}

}  // namespace
}  // namespace tolvex
