// SPDX-License-Identifier: MIT
#include "tests/support/recorder.h"

#include <QFileInfo>

namespace tolvex::testing {

void Recorder::SetStatusText(int panel, const QString& text, MessageKind kind) {
    panels[panel] = text;
    NoteFailure(kind, text);
    calls << u"status %1: %2"_s.arg(panel).arg(text);
}

void Recorder::ShowMessage(MessageKind kind, const QString& text) {
    message = text;
    NoteFailure(kind, text);
    calls << (kind == MessageKind::Progress ? u"progress: "_s : u"message OK: "_s) + text;
}

void Recorder::CloseMessage() {
    message = QString();
    calls << u"close message"_s;
}

void Recorder::SetProgress(bool on, double, double value, double maximum) {
    if (on) {
        progress << (maximum == 0 ? 1 : value / maximum);
    }
}

std::optional<QString> Recorder::Ask(const QString& dialog, const FileDialogRequest& request) {
    fileRequests << request;
    calls << dialog + request.title;
    return fileAnswers.isEmpty() ? std::nullopt : std::optional(fileAnswers.takeFirst());
}

void Recorder::ShowBox(BoxIcon icon, const QString& title, const QString& text) {
    static const char* const kIcons[] = {"", "Information ", "Stop "};
    calls << u"box "_s + QLatin1StringView(kIcons[static_cast<int>(icon)]) + title + u'|' + text;
}

bool Recorder::AskOkCancel(const QString& title, const QString& text) {
    calls << u"question %1|%2"_s.arg(title, text);
    return !okCancelAnswers.isEmpty() && okCancelAnswers.takeFirst();
}

}  // namespace tolvex::testing
