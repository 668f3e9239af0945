// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <functional>

namespace tolvex {

/// The version panel. Shown modally; one for each time it is opened.
class frmAbout : public QDialog {
    Q_OBJECT

  public:
    /// Opens a web page for the person; whether it works is not asked.
    using OpenPage = std::function<void(const QUrl&)>;

    /// Without `openPage` the desktop's own browser opens the support page.
    explicit frmAbout(QWidget* parent = nullptr, OpenPage openPage = {});

    /// Sets the four labels from the product information. Runs with every new panel.
    void FillVersionPanel();

  private:
    QLabel* AddLabel(const QString& name);
    void ArrangeControls();
    void Command1_Click();

    OpenPage openPage_;
    QLabel* picIcon_;
    QLabel* lblTitle_;
    QLabel* lblVersion_;
    QLabel* lblDescription_;
    QLabel* lblDisclaimer_;
    QLabel* label1_;
    QPushButton* command1_;
    QPushButton* cmdOK_;
};

}  // namespace tolvex
