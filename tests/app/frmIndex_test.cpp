// SPDX-License-Identifier: MIT
#include "app/frmIndex.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

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

TEST(BoardPanel, ShowsEveryLabelWholeInAnyFont) {
    const QFont before = QApplication::font();
    for (const int points : {7, 20}) {
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

}  // namespace
}  // namespace tolvex
