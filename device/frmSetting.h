// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QWidget>

#include "base/program_state.h"
#include "widgets/controls.h"

class QGridLayout;
class QVBoxLayout;

namespace tolvex {

/// The settings window: device choice, lock and fuse bits, and a place for the panel that patches
/// single cells. Disabled as a whole while an operation runs, because everything in it would change
/// what the operation works on.
class frmSetting : public QWidget {
    Q_OBJECT

  public:
    explicit frmSetting(QWidget* parent = nullptr);

    /// Takes ownership; the frame goes below the others and stays hidden until there is a device.
    void PlacePatchFrame(QWidget* frame);

    /// The lists show the selected device and the chosen options; no signal comes of it.
    void ShowState(const ProgramState& state);
    void ShowPatchPanel() { patchFrame_->show(); }

  Q_SIGNALS:
    // The user chose an entry. An option comes even from a disabled window when an assistive tool
    // changes the list behind its back.
    void DeviceChosen(int index);
    void OptionChosen(OptionList list, int entry);
    void FuseReadClicked();
    void FuseWriteClicked();

  private:
    QComboBox* AddOptionList(OptionList option, const QString& name, const QString& spoken,
                             QWidget* parent);
    Frame* BuildDeviceFrame();
    Frame* BuildLockFuseFrame();
    Frame* BuildFuseFrame();
    QPushButton* AddButton(const QString& name, const QString& caption, QGridLayout* grid,
                           int column);

    QVBoxLayout* column_;
    QComboBox* comboDevice_;
    QLabel* label3_;
    QLabel* label4_;
    QMap<OptionList, QComboBox*> options_;
    QMap<OptionList, QLabel*> fuseLabels_;
    QPushButton* cmdFuseRead_;
    QPushButton* cmdFuseWrite_;
    QWidget* patchFrame_ = nullptr;
};

}  // namespace tolvex
