// SPDX-License-Identifier: MIT
#include "platform/settings_file.h"

#include "platform/program_start.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QString InGroup(const QString& key) {
    return u"Settings/"_s + key;
}

/// An unquoted comma in a file edited by hand makes a list of what was one text.
constexpr QChar kListSeparator = u',';

}  // namespace

QString ConfigFolder() {
    return UserConfigFolder() + u"/Tolvex"_s;
}

QString SettingsPath() {
    return ConfigFolder() + u"/Tolvex.conf"_s;
}

SettingsFile::SettingsFile(const QString& path) : file_(path, QSettings::IniFormat) {}

QString SettingsFile::GetSetting(const QString& key, const QString& standard) const {
    const QVariant value = file_.value(InGroup(key));
    switch (value.typeId()) {
        case QMetaType::QString:
            return value.toString();
        case QMetaType::QStringList:
            return value.toStringList().join(kListSeparator);
        default:  // missing, or an object that only a damaged file can hold
            return standard;
    }
}

void SettingsFile::SaveSetting(const QString& key, const QString& text) {
    file_.setValue(InGroup(key), text);  // which asks the event loop for one write of all that came
}

}  // namespace tolvex
