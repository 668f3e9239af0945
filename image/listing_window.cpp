// SPDX-License-Identifier: MIT
#include "image/listing_window.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStyleOptionTitleBar>

#include "base/settings.h"
#include "base/text.h"
#include "widgets/controls.h"
#include "widgets/fonts.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kListingPoints = 9;

}  // namespace

namespace listing_looks {

ListingLook Program() {
    return {"frmProgram", "txtPrg", Text::tr("プログラムメモリ"), Text::tr("Program Memoey"), 0};
}

ListingLook Eeprom() {
    return {"frmEEprom", "txtEEp", Text::tr("EEPROMデータメモリ"), Text::tr("EEPROM memory"), 0};
}

ListingLook Verify() {
    return {"frmVerify", "rtVerify", Text::tr("Verify Window"), QString(), 20};
}

}  // namespace listing_looks

ListingWindow::ListingWindow(const ListingLook& look, QWidget* parent)
    : QWidget(parent),
      caption_(look.caption),
      margin_(PixelsFromTwips(look.margin)),
      box_(new Undraggable<QPlainTextEdit>(this)) {
    setObjectName(QString::fromLatin1(look.window));
    setWindowTitle(look.caption);
    box_->setObjectName(QString::fromLatin1(look.box));
    box_->setAccessibleName(look.caption);
    box_->setReadOnly(true);
    // Read-only boxes take no cursor by default; with it the listing scrolls and copies by
    // keyboard.
    box_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box_->setTabChangesFocus(true);
    box_->setLineWrapMode(QPlainTextEdit::NoWrap);
    box_->setFont(ListingFont(kListingPoints));
    box_->setPlainText(look.initialText);
    setFocusProxy(box_);
    Form_Resize();
}

void ListingWindow::SetListing(const QString& text) {
    const int lines = box_->blockCount();
    const int across = box_->horizontalScrollBar()->value();
    const int down = box_->verticalScrollBar()->value();
    const int cursor = box_->textCursor().position();
    box_->setUpdatesEnabled(false);  // hiding it would take the keyboard focus away
    box_->setPlainText(text);
    box_->setUpdatesEnabled(true);
    if (box_->blockCount() == lines) {
        QTextCursor place = box_->textCursor();
        place.setPosition(std::min(cursor, box_->document()->characterCount() - 1));
        box_->setTextCursor(place);
        box_->horizontalScrollBar()->setValue(across);
        box_->verticalScrollBar()->setValue(down);
    }
}

void ListingWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Form_Resize();
    FitCaption();
}

void ListingWindow::SetCaption(const QString& caption) {
    caption_ = caption;
    FitCaption();
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        frame->setAccessibleDescription(caption);
    }
}

QRect ListingWindow::CaptionRoom() const {
    auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (frame == nullptr) {
        return {};
    }
    QStyleOptionTitleBar bar;
    bar.initFrom(frame);
    bar.titleBarFlags = frame->windowFlags();
    bar.titleBarState = frame->windowState();
    bar.subControls = QStyle::SC_All;
    constexpr int kBorder = 4;  // what Qt leaves around the title bar
    const int height = frame->style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, frame);
    bar.rect = QRect(kBorder, kBorder, frame->width() - 2 * kBorder, height);
    // Less than the style says: Qt cuts what only just fits.
    return frame->style()
        ->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, frame)
        .adjusted(0, 0, -2 * kBorder, 0);
}

void ListingWindow::FitCaption() {
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    const int room = CaptionRoom().width();
    QString shown = room > 0 ? metrics.elidedText(caption_, Qt::ElideMiddle, room) : caption_;
    isCut_ = shown != caption_;
    setWindowTitle(shown.replace(u"[*]"_s, u"[*][*]"_s));  // once, it marks an unsaved document
}

void ListingWindow::Form_Resize() {
    box_->setGeometry(rect().adjusted(margin_, margin_, 0, 0));
}

}  // namespace tolvex
