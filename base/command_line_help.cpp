// SPDX-License-Identifier: MIT
#include "base/command_line_help.h"

#include <algorithm>

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 79;
constexpr int kWidestTerm = 28;  ///< the text of a wider one begins below it

bool IsWide(QChar c) {
    return c.unicode() >= 0x3000 && !(c.unicode() >= 0xFF61 && c.unicode() <= 0xFFDC);
}

/// Where the piece that begins at `start` ends: a word with the blank behind it, or a Japanese
/// letter. No line begins with a closing mark or ends with an opening one.
qsizetype PieceEnd(const QString& text, qsizetype start) {
    constexpr QStringView kOpening = u"（「";
    constexpr QStringView kClosing = u"、。）」";
    qsizetype end = start + 1;
    while (end < text.size() && !IsWide(text[start]) && !IsWide(text[end]) &&
           text[end - 1] != u' ') {
        ++end;
    }
    while (end < text.size() &&
           (kClosing.contains(text[end]) || kOpening.contains(text[end - 1]))) {
        ++end;
    }
    return end;
}

QStringList Lines(const QString& text, int width) {
    QStringList lines = {QString()};
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype end = PieceEnd(text, start);
        const QString piece = text.sliced(start, end - start);
        if (Columns((lines.last() + piece).trimmed()) > width) {
            lines << QString();
        }
        lines.last() += piece;
        start = end;
    }
    for (QString& line : lines) {
        line = line.trimmed();
    }
    return lines;
}

}  // namespace

int Columns(const QString& text) {
    return static_cast<int>(text.size() + std::ranges::count_if(text, IsWide));
}

QList<HelpRow> HelpRows(const QList<QCommandLineOption>& options) {
    QList<HelpRow> rows;
    for (const QCommandLineOption& option : options) {
        QStringList names;
        for (const QString& name : option.names()) {
            names << (name.size() == 1 ? u"-"_s : u"--"_s) + name;
        }
        const QString value = option.valueName();
        rows << HelpRow{names.join(u", "_s) + (value.isEmpty() ? QString() : u" <%1>"_s.arg(value)),
                        option.description()};
    }
    return rows;
}

QString UsageLine(const QString& program, const QString& arguments) {
    return Text::tr("使い方: %1 [オプション] %2").arg(program, arguments).trimmed();
}

QString HelpParagraph(const QString& text) {
    return Lines(text, kWidth).join(u'\n');
}

QString HelpSection(const QString& title, const QList<HelpRow>& rows) {
    int widest = 0;
    for (const HelpRow& row : rows) {
        const int columns = Columns(row.term);
        widest = columns > kWidestTerm ? widest : std::max(widest, columns);
    }
    const QString gap = u"\n"_s + QString(widest + 4, u' ');
    QString section = title;
    for (const HelpRow& row : rows) {
        const int room = widest - Columns(row.term);
        section += u"\n  "_s + row.term + (room < 0 ? gap : QString(room + 2, u' ')) +
                   Lines(row.text, kWidth - widest - 4).join(gap);
    }
    return section;
}

QString WrongOption(const QCommandLineParser& parser, const QList<QCommandLineOption>& options,
                    const QStringList& arguments) {
    if (const QStringList unknown = parser.unknownOptionNames(); !unknown.isEmpty()) {
        return Text::tr("知らないオプションです: %1").arg(unknown.join(u", "_s));
    }
    for (const QCommandLineOption& option : options) {
        const QString name = u"--"_s + option.names().last();
        const bool given = std::ranges::any_of(
            arguments, [&name](const QString& word) { return word.startsWith(name + u'='); });
        if (given && option.valueName().isEmpty()) {
            return Text::tr("オプションの使い方が違います: %1 に値は付けられません。").arg(name);
        }
    }
    return Text::tr("オプションの使い方が違います: %1 の値がありません。").arg(arguments.last());
}

}  // namespace tolvex
