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

TEST(VersionPanel, ShowsTheProductWholeInAnyFontAndOpensItsPage) {
    const QFont before = QApplication::font();
    for (const int points : {7, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        QList<QUrl> opened;
        frmAbout panel(nullptr, [&opened](const QUrl& page) { opened << page; });
        panel.show();
        QApplication::processEvents();
        for (const QLabel* label : panel.findChildren<QLabel*>()) {
            EXPECT_GE(label->width(), label->sizeHint().width()) << qPrintable(label->objectName());
            EXPECT_GE(label->height(), label->sizeHint().height()) << points;
        }
        EXPECT_EQ(panel.findChild<QLabel*>(u"lblVersion"_s)->text(), u"Version 1.40.25"_s);
        panel.findChild<QPushButton*>(u"Command1"_s)->click();
        EXPECT_EQ(opened, QList<QUrl>{QUrl(product::SupportAddress())});
        panel.findChild<QPushButton*>(u"cmdOK"_s)->click();
        EXPECT_FALSE(panel.isVisible());
    }
    QApplication::setFont(before);
}

}  // namespace
}  // namespace tolvex
