// SPDX-License-Identifier: MIT
#include "device/frmMsg.h"

#include <QAccessible>
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
      txtMsg_(new FittedLabel(u"メッセージ"_s, this)),
      cmdOkm_(new QPushButton(u"OK"_s, this)),
      progBar_(new QProgressBar(this)) {
    setObjectName(u"frmMsg"_s);
    setWindowTitle(u"メッセージ"_s);
    setFixedSize(PixelsFromTwips(5745), PixelsFromTwips(1800));

    txtMsg_->setObjectName(u"txtMsg"_s);
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
    if (parent != nullptr) {
        parent->installEventFilter(this);
    }
}

void frmMsg::ShowMessage(MessageMode mode, const QString& text) {
    const bool message = mode == MessageMode::Message;
    cmdOkm_->setVisible(message);
    progress_.visible = progress_.visible && !message;
    ShowBar();
    txtMsg_->ShowText(text);
    Announce();
    // A progress display must not take the keyboard from whatever the person is doing.
    setAttribute(Qt::WA_ShowWithoutActivating, !message);
    waiting_ = !message && OwnerIsMinimized();
    if (message) {
        setWindowState(windowState() & ~Qt::WindowMinimized);
        show();
        raise();
        activateWindow();
        cmdOkm_->setFocus();
    } else if (!waiting_) {
        show();
    }
}

/// To who hears the screen instead of seeing it: the window is called what it says.
void frmMsg::Announce() {
    const QString text = txtMsg_->WholeText();
    setAccessibleName(text);
    setAccessibleDescription(text);
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

bool frmMsg::OwnerIsMinimized() const {
    return parentWidget() != nullptr && parentWidget()->isMinimized();
}

/// The progress of what runs in a minimised program shows when its window comes back.
bool frmMsg::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowStateChange && waiting_ && !OwnerIsMinimized()) {
        waiting_ = false;
        show();
    }
    return QDialog::eventFilter(watched, event);
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
