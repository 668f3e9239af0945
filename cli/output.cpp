// SPDX-License-Identifier: MIT
#include "cli/output.h"

#include <QJsonDocument>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// A file's name may hold control characters, which would steer the terminal.
QString Visible(const QString& text) {
    QString shown;
    for (const QChar c : text) {
        const bool steers = c.category() == QChar::Other_Control && c != u'\n';
        shown += steers ? u"\\x"_s + QString::number(c.unicode(), 16).rightJustified(2, u'0')
                        : QString(c);
    }
    return shown;
}

}  // namespace

void Output::Print(const QString& line) {
    if (options_.outputIsFile) {
        Remark(line);
    } else if (!options_.json && !muted_) {
        EndProgress();
        console_.Print(Visible(line));
    }
}

void Output::Put(const QByteArray& text) {
    if (!options_.json) {
        EndProgress();
        console_.Put(text);
    }
}

void Output::Tell(const QString& line) {
    if (!options_.quiet) {
        Print(line);
    }
}

void Output::Ring() {
    if (!options_.quiet && console_.Columns() > 0) {
        console_.Draw(u"\a"_s);
    }
}

void Output::Remark(const QString& line) {
    if (!muted_) {
        EndProgress();
        console_.Complain(Visible(line));
    }
}

void Output::TellMessage(const QString& text, bool failure) {
    if (failure) {
        Remark(text);
    } else if (!options_.outputIsFile) {
        Tell(text);
    }
}

void Output::TellFailure(const Failure& failure) {
    Remark(u"tolvex-cli: "_s + failure.text);
    Report(report::Error, QJsonObject{{u"code"_s, QString::fromLatin1(failure.cause.code)},
                                      {u"message"_s, failure.text}});
    if (failure.fix) {
        TellFix(*failure.fix);
    }
}

void Output::TellFix(const QString& command) {
    Report(report::Fix, command);
    Print(u"  "_s + command);
}

void Output::BeginProgress(const QString& text) {
    if (!options_.quiet) {
        progress_.Begin(text);
    }
}

void Output::StepProgress(double minimum, double value, double maximum) {
    if (!options_.quiet) {
        progress_.Step(minimum, value, maximum);
    }
}

void Output::PrintReport() {
    if (options_.json) {
        console_.Print(QString::fromUtf8(QJsonDocument(report_).toJson(QJsonDocument::Compact)));
    }
}

}  // namespace tolvex
