// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

namespace tolvex {

/// The texts that Qt brings along (file dialog, context menus, window menus) in Japanese, as long
/// as this lives. Those that a user meets in this program stand in a table of its own, so that no
/// package has to be installed for them; Qt's Japanese catalogue adds the rest where there is one.
/// Needs a QCoreApplication.
class JapaneseTexts : public QTranslator {
    Q_OBJECT

  public:
    JapaneseTexts();

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override;

  private:
    QTranslator catalogue_;
};

}  // namespace tolvex
