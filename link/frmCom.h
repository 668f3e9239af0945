// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QDialog>

#include "link/link.h"

namespace tolvex {

/// The port dialog. Shown modally; one for each time it is opened.
class frmCom : public QDialog {
    Q_OBJECT

  public:
    /// `link` is borrowed. `toolTips` has one entry a port, COM1 first; an empty one shows nothing.
    frmCom(const LinkContext& link, const QStringList& toolTips, QWidget* parent);

    void reject() override;

  private:
    void Command_ok_Click();

    const LinkContext& link_;
    QComboBox* comboCom_;
};

}  // namespace tolvex
