// SPDX-License-Identifier: MIT
#include "cli/terminal_user_interface.h"

namespace tolvex {

void TerminalUserInterface::SetStatusText(int panel, const QString& text, MessageKind kind) {
    if (panel == kMessagePanel && !text.isEmpty()) {
        Say(kind, text);
    }
}

void TerminalUserInterface::ShowMessage(MessageKind kind, const QString& text) {
    if (kind != MessageKind::Progress) {
        Say(kind, text);
    } else if (!options_.muted()) {
        progress_.Begin(text);
    }
}

void TerminalUserInterface::SetProgress(bool on, double minimum, double value, double maximum) {
    if (on && !options_.muted()) {
        progress_.Step(minimum, value, maximum);
    }
}

/// A text that is shown in two places is said once, and so is a failure that repeats itself.
void TerminalUserInterface::Say(MessageKind kind, QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    text = options_.displayPortName(text.trimmed());
    const bool failure = kind == MessageKind::Failure;
    const bool known = failure ? failures_.contains(text) : said_.endsWith(text);
    if (options_.muted() || known) {
        return;
    }
    said_ << text;
    if (failure) {
        failures_ << text;
        progress_.End();
        console_.Complain(text);
    } else if (options_.prints) {
        progress_.End();
        console_.Print(text);
    }
}

}  // namespace tolvex
