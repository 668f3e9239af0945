// SPDX-License-Identifier: MIT
#include "image/frmModify.h"

#include <QFontMetrics>
#include <QLabel>

#include "base/text.h"
#include "widgets/fonts.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPanelPoints = 9;
constexpr int kPanelHeight = 104;
constexpr int kLeft = 8;
constexpr int kRowHeight = 20;
constexpr int kFirstRow = 16;
constexpr int kSecondRow = 38;
constexpr int kButtonRow = 61;
constexpr int kNoteRow = 85;
constexpr int kOptionLeft = 158;
constexpr int kButtonWidth = 118;

}  // namespace

frmModify::frmModify(const ImageContext& context, QWidget* parent)
    : Frame(u"frmModify"_s, Text::tr("PCバッファメモリ修正"), parent), context_(context) {
    setFont(ListingFont(kPanelPoints));
    setFixedHeight(kPanelHeight);

    txtAddress_ = AddBox(u"txtAddress"_s, u"0"_s, u"Label1"_s, Text::tr("アドレス:"),
                         u"        (Hex)"_s, kFirstRow);
    txtData_ = AddBox(u"txtData"_s, u"FF"_s, u"Label2"_s, Text::tr("デ ー タ:"), u"        (Hex)"_s,
                      kSecondRow);
    optionProgram_ = AddOption(u"OptionProgram"_s, Text::tr("PROGRAM"), kFirstRow);
    optionEeprom_ = AddOption(u"OptionEeprom"_s, u"EEPROM"_s, kSecondRow);
    optionEeprom_->setChecked(true);
    cmdRead_ = AddButton(u"CmdRead"_s, Text::tr("Buffer READ"), kLeft);
    cmdWrite_ = AddButton(u"CmdWrite"_s, Text::tr("Buffer WRITE"), kLeft + kButtonWidth + 4);
    auto* note = new QLabel(Text::tr("バッファ修正のみ。デバイスには書込みません。"), this);
    note->setObjectName(u"Label5"_s);
    QFont small = font();
    small.setPixelSize(11);
    note->setFont(small);
    note->move(kLeft, kNoteRow);

    connect(txtAddress_, &QLineEdit::textChanged, this, &frmModify::txtAddress_Change);
    connect(cmdRead_, &QPushButton::clicked, this, &frmModify::CmdRead_Click);
    connect(cmdWrite_, &QPushButton::clicked, this, &frmModify::CmdWrite_Click);
}

/// The label's text has a gap of blanks; the box stands in it.
QLineEdit* frmModify::AddBox(const QString& name, const QString& text, const QString& labelName,
                             const QString& caption, const QString& gap, int top) {
    auto* label = new QLabel(caption + gap, this);
    label->setObjectName(labelName);
    label->setGeometry(kLeft, top, kOptionLeft - kLeft, kRowHeight);
    auto* box = new QLineEdit(text, this);
    box->setObjectName(name);
    box->setAccessibleName(caption.trimmed().chopped(1) + u" (Hex)"_s);
    label->setBuddy(box);
    const QFontMetrics metrics(font());
    const int blanks = metrics.horizontalAdvance(gap.left(gap.indexOf(u'(')));
    box->setGeometry(kLeft + metrics.horizontalAdvance(caption) + 2, top, blanks - 4, kRowHeight);
    box->setTextMargins(0, 0, 0, 0);
    return box;
}

QRadioButton* frmModify::AddOption(const QString& name, const QString& caption, int top) {
    auto* option = new QRadioButton(caption, this);
    option->setObjectName(name);
    option->setAccessibleName(caption);
    option->setGeometry(kOptionLeft, top, 96, kRowHeight);
    return option;
}

QPushButton* frmModify::AddButton(const QString& name, const QString& caption, int left) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAccessibleName(caption);
    button->setGeometry(left, kButtonRow, kButtonWidth, kRowHeight + 2);
    return button;
}

void frmModify::txtAddress_Change() {
    if (isEnabled()) {
        ReadBufferCell(context_, txtAddress_->text(), optionProgram_->isChecked(), false);
    }
}

void frmModify::CmdRead_Click() {
    const auto value =
        ReadBufferCell(context_, txtAddress_->text(), optionProgram_->isChecked(), true);
    if (value) {
        txtData_->setText(*value);
    }
}

void frmModify::CmdWrite_Click() {
    WriteBufferCell(context_, txtAddress_->text(), txtData_->text(), optionProgram_->isChecked());
}

}  // namespace tolvex
