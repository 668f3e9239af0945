// SPDX-License-Identifier: MIT
// What is told of the tool outside of it names every command and option that it has.
#include <gtest/gtest.h>

#include <QRegularExpression>

#include "cli/command.h"
#include "cli/device_choice.h"
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
    for (const auto& command : AllCommands()) {
        const CommandFace& face = command->Face();
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

}  // namespace
}  // namespace tolvex::testing
