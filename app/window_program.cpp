// SPDX-License-Identifier: MIT
#include "app/window_program.h"

#include <QApplication>
#include <QMenu>

#include "app/frmAbout.h"
#include "app/frmIndex.h"
#include "base/product.h"
#include "base/settings_keys.h"
#include "link/frmCom.h"

namespace tolvex {

using namespace Qt::StringLiterals;

WindowProgram::WindowProgram(const Parts& parts)
    : parts_(parts),
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
              .showPortDialog = [this] { ShowPortDialog(); }}),
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
                 .shutDown = [this] { ShutDown(); }}),
      menus_(new MenuBar(commands_, &window_)) {
    window_.setMenuBar(menus_);
    setting_->PlacePatchFrame(modify_);
    ConnectBars();
    ConnectSettingWindow();
}

void WindowProgram::ConnectBars() {
    connect(&window_.Tools(), &Toolbar::ButtonClicked, this,
            [this](const QString& key) { commands_.tbToolBar_ButtonClick(key); });
    connect(&window_.Panels(), &StatusBar::PanelClicked, this,
            [this](int panel) { commands_.sbStatusBar_PanelClick(panel); });
    connect(menus_->WindowMenu(), &QMenu::aboutToShow, this, &WindowProgram::ListWindows);
    connect(&window_, &frmMain::Closing, this, &WindowProgram::ShutDown);
    connect(&window_, &frmMain::FileDropped, this, [this](const QString& path) {
        guard_.Run([this, path] { bench_.files.OpenDropped({path}); });
    });
}

void WindowProgram::ConnectSettingWindow() {
    connect(setting_, &frmSetting::DeviceChosen, this, [this](int index) {
        guard_.Run([this, index] { bench_.selection.SelectDevice(index); });
    });
    connect(setting_, &frmSetting::FuseReadClicked, this,
            [this] { guard_.Run([this] { bench_.lockFuse.cmdFuseRead_Click(); }); });
    connect(setting_, &frmSetting::FuseWriteClicked, this,
            [this] { guard_.Run([this] { bench_.lockFuse.cmdFuseWrite_Click(); }); });
}

void WindowProgram::SetBusy(bool busy) {
    window_.Tools().setEnabled(!busy);
    menus_->SetBusy(busy);
    setting_->SetBusy(busy);
    modify_->SetBusy(busy);
    messages_.SetBusy(busy);
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
    window_.RestoreGeometry(parts_.settings);
    children_.ShowAll(parts_.settings);
    window_.show();
    if (GetNumber(parts_.settings, keys::IndexFirstFlag) == 0) {
        ShowBoardPanel();
        SaveNumber(parts_.settings, keys::IndexFirstFlag, 1);
    }
}

void WindowProgram::ShutDown() {
    if (parts_.clock.Ended()) {
        return;
    }
    MDIForm_QueryUnload();
    MDIForm_Unload();
}

void WindowProgram::MDIForm_QueryUnload() {
    if (!window_.isMinimized()) {
        children_.SaveGeometry(parts_.settings);
    }
}

void WindowProgram::MDIForm_Unload() {
    bench_.listings.Retire();
    window_.SaveGeometry(parts_.settings);
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
    dialog.exec();
}

void WindowProgram::ShowBoardPanel() {
    frmIndex panel(&window_);
    panel.exec();
}

void WindowProgram::ShowVersionPanel() {
    frmAbout panel(&window_);
    panel.exec();
}

/// Lists the open child windows below the menu's own items, the active one marked.
void WindowProgram::ListWindows() {
    QMenu& menu = *menus_->WindowMenu();
    for (QAction* action : menu.actions()) {
        if (action->property("listed").toBool()) {
            delete action;
        }
    }
    QAction* separator = menu.addSeparator();
    separator->setProperty("listed", true);
    int number = 0;
    for (QMdiSubWindow* child : window_.Area().subWindowList()) {
        if (child->isHidden()) {
            continue;
        }
        QString caption = child->windowTitle();
        caption.replace(u'&', u"&&"_s);
        QAction* action =
            menu.addAction(u"&%1 %2"_s.arg(++number).arg(caption), this, [this, child] {
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
    const QPoint offset((children_.ListingSize().width() - dialog.width()) / 2,
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
