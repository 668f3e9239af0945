// SPDX-License-Identifier: MIT
// Who may include what: the house as a stack. Build targets hold the rest (no widgets in what is no
// window, no app in the tests of cli) but not this: with one include root, any file finds any
// header.
#include <gtest/gtest.h>

#include <QDirIterator>
#include <QRegularExpression>
#include <iostream>

namespace {

using namespace Qt::StringLiterals;

/// A folder, and what it may include besides itself: whole folders, or single headers (the face of
/// a folder that it must not know more of).
struct Floor {
    QString folder, below;
};

/// From the ground up: a row names only rows above it.
const Floor kHouse[] = {
    {u"base"_s, {}},
    {u"widgets"_s, {}},
    {u"writer"_s, u"base/stop_signals.h"_s},
    {u"platform"_s, u"base"_s},
    {u"port"_s, u"base"_s},
    {u"link"_s, u"base widgets"_s},
    {u"image"_s, u"base widgets"_s},
    {u"device"_s, u"base widgets link/link.h image/image.h"_s},
    {u"workbench"_s, u"base link image device"_s},
    {u"app"_s, u"base widgets platform port link image device workbench"_s},
    {u"cli"_s, u"base platform port link image device workbench"_s},
    {u"firmware/simulator"_s, u"writer"_s},
    {u"tests/support"_s, u"base link image device workbench writer"_s},
};

QString FolderOf(const QString& header) {
    return header.section(u'/', 0, -2);
}

/// What the folder includes of others, each once. What `allowed` does not cover is a fault.
QStringList Check(const QString& folder, const QStringList& allowed) {
    static const QRegularExpression kInclude(u"^\\s*#\\s*include\\s*\"([^\"]+)\""_s,
                                             QRegularExpression::MultilineOption);
    QStringList seen;
    const QString root = QStringLiteral(TOLVEX_SOURCE_DIR "/") + folder;
    for (QDirIterator files(root, {u"*.h"_s, u"*.cpp"_s}, QDir::Files); files.hasNext();) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const auto& match : kInclude.globalMatch(QString::fromUtf8(file.readAll()))) {
            const QString included = match.captured(1);
            const QString to = allowed.contains(included) ? included : FolderOf(included);
            EXPECT_TRUE(to == folder || allowed.contains(to))
                << qPrintable(file.fileName() + u" includes "_s + included);
            seen << to;
        }
    }
    seen.removeAll(folder);
    seen.removeDuplicates();
    return seen;
}

TEST(IncludeDirections, LeadDownwards) {
    QStringList standing;
    for (const auto& [folder, below] : kHouse) {
        const QStringList allowed = below.split(u' ', Qt::SkipEmptyParts);
        for (const QString& floor : allowed) {
            EXPECT_TRUE(standing.contains(floor) || standing.contains(FolderOf(floor)))
                << qPrintable(folder + u" stands on "_s + floor);
        }
        standing << folder;
        EXPECT_TRUE(QDir(QStringLiteral(TOLVEX_SOURCE_DIR "/") + folder).exists());
        std::cout << qPrintable(folder + u": "_s + Check(folder, allowed).join(u' ')) << '\n';
    }
}

}  // namespace
