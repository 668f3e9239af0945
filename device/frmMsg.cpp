// SPDX-License-Identifier: MIT
#include "device/frmMsg.h"

#include <QAccessible>
#include <QEvent>

#include "base/settings.h"
#include "base/text.h"
#include "widgets/fonts.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QRect Place(int left, int top, int width, int height) {
    return {PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width),
            PixelsFromTwips(height)};
}

}  // namespace

frmMsg::frmMsg(QWidget* owner, Placement placement)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                         Qt::WindowStaysOnTopHint),
      placement_(std::move(placement)),
      txtMsg_(new FittedLabel(Text::tr("メッセージ"), this)),
      cmdOkm_(new QPushButton(u"OK"_s, this)),
      progBar_(new QProgressBar(this)) {
    setObjectName(u"frmMsg"_s);
    setWindowTitle(Text::tr("メッセージ"));
    setFixedSize(PixelsFromTwips(5745), PixelsFromTwips(1800));

    txtMsg_->setObjectName(u"txtMsg"_s);
    txtMsg_->setWordWrap(true);
    txtMsg_->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    txtMsg_->setGeometry(Place(90, 180, 5415, 600));
    cmdOkm_->setObjectName(u"Cmd_okm"_s);
    cmdOkm_->setAccessibleName(u"OK"_s);
    cmdOkm_->setDefault(true);
    cmdOkm_->setGeometry(Place(2355, 945, 1275, 330));
    progBar_->setObjectName(u"ProgBar"_s);
    progBar_->setAccessibleName(Text::tr("進行状況"));
    progBar_->setTextVisible(false);
    progBar_->setGeometry(Place(180, 1080, 5280, 210));
    connect(cmdOkm_, &QPushButton::clicked, this, &QDialog::accept);
    owner->installEventFilter(this);
}

void frmMsg::Open() {
    if (!open_) {
        open_ = true;
        unfinished_ = false;
        cmdOkm_->hide();
        progBar_->hide();
        txtMsg_->ShowText({});
        setWindowState(Qt::WindowNoState);
        move(placement_(size()));
    }
}

void frmMsg::ShowMessage(MessageKind kind, const QString& text) {
    Open();
    const bool message = kind != MessageKind::Progress;
    cmdOkm_->setVisible(message);
    unfinished_ = unfinished_ && !message;
    ShowBar();
    txtMsg_->ShowText(text);
    Announce();
    // A progress display must not take the keyboard from whatever the user is doing.
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

/// The progress of what runs in a minimised program shows when its window comes back.
bool frmMsg::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowStateChange && waiting_ && !OwnerIsMinimized()) {
        waiting_ = false;
        show();
    }
    return QDialog::eventFilter(watched, event);
}

void frmMsg::SetProgress(bool on, double minimum, double value, double maximum) {
    Open();
    unfinished_ = on && value != maximum;
    if (on) {
        const bool oneStep = maximum == 0;  // stands at 1 of 1
        progBar_->setRange(static_cast<int>(minimum), oneStep ? 1 : static_cast<int>(maximum));
        progBar_->setValue(oneStep ? 1 : static_cast<int>(value));
    }
    ShowBar();
}

/// The OK button and the bar share the lower band.
void frmMsg::ShowBar() {
    progBar_->setVisible(unfinished_ && !HasButton());
}

void frmMsg::reject() {
    if (HasButton() || !busy_) {
        QDialog::reject();
    }
}

void frmMsg::CloseLeftOver() {
    if (isVisible() && !busy_ && !HasButton()) {
        CloseMessage();
    }
}

void frmMsg::done(int result) {
    open_ = false;
    waiting_ = false;
    QDialog::done(result);
}

}  // namespace tolvex
