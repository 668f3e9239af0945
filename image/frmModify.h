// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "image/image.h"
#include "widgets/controls.h"

namespace tolvex {

/// The panel that reads and patches single cells of the images. It sits in the settings window, and
/// does nothing while that is disabled, even when an assistive tool changes a box behind its back.
class frmModify : public Frame {
    Q_OBJECT

  public:
    explicit frmModify(const ImageContext& context, QWidget* parent = nullptr);

  private:
    QLineEdit* AddBox(const QString& name, const QString& text, const QString& labelName,
                      const QString& caption, const QString& gap, int top);
    QRadioButton* AddOption(const QString& name, const QString& caption, int top);
    QPushButton* AddButton(const QString& name, const QString& caption, int left);

    void txtAddress_Change();
    void CmdRead_Click();
    void CmdWrite_Click();

    ImageContext context_;
    QLineEdit* txtAddress_;
    QLineEdit* txtData_;
    QRadioButton* optionProgram_;
    QRadioButton* optionEeprom_;
    QPushButton* cmdRead_;
    QPushButton* cmdWrite_;
};

}  // namespace tolvex
