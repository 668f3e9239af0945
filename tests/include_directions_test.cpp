// SPDX-License-Identifier: MIT
// Who may include what: the house as a stack. Build targets alone don't hold it: with one include
// root, any file finds any header.
#include <gtest/gtest.h>

#include <QDirIterator>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <iostream>

namespace {

using namespace Qt::StringLiterals;

/// A folder; what it may include besides itself: whole folders, or single headers (the face of a
/// folder that it must not know more of); and its files that know Qt's widgets, "*" = all.
struct Floor {
    QString folder, below, windows;
};

/// From the ground up: a row names only rows above it.
const Floor kHouse[] = {
    // clang-format off
    {u"base"_s, {}, {}},
    {u"widgets"_s, {}, u"*"_s},
    {u"writer"_s, {}, {}},
    {u"platform"_s, u"base widgets"_s, u"help_window window_dialogs"_s},
    {u"link"_s, u"base widgets"_s, u"frmCom"_s},
    {u"image"_s, u"base widgets"_s, u"frmModify listing_window"_s},
    {u"device"_s, u"base widgets link/link.h image/image.h"_s, u"frmMsg frmSetting message_window"_s},
    {u"workbench"_s, u"base link image device"_s, {}},
    {u"app"_s, u"base widgets platform link image device workbench"_s, u"*"_s},
    {u"cli"_s, u"base platform link image device workbench"_s, {}},
    {u"firmware/simulator"_s, u"base cli writer"_s, {}},
    {u"tests/support"_s, u"base link image device workbench writer"_s, {}},
    // clang-format on
};

struct Inclusion {
    QString file, included;  ///< the file without its suffix
    bool system;             ///< in angle brackets
};

QList<Inclusion> InclusionsOf(const QString& folder) {
    static const QRegularExpression kInclude(u"^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"]"_s,
                                             QRegularExpression::MultilineOption);
    QList<Inclusion> found;
    const QString root = QStringLiteral(TOLVEX_SOURCE_DIR "/") + folder;
    for (QDirIterator files(root, {u"*.h"_s, u"*.cpp"_s}, QDir::Files); files.hasNext();) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const auto& match : kInclude.globalMatch(QString::fromUtf8(file.readAll()))) {
            found << Inclusion{QFileInfo(file).completeBaseName(), match.captured(2),
                               match.captured(1) == u"<"};
        }
    }
    return found;
}

QString FolderOf(const QString& header) {
    return header.section(u'/', 0, -2);
}

bool IsWindow(const QString& folder, const QString& file) {
    return std::ranges::any_of(kHouse, [&](const Floor& floor) {
        const QStringList windows = floor.windows.split(u' ');
        return floor.folder == folder && (windows.contains(u"*"_s) || windows.contains(file));
    });
}

/// What `allowed` does not cover is a fault. All that was seen is returned, each once.
QStringList Check(const QString& folder, const QStringList& allowed) {
    QStringList seen;
    for (const auto& [file, included, system] : InclusionsOf(folder)) {
        const QString to = allowed.contains(included) ? included : FolderOf(included);
        if (!system && to != folder) {
            EXPECT_TRUE(allowed.contains(to))
                << qPrintable(folder + u'/' + file + u" includes "_s + included);
            seen << to;
        }
    }
    seen.removeDuplicates();
    return seen;
}

TEST(IncludeDirections, LeadDownwards) {
    QStringList standing;
    for (const Floor& floor : kHouse) {
        const QStringList allowed = floor.below.split(u' ', Qt::SkipEmptyParts);
        for (const QString& below : allowed) {
            EXPECT_TRUE(standing.contains(below) || standing.contains(FolderOf(below)))
                << qPrintable(floor.folder + u" stands on "_s + below);
        }
        standing << floor.folder;
        EXPECT_FALSE(InclusionsOf(floor.folder).isEmpty()) << qPrintable(floor.folder);
        std::cout << qPrintable(floor.folder) << ": "
                  << qPrintable(Check(floor.folder, allowed).join(u' ')) << '\n';
    }
}

/// Tests may use whatever there is, but of the two programs on top only the one that they test.
TEST(IncludeDirections, TestsMirrorTheFolders) {
    for (const Floor& tested : kHouse) {
        QStringList allowed;
        for (const auto& [folder, below, windows] : kHouse) {
            const bool onTop = folder == u"app" || folder == u"cli";
            allowed << (onTop ? tested.folder : folder);
        }
        Check(u"tests/"_s + tested.folder, allowed);
    }
}

TEST(IncludeDirections, OnlyWindowFilesKnowWidgets) {
    const QDir headers(QLibraryInfo::path(QLibraryInfo::HeadersPath));
    ASSERT_TRUE(headers.exists(u"QtWidgets/QWidget"_s));
    for (const Floor& floor : kHouse) {
        for (const auto& [file, included, system] : InclusionsOf(floor.folder)) {
            const QString header = included.section(u'/', -1);
            bool widgets = !system && IsWindow(FolderOf(included), header.section(u'.', 0, 0));
            for (const QString& module : {u"QtWidgets/"_s, u"QtGui/"_s, u"QtSvg/"_s}) {
                widgets = widgets || (system && headers.exists(module + header));
            }
            EXPECT_TRUE(!widgets || IsWindow(floor.folder, file))
                << qPrintable(floor.folder + u'/' + file + u" includes "_s + header);
        }
    }
}

}  // namespace
