// SPDX-License-Identifier: MIT
#include "device/frmSetting.h"

#include <QGridLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "base/text.h"
#include "device/catalogue.h"
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

const OptionRow& OptionRowOf(OptionList option) {
    return OptionRows()[static_cast<std::size_t>(option)];
}

/// With no entry selected.
DropDown* NewList(const QString& name, const QString& spoken, const QStringList& entries,
                  QWidget* parent) {
    auto* list = new DropDown(parent);
    list->setObjectName(name);
    list->setAccessibleName(spoken);
    list->setFixedHeight(kRowHeight);
    // The designed width is tight; an entry that is longer than the box must not widen the window.
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(6);
    list->addItems(entries);
    list->setCurrentIndex(-1);
    return list;
}

}  // namespace

frmSetting::frmSetting(QWidget* parent) : QWidget(parent), column_(new QVBoxLayout(this)) {
    setObjectName(u"frmSetting"_s);
    setWindowTitle(Text::tr("AVRシリーズISPプログラマ　設定ウインドウ"));
    setFont(ListingFont(kPoints));  // compact: the designed size is tight
    column_->setContentsMargins(4, 1, 4, 1);
    column_->setSpacing(kGap);
    column_->addWidget(BuildDeviceFrame());
    column_->addWidget(BuildLockFuseFrame());
    column_->addStretch();

    setFocusProxy(comboDevice_);

    connect(comboDevice_, &QComboBox::activated, this, &frmSetting::DeviceChosen);
    connect(cmdFuseRead_, &QPushButton::clicked, this, &frmSetting::FuseReadClicked);
    connect(cmdFuseWrite_, &QPushButton::clicked, this, &frmSetting::FuseWriteClicked);
}

QComboBox* frmSetting::AddOptionList(OptionList option, const QString& name, const QString& spoken,
                                     QWidget* parent) {
    QComboBox* list =
        NewList(u"Combo_"_s + name, spoken, ShownEntries(OptionRowOf(option)), parent);
    connect(list, &QComboBox::currentIndexChanged, this,
            [this, option](int entry) { Q_EMIT OptionChosen(option, entry); });
    options_[option] = list;
    return list;
}

Frame* frmSetting::BuildDeviceFrame() {
    QStringList names;
    for (const DeviceRecord& record : Catalogue()) {
        names << ShownName(record);
    }
    Frame* frame = new Frame(u"Frame1"_s, Text::tr("デバイス選択"), this);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(kFrameMargins);
    column->setSpacing(kGap);
    comboDevice_ = NewList(u"Combo_device"_s, Text::tr("デバイス選択"), names, frame);
    comboDevice_->setMaxVisibleItems(comboDevice_->count());
    label3_ = new QLabel(Text::tr("Programメモリサイズ : --- word"), frame);
    label3_->setObjectName(u"Label3"_s);
    label4_ = new QLabel(Text::tr("EEPROM メモリサイズ : --- byte"), frame);
    label4_->setObjectName(u"Label4"_s);
    column->addWidget(comboDevice_);
    column->addWidget(label3_);
    column->addWidget(label4_);
    return frame;
}

Frame* frmSetting::BuildLockFuseFrame() {
    Frame* frame = new Frame(u"Frame4"_s, Text::tr("Lock/Fuse ビット"), this);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(kFrameMargins);
    grid->setSpacing(kGap);
    grid->addWidget(BuildFuseFrame(), 0, 0, 1, 2);
    Frame* lock = new Frame(u"Frame3"_s, Text::tr("Lock"), this);
    auto* column = new QVBoxLayout(lock);
    column->setContentsMargins(kFrameMargins);
    column->addWidget(AddOptionList(OptionList::LockBit, u"LockBit"_s, Text::tr("Lock"), lock));
    grid->addWidget(lock, 1, 0, 1, 2);
    cmdFuseRead_ = AddButton(u"cmdFuseRead"_s, Text::tr("Lock/Fuse READ"), grid, 0);
    cmdFuseWrite_ = AddButton(u"cmdFuseWrite"_s, Text::tr("Lock/Fuse WRITE"), grid, 1);
    return frame;
}

Frame* frmSetting::BuildFuseFrame() {
    const std::pair<OptionList, QString> captions[] = {
        {OptionList::FSTRT, u"FSTRT"_s},
        {OptionList::RCEN, u"RCEN"_s},
        {OptionList::BODLEVEL, Text::tr("BOD LEVEL")},
        {OptionList::BODEN, Text::tr("BOD ENABLE")},
        {OptionList::CKSEL, Text::tr("Reset Delay")},
    };
    Frame* frame = new Frame(u"Frame2"_s, Text::tr("Fuse"), this);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(kFrameMargins);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(1, 1);
    int line = 0;
    for (const auto& [option, caption] : captions) {
        const QString name = OptionRowOf(option).name;
        auto* label = new QLabel(caption, frame);
        label->setObjectName(u"Lbl_"_s + name);
        QComboBox* list = AddOptionList(option, name, caption, frame);
        label->setBuddy(list);
        grid->addWidget(label, line, 0);
        grid->addWidget(list, line, 1);
        grid->setRowMinimumHeight(line++, kRowHeight);  // a hidden list leaves its row in place
        fuseLabels_[option] = label;
    }
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

void frmSetting::ShowState(const ProgramState& state) {
    const CurrentDevice& device = state.device;
    for (const auto& [option, list] : options_.asKeyValueRange()) {
        const QSignalBlocker blocker(list);
        list->setCurrentIndex(state.options[option]);
        const bool on = HasOption(device.fuseGroup, option);
        list->setVisible(on);
        if (QLabel* label = fuseLabels_.value(option)) {
            label->setEnabled(on);
        }
    }
    // Chips without fuses can't be asked for their lock bits either.
    cmdFuseRead_->setEnabled(device.fuseGroup != FuseGroup::LockOnly);
    comboDevice_->setCurrentIndex(FindDevice(device.name).value_or(-1));
    label3_->setText(Text::tr("Programメモリサイズ : %n word", nullptr, device.flashWords));
    label4_->setText(Text::tr("EEPROM メモリサイズ : %n byte", nullptr, device.eepromBytes));
}

}  // namespace tolvex
