// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include "app/frmIndex.h"
#include "base/product.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The labels that are cut, or lie outside their panel or on each other.
QStringList Faults(QWidget& panel) {
    QStringList faults;
    const QList<QLabel*> labels = panel.findChildren<QLabel*>();
    const auto place = [&panel](const QLabel* label) {
        return QRect(label->mapTo(&panel, QPoint()), label->size());
    };
    for (const QLabel* label : labels) {
        const QSize needed =
            label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
        bool good = label->size().expandedTo(needed) == label->size() &&
                    panel.rect().contains(place(label));
        for (const QLabel* other : labels) {
            good = good && (other == label || !place(label).intersects(place(other)));
        }
        if (!good) {
            faults << label->text();
        }
    }
    return faults;
}

TEST(Panels, ShowEveryLabelWholeInAnyFontAndClose) {
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
        EXPECT_EQ(about.findChild<QLabel*>(u"lblVersion"_s)->text(), u"Version 1.40.25"_s);
        about.findChild<QPushButton*>(u"Command1"_s)->click();
        EXPECT_EQ(opened, QList<QUrl>{QUrl(product::SupportAddress())});
        about.findChild<QPushButton*>(u"cmdOK"_s)->click();
        board.findChild<QPushButton*>(u"Command1"_s)->click();
        EXPECT_FALSE(about.isVisible() || board.isVisible());
    }
    QApplication::setFont(before);
}

}  // namespace
}  // namespace tolvex
