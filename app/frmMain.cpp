// SPDX-License-Identifier: MIT
#include "app/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWindow>
#include <algorithm>

#include "app/menu_bar.h"
#include "base/settings_keys.h"
#include "widgets/twips.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCaptionPixels = 10;
constexpr std::chrono::milliseconds kPatience(50);

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

/// What the person does waits until the program has started.
void PaintSoFar() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

frmMain::frmMain(const Settings& settings) : area_(new QMdiArea(this)) {
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
    TakeStoredPlace(settings);
    // Painted at once where the window system is quick; where it takes as long to bring a window up
    // as the bars take to build, they are there by then.
    show();
    PaintSoFar();
    BuildBars();
    const QDeadlineTimer patience(kPatience);  // a window may come up unseen
    while (!windowHandle()->isExposed() && !patience.hasExpired()) {
        PaintSoFar();
    }
}

void frmMain::BuildBars() {
    menus_ = new MenuBar(this);
    toolbar_ = new Toolbar(this);
    statusBar_ = new StatusBar(this);
    setMenuBar(menus_);
    addToolBar(toolbar_);
    setStatusBar(statusBar_);
    statusBar_->show();  // puts its size grip where it belongs
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
    menus_->SetBusy(busy);
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
