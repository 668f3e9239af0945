// SPDX-License-Identifier: MIT
#include "link/frmCom.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/text.h"
#include "widgets/controls.h"

namespace tolvex {

using namespace Qt::StringLiterals;

frmCom::frmCom(const LinkContext& link, const QStringList& toolTips, QWidget* parent)
    : QDialog(parent), link_(link), comboCom_(new DropDown(this)) {
    setObjectName(u"frmCom"_s);
    setWindowTitle(Text::tr("通信ポート選択"));

    auto* prompt = new QLabel(Text::tr("通信ポートを選んでください。"), this);
    prompt->setObjectName(u"Label1"_s);
    prompt->setBuddy(comboCom_);
    auto* ok = new QPushButton(u"OK"_s, this);
    ok->setObjectName(u"Command_ok"_s);
    ok->setAccessibleName(ok->text());
    ok->setDefault(true);
    auto* cancel = new QPushButton(Text::tr("CANCEL"), this);
    cancel->setObjectName(u"Command_cancel"_s);
    cancel->setAccessibleName(cancel->text());

    comboCom_->setObjectName(u"Combo_com"_s);
    comboCom_->setAccessibleName(prompt->text());
    comboCom_->addItems(PortEntries());
    comboCom_->setMaxVisibleItems(comboCom_->count());
    for (int port = 1; port <= toolTips.size(); ++port) {
        comboCom_->setItemData(port, toolTips[port - 1], Qt::ToolTipRole);
    }
    comboCom_->setCurrentIndex(BeginPortChoice(link));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    column->addWidget(prompt);
    column->addWidget(comboCom_);
    column->addLayout(buttons);
    comboCom_->setFocus();

    // Queued: an assistive tool that presses the button gets its answer before the writer is asked.
    connect(ok, &QPushButton::clicked, this, &frmCom::Command_ok_Click, Qt::QueuedConnection);
    connect(cancel, &QPushButton::clicked, this, &frmCom::reject);
}

void frmCom::Command_ok_Click() {
    // The second of two quick clicks comes while the first one waits for the writer.
    if (isVisible() && ConfirmPortChoice(link_, comboCom_->currentIndex(), [this] { hide(); })) {
        accept();
    }
}

/// CANCEL, Esc and the close box alike.
void frmCom::reject() {
    CancelPortChoice(link_);
    QDialog::reject();
}

}  // namespace tolvex
