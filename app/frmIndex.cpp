// SPDX-License-Identifier: MIT
#include "app/frmIndex.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/board_drawing.h"
#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

frmIndex::frmIndex(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmIndex"_s);
    setWindowTitle(Text::tr("ボードの修正"));

    auto* drawing = new BoardDrawing(PinNames(), this);
    QLabel* firmware = AddText(
        u"Label3"_s,
        Text::tr("２８pinマイコンを使用するときはファームウエアバージョンSW3.9以降が必要です。"));
    QLabel* modification = AddText(
        u"Label3"_s, Text::tr("８pin、２８pinマイコンを使用するときは、ボードの修正が必要です。"));
    QLabel* wiring28 = AddText(
        u"Label2"_s,
        Text::tr(
            "28pinマイコンを使用するには、28ピンソケットを追加し、ボード上のコネクタCN1と結線する必"
            "要があります。XTAL1(9ピン)、XTAL2(10ピン)には、4MHzの発振子を取り付けてください。"));
    QLabel* wiring8 = AddText(
        u"Label2"_s, Text::tr("8pinマイコンを使用するときは、上図、赤線部分の結線が必要です。"));
    auto* close = new QPushButton(Text::tr("閉じる"), this);
    close->setObjectName(u"Command1"_s);
    close->setAccessibleName(close->text());
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 14, 16, 14);
    column->setSpacing(8);
    column->addWidget(firmware);
    column->addWidget(modification);
    column->addWidget(drawing, 0, Qt::AlignHCenter);
    column->addLayout(Legend(QColor(0x3d, 0x8e, 0xe6), wiring28));
    column->addLayout(Legend(QColor(0xff, 0x4a, 0x3d), wiring8));
    column->addWidget(close, 0, Qt::AlignRight);
    column->setSizeConstraint(QLayout::SetFixedSize);
    close->setFocus();
}

QString frmIndex::PinNames() {
    return QStringList{u"GND"_s, u"RESET"_s, u"VDD"_s, u"SCK"_s, u"MISO"_s, u"MOSI"_s}.join(
        u"\r\n"_s);
}

QLabel* frmIndex::AddText(const QString& name, const QString& text) {
    auto* label = new QLabel(text, this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// A piece of the line that `text` speaks of, in front of it.
QLayout* frmIndex::Legend(QColor line, QLabel* text) {
    auto* piece = new QFrame(this);
    piece->setFixedSize(28, 4);
    piece->setAutoFillBackground(true);
    QPalette colours = piece->palette();
    colours.setColor(QPalette::Window, line);
    piece->setPalette(colours);

    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    row->addWidget(piece);
    row->addWidget(text, 1);
    return row;
}

}  // namespace tolvex
