// SPDX-License-Identifier: MIT
#include "tests/support/recorder.h"

#include <QFileInfo>

namespace tolvex::testing {

using namespace Qt::StringLiterals;

namespace {

QString Name(OptionList list) {
    switch (list) {
        case OptionList::FSTRT:
            return u"FSTRT"_s;
        case OptionList::RCEN:
            return u"RCEN"_s;
        case OptionList::BODLEVEL:
            return u"BODLEVEL"_s;
        case OptionList::BODEN:
            return u"BODEN"_s;
        case OptionList::CKSEL:
            return u"CKSEL"_s;
        case OptionList::LockBit:
            return u"LockBit"_s;
    }
    return {};
}

}  // namespace

QStringList Recorder::Seen() const {
    QStringList seen;
    for (const QString& call : calls) {
        if (call.startsWith(u"status 1"_s) || call.startsWith(u"message OK"_s) ||
            call.startsWith(u"progress"_s) || call == u"close message"_s) {
            seen << call;
        }
    }
    return seen;
}

void Recorder::SetStatusText(int panel, const QString& text) {
    panels[panel] = text;
    calls << u"status %1: %2"_s.arg(panel).arg(text);
}

void Recorder::ShowMessage(MessageMode mode, const QString& text) {
    message = text;
    calls << (mode == MessageMode::Message ? u"message OK: "_s : u"progress: "_s) + text;
}

void Recorder::CloseMessage() {
    message = QString();
    calls << u"close message"_s;
}

void Recorder::SetProgress(bool on, double, double value, double maximum) {
    const bool visible = on && value != maximum;
    if (on) {
        progress << (maximum == 0 ? Progress{visible, 1, 1} : Progress{visible, value, maximum});
    }
}

void Recorder::SetFlashListing(const QString& text) {
    flashListing = text;
    calls << u"flash listing"_s;
}

void Recorder::SetEepromListing(const QString& text) {
    eepromListing = text;
    calls << u"eeprom listing"_s;
}

void Recorder::ShowVerifyReport(const QString& text) {
    verifyReport = text;
    calls << u"verify report"_s;
}

void Recorder::SetFlashCaption(const QString& caption) {
    flashCaption = caption;
}

void Recorder::SetEepromCaption(const QString& caption) {
    eepromCaption = caption;
}

void Recorder::FillOptions(OptionList list, const QStringList& entries) {
    optionEntries[list] = entries;
    options[list] = -1;
}

void Recorder::SelectOption(OptionList list, int entry) {
    options[list] = entry;
    calls << u"option %1 = %2"_s.arg(Name(list)).arg(entry);
}

void Recorder::ShowSizes(const QString& flash, const QString& eeprom) {
    flashSize = flash;
    eepromSize = eeprom;
}

FileDialogAnswer Recorder::AskOpenFile(const FileDialogRequest& request) {
    fileRequests << request;
    calls << u"open dialog "_s + request.title;
    return fileAnswers.isEmpty() ? FileDialogAnswer{} : fileAnswers.takeFirst();
}

FileDialogAnswer Recorder::AskSaveFile(const FileDialogRequest& request) {
    fileRequests << request;
    calls << u"save dialog "_s + request.title;
    return fileAnswers.isEmpty() ? FileDialogAnswer{} : fileAnswers.takeFirst();
}

void Recorder::ShowBox(BoxIcon icon, const QString& title, const QString& text) {
    calls << u"box %1 %2|%3"_s.arg(icon == BoxIcon::Stop ? u"Stop"_s : u"Information"_s, title,
                                   text);
}

bool Recorder::AskOkCancel(const QString& title, const QString& text) {
    calls << u"question %1|%2"_s.arg(title, text);
    return !okCancelAnswers.isEmpty() && okCancelAnswers.takeFirst();
}

FileDialogAnswer Chosen(const QString& path) {
    return {true, path, QFileInfo(path).fileName()};
}

}  // namespace tolvex::testing
