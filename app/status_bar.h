// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>
#include <QTimer>
#include <array>

#include "widgets/fitted_label.h"

namespace tolvex {

/// The main window's status bar: five panels, the fourth of which shows today's date by itself.
class StatusBar : public QStatusBar {
    Q_OBJECT

  public:
    explicit StatusBar(QWidget* parent = nullptr);

    /// `panel` is 1 to 5. Kept, and shown later, while the bar is hidden.
    void SetPanelText(int panel, const QString& text);
    QString PanelText(int panel) const;

  Q_SIGNALS:
    void PanelClicked(int panel);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    static constexpr int kPanels = 5;

    FittedLabel* Panel(int panel) const;
    void ShowDate();

    std::array<FittedLabel*, kPanels> panels_;
    QTimer midnight_;
};

}  // namespace tolvex
