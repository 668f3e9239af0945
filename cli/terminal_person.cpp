// SPDX-License-Identifier: MIT
#include "cli/terminal_person.h"

namespace tolvex {

TerminalPerson::TerminalPerson(Console& console, const EventClock& clock, Habits habits)
    : console_(console), progress_(console, clock, !habits.progress), habits_(std::move(habits)) {}

void TerminalPerson::SetStatusText(int panel, const QString& text) {
    panels_[panel] = text;
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

void TerminalPerson::ShowVerifyReport(const QString& text) {
    Print(text.trimmed());
}

void TerminalPerson::ShowBox(BoxIcon, const QString& title, const QString& text) {
    Say(title + u'\n' + text);
}

/// A text that is shown in two places is said once.
void TerminalPerson::Say(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    text = text.trimmed();
    if (habits_.deaf() || (!said_.isEmpty() && said_.last() == text)) {
        return;
    }
    said_ << text;
    Print(text);
}

void TerminalPerson::Print(const QString& text) {
    if (habits_.prints && !habits_.deaf()) {
        progress_.End();
        console_.Print(text);
    }
}

}  // namespace tolvex
