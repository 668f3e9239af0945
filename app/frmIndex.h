// SPDX-License-Identifier: MIT
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>

namespace tolvex {

/// The board-modification panel: what to wire on the writer board for 8-pin and 28-pin chips.
/// Shown modally; one for each time it is opened. Labels that share a control name (Label1, Label2,
/// Label3) share it as object name, in the order in which they are read.
class frmIndex : public QDialog {
    Q_OBJECT

  public:
    explicit frmIndex(QWidget* parent = nullptr);

    /// "GND" to "MOSI", one a line.
    static QString PinNames();

  private:
    QLabel* AddText(const QString& name, const QString& text);
    QLayout* Legend(QColor line, QLabel* text);
};

}  // namespace tolvex
