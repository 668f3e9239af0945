// SPDX-License-Identifier: MIT
#include "app/main_commands.h"

#include <QCoreApplication>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

template <typename... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
template <typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

}  // namespace

void MainCommands::Do(const Command& command) {
    const auto alone = [this](auto& target, auto method) {
        parts_.guard.Run([&target, method] { (target.*method)(); });
    };
    std::visit(Overloaded{
                   [](std::monostate) {},
                   [this](void (MainCommands::*handler)()) { (this->*handler)(); },
                   [&](void (FileCommands::*file)()) { alone(parts_.bench.files, file); },
                   [&](void (WriterCommands::*writer)()) { alone(parts_.bench.commands, writer); },
                   [this](void (ChildWindows::*windows)()) { (parts_.children.*windows)(); },
               },
               command);
}

void MainCommands::mnuFileExit_Click() {
    parts_.shutDown();
}

void MainCommands::mmuCominucation_Click() {
    parts_.guard.Run([this] {
        parts_.window.SetStatusText(kMessagePanel, QString());
        parts_.showPortDialog();
    });
}

// The action has changed its check mark already; the bar follows it.
void MainCommands::mnuViewToolbar_Click() {
    parts_.window.Tools().setVisible(parts_.window.Tools().isHidden());
}

void MainCommands::mnuViewStatusBar_Click() {
    parts_.window.Panels().setVisible(parts_.window.Panels().isHidden());
}

void MainCommands::mnuViewOptions_Click() {
    parts_.guard.Run([this] {
        parts_.dialogs.ShowBox(BoxIcon::None, u"Tolvex"_s,
                               u"ｵﾌﾟｼｮﾝ ﾀﾞｲｱﾛｸﾞのｺｰﾄﾞをここに記述します !"_s);
    });
}

void MainCommands::mnuWindowCascade_Click() {
    parts_.window.Area().cascadeSubWindows();
}

void MainCommands::mnuWindowTileHorizontal_Click() {
    Tile(true);
}

void MainCommands::mnuWindowTileVertical_Click() {
    Tile(false);
}

/// All windows that are open and not minimised, one below or one beside the other.
void MainCommands::Tile(bool rows) {
    QList<QMdiSubWindow*> tiles;
    for (QMdiSubWindow* window : parts_.window.Area().subWindowList()) {
        if (!window->isHidden() && !window->isMinimized()) {
            tiles << window;
        }
    }
    if (tiles.isEmpty()) {
        return;
    }
    const QSize area = parts_.window.Area().viewport()->size();
    const int count = static_cast<int>(tiles.size());
    const QSize tile = rows ? QSize(area.width(), area.height() / count)
                            : QSize(area.width() / count, area.height());
    for (int i = 0; i < count; ++i) {
        const QPoint corner = rows ? QPoint(0, i * tile.height()) : QPoint(i * tile.width(), 0);
        tiles[i]->showNormal();
        tiles[i]->setGeometry({corner, tile});
    }
}

/// Minimised windows, lined up along the lower edge.
void MainCommands::mnuWindowArrangeIcons_Click() {
    int left = 0;
    const int bottom = parts_.window.Area().viewport()->height();
    for (QMdiSubWindow* window : parts_.window.Area().subWindowList()) {
        if (window->isMinimized() && !window->isHidden()) {
            window->move(left, bottom - window->height());
            left += window->width();
        }
    }
}

/// No help file is registered with the program.
void MainCommands::mnuHelpContents_Click() {
    parts_.guard.Run([this] {
        parts_.dialogs.ShowBox(
            BoxIcon::Information, parts_.window.windowTitle(),
            u"ﾍﾙﾌﾟの目次を表示できません。 このﾌﾟﾛｼﾞｪｸﾄに関連付けられたﾍﾙﾌﾟが存在しません。"_s);
    });
}

void MainCommands::mmuIndex_Click() {
    parts_.guard.Run(parts_.showBoardPanel);
}

void MainCommands::mnuHelpSub_Click() {
    parts_.showHelp();
}

void MainCommands::mnuHelpAbout_Click() {
    parts_.guard.Run(parts_.showVersionPanel);
}

void MainCommands::tbToolBar_ButtonClick(const QString& key) {
    parts_.guard.Run([this, key] {
        QCoreApplication::processEvents();  // the button is seen to come up before the work begins
        parts_.bench.toolbar.Click(key);
    });
}

void MainCommands::sbStatusBar_PanelClick(int panel) {
    if (parts_.window.Panels().PanelText(panel).startsWith(u"COM"_s)) {
        parts_.guard.Run(parts_.showPortDialog);
    }
}

}  // namespace tolvex
