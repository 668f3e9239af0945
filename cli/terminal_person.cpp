// SPDX-License-Identifier: MIT
#include "cli/terminal_person.h"

namespace tolvex {

void TerminalPerson::SetStatusText(int panel, const QString& text) {
    if (panel == kMessagePanel && !text.isEmpty()) {
        Say(text);
    }
}

void TerminalPerson::ShowMessage(MessageMode mode, const QString& text) {
    if (mode == MessageMode::Message) {
        Say(text);
    } else if (!habits_.deaf()) {
        progress_.Begin(text);
    }
}

void TerminalPerson::SetProgress(bool on, double minimum, double value, double maximum) {
    if (on && !habits_.deaf()) {
        progress_.Step(minimum, value, maximum);
    }
}

/// A text that is shown in two places is said once, and so is a complaint that repeats itself.
void TerminalPerson::Say(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    text = habits_.inTheirWords(text.trimmed());
    const bool complaint = habits_.failing();
    const bool known = complaint ? complaints_.contains(text) : said_.endsWith(text);
    if (habits_.deaf() || known) {
        return;
    }
    said_ << text;
    if (complaint) {
        complaints_ << text;
        progress_.End();
        console_.Complain(text);
    } else if (habits_.prints) {
        progress_.End();
        console_.Print(text);
    }
}

}  // namespace tolvex
