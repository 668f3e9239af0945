// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include "app/product.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QMap<QString, QString> Texts(const frmAbout& panel) {
    QMap<QString, QString> texts;
    for (const QLabel* label : panel.findChildren<QLabel*>()) {
        texts[label->objectName()] = label->text();
    }
    return texts;
}

TEST(VersionPanel, ShowsTheSameProductInformationEachTimeItIsOpened) {
    const QMap<QString, QString> first = Texts(frmAbout());
    EXPECT_EQ(first[u"lblTitle"_s], u"Tolvex"_s);
    EXPECT_EQ(first[u"lblVersion"_s], u"Version 1.40.25"_s);
    EXPECT_EQ(first[u"lblDisclaimer"_s], u"ｻﾎﾟｰﾄﾍﾟｰｼﾞ : "_s + product::SupportAddress());
    EXPECT_FALSE(first[u"lblDescription"_s].isEmpty());
    EXPECT_FALSE(first[u"Label1"_s].isEmpty());
    EXPECT_EQ(Texts(frmAbout()), first);
}

TEST(VersionPanel, RefillsLabelsThatWereOverwritten) {
    frmAbout panel;
    const QMap<QString, QString> before = Texts(panel);
    for (const QString& name :
         {u"lblTitle"_s, u"lblVersion"_s, u"lblDescription"_s, u"lblDisclaimer"_s}) {
        panel.findChild<QLabel*>(name)->setText(u"?"_s);
    }
    panel.FillVersionPanel();
    EXPECT_EQ(Texts(panel), before);
}

TEST(VersionPanel, ShowsEveryLabelWholeAndTheIconSharp) {
    const QFont before = QApplication::font();
    for (const int points : {7, 9, 14, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        frmAbout panel;
        panel.show();
        QApplication::processEvents();
        for (const QLabel* label : panel.findChildren<QLabel*>()) {
            EXPECT_GE(label->width(), label->sizeHint().width())
                << label->objectName().toStdString() << " at " << points;
            EXPECT_GE(label->height(), label->sizeHint().height())
                << label->objectName().toStdString() << " at " << points;
            EXPECT_TRUE(panel.rect().contains(label->geometry()));
        }
    }
    QApplication::setFont(before);
    const frmAbout panel;
    const QPixmap icon = panel.findChild<QLabel*>(u"picIcon"_s)->pixmap();
    EXPECT_EQ(icon.deviceIndependentSize(), QSizeF(64, 64));
}

TEST(VersionPanel, OpensTheSupportPageAndStaysOpen) {
    QList<QUrl> opened;
    frmAbout panel(nullptr, [&opened](const QUrl& page) { opened << page; });
    panel.show();
    auto* jump = panel.findChild<QPushButton*>(u"Command1"_s);
    ASSERT_NE(jump, nullptr);
    EXPECT_EQ(jump->text(), u"サポートホームページへジャンプ"_s);
    jump->click();
    EXPECT_EQ(opened, QList<QUrl>{QUrl(product::SupportAddress())});
    EXPECT_TRUE(panel.isVisible());
}

TEST(VersionPanel, ClosesWithItsButton) {
    frmAbout panel;
    panel.show();
    EXPECT_EQ(panel.windowTitle(), u"バージョン情報"_s);
    auto* close = panel.findChild<QPushButton*>(u"cmdOK"_s);
    ASSERT_NE(close, nullptr);
    EXPECT_EQ(close->text(), u"閉じる"_s);
    close->click();
    EXPECT_FALSE(panel.isVisible());
}

}  // namespace
}  // namespace tolvex
