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

/// A folder, and what it may include besides itself: whole folders, or single headers (the face of
/// a folder that it must not know more of).
struct Floor {
    QString folder;
    QStringList below;
    QStringList windows;  ///< its files that know Qt's widgets; "*" = all
};

/// From the ground up: a row names only rows above it.
const QList<Floor>& House() {
    static const QList<Floor> kHouse = {
        {u"base"_s, {}, {}},
        {u"widgets"_s, {}, {u"*"_s}},
        {u"writer"_s, {}, {}},
        {u"platform"_s, {u"base"_s, u"widgets"_s}, {u"help_window"_s, u"window_dialogs"_s}},
        {u"link"_s, {u"base"_s, u"widgets"_s}, {u"frmCom"_s}},
        {u"image"_s, {u"base"_s, u"widgets"_s}, {u"frmModify"_s, u"listing_window"_s}},
        {u"device"_s,
         {u"base"_s, u"widgets"_s, u"link/link.h"_s, u"image/image.h"_s},
         {u"frmMsg"_s, u"frmSetting"_s, u"message_window"_s}},
        {u"workbench"_s, {u"base"_s, u"link"_s, u"image"_s, u"device"_s}, {}},
        {u"app"_s,
         {u"base"_s, u"widgets"_s, u"platform"_s, u"link"_s, u"image"_s, u"device"_s,
          u"workbench"_s},
         {u"*"_s}},
        {u"cli"_s,
         {u"base"_s, u"platform"_s, u"link"_s, u"image"_s, u"device"_s, u"workbench"_s},
         {}},
        {u"firmware/simulator"_s, {u"base"_s, u"cli"_s, u"writer"_s}, {}},
        {u"tests/support"_s,
         {u"base"_s, u"link"_s, u"image"_s, u"device"_s, u"workbench"_s, u"writer"_s},
         {}},
    };
    return kHouse;
}

struct Inclusion {
    QString file;  ///< without its suffix, relative to the folder
    QString included;
    bool system;  ///< in angle brackets
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
    EXPECT_TRUE(!found.isEmpty()) << folder.toStdString();
    return found;
}

QString FolderOf(const QString& header) {
    return header.section(u'/', 0, -2);
}

bool IsWindow(const QString& folder, const QString& file) {
    for (const Floor& floor : House()) {
        if (floor.folder == folder) {
            return floor.windows.contains(u"*"_s) || floor.windows.contains(file);
        }
    }
    return false;
}

/// The folders of `inclusions` that `allowed` does not cover are faults; the others are returned.
QStringList Check(const QString& folder, const QStringList& allowed) {
    QStringList seen;
    for (const Inclusion& inclusion : InclusionsOf(folder)) {
        const QString to = FolderOf(inclusion.included);
        if (inclusion.system || to == folder) {
            continue;
        }
        EXPECT_TRUE(allowed.contains(to) || allowed.contains(inclusion.included))
            << folder.toStdString() << "/" << inclusion.file.toStdString() << " includes "
            << inclusion.included.toStdString();
        seen << (allowed.contains(to) ? to : inclusion.included);
    }
    seen.removeDuplicates();
    seen.sort();
    return seen;
}

TEST(IncludeDirections, LeadDownwards) {
    QStringList standing;
    for (const Floor& floor : House()) {
        for (const QString& below : floor.below) {
            EXPECT_TRUE(standing.contains(below) || standing.contains(FolderOf(below)))
                << floor.folder.toStdString() << " stands on " << below.toStdString();
        }
        standing << floor.folder;
        const QStringList seen = Check(floor.folder, floor.below);
        std::cout << floor.folder.leftJustified(14).toStdString() << seen.join(u' ').toStdString()
                  << '\n';
    }
}

/// Tests may use whatever there is, but of the two programs on top only the one that they test.
TEST(IncludeDirections, TestsMirrorTheFolders) {
    QStringList all;
    for (const Floor& floor : House()) {
        all << floor.folder;
    }
    all.removeIf([](const QString& folder) { return folder == u"app" || folder == u"cli"; });
    for (const Floor& floor : House()) {
        const QString tests = u"tests/"_s + floor.folder;
        if (QFileInfo::exists(QStringLiteral(TOLVEX_SOURCE_DIR "/") + tests)) {
            Check(tests, all + QStringList{floor.folder});
        }
    }
}

TEST(IncludeDirections, OnlyWindowFilesKnowWidgets) {
    const QDir headers(QLibraryInfo::path(QLibraryInfo::HeadersPath));
    ASSERT_TRUE(headers.exists(u"QtWidgets/QWidget"_s));
    for (const Floor& floor : House()) {
        for (const Inclusion& inclusion : InclusionsOf(floor.folder)) {
            const QString header = inclusion.included.section(u'/', -1);
            bool widgets = !inclusion.system &&
                           IsWindow(FolderOf(inclusion.included), header.section(u'.', 0, 0));
            for (const QString& module : {u"QtWidgets/"_s, u"QtGui/"_s, u"QtSvg/"_s}) {
                widgets = widgets || (inclusion.system && headers.exists(module + header));
            }
            EXPECT_TRUE(!widgets || IsWindow(floor.folder, inclusion.file))
                << floor.folder.toStdString() << "/" << inclusion.file.toStdString() << " includes "
                << header.toStdString();
        }
    }
}

}  // namespace
