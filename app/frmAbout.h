// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QLabel>
#include <QUrl>
#include <functional>

namespace tolvex {

/// The version panel. Shown modally; one for each time it is opened.
class frmAbout : public QDialog {
    Q_OBJECT

  public:
    /// Opens a web page for the user; whether it works is not asked.
    using OpenPage = std::function<void(const QUrl&)>;

    /// Without `openPage` the desktop's own browser opens the support page.
    explicit frmAbout(QWidget* parent = nullptr, const OpenPage& openPage = {});

  private:
    QLabel* AddLabel(const QString& name);
    void FillVersionPanel();
    void ArrangeControls(QLayout* buttons);

    QLabel* picIcon_;
    QLabel* lblTitle_;
    QLabel* lblVersion_;
    QLabel* lblDescription_;
    QLabel* lblDisclaimer_;
    QLabel* label1_;
};

}  // namespace tolvex
