// SPDX-License-Identifier: MIT
#include "base/language.h"

#include <QCoreApplication>
#include <QLocale>
#include <optional>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

std::optional<Language> LanguageOf(const QString& name) {
    if (name == u"en") {
        return Language::English;
    }
    return name == u"ja" ? std::optional(Language::Japanese) : std::nullopt;
}

std::optional<Language> LanguageOfEnvironment() {
    return LanguageOf(qEnvironmentVariable("TOLVEX_LANGUAGE"));
}

}  // namespace

Language WindowLanguage(const Settings& settings) {
    const auto stored = LanguageOf(settings.GetSetting(QString::fromLatin1(keys::Language), {}));
    return LanguageOfEnvironment().value_or(stored.value_or(Language::Japanese));
}

Language TerminalLanguage() {
    if (const auto language = LanguageOfEnvironment()) {
        return *language;
    }
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (const QString locale = qEnvironmentVariable(variable); !locale.isEmpty()) {
            return locale.startsWith(u"ja") ? Language::Japanese : Language::English;
        }
    }
    return QLocale::system().language() == QLocale::Japanese ? Language::Japanese
                                                             : Language::English;
}

std::unique_ptr<QTranslator> InstallTexts(Language language) {
    if (language == Language::Japanese) {
        return nullptr;
    }
    auto texts = std::make_unique<QTranslator>();
    if (texts->load(u":/translations/tolvex_en.qm"_s)) {
        QCoreApplication::installTranslator(texts.get());
    }
    return texts;
}

}  // namespace tolvex
