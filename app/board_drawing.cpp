// SPDX-License-Identifier: MIT
#include "app/board_drawing.h"

#include <QEvent>
#include <QPainter>
#include <vector>

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

// What the labels need to know of the drawing, in its units.
constexpr QRectF kPinPlate(412, 239, 56, 102);  ///< as high as six lines of text
constexpr QRgb kAdded = 0xffe3cf9e;             ///< the added board
constexpr QRgb kOnDark = 0xfff6f8f7, kOnLight = 0xff3a2c10;

struct NameRow {
    QString objectName;
    QString text;
    QPointF centre;
    QRgb colour;
};

std::vector<NameRow> NameRows() {
    return {
        {u"Label1"_s, Text::tr("28pin Socket"), {658, 50}, kOnLight},
        {u"Label1"_s, Text::tr("ZIP Socket"), {270, 27}, kOnDark},
        {u"Label1"_s, Text::tr("8pin"), {292.5, 290}, kOnDark},
        {u"Label1"_s, Text::tr("20pin"), {139.5, 290}, kOnDark},
        {u"Label1"_s, Text::tr("40pin"), {270, 93}, kOnDark},
        {u"Label6"_s, u"CN1"_s, {398, 225}, kOnDark},
        {u"Label5"_s, Text::tr(" 4MHz  OSC"), {572, 275}, kOnLight},
    };
}

}  // namespace

BoardDrawing::BoardDrawing(const QString& pinNames, QWidget* parent)
    : QWidget(parent), drawing_(u":/icons/board.svg"_s) {
    setObjectName(u"BoardDrawing"_s);
    setAccessibleName(Text::tr("ライタボードの図"));
    setAccessibleDescription(Text::tr(
        "赤線：CN1から8pinソケットへの結線。青線：CN1から追加した28pinソケットへの結線。"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    AddLabels(pinNames);
    PlaceLabels();
}

QSize BoardDrawing::sizeHint() const {
    return (drawing_.viewBoxF().size() * scale_).toSize();
}

void BoardDrawing::AddLabels(const QString& pinNames) {
    const auto add = [this](const QString& name, const QString& text, QRgb colour) {
        auto* label = new QLabel(this);
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setText(text);
        label->setAlignment(Qt::AlignCenter);
        QPalette colours = label->palette();
        colours.setColor(QPalette::WindowText, QColor::fromRgba(colour));
        colours.setColor(QPalette::Window, QColor::fromRgba(kAdded));
        label->setPalette(colours);
        return label;
    };
    for (const NameRow& row : NameRows()) {
        names_ << add(row.objectName, row.text, row.colour);
        // Off the holes of the added board.
        names_.last()->setAutoFillBackground(row.colour == kOnLight);
    }
    label4_ = add(u"Label4"_s, pinNames, kOnLight);
}

void BoardDrawing::PlaceLabels() {
    const QSize pinNames = label4_->sizeHint();
    scale_ = pinNames.height() / kPinPlate.height();
    const auto place = [this](QLabel* label, QPointF centre) {
        QRect box(QPoint(), label->sizeHint());
        box.moveCenter((centre * scale_).toPoint());
        label->setGeometry(box);
    };
    const std::vector<NameRow> rows = NameRows();
    for (std::size_t row = 0; row < rows.size(); ++row) {
        place(names_[static_cast<qsizetype>(row)], rows[row].centre);
    }
    place(label4_, kPinPlate.center());
    updateGeometry();
    update();
}

void BoardDrawing::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        PlaceLabels();
    }
}

void BoardDrawing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing_.render(&painter);
}

}  // namespace tolvex
