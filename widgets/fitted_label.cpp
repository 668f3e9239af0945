// SPDX-License-Identifier: MIT
#include "widgets/fitted_label.h"

#include <QFontInfo>
#include <QResizeEvent>

namespace tolvex {

namespace {

constexpr int kSmallestPixels = 8;

}  // namespace

FittedLabel::FittedLabel(const QString& spoken, QWidget* parent)
    : QLabel(parent), spoken_(spoken), designFont_(font()) {
    setTextFormat(Qt::PlainText);
    setIndent(0);  // by default half a letter beside a frame, unseen by the fitting
    setAccessibleName(spoken_);
    setAccessibleDescription(spoken_);
}

void FittedLabel::ShowText(const QString& text) {
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    while (plain.endsWith(u'\n')) {
        plain.chop(1);
    }
    // Fitting takes its time, and on a broken line thousands of commands report the same text.
    if (plain == text_) {
        return;
    }
    text_ = plain;
    setAccessibleName(text_.isEmpty() ? spoken_ : text_);
    Fit();
    updateGeometry();
}

void FittedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    Fit();
}

void FittedLabel::showEvent(QShowEvent* event) {
    QLabel::showEvent(event);
    Fit();
}

QSize FittedLabel::minimumSizeHint() const {
    return {0, sizeHint().height()};
}

QSize FittedLabel::sizeHint() const {
    const QFontMetrics metrics(designFont_);
    const int around = 2 * (margin() + frameWidth()) + 2;
    return metrics.size(0, text_) + QSize(around, around);
}

void FittedLabel::Fit() {
    if (!isVisible()) {
        setText(text_);  // its room may yet change, and every size that is tried costs a font
        return;
    }
    QFont fitted = designFont_;
    int pixels = QFontInfo(designFont_).pixelSize();
    while (!Fits(fitted) && pixels > kSmallestPixels) {
        fitted.setPixelSize(--pixels);
    }
    setFont(fitted);
    const bool whole = Fits(fitted);
    setText(whole || wordWrap()
                ? text_
                : QFontMetrics(fitted).elidedText(text_, Qt::ElideRight, Room().width()));
    setToolTip(whole ? QString() : text_);
}

bool FittedLabel::Fits(const QFont& font) const {
    const int flags = wordWrap() ? Qt::TextWordWrap | Qt::TextWrapAnywhere : 0;
    const QRect room = Room();
    const QRect needed = QFontMetrics(font).boundingRect(room, flags, text_);
    return needed.width() <= room.width() && needed.height() <= room.height();
}

QRect FittedLabel::Room() const {
    return contentsRect().marginsRemoved({margin(), margin(), margin(), margin()});
}

}  // namespace tolvex
