// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>
#include <QTimer>
#include <array>

#include "widgets/fitted_label.h"

namespace tolvex {

/// The main window's status bar: five panels, the fourth of which shows today's date by itself.
/// They can have the keyboard focus; then the arrow keys go from one to the next, and Space or
/// Enter is a click.
class StatusBar : public QStatusBar {
    Q_OBJECT

  public:
    explicit StatusBar(QWidget* parent = nullptr);

    /// `panel` is 1 to 5. Kept, and shown later, while the bar is hidden.
    void SetPanelText(int panel, const QString& text);
    QString PanelText(int panel) const;
    /// Panel 1 is read out by assistive tools.
    void AnnounceMessage();
    /// The first panel takes the keyboard focus.
    void FocusFirst();

  Q_SIGNALS:
    void PanelClicked(int panel);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    static constexpr int kPanels = 5;

    FittedLabel* Panel(int panel) const;
    bool HandleKey(int panel, int key);
    void ShowDate();
    void ShareWidth();

    std::array<FittedLabel*, kPanels> panels_;
    QTimer midnight_;
};

}  // namespace tolvex
