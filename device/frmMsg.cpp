// SPDX-License-Identifier: MIT
#include "device/frmMsg.h"

#include <QCloseEvent>

#include "widgets/fonts.h"
#include "widgets/twips.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QRect Place(int left, int top, int width, int height) {
    return {PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width),
            PixelsFromTwips(height)};
}

}  // namespace

frmMsg::frmMsg(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::WindowStaysOnTopHint),
      txtMsg_(new FittedLabel(this)),
      cmdOkm_(new QPushButton(u"OK"_s, this)),
      progBar_(new QProgressBar(this)) {
    setObjectName(u"frmMsg"_s);
    setWindowTitle(u"メッセージ"_s);
    setFixedSize(PixelsFromTwips(5745), PixelsFromTwips(1800));

    txtMsg_->setObjectName(u"txtMsg"_s);
    txtMsg_->setAccessibleName(u"メッセージ"_s);
    txtMsg_->setWordWrap(true);
    txtMsg_->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    txtMsg_->setGeometry(Place(90, 180, 5415, 600));
    cmdOkm_->setObjectName(u"Cmd_okm"_s);
    cmdOkm_->setAccessibleName(u"OK"_s);
    cmdOkm_->setDefault(true);
    cmdOkm_->setGeometry(Place(2355, 945, 1275, 330));
    cmdOkm_->hide();
    progBar_->setObjectName(u"ProgBar"_s);
    progBar_->setAccessibleName(u"進行状況"_s);
    progBar_->setTextVisible(false);
    progBar_->setGeometry(Place(180, 1080, 5280, 210));
    progBar_->hide();
    connect(cmdOkm_, &QPushButton::clicked, this, &QWidget::close);
}

void frmMsg::ShowMessage(MessageMode mode, const QString& text) {
    const bool message = mode == MessageMode::Message;
    cmdOkm_->setVisible(message);
    progress_.visible = progress_.visible && !message;
    ShowBar();
    txtMsg_->ShowText(text);
    // A progress display must not take the keyboard from whatever the person is doing.
    setAttribute(Qt::WA_ShowWithoutActivating, !message);
    show();
    if (message) {
        raise();
        activateWindow();
        cmdOkm_->setFocus();
    }
}

void frmMsg::SetProgress(bool on, double minimum, double value, double maximum) {
    progress_.Set(on, minimum, value, maximum);
    if (on) {
        progBar_->setRange(static_cast<int>(progress_.minimum),
                           static_cast<int>(progress_.maximum));
        progBar_->setValue(static_cast<int>(progress_.value));
    }
    ShowBar();
}

/// The OK button and the bar share the lower band.
void frmMsg::ShowBar() {
    progBar_->setVisible(progress_.visible && !HasButton());
}

void frmMsg::reject() {
    if (MayClose()) {
        QDialog::reject();
    }
}

void frmMsg::closeEvent(QCloseEvent* event) {
    if (MayClose()) {
        QDialog::closeEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace tolvex
