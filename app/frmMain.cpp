// SPDX-License-Identifier: MIT
#include "app/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "base/settings_keys.h"
#include "widgets/twips.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCaptionPixels = 10;

/// The HEX files that are being dragged; none when anything else is among them.
QStringList DraggedFiles(const QDropEvent& event) {
    static const QStringList kSuffixes{u".hex"_s, u".rom"_s, u".eep"_s};
    QStringList paths;
    for (const QUrl& url : event.mimeData()->urls()) {
        const QString path = url.toLocalFile();
        const auto ends = [&path](const QString& suffix) {
            return path.endsWith(suffix, Qt::CaseInsensitive);
        };
        if (std::ranges::none_of(kSuffixes, ends)) {
            return {};
        }
        paths << path;
    }
    return paths;
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

void frmMain::TakeStoredPlace(const Settings& settings) {
    resize(PixelsFromTwips(GetNumber(settings, keys::MainWidth)),
           PixelsFromTwips(GetNumber(settings, keys::MainHeight)));
    move(PixelsFromTwips(GetNumber(settings, keys::MainLeft)),
         PixelsFromTwips(GetNumber(settings, keys::MainTop)));
}

void frmMain::StorePlace(Settings& settings) const {
    if (isMinimized()) {
        return;
    }
    SaveNumber(settings, keys::MainLeft, TwipsFromPixels(x()));
    SaveNumber(settings, keys::MainTop, TwipsFromPixels(y()));
    SaveNumber(settings, keys::MainWidth, TwipsFromPixels(width()));
    SaveNumber(settings, keys::MainHeight, TwipsFromPixels(height()));
}

void frmMain::SetBusy(bool busy) {
    toolbar_->setEnabled(!busy);
    setAcceptDrops(!busy);
}

void frmMain::SetStatusText(int panel, const QString& text) {
    statusBar_->SetPanelText(panel, text);
}

void frmMain::closeEvent(QCloseEvent* event) {
    Q_EMIT Closing();
    event->accept();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedFiles(*event).isEmpty()) {
        event->acceptProposedAction();
    }
}

void frmMain::dropEvent(QDropEvent* event) {
    const QStringList paths = DraggedFiles(*event);
    if (!paths.isEmpty()) {
        event->acceptProposedAction();
        Q_EMIT FilesDropped(paths);
    }
}

}  // namespace tolvex
