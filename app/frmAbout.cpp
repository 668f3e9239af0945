// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"

#include <QDesktopServices>
#include <QFontInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>

#include "base/product.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 64;
constexpr double kTitleScale = 1.8;  // of the panel's own font

}  // namespace

frmAbout::frmAbout(QWidget* parent, OpenPage openPage)
    : QDialog(parent),
      openPage_(std::move(openPage)),
      picIcon_(AddLabel(u"picIcon"_s)),
      lblTitle_(AddLabel(u"lblTitle"_s)),
      lblVersion_(AddLabel(u"lblVersion"_s)),
      lblDescription_(AddLabel(u"lblDescription"_s)),
      lblDisclaimer_(AddLabel(u"lblDisclaimer"_s)),
      label1_(AddLabel(u"Label1"_s)),
      command1_(new QPushButton(u"サポートホームページへジャンプ"_s, this)),
      cmdOK_(new QPushButton(u"閉じる"_s, this)) {
    setObjectName(u"frmAbout"_s);
    setWindowTitle(u"バージョン情報"_s);
    if (!openPage_) {
        openPage_ = [](const QUrl& page) { QDesktopServices::openUrl(page); };
    }
    command1_->setObjectName(u"Command1"_s);
    command1_->setAccessibleName(command1_->text());
    command1_->setAutoDefault(false);
    cmdOK_->setObjectName(u"cmdOK"_s);
    cmdOK_->setAccessibleName(cmdOK_->text());
    cmdOK_->setDefault(true);
    connect(command1_, &QPushButton::clicked, this, &frmAbout::Command1_Click);
    connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);

    FillVersionPanel();
    ArrangeControls();
    cmdOK_->setFocus();
}

QLabel* frmAbout::AddLabel(const QString& name) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void frmAbout::FillVersionPanel() {
    lblVersion_->setText(product::VersionText());
    lblTitle_->setText(product::Title());
    lblDescription_->setText(product::Description());
    lblDisclaimer_->setText(product::Comments());
}

void frmAbout::ArrangeControls() {
    picIcon_->setPixmap(
        QIcon(u":/icons/tolvex.svg"_s).pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    picIcon_->setFixedSize(kIconSize, kIconSize);
    picIcon_->setAccessibleName(u"アイコン"_s);
    QFont titleFont = font();
    titleFont.setPixelSize(qRound(QFontInfo(font()).pixelSize() * kTitleScale));
    titleFont.setBold(true);
    lblTitle_->setFont(titleFont);
    label1_->setText(product::LicenseNote());
    // The address can be copied, in case no browser opens.
    lblDisclaimer_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* line = new QFrame(this);
    line->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(command1_);
    buttons->addStretch();
    buttons->addWidget(cmdOK_);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(20, 18, 20, 16);
    grid->setHorizontalSpacing(18);
    grid->setVerticalSpacing(6);
    grid->addWidget(picIcon_, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(lblTitle_, 0, 1, Qt::AlignBottom);
    grid->addWidget(lblVersion_, 1, 1, Qt::AlignTop);
    grid->setRowMinimumHeight(2, 6);
    grid->addWidget(lblDescription_, 3, 1);
    grid->addWidget(lblDisclaimer_, 4, 1);
    grid->addWidget(line, 5, 0, 1, 2);
    grid->addWidget(label1_, 6, 0, 1, 2);
    grid->setRowMinimumHeight(7, 8);
    grid->addLayout(buttons, 8, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(command1_, cmdOK_);
}

void frmAbout::Command1_Click() {
    openPage_(QUrl(product::SupportAddress()));
}

}  // namespace tolvex
