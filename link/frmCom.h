// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QStringList>

#include "link/port_selection.h"

namespace tolvex {

/// The port dialog. Shown modally; one for each time it is opened.
class frmCom : public QDialog {
    Q_OBJECT

  public:
    /// `toolTips` has one entry a port, COM1 first; an empty one shows nothing.
    frmCom(PortSelection& selection, const QStringList& toolTips, QWidget* parent);

    void reject() override;

  private:
    void Command_ok_Click();

    PortSelection& selection_;
    QComboBox* comboCom_;
};

}  // namespace tolvex
