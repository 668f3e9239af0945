// SPDX-License-Identifier: MIT
// What is told of the tool outside of it is what it does.
#include <gtest/gtest.h>

#include <QRegularExpression>

#include "cli/command.h"
#include "device/catalogue.h"
#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

QString Source(const QString& path) {
    return QString::fromUtf8(CliBench::Contents(QStringLiteral(TOLVEX_SOURCE_DIR "/") + path));
}

/// What the pattern's bracket matches, sorted, each once.
std::string All(const QString& text, const QString& pattern) {
    QStringList words;
    for (const auto& match : QRegularExpression(pattern).globalMatch(text)) {
        words << match.captured(1);
    }
    words.removeDuplicates();
    words.sort();
    return words.join(u' ').toStdString();
}

/// The words in backquotes in the first column of the table below the heading.
std::string Listed(const QString& heading) {
    const QString page = Source(u"docs/cli.md"_s).section(u"\n### "_s + heading, 1);
    QString column;
    for (const QString& line : page.section(u"\n#"_s, 0, 0).split(u'\n')) {
        column += line.section(u'|', 1, 1);
    }
    return All(column, u"`(\\w+)`"_s);
}

TEST(Documents, NameEveryCommandOptionAndChip) {
    const QString manual = Source(u"docs/man/tolvex.scd"_s);
    const QString completion = Source(u"packaging/bash_completion"_s);
    QStringList names, parts;
    for (const CommandRow& command : CommandRows()) {
        SCOPED_TRACE(command.name.toStdString());
        names << command.name;
        EXPECT_TRUE(manual.contains(u"\n*%1*"_s.arg(command.name)));
        EXPECT_TRUE(Source(u"docs/cli.md"_s).contains(u'`' + command.name));
        QString options;
        for (const QCommandLineOption& option : command.options) {
            options += u" --"_s + option.names().first();
            EXPECT_TRUE(manual.contains(u"\n*--%1*"_s.arg(option.names().first())));
        }
        EXPECT_TRUE(options.isEmpty() ||
                    completion.contains(u" %1) options+=\"%2\""_s.arg(command.name, options)))
            << options.toStdString();
    }
    EXPECT_TRUE(completion.contains(u"\"\") _tolvex_words \"%1\""_s.arg(names.join(u' '))));
    for (const DeviceRecord& record : Catalogue()) {
        parts << PartNumber(record.name);
    }
    EXPECT_TRUE(manual.simplified().contains(parts.join(u", "_s) + u'.'));
    EXPECT_TRUE(completion.simplified().contains(parts.join(u' ')));
}

TEST(Documents, TellEveryKeyAndCodeOfTheJson) {
    EXPECT_EQ(Listed(u"Error codes"_s), All(Source(u"cli/exit_status.h"_s), u"\\{\"(\\w+)\", k"_s));
    CliBench b(4);
    b.File(u"a.hex"_s, HexRecord(0, "\x01\x02") + kHexEnd);
    b.File(u"bad.hex"_s, "bad");
    QStringList keys;
    for (const char* line : {"program @a.hex --backup @bk", "program @bad.hex", "verify @a.hex",
                             "erase", "fuses LOCK=write", "check @bad.hex", "ports", "devices",
                             "doctor", "--version", "--help", "doctor --port COM9"}) {
        b.facts.exists = !QByteArray(line).contains("COM9");
        b.RunJson(line);
        keys += b.Json().keys();
    }
    EXPECT_EQ(Listed(u"Keys"_s), All(keys.join(u' '), u"(\\w+)"_s));
}

}  // namespace
}  // namespace tolvex::testing
