// SPDX-License-Identifier: MIT
#include "app/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "base/settings_keys.h"
#include "widgets/twips.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCaptionPixels = 10;

/// The one HEX file that is being dragged; empty for anything else.
QString DraggedFile(const QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    if (urls.size() != 1 || !urls.front().isLocalFile()) {
        return {};
    }
    const QString path = urls.front().toLocalFile();
    for (const QString& suffix : {u".hex"_s, u".rom"_s, u".eep"_s}) {
        if (path.endsWith(suffix, Qt::CaseInsensitive)) {
            return path;
        }
    }
    return {};
}

}  // namespace

frmMain::frmMain()
    : area_(new QMdiArea(this)), toolbar_(new Toolbar(this)), statusBar_(new StatusBar(this)) {
    setObjectName(u"frmMain"_s);
    setWindowTitle(u"TOLVEX"_s);
    setContextMenuPolicy(
        Qt::NoContextMenu);  // Qt's own one would hide the toolbar unseen by the menu
    setAcceptDrops(true);
    // The captions of the child windows are long for the width they are designed for.
    QFont captions = QApplication::font();
    captions.setPixelSize(kCaptionPixels);
    captions.setLetterSpacing(QFont::PercentageSpacing, 92);
    QApplication::setFont(captions, "QMdiSubWindowTitleBar");
    area_->setObjectName(u"Area"_s);
    area_->setAccessibleName(u"作業領域"_s);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(area_);
    addToolBar(toolbar_);
    setStatusBar(statusBar_);
}

void frmMain::RestoreGeometry(const Settings& settings) {
    resize(PixelsFromTwips(GetNumber(settings, keys::MainWidth)),
           PixelsFromTwips(GetNumber(settings, keys::MainHeight)));
    move(PixelsFromTwips(GetNumber(settings, keys::MainLeft)),
         PixelsFromTwips(GetNumber(settings, keys::MainTop)));
}

void frmMain::SaveGeometry(Settings& settings) const {
    if (isMinimized()) {
        return;
    }
    SaveNumber(settings, keys::MainLeft, TwipsFromPixels(x()));
    SaveNumber(settings, keys::MainTop, TwipsFromPixels(y()));
    SaveNumber(settings, keys::MainWidth, TwipsFromPixels(width()));
    SaveNumber(settings, keys::MainHeight, TwipsFromPixels(height()));
}

void frmMain::SetStatusText(int panel, const QString& text) {
    statusBar_->SetPanelText(panel, text);
}

void frmMain::closeEvent(QCloseEvent* event) {
    Q_EMIT Closing();
    event->accept();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedFile(*event).isEmpty()) {
        event->acceptProposedAction();
    }
}

void frmMain::dropEvent(QDropEvent* event) {
    const QString path = DraggedFile(*event);
    if (!path.isEmpty()) {
        event->acceptProposedAction();
        Q_EMIT FileDropped(path);
    }
}

}  // namespace tolvex
