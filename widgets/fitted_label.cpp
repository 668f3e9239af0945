// SPDX-License-Identifier: MIT
#include "widgets/fitted_label.h"

#include <QFontInfo>
#include <QPainter>
#include <QResizeEvent>
#include <QStyle>

namespace tolvex {

namespace {

constexpr int kSmallestPixels = 8;
constexpr char16_t kWordJoiner = 0x2060;

/// Japanese lines may break between any two letters; a word reads badly in two. A word begins where
/// the kind of letters changes, but not with hiragana, which end it.
bool BelongTogether(QChar left, QChar right) {
    const auto kind = [](QChar letter) {
        return letter == u'ー' ? QChar::Script_Katakana : letter.script();
    };
    if (kind(right) == QChar::Script_Hiragana) {
        return !left.isSpace() && !QStringView(u"、。，．！？").contains(left);
    }
    return kind(left) == kind(right) &&
           (kind(left) == QChar::Script_Katakana || kind(left) == QChar::Script_Han);
}

QString WithWholeWords(const QString& text) {
    QString joined;
    for (const QChar letter : text) {
        if (!joined.isEmpty() && BelongTogether(joined.back(), letter)) {
            joined += kWordJoiner;
        }
        joined += letter;
    }
    return joined;
}

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
    const QRect needed = QFontMetrics(font).boundingRect(room, flags, WithWholeWords(text_));
    return needed.width() <= room.width() && needed.height() <= room.height();
}

void FittedLabel::paintEvent(QPaintEvent* event) {
    if (!wordWrap()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, Room(), static_cast<int>(alignment()) | Qt::TextWordWrap,
                          palette(), isEnabled(), WithWholeWords(text()), foregroundRole());
}

QRect FittedLabel::Room() const {
    return contentsRect().marginsRemoved({margin(), margin(), margin(), margin()});
}

}  // namespace tolvex
