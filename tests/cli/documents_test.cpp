// SPDX-License-Identifier: MIT
// What is told of the tool outside of it names every command and option that it has.
#include <gtest/gtest.h>

#include <QRegularExpression>

#include "cli/choices.h"
#include "cli/command.h"
#include "device/catalogue.h"
#include "tests/cli/cli_bench.h"

namespace tolvex::testing {
namespace {

QString Source(const QString& path) {
    return QString::fromUtf8(CliBench::Contents(QStringLiteral(TOLVEX_SOURCE_DIR "/") + path));
}

TEST(Documents, NameEveryCommandAndOption) {
    const QString manual = Source(u"docs/man/tolvex.scd"_s);
    const QString completion = Source(u"packaging/bash_completion"_s);
    const QString guide = Source(u"docs/cli.md"_s);
    for (const CommandRow& face : CommandRows()) {
        SCOPED_TRACE(face.name.toStdString());
        EXPECT_TRUE(manual.contains(u"\n*%1*"_s.arg(face.name)));
        EXPECT_TRUE(guide.contains(u'`' + face.name));
        const qsizetype list = completion.indexOf(u"_tolvex_words \"detect "_s);
        const QString line = completion.mid(list, completion.indexOf(u'\n', list) - list);
        EXPECT_TRUE(line.contains(QRegularExpression(u"\\b%1\\b"_s.arg(face.name))));
        for (const QCommandLineOption& option : face.options) {
            const QString name = u"--"_s + option.names().first();
            EXPECT_TRUE(manual.contains(u"\n*%1*"_s.arg(name)));
            const QRegularExpression offer(
                u"\\n\\s+%1\\) options\\+=\"[^\"]*%2\\b"_s.arg(face.name, name));
            EXPECT_TRUE(completion.contains(offer)) << name.toStdString();
        }
    }
}

TEST(Documents, NameEveryChip) {
    const QString manual = Source(u"docs/man/tolvex.scd"_s).simplified();
    const QString completion = Source(u"packaging/bash_completion"_s).simplified();
    QStringList parts;
    for (const DeviceRecord& record : Catalogue()) {
        parts << PartNumber(record.name);
    }
    EXPECT_TRUE(manual.contains(parts.join(u", "_s) + u'.'));
    EXPECT_TRUE(completion.contains(parts.join(u' ')));
}

/// The words in backquotes in the first column of the table below `heading`.
QStringList Listed(const QString& heading) {
    QStringList words;
    const QString part = Source(u"docs/cli.md"_s).section(heading, 1).section(u"\n#"_s, 0, 0);
    for (const QString& line : part.split(u'\n')) {
        static const QRegularExpression kWord(u"`(\\w+)`"_s);
        for (const auto& match : kWord.globalMatch(line.section(u'|', 1, 1))) {
            words << match.captured(1);
        }
    }
    words.sort();
    return words;
}

TEST(Documents, TellEveryCodeOfTheJson) {
    QStringList codes;
    static const QRegularExpression kCode(u"\\{\"(\\w+)\", k"_s);
    for (const auto& match : kCode.globalMatch(Source(u"cli/exit_status.h"_s))) {
        codes << match.captured(1);
    }
    codes.sort();
    EXPECT_EQ(Listed(u"\n### Error codes"_s).join(u' ').toStdString(),
              codes.join(u' ').toStdString());
}

TEST(Documents, TellEveryKeyOfTheJson) {
    CliBench bench(4);
    const QString code = bench.File(u"a.hex"_s, HexRecord(0, "\x01\x02") + kHexEnd);
    const QString bad = bench.File(u"b.hex"_s, "bad");
    const QString folder = bench.Path(u"backup"_s);
    QStringList keys;
    for (const QStringList& arguments : {QStringList{u"program"_s, code, u"--backup"_s, folder},
                                         {u"program"_s, bad},
                                         {u"verify"_s, code},
                                         {u"erase"_s},
                                         {u"fuses"_s, u"LOCK=write"_s},
                                         {u"check"_s, bad},
                                         {u"detect"_s},
                                         {u"ports"_s},
                                         {u"devices"_s},
                                         {u"doctor"_s},
                                         {u"--version"_s},
                                         {u"--help"_s}}) {
        bench.RunJson(arguments);
        keys += bench.Json().keys();
    }
    bench.facts.exists = false;
    bench.RunJson({u"doctor"_s});
    keys += bench.Json().keys();
    keys.removeDuplicates();
    keys.sort();
    EXPECT_EQ(Listed(u"\n### Keys"_s).join(u' ').toStdString(), keys.join(u' ').toStdString());
}

}  // namespace
}  // namespace tolvex::testing
