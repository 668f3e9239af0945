// SPDX-License-Identifier: MIT
#include "device/frmSetting.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "widgets/controls.h"
#include "widgets/fonts.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPoints = 9;
constexpr QMargins kFrameMargins{7, Frame::kCaptionHeight, 7, 3};
constexpr int kRowHeight = 19;
constexpr int kButtonHeight = 21;
constexpr int kGap = 2;

DropDown* NewList(const QString& name, const QString& spoken, QWidget* parent) {
    auto* list = new DropDown(parent);
    list->setObjectName(name);
    list->setAccessibleName(spoken);
    list->setFixedHeight(kRowHeight);
    // The designed width is tight; an entry that is longer than the box must not widen the window.
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(6);
    return list;
}

}  // namespace

frmSetting::frmSetting(QWidget* parent) : QWidget(parent), column_(new QVBoxLayout(this)) {
    setObjectName(u"frmSetting"_s);
    setWindowTitle(u"AVRシリーズISPプログラマ　設定ウインドウ"_s);
    setFont(ListingFont(kPoints));  // compact: the designed size is tight
    column_->setContentsMargins(4, 1, 4, 1);
    column_->setSpacing(kGap);
    column_->addWidget(BuildDeviceFrame());
    column_->addWidget(BuildLockFuseFrame());
    column_->addStretch();

    setFocusProxy(comboDevice_);

    // Only a choice by the person counts; what the program selects itself does not call back.
    connect(comboDevice_, &QComboBox::activated, this, &frmSetting::DeviceChosen);
    connect(cmdFuseRead_, &QPushButton::clicked, this, &frmSetting::FuseReadClicked);
    connect(cmdFuseWrite_, &QPushButton::clicked, this, &frmSetting::FuseWriteClicked);
}

Frame* frmSetting::BuildDeviceFrame() {
    Frame* frame = new Frame(u"Frame1"_s, u"デバイス選択"_s, this);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(kFrameMargins);
    column->setSpacing(kGap);
    comboDevice_ = NewList(u"Combo_device"_s, u"デバイス選択"_s, frame);
    label3_ = new QLabel(u"Programメモリサイズ : --- word"_s, frame);
    label3_->setObjectName(u"Label3"_s);
    label4_ = new QLabel(u"EEPROM メモリサイズ : --- byte"_s, frame);
    label4_->setObjectName(u"Label4"_s);
    column->addWidget(comboDevice_);
    column->addWidget(label3_);
    column->addWidget(label4_);
    return frame;
}

Frame* frmSetting::BuildLockFuseFrame() {
    Frame* frame = new Frame(u"Frame4"_s, u"Lock/Fuse ビット"_s, this);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(kFrameMargins);
    grid->setSpacing(kGap);
    grid->addWidget(BuildFuseFrame(), 0, 0, 1, 2);
    grid->addWidget(BuildLockFrame(), 1, 0, 1, 2);
    cmdFuseRead_ = AddButton(u"cmdFuseRead"_s, u"Lock/Fuse READ"_s, grid, 0);
    cmdFuseWrite_ = AddButton(u"cmdFuseWrite"_s, u"Lock/Fuse WRITE"_s, grid, 1);
    return frame;
}

Frame* frmSetting::BuildFuseFrame() {
    struct FuseRow {
        OptionList option;
        const char* name;
        QString caption;
    };
    const FuseRow rows[] = {
        {OptionList::FSTRT, "FSTRT", u"FSTRT"_s},
        {OptionList::RCEN, "RCEN", u"RCEN"_s},
        {OptionList::BODLEVEL, "BODLEVEL", u"BOD LEVEL"_s},
        {OptionList::BODEN, "BODEN", u"BOD ENABLE"_s},
        {OptionList::CKSEL, "CKSEL", u"Reset Delay"_s},
    };
    Frame* frame = new Frame(u"Frame2"_s, u"Fuse"_s, this);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(kFrameMargins);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(1, 1);
    int line = 0;
    for (const FuseRow& row : rows) {
        auto* label = new QLabel(row.caption, frame);
        label->setObjectName(u"Lbl_"_s + QString::fromLatin1(row.name));
        DropDown* list = NewList(u"Combo_"_s + QString::fromLatin1(row.name), row.caption, frame);
        label->setBuddy(list);
        grid->addWidget(label, line, 0);
        grid->addWidget(list, line, 1);
        grid->setRowMinimumHeight(line++, kRowHeight);  // a hidden list leaves its row in place
        options_[row.option] = {label, list};
    }
    return frame;
}

Frame* frmSetting::BuildLockFrame() {
    Frame* frame = new Frame(u"Frame3"_s, u"Lock"_s, this);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(kFrameMargins);
    DropDown* list = NewList(u"Combo_LockBit"_s, u"Lock"_s, frame);
    column->addWidget(list);
    options_[OptionList::LockBit] = {nullptr, list};
    return frame;
}

QPushButton* frmSetting::AddButton(const QString& name, const QString& caption, QGridLayout* grid,
                                   int column) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAccessibleName(caption);
    button->setFixedHeight(kButtonHeight);
    button->setMinimumWidth(0);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    grid->addWidget(button, 2, column);
    return button;
}

void frmSetting::PlacePatchFrame(QWidget* frame) {
    patchFrame_ = frame;
    column_->insertWidget(2, frame);
    frame->hide();
}

void frmSetting::FillOptions(OptionList list, const QStringList& entries) {
    QComboBox* box = options_[list].list;
    box->clear();
    box->addItems(entries);
    box->setCurrentIndex(-1);
}

int frmSetting::SelectedOption(OptionList list) const {
    return options_[list].list->currentIndex();
}

void frmSetting::SelectOption(OptionList list, int entry) {
    options_[list].list->setCurrentIndex(entry);
}

void frmSetting::ShowOption(OptionList list, bool on) {
    const OptionControls& controls = options_[list];
    controls.list->setVisible(on);
    if (controls.label != nullptr) {
        controls.label->setEnabled(on);
    }
}

void frmSetting::EnableFuseRead(bool enabled) {
    cmdFuseRead_->setEnabled(enabled);
}

void frmSetting::FillDevices(const QStringList& names) {
    comboDevice_->clear();
    comboDevice_->addItems(names);
    comboDevice_->setMaxVisibleItems(static_cast<int>(names.size()));
}

void frmSetting::MarkDevice(int index) {
    comboDevice_->setCurrentIndex(index);
}

void frmSetting::ShowSizes(const QString& flash, const QString& eeprom) {
    label3_->setText(flash);
    label4_->setText(eeprom);
}

void frmSetting::ShowPatchPanel() {
    if (patchFrame_ != nullptr) {
        patchFrame_->show();
    }
}

}  // namespace tolvex
