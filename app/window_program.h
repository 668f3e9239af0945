// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include "app/child_windows.h"
#include "app/frmMain.h"
#include "device/frmMsg.h"
#include "port/com_ports.h"
#include "workbench/workbench.h"

namespace tolvex {

/// The program with its windows: builds them, connects them to the workbench, shows what the
/// operations tell, starts and shuts down.
class WindowProgram : public QObject, private UserInterface {
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
        std::function<void(const QString& file)> showHelp;
    };

    explicit WindowProgram(const Parts& parts);

    /// From the main window, which is seen first, to the port dialog of a first start. False when
    /// the user closed the program meanwhile.
    bool Start();
    /// Saves the layout, deletes the listings, closes the port and every window, and ends the event
    /// loop. What waits for the writer gives up at once.
    void ShutDown();
    /// Saves where the windows stand, unless the main window is minimised.
    void StoreLayout();

    /// A file from another instance, as if it were dropped here. While something runs or asks, the
    /// user is told that it can't be opened now.
    void OpenHandedOver(const QString& file);

    frmMain& Window() { return window_; }
    Workbench& Bench() { return bench_; }

  private:
    using UserInterface::SetStatusText;
    void SetStatusText(int panel, const QString& text, MessageKind) override;
    void ShowMessage(MessageKind kind, const QString& text) override;
    void CloseMessage() override { message_->CloseMessage(); }
    void SetProgress(bool on, double minimum, double value, double maximum) override;
    void SetFlashListing(const QString& text) override { children_.Program().SetListing(text); }
    void SetEepromListing(const QString& text) override { children_.Eeprom().SetListing(text); }
    void ShowVerifyReport(const QString& text) override { children_.ShowVerifyReport(text); }
    void SetFlashCaption(const QString& caption) override;
    void SetEepromCaption(const QString& caption) override;
    void ShowSettings() override { setting_->ShowState(bench_.state); }
    void ShowPatchPanel() override { setting_->ShowPatchPanel(); }
    void ShowPortDialog() override;
    QString MainCaption() const override { return window_.windowTitle(); }
    bool ContinueReading() override;
    std::optional<QString> AskOpenFile(const FileDialogRequest& request) override;
    std::optional<QString> AskSaveFile(const FileDialogRequest& request) override;
    void ShowBox(BoxIcon icon, const QString& title, const QString& text) override;
    bool AskOkCancel(const QString& title, const QString& text) override;

    void BuildWindows();
    void ConnectBars();
    void ConnectSettingWindow();
    void MDIForm_Load();
    void MDIForm_QueryUnload();
    void MDIForm_Unload();

    /// What the menu bar holds.
    static std::span<const MenuRow> MenuRows();
    void mmuCominucation_Click();
    void mnuViewOptions_Click();
    void mnuHelpContents_Click();
    void mmuIndex_Click();
    void mnuHelpSub_Click();
    void mnuHelpAbout_Click();
    void sbStatusBar_PanelClick(int panel);

    void RunAlone(const std::function<void()>& work);
    void EndRun();
    void SetWaiting(bool waiting);
    void GiveFocusBack();
    void EndReading();
    QPoint DialogPlace(QSize dialog) const;
    QStringList PortToolTips() const;

    /// What runs alone waits by it. A wait serves the event loop, so it disables what may not
    /// happen meanwhile. A modal dialog blocks the window itself: under it nothing is disabled.
    class DisablingClock : public EventClock {
      public:
        explicit DisablingClock(WindowProgram& program) : program_(program) {}
        Instant Now() const override { return program_.parts_.clock.Now(); }
        void Yield(Instant deadline) override {
            program_.SetWaiting(true);
            program_.parts_.clock.Yield(deadline);
        }
        bool Ended() const override { return program_.parts_.clock.Ended(); }
        void End() override { program_.parts_.clock.End(); }

      private:
        WindowProgram& program_;
    };

    Parts parts_;
    DisablingClock clock_{*this};
    frmMain window_;
    ChildWindows children_;
    // Built when the main window is up; its area and it itself own them.
    frmSetting* setting_ = nullptr;
    frmMsg* message_ = nullptr;
    Workbench bench_;
    bool busy_ = false;                           ///< something runs alone
    bool waiting_ = false;                        ///< and has served the event loop
    QPointer<QWidget> focus_;                     ///< of the window when it began
    std::optional<QString> messageAfterReading_;  ///< while a long file is read
};

}  // namespace tolvex
