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

/// For each folder: the headers of other folders that it may include. "platform/*" = all of it.
const QMap<QString, QStringList>& AllowedIncludes() {
    static const QMap<QString, QStringList> kAllowed = {
        {u"platform"_s, {u"app/app.h"_s}},
        {u"link"_s,
         {u"platform/*"_s, u"app/app.h"_s, u"app/settings_keys.h"_s, u"device/device.h"_s}},
        {u"image"_s,
         {u"platform/*"_s, u"app/app.h"_s, u"app/settings_keys.h"_s, u"device/device.h"_s,
          u"link/link.h"_s}},
        {u"device"_s,
         {u"platform/*"_s, u"app/app.h"_s, u"app/settings_keys.h"_s, u"link/link.h"_s,
          u"image/image.h"_s}},
        {u"writer"_s, {}},
    };
    return kAllowed;
}

/// A face stands below every folder: it may include other faces only, and no circle of them.
const QMap<QString, QStringList>& AllowedInFaces() {
    static const QMap<QString, QStringList> kAllowed = {
        {u"app/app.h"_s, {}},
        {u"device/device.h"_s, {}},
        {u"link/link.h"_s, {}},
        {u"image/image.h"_s, {u"link/link.h"_s}},
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
    for (auto folder = AllowedIncludes().begin(); folder != AllowedIncludes().end(); ++folder) {
        for (const Inclusion& inclusion : InclusionsOf(folder.key())) {
            const bool own = inclusion.included.startsWith(folder.key() + u'/');
            EXPECT_TRUE(inclusion.system || own || Allows(folder.value(), inclusion.included))
                << inclusion.file.toStdString() << " includes " << inclusion.included.toStdString();
        }
    }
}

TEST(IncludeDirections, FacesIncludeNoOtherFolder) {
    for (auto face = AllowedInFaces().begin(); face != AllowedInFaces().end(); ++face) {
        for (const Inclusion& inclusion : InclusionsOf(face.key().section(u'/', 0, 0))) {
            if (inclusion.file == face.key() && !inclusion.system) {
                EXPECT_TRUE(face.value().contains(inclusion.included))
                    << inclusion.file.toStdString() << " includes "
                    << inclusion.included.toStdString();
            }
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
