// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"

#include <QDesktopServices>
#include <QFontInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QPushButton>

#include "base/product.h"
#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 64;
constexpr double kTitleScale = 1.8;  // of the panel's own font

}  // namespace

frmAbout::frmAbout(QWidget* parent, const OpenPage& openPage)
    : QDialog(parent),
      picIcon_(AddLabel(u"picIcon"_s)),
      lblTitle_(AddLabel(u"lblTitle"_s)),
      lblVersion_(AddLabel(u"lblVersion"_s)),
      lblDescription_(AddLabel(u"lblDescription"_s)),
      lblDisclaimer_(AddLabel(u"lblDisclaimer"_s)),
      label1_(AddLabel(u"Label1"_s)) {
    setObjectName(u"frmAbout"_s);
    setWindowTitle(Text::tr("バージョン情報"));
    auto* buttons = new QHBoxLayout;
    const auto addButton = [&](const QString& name, const QString& caption) {
        auto* button = new QPushButton(caption, this);
        button->setObjectName(name);
        button->setAccessibleName(caption);
        buttons->addWidget(button);
        return button;
    };
    QPushButton* command1 = addButton(u"Command1"_s, Text::tr("サポートホームページへジャンプ"));
    command1->setAutoDefault(false);
    buttons->addStretch();
    QPushButton* cmdOK = addButton(u"cmdOK"_s, Text::tr("閉じる"));
    cmdOK->setDefault(true);
    connect(command1, &QPushButton::clicked, this, [openPage] {
        const QUrl page(product::SupportAddress());
        if (openPage) {
            openPage(page);
        } else {
            QDesktopServices::openUrl(page);
        }
    });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    FillVersionPanel();
    ArrangeControls(buttons);
    cmdOK->setFocus();
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

void frmAbout::ArrangeControls(QLayout* buttons) {
    picIcon_->setPixmap(
        QIcon(u":/icons/tolvex.svg"_s).pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    picIcon_->setFixedSize(kIconSize, kIconSize);
    picIcon_->setAccessibleName(Text::tr("アイコン"));
    QFont titleFont = font();
    titleFont.setPixelSize(qRound(QFontInfo(font()).pixelSize() * kTitleScale));
    titleFont.setBold(true);
    lblTitle_->setFont(titleFont);
    label1_->setText(product::LicenseNote());
    // The address can be copied, in case no browser opens.
    lblDisclaimer_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* line = new QFrame(this);
    line->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));

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
}

}  // namespace tolvex
