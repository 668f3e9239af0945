// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QWidget>

#include "base/setting_panel.h"
#include "widgets/controls.h"

class QGridLayout;
class QVBoxLayout;

namespace tolvex {

/// The settings window: device choice, lock and fuse bits, and a place for the panel that patches
/// single cells. Disabled as a whole while an operation runs, because everything in it would change
/// what the operation works on.
class frmSetting : public QWidget, public SettingPanel {
    Q_OBJECT

  public:
    explicit frmSetting(QWidget* parent = nullptr);

    /// Takes ownership; the frame goes below the others and stays hidden until there is a device.
    void PlacePatchFrame(QWidget* frame);

    void FillOptions(OptionList list, const QStringList& entries) override;
    int SelectedOption(OptionList list) const override;
    void SelectOption(OptionList list, int entry) override;
    void ShowOption(OptionList list, bool on) override;
    void EnableFuseRead(bool enabled) override;
    void FillDevices(const QStringList& names) override;
    void MarkDevice(int index) override;
    void ShowSizes(const QString& flash, const QString& eeprom) override;
    void ShowPatchPanel() override;

  Q_SIGNALS:
    void DeviceChosen(int index);
    void FuseReadClicked();
    void FuseWriteClicked();

  private:
    struct OptionControls {
        QLabel* label;  ///< null for the lock list, whose frame names it
        QComboBox* list;
    };

    Frame* BuildDeviceFrame();
    Frame* BuildLockFuseFrame();
    Frame* BuildFuseFrame();
    Frame* BuildLockFrame();
    QPushButton* AddButton(const QString& name, const QString& caption, QGridLayout* grid,
                           int column);

    QVBoxLayout* column_;
    QComboBox* comboDevice_;
    QLabel* label3_;
    QLabel* label4_;
    QMap<OptionList, OptionControls> options_;
    QPushButton* cmdFuseRead_;
    QPushButton* cmdFuseWrite_;
    QWidget* patchFrame_ = nullptr;
};

}  // namespace tolvex
