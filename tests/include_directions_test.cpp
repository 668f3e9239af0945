// SPDX-License-Identifier: MIT
// Who may include what. A folder knows other folders by their faces alone; app/, cli/, and the
// tests construct things and may include anything. Only window files know widgets.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QMap>
#include <QRegularExpression>

namespace {

using namespace Qt::StringLiterals;

/// For each folder: the headers of other folders that it may include ("platform/*" = all of it). A
/// face stands below every folder: it may include those of its own row only, and no circle of them.
const QMap<QString, QStringList>& AllowedIncludes() {
    static const QString app = u"app/app.h"_s, keys = u"app/settings_keys.h"_s,
                         link = u"link/link.h"_s, device = u"device/device.h"_s;
    static const QMap<QString, QStringList> kAllowed = {
        {u"platform"_s, {app}},
        {u"link"_s, {u"platform/*"_s, app, keys, device}},
        {u"image"_s, {u"platform/*"_s, app, keys, device, link}},
        {u"device"_s, {u"platform/*"_s, app, keys, link, u"image/image.h"_s}},
        {u"writer"_s, {}},
        {app, {}},
        {device, {}},
        {link, {}},
        {u"image/image.h"_s, {link}},
    };
    return kAllowed;
}

struct Inclusion {
    QString file;  ///< relative to the source folder
    QString included;
    bool system;  ///< in angle brackets
};

QList<Inclusion> InclusionsOf(const QString& folder) {
    static const QRegularExpression kInclude(u"^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"]"_s,
                                             QRegularExpression::MultilineOption);
    QList<Inclusion> found;
    const QDir directory(QStringLiteral(TOLVEX_SOURCE_DIR "/") + folder);
    for (const QString& name : directory.entryList({u"*.h"_s, u"*.cpp"_s}, QDir::Files)) {
        QFile file(directory.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        auto matches = kInclude.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext()) {
            const auto match = matches.next();
            found << Inclusion{folder + u'/' + name, match.captured(2), match.captured(1) == u"<"};
        }
    }
    EXPECT_FALSE(found.isEmpty()) << folder.toStdString();
    return found;
}

bool Allows(const QStringList& allowed, const QString& header) {
    const QString folder = header.section(u'/', 0, 0);
    return allowed.contains(header) || allowed.contains(folder + u"/*"_s);
}

bool IsWindowFile(const QString& file) {
    const QString name = file.section(u'/', -1);
    return name.startsWith(u"frm"_s) || name.startsWith(u"window_"_s) || file == u"app/main.cpp"_s;
}

TEST(IncludeDirections, FoldersKnowEachOtherByTheirFaces) {
    for (auto row = AllowedIncludes().begin(); row != AllowedIncludes().end(); ++row) {
        const QString folder = row.key().section(u'/', 0, 0);
        const bool face = folder != row.key();
        for (const Inclusion& inclusion : InclusionsOf(folder)) {
            if (inclusion.system || (face && inclusion.file != row.key())) {
                continue;
            }
            const bool own = !face && inclusion.included.startsWith(folder + u'/');
            EXPECT_TRUE(own || Allows(row.value(), inclusion.included))
                << inclusion.file.toStdString() << " includes " << inclusion.included.toStdString();
        }
    }
}

TEST(IncludeDirections, OnlyWindowFilesKnowWidgets) {
    const QDir headers(QLibraryInfo::path(QLibraryInfo::HeadersPath));
    ASSERT_TRUE(headers.exists(u"QtWidgets/QWidget"_s));
    for (const QString& folder :
         {u"app"_s, u"link"_s, u"image"_s, u"device"_s, u"platform"_s, u"writer"_s}) {
        for (const Inclusion& inclusion : InclusionsOf(folder)) {
            const QString header = inclusion.included.section(u'/', -1);
            bool ofWindows = !inclusion.system && IsWindowFile(inclusion.included);
            for (const QString& module : {u"QtWidgets/"_s, u"QtGui/"_s, u"QtSvg/"_s}) {
                ofWindows = ofWindows || (inclusion.system && headers.exists(module + header));
            }
            EXPECT_TRUE(IsWindowFile(inclusion.file) || !ofWindows)
                << inclusion.file.toStdString() << " includes " << header.toStdString();
        }
    }
}

}  // namespace
