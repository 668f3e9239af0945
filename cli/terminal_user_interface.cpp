// SPDX-License-Identifier: MIT
#include "cli/terminal_user_interface.h"

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

void TerminalUserInterface::SetStatusText(int panel, const QString& text, MessageKind kind) {
    if (panel == kMessagePanel && !text.isEmpty()) {
        Say(kind, text);
    }
}

void TerminalUserInterface::ShowMessage(MessageKind kind, const QString& text) {
    if (kind != MessageKind::Progress) {
        Say(kind, text);
    } else if (!record_.Unwinding()) {
        output_.BeginProgress(text);
    }
}

void TerminalUserInterface::SetProgress(bool on, double minimum, double value, double maximum) {
    if (on && !record_.Unwinding()) {
        output_.StepProgress(minimum, value, maximum);
    }
}

std::optional<QString> TerminalUserInterface::NoWriterText() const {
    return Text::tr("ライタと通信ができませんでした。\nPCとライタの接続を確認して下さい。");
}

/// A text that is shown in two places is said once, and so is a failure that repeats itself.
void TerminalUserInterface::Say(MessageKind kind, QString text) {
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    text = text.trimmed();
    if (port_ && port_->byPath) {
        text.replace(u"COM%1"_s.arg(port_->number), port_->path);
    }
    const bool failure = kind == MessageKind::Failure;
    const bool known = failure ? failures_.contains(text) : said_.endsWith(text);
    if (record_.Unwinding() || known) {
        return;
    }
    said_ << text;
    if (failure) {
        failures_ << text;
    }
    output_.TellMessage(text, failure);
}

}  // namespace tolvex
