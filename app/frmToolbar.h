// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

namespace tolvex {

/// The main window's toolbar: a button a chain of operations, known by its key.
class frmToolbar : public QToolBar {
    Q_OBJECT

  public:
    explicit frmToolbar(QWidget* parent = nullptr);

  Q_SIGNALS:
    void ButtonClicked(const QString& key);

  private:
    void AddSlots(int count);
};

}  // namespace tolvex
