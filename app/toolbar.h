// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

namespace tolvex {

/// The main window's toolbar: a button for each sequence, known by its key.
class Toolbar : public QToolBar {
    Q_OBJECT

  public:
    explicit Toolbar(QWidget* parent = nullptr);

  Q_SIGNALS:
    void ButtonClicked(const QString& key);

  private:
    void AddSlots(int count);
};

}  // namespace tolvex
