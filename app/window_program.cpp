// SPDX-License-Identifier: MIT
#include "app/window_program.h"

#include <QApplication>
#include <QIcon>
#include <QMenu>

#include "app/focus_keys.h"
#include "app/frmAbout.h"
#include "app/frmIndex.h"
#include "base/product.h"
#include "base/settings_keys.h"
#include "link/frmCom.h"
#include "platform/window_dialogs.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QString ReadingText() {
    return u"ファイルを読み込んでいます。"_s;
}

}  // namespace

WindowProgram::WindowProgram(const Parts& parts)
    : parts_(parts),
      window_(parts.settings),
      setting_(new frmSetting),
      children_(window_.Area(), setting_),
      messages_(&window_, [this](QSize dialog) { return DialogPlace(dialog); }),
      bench_({.port = parts.port,
              .clock = parts.clock,
              .settings = parts.settings,
              .folders = parts.folders,
              .person = {.status = window_,
                         .dialog = messages_,
                         .windows = children_,
                         .panel = *setting_,
                         .dialogs = parts.dialogs},
              .mainCaption = [this] { return window_.windowTitle(); },
              .showPortDialog = [this] { ShowPortDialog(); },
              .breath = [this] { return BreatheInReading(); }}),
      modify_(new frmModify(bench_.patch)),
      guard_([this](bool busy) { SetBusy(busy); }),
      commands_({.window = window_,
                 .children = children_,
                 .bench = bench_,
                 .guard = guard_,
                 .dialogs = parts.dialogs,
                 .showPortDialog = [this] { ShowPortDialog(); },
                 .showBoardPanel = [this] { ShowBoardPanel(); },
                 .showVersionPanel = [this] { ShowVersionPanel(); },
                 .showHelp =
                     [this] { parts_.help.ShowContents(parts_.folders.program + u"tolvex.hlp"_s); },
                 .shutDown = [this] { ShutDown(); }}) {
    setting_->PlacePatchFrame(modify_);
    AddFocusKeys(window_);
    ConnectBars();
    ConnectSettingWindow();
    // Not before the frame shows itself: it takes longer to draw.
    QApplication::setWindowIcon(QIcon(u":/icons/tolvex.svg"_s));
}

// Whatever may take its time is queued: who presses a button through the accessibility bus gets the
// answer at once.
void WindowProgram::ConnectBars() {
    connect(
        &window_.Tools(), &Toolbar::ButtonClicked, this,
        [this](const QString& key) { commands_.tbToolBar_ButtonClick(key); }, Qt::QueuedConnection);
    connect(
        &window_.Panels(), &StatusBar::PanelClicked, this,
        [this](int panel) { commands_.sbStatusBar_PanelClick(panel); }, Qt::QueuedConnection);
    connect(&window_.Menus(), &MenuBar::Chosen, this,
            [this](const MainCommands::Command& command) { commands_.Do(command); });
    connect(window_.Menus().WindowMenu(), &QMenu::aboutToShow, this, &WindowProgram::ListWindows);
    connect(&window_, &frmMain::Closing, this, &WindowProgram::ShutDown);
    // Queued, too: the program that the files are dragged from waits for the end of the drop.
    connect(
        &window_, &frmMain::FilesDropped, this,
        [this](const QStringList& paths) {
            guard_.Run([this, paths] { bench_.files.OpenDropped(paths); });
        },
        Qt::QueuedConnection);
}

void WindowProgram::ConnectSettingWindow() {
    connect(setting_, &frmSetting::DeviceChosen, this, [this](int index) {
        guard_.RunAtOnce([this, index] { bench_.selection.SelectDevice(index); });
    });
    connect(
        setting_, &frmSetting::FuseReadClicked, this,
        [this] { guard_.Run([this] { bench_.lockFuse.cmdFuseRead_Click(); }); },
        Qt::QueuedConnection);
    connect(
        setting_, &frmSetting::FuseWriteClicked, this,
        [this] { guard_.Run([this] { bench_.lockFuse.cmdFuseWrite_Click(); }); },
        Qt::QueuedConnection);
}

/// What runs is alone: nothing that could start a second exchange, or change the images, the lists
/// or the failure flag under it, takes input until it has ended. Then all comes back, with the
/// keyboard focus where it was.
void WindowProgram::SetBusy(bool busy) {
    if (busy) {
        focus_ = window_.focusWidget();
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->hide();  // its items would still do what they say
        }
    } else if (!parts_.clock.Ended()) {
        EndReading();
        QCoreApplication::processEvents();  // keys typed ahead meet disabled controls
    }
    window_.SetBusy(busy);
    setting_->setEnabled(!busy);
    messages_.SetBusy(busy);
    if (!busy) {
        GiveFocusBack();
    }
}

/// A file of many megabytes: the window says so and goes on showing itself.
bool WindowProgram::BreatheInReading() {
    if (!messageBeforeReading_) {
        messageBeforeReading_ = window_.Panels().PanelText(kMessagePanel);
        window_.SetStatusText(kMessagePanel, ReadingText());
        window_.setCursor(Qt::WaitCursor);
    }
    parts_.clock.Yield(parts_.clock.Now());
    return !parts_.clock.Ended();
}

void WindowProgram::EndReading() {
    if (messageBeforeReading_) {
        window_.unsetCursor();
        if (window_.Panels().PanelText(kMessagePanel) == ReadingText()) {
            window_.SetStatusText(kMessagePanel, *messageBeforeReading_);
        }
        messageBeforeReading_.reset();
    }
}

/// Unless the person has taken the focus elsewhere meanwhile.
void WindowProgram::GiveFocusBack() {
    const QWidget* now = window_.focusWidget();
    const bool taken = now != nullptr && now->isVisible() && now->isEnabled() &&
                       !now->isAncestorOf(focus_) && now != &window_;
    if (!taken && focus_ && focus_->isVisible()) {
        focus_->setFocus(Qt::OtherFocusReason);
    }
}

bool WindowProgram::Start() {
    MDIForm_Load();
    window_.setWindowTitle(u"Tolvex "_s + product::VersionText());
    bench_.selection.FillDeviceLists();
    if (!parts_.clock.Ended() && GetNumber(parts_.settings, keys::IndexComFlag) == 0) {
        guard_.Run([this] { ShowPortDialog(); });
        SaveNumber(parts_.settings, keys::IndexComFlag, 1);
    }
    return !parts_.clock.Ended();
}

void WindowProgram::MDIForm_Load() {
    children_.ShowAll(parts_.settings);
    if (GetNumber(parts_.settings, keys::IndexFirstFlag) == 0) {
        guard_.Run([this] { ShowBoardPanel(); });
        SaveNumber(parts_.settings, keys::IndexFirstFlag, 1);
    }
}

void WindowProgram::ShutDown() {
    if (!parts_.clock.Ended()) {
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
    parts_.clock.End();
    messages_.Retire();
    QApplication::closeAllWindows();
    QApplication::quit();
}

void WindowProgram::ShowPortDialog() {
    frmCom dialog(bench_.portSelection, PortToolTips(), &window_);
    dialog.adjustSize();
    dialog.move(DialogPlace(dialog.size()));
    ExecModal(dialog);
}

void WindowProgram::ShowBoardPanel() {
    frmIndex panel(&window_);
    ExecModal(panel);
}

void WindowProgram::ShowVersionPanel() {
    frmAbout panel(&window_);
    ExecModal(panel);
}

/// Lists the open child windows below the menu's own items, the active one marked.
void WindowProgram::ListWindows() {
    QMenu& menu = *window_.Menus().WindowMenu();
    for (QAction* action : menu.actions()) {
        if (action->property("listed").toBool()) {
            delete action;
        }
    }
    QAction* separator = menu.addSeparator();
    separator->setProperty("listed", true);
    int number = 0;
    for (const QPointer<QMdiSubWindow> child : window_.Area().subWindowList()) {
        if (child->isHidden()) {
            continue;
        }
        QString caption = child->windowTitle();
        caption.replace(u'&', u"&&"_s);
        QAction* action =
            menu.addAction(u"&%1 %2"_s.arg(++number).arg(caption), this, [this, child] {
                if (child.isNull()) {
                    return;  // closed since it was listed
                }
                if (child->isMinimized()) {
                    child->showNormal();
                }
                window_.Area().setActiveSubWindow(child);
            });
        action->setProperty("listed", true);
        action->setCheckable(true);
        action->setChecked(child == window_.Area().activeSubWindow());
    }
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
        if (!port.present) {
            tips << QString();
        } else {
            tips << (port.adapter.isEmpty() ? port.devicePath
                                            : u"%1 (%2)"_s.arg(port.devicePath, port.adapter));
        }
    }
    return tips;
}

}  // namespace tolvex
