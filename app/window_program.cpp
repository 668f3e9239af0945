// SPDX-License-Identifier: MIT
#include "app/window_program.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>

#include "app/focus_keys.h"
#include "base/product.h"
#include "base/text.h"
#include "image/frmModify.h"
#include "link/frmCom.h"
#include "platform/window_dialogs.h"

namespace tolvex {

using namespace Qt::StringLiterals;

WindowProgram::WindowProgram(const Parts& parts)
    : parts_(parts),
      window_(parts.settings),
      children_(window_.Area()),
      bench_({.port = parts.port,
              .clock = clock_,
              .settings = parts.settings,
              .folders = parts.folders,
              .ui = *this}) {}

bool WindowProgram::Start() {
    window_.Appear(MenuRows());
    if (clock_.Ended()) {
        return false;
    }
    BuildWindows();
    ConnectBars();
    ConnectSettingWindow();
    MDIForm_Load();
    window_.setWindowTitle(u"Tolvex "_s + product::VersionText());
    FillDeviceLists(bench_.chip);
    if (!clock_.Ended() && GetNumber(parts_.settings, keys::IndexComFlag) == 0) {
        RunAlone([this] { ShowPortDialog(); });
        SaveNumber(parts_.settings, keys::IndexComFlag, 1);
    }
    return !clock_.Ended();
}

void WindowProgram::BuildWindows() {
    setting_ = new frmSetting;
    setting_->PlacePatchFrame(new frmModify(bench_.image));
    children_.AddSettingWindow(setting_);
    message_ = new frmMsg(&window_, [this](QSize dialog) { return DialogPlace(dialog); });
    AddFocusKeys(window_);
    // Not before the main window is up: it takes longer to draw.
    QApplication::setWindowIcon(QIcon(u":/icons/tolvex.svg"_s));
}

// Whatever may take its time is queued: who presses a button through the accessibility bus gets the
// answer at once.
void WindowProgram::ConnectBars() {
    connect(
        &window_.Tools(), &Toolbar::ButtonClicked, this,
        [this](const QString& key) {
            RunAlone([this, key] {
                QCoreApplication::processEvents();  // the button is seen to come up first
                tbToolBar_ButtonClick(bench_, key);
            });
        },
        Qt::QueuedConnection);
    connect(&window_.Panels(), &StatusBar::PanelClicked, this,
            &WindowProgram::sbStatusBar_PanelClick, Qt::QueuedConnection);
    connect(&window_.Menus(), &MenuBar::Chosen, this, [this](const MenuRow* row) {
        (row->flags & kExclusive) != 0 ? RunAlone([this, row] { row->run(*this); })
                                       : row->run(*this);
    });
    connect(&window_, &frmMain::Closing, this, &WindowProgram::ShutDown);
    connect(&window_, &frmMain::EscapePressed, message_, &frmMsg::CloseLeftOver);
    // Queued, too: the program that the files are dragged from waits for the end of the drop.
    connect(
        &window_, &frmMain::FilesDropped, this,
        [this](const QStringList& paths) {
            RunAlone([this, paths] { bench_.files.OpenDropped(paths); });
        },
        Qt::QueuedConnection);
}

void WindowProgram::ConnectSettingWindow() {
    // Neither waits nor asks, so nothing can come in between. What is not taken is shown back.
    connect(setting_, &frmSetting::DeviceChosen, this,
            [this](int index) { busy_ ? ShowSettings() : SelectDevice(bench_.chip, index); });
    connect(setting_, &frmSetting::OptionChosen, this, [this](OptionList list, int entry) {
        if (!busy_) {
            bench_.state.options[list] = entry;
        }
        ShowSettings();
    });
    connect(
        setting_, &frmSetting::FuseReadClicked, this,
        [this] { RunAlone([this] { cmdFuseRead_Click(bench_.chip); }); }, Qt::QueuedConnection);
    connect(
        setting_, &frmSetting::FuseWriteClicked, this,
        [this] { RunAlone([this] { cmdFuseWrite_Click(bench_.chip); }); }, Qt::QueuedConnection);
}

/// Runs `work` to its end; nothing happens while something else is under way. There is one line to
/// the writer, and whoever waits on it serves the event loop: what the user starts meanwhile would
/// take the other's reply.
void WindowProgram::RunAlone(const std::function<void()>& work) {
    if (!busy_) {
        busy_ = true;
        focus_ = window_.focusWidget();
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->hide();  // its items would still do what they say
        }
        message_->SetBusy(true);
        work();
        EndRun();
        busy_ = false;
    }
}

void WindowProgram::OpenHandedOver(const QString& file) {
    window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
    window_.raise();
    window_.activateWindow();
    if (!busy_) {
        RunAlone([this, file] { bench_.files.OpenDropped({file}); });
        return;
    }
    // Not modal: what runs goes on. A modal dialog would block it unless it is that dialog's own.
    QWidget* const dialog = QApplication::activeModalWidget();
    auto* box = new QMessageBox(
        QMessageBox::Information, window_.windowTitle(),
        Text::tr("今はファイルを開けません。終わってからもう一度開いてください。\n%1").arg(file),
        QMessageBox::Ok, dialog != nullptr ? dialog : &window_);
    box->setObjectName(u"notOpened"_s);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}

void WindowProgram::EndRun() {
    if (!clock_.Ended()) {
        EndReading();
        if (waiting_) {
            QCoreApplication::processEvents();  // keys typed ahead meet disabled controls
        }
    }
    SetWaiting(false);
    message_->SetBusy(false);
}

/// While what runs waits it is alone: nothing that could start a second exchange, or change the
/// images, the lists or the failure flag under it, takes input until it has ended. Then all comes
/// back, with the keyboard focus where it was.
void WindowProgram::SetWaiting(bool waiting) {
    if (waiting_ == waiting) {
        return;
    }
    waiting_ = waiting;
    window_.SetBusy(waiting);
    setting_->setEnabled(!waiting);
    if (!waiting) {
        GiveFocusBack();
    } else if (window_.focusWidget() == nullptr) {
        window_.setFocus();  // when the window is activated, Qt would look for some other place
    }
}

/// A file of many megabytes: the window says so and goes on showing itself.
bool WindowProgram::ContinueReading() {
    if (!messageAfterReading_) {
        messageAfterReading_ = window_.Panels().PanelText(kMessagePanel);
        window_.SetStatusText(kMessagePanel, Text::tr("ファイルを読み込んでいます。"));
        window_.setCursor(Qt::WaitCursor);
    }
    clock_.Yield(clock_.Now());
    return !clock_.Ended();
}

void WindowProgram::EndReading() {
    if (messageAfterReading_) {
        window_.unsetCursor();
        window_.SetStatusText(kMessagePanel, *messageAfterReading_);
        messageAfterReading_.reset();
    }
}

/// Unless the user has taken the focus elsewhere meanwhile.
void WindowProgram::GiveFocusBack() {
    const QWidget* now = window_.focusWidget();
    const bool taken = now != nullptr && now->isVisible() && now->isEnabled() &&
                       !now->isAncestorOf(focus_) && now != &window_;
    if (!taken && focus_ && focus_->isVisible()) {
        focus_->setFocus(Qt::OtherFocusReason);
    }
}

void WindowProgram::MDIForm_Load() {
    children_.ShowAll(parts_.settings);
    if (GetNumber(parts_.settings, keys::IndexFirstFlag) == 0) {
        RunAlone([this] { mmuIndex_Click(); });
        SaveNumber(parts_.settings, keys::IndexFirstFlag, 1);
    }
}

void WindowProgram::ShutDown() {
    if (!clock_.Ended()) {
        MDIForm_QueryUnload();
        MDIForm_Unload();
    }
}

void WindowProgram::StoreLayout() {
    MDIForm_QueryUnload();
    window_.StorePlace(parts_.settings);
}

void WindowProgram::MDIForm_QueryUnload() {
    if (!window_.isMinimized()) {
        children_.StorePlaces(parts_.settings);
    }
}

void WindowProgram::MDIForm_Unload() {
    bench_.listings.Retire();
    window_.StorePlace(parts_.settings);
    bench_.connection.ClosePort();
    clock_.End();
    if (message_ != nullptr) {
        message_->CloseMessage();
    }
    QApplication::closeAllWindows();
    QApplication::quit();
}

void WindowProgram::SetStatusText(int panel, const QString& text, MessageKind kind) {
    window_.SetStatusText(panel, text);
    if (panel == kMessagePanel && messageAfterReading_) {
        messageAfterReading_ = text;
    }
    if (panel == kMessagePanel && kind == MessageKind::Result && !message_->isVisible()) {
        window_.Panels().AnnounceMessage();
    }
}

// An operation that the shutdown interrupted can't bring the dialog back.
void WindowProgram::ShowMessage(MessageKind kind, const QString& text) {
    if (!clock_.Ended()) {
        message_->ShowMessage(kind, text);
    }
}

void WindowProgram::SetProgress(bool on, double minimum, double value, double maximum) {
    if (!clock_.Ended()) {
        message_->SetProgress(on, minimum, value, maximum);
    }
}

void WindowProgram::SetFlashCaption(const QString& caption) {
    children_.Program().SetCaption(caption);
}

void WindowProgram::SetEepromCaption(const QString& caption) {
    children_.Eeprom().SetCaption(caption);
}

std::optional<QString> WindowProgram::AskOpenFile(const FileDialogRequest& request) {
    return parts_.dialogs.AskOpenFile(request);
}

std::optional<QString> WindowProgram::AskSaveFile(const FileDialogRequest& request) {
    return parts_.dialogs.AskSaveFile(request);
}

void WindowProgram::ShowBox(BoxIcon icon, const QString& title, const QString& text) {
    parts_.dialogs.ShowBox(icon, title, text);
}

bool WindowProgram::AskOkCancel(const QString& title, const QString& text) {
    return parts_.dialogs.AskOkCancel(title, text);
}

void WindowProgram::ShowPortDialog() {
    frmCom dialog(bench_.chip, PortToolTips(), &window_);
    dialog.adjustSize();
    dialog.move(DialogPlace(dialog.size()));
    ExecModal(dialog);
}

/// Centred over the Flash listing sideways and over the main window's inside up and down.
QPoint WindowProgram::DialogPlace(QSize dialog) const {
    const QWidget* inside = window_.centralWidget();
    const QPoint offset((children_.ListingWidth() - dialog.width()) / 2,
                        (inside->height() - dialog.height()) / 2);
    return inside->mapToGlobal(offset);
}

QStringList WindowProgram::PortToolTips() const {
    QStringList tips;
    for (const ComPort& port : parts_.comPorts.All()) {
        const QString adapter = port.adapter.isEmpty() ? QString() : u" (%1)"_s.arg(port.adapter);
        tips << (port.present ? port.devicePath + adapter : QString());
    }
    return tips;
}

}  // namespace tolvex
