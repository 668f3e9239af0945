// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineParser>
#include <QList>
#include <QString>

namespace tolvex {

// What the command lines of the programs say. Qt's parser would speak the language of its own
// translations, in the middle of ours, and count a Japanese letter as one column.

/// How many columns a terminal takes for `text`: two a Japanese letter; one a half-width one and
/// whatever else is shown.
int Columns(const QString& text);

/// A row of a help text: "--port <PATH>" and what it means.
struct HelpRow {
    QString term;
    QString text;
};

QList<HelpRow> HelpRows(const QList<QCommandLineOption>& options);

/// "Usage: PROGRAM [options] ARGUMENTS"
QString UsageLine(const QString& program, const QString& arguments);
/// Sentences set in lines.
QString HelpParagraph(const QString& text);
/// A title and its rows, the texts set in lines below each other. Ends without a line end.
QString HelpSection(const QString& title, const QList<HelpRow>& rows);

/// Why the parser did not understand the arguments.
QString WrongOption(const QCommandLineParser& parser, const QList<QCommandLineOption>& options,
                    const QStringList& arguments);

}  // namespace tolvex
