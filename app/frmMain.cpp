// SPDX-License-Identifier: MIT
#include "app/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <QWindow>
#include <algorithm>

#include "base/settings.h"
#include "base/text.h"
#include "image/listing_window.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCaptionPixels = 10;
constexpr int kMenuTextPixels = 480;
/// A window may come up unseen, and is then never exposed.
constexpr std::chrono::milliseconds kLongestWaitForExposure(50);

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
    area_->setAccessibleName(Text::tr("作業領域"));
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(area_);
    TakeStoredPlace(settings);
}

// Painted at once where the window system is quick; where it takes as long to bring a window up as
// the bars take to build, they are there by then.
void frmMain::Appear(std::span<const MenuRow> menus) {
    show();
    PaintSoFar();
    BuildBars(menus);
    const QDeadlineTimer deadline(kLongestWaitForExposure);
    while (!windowHandle()->isExposed() && !deadline.hasExpired()) {
        PaintSoFar();
    }
}

void frmMain::BuildBars(std::span<const MenuRow> menus) {
    menus_ = new MenuBar(menus, this);
    toolbar_ = new Toolbar(this);
    statusBar_ = new StatusBar(this);
    setMenuBar(menus_);
    addToolBar(toolbar_);
    setStatusBar(statusBar_);
    statusBar_->show();  // puts its size grip where it belongs
    menus_->WindowMenu()->setToolTipsVisible(true);
    connect(menus_->WindowMenu(), &QMenu::aboutToShow, this, &frmMain::ListWindows);
}

void frmMain::TakeStoredPlace(const Settings& settings) {
    const QRect place = GetPlace(settings, keys::MainPlace);
    resize(place.size());
    move(place.topLeft());
}

void frmMain::StorePlace(Settings& settings) const {
    if (!isMinimized()) {
        SavePlace(settings, keys::MainPlace, QRect(pos(), size()));
    }
}

void frmMain::SetBusy(bool busy) {
    toolbar_->setEnabled(!busy);
    menus_->SetBusy(busy);
    setAcceptDrops(!busy);
}

/// Lists the open child windows below the menu's own items, the active one marked.
void frmMain::ListWindows() {
    QMenu& menu = *menus_->WindowMenu();
    for (QAction* action : menu.actions()) {
        if (action->property("listed").toBool()) {
            delete action;
        }
    }
    QAction* separator = menu.addSeparator();
    separator->setProperty("listed", true);
    int number = 0;
    for (const QPointer<QMdiSubWindow> child : area_->subWindowList()) {
        if (child->isHidden()) {
            continue;
        }
        const auto* listing = qobject_cast<ListingWindow*>(child->widget());
        const QString whole = listing != nullptr ? listing->Caption() : child->windowTitle();
        QString caption = menu.fontMetrics().elidedText(whole, Qt::ElideMiddle, kMenuTextPixels);
        const bool cut = caption != whole;
        caption.replace(u'&', u"&&"_s);
        QAction* action =
            menu.addAction(u"&%1 %2"_s.arg(++number).arg(caption), this, [this, child] {
                if (child.isNull()) {
                    return;  // closed since it was listed
                }
                if (child->isMinimized()) {
                    child->showNormal();
                }
                area_->setActiveSubWindow(child);
            });
        action->setProperty("listed", true);
        action->setToolTip(cut ? whole : QString());
        action->setCheckable(true);
        action->setChecked(child == area_->activeSubWindow());
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    Q_EMIT Closing();
    event->accept();
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT EscapePressed();
    } else {
        QMainWindow::keyPressEvent(event);
    }
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
