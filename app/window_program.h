// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "app/child_windows.h"
#include "app/frmMain.h"
#include "app/main_commands.h"
#include "app/menu_bar.h"
#include "app/run_guard.h"
#include "base/dialogs.h"
#include "base/event_clock.h"
#include "base/help_viewer.h"
#include "base/serial_port.h"
#include "device/frmSetting.h"
#include "device/message_window.h"
#include "image/frmModify.h"
#include "port/com_ports.h"
#include "workbench/workbench.h"

namespace tolvex {

/// The program with its windows: builds them, connects them to the workbench, starts and shuts
/// down.
class WindowProgram : public QObject {
    Q_OBJECT

  public:
    /// Borrowed; all of it outlives the program.
    struct Parts {
        SerialPort& port;
        EventClock& clock;
        Settings& settings;
        const AppDir& folders;
        const ComPorts& comPorts;
        Dialogs& dialogs;
        HelpViewer& help;
    };

    explicit WindowProgram(const Parts& parts);

    /// From the window's layout to the port dialog of a first start. False when the person closed
    /// the program meanwhile.
    bool Start();
    /// Saves the layout, deletes the listings, closes the port and every window, and ends the event
    /// loop. What waits for the writer gives up at once.
    void ShutDown();
    /// Saves where the windows stand, unless the main window is minimised.
    void StoreLayout();

    frmMain& Window() { return window_; }
    Workbench& Bench() { return bench_; }

  private:
    void ConnectBars();
    void ConnectSettingWindow();
    void SetBusy(bool busy);

    void GiveFocusBack();
    bool BreatheInReading();
    void EndReading();

    void MDIForm_Load();
    void MDIForm_QueryUnload();
    void MDIForm_Unload();

    void ShowPortDialog();
    void ShowBoardPanel();
    void ShowVersionPanel();
    void ListWindows();
    QPoint DialogPlace(QSize dialog) const;
    QStringList PortToolTips() const;

    Parts parts_;
    frmMain window_;
    frmSetting* setting_;  ///< owned by the window's area
    ChildWindows children_;
    MessageWindow messages_;
    Workbench bench_;
    frmModify* modify_;  ///< owned by the settings window
    RunGuard guard_;
    MainCommands commands_;
    QPointer<QWidget> focus_;  ///< of the window when the running operation began
    std::optional<QString> messageBeforeReading_;  ///< while a long file is read
};

}  // namespace tolvex
