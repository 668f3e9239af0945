// SPDX-License-Identifier: MIT
#include "app/child_windows.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QToolTip>

#include "base/settings.h"

namespace tolvex {

namespace {

/// Wide enough for the report's longest line.
const QRect kVerifyPlace(20, 20, 560, 300);
constexpr double kSettingWidth = 4100;
constexpr double kSettingHeight = 6050;

/// A minimised window knows its place only once it is a normal one again.
QRect NormalPlace(QMdiSubWindow& window) {
    const bool minimized = window.isMinimized();
    if (minimized) {
        window.showNormal();
    }
    const QRect place = window.geometry();
    if (minimized) {
        window.showMinimized();
    }
    return place;
}

void StorePlace(Settings& settings, const PlaceKeys& of, QMdiSubWindow* window) {
    if (window == nullptr || window->isHidden()) {
        return;
    }
    SavePlace(settings, of, NormalPlace(*window));
}

/// A minimised or maximised window can't be placed; it becomes a normal one first.
void Place(QMdiSubWindow& window, const QRect& place) {
    window.widget()->show();
    window.showNormal();
    window.setGeometry(place);
}

/// The whole of a caption that is cut, beneath the pointer.
bool ShowCaption(const ListingWindow& listing, const QHelpEvent& help) {
    const bool shows = listing.CaptionIsCut() && listing.CaptionRoom().contains(help.pos());
    if (shows) {
        QToolTip::showText(help.globalPos(), listing.Caption());
    }
    return shows;
}

}  // namespace

void ChildWindows::AddSettingWindow(frmSetting* setting) {
    setting_ = area_.addSubWindow(setting);
    setting_->setAttribute(Qt::WA_DeleteOnClose, false);
    // Its size is fixed by design; without the third button the caption is whole.
    setting_->setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                             Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                             Qt::WindowCloseButtonHint);
    setting_->setFixedSize(PixelsFromTwips(kSettingWidth), PixelsFromTwips(kSettingHeight));
    setting_->hide();
    setting_->installEventFilter(this);
}

/// The menu of a title bar, without the event loop of its own in which Qt runs it: under that, an
/// operation would miss the writer's replies.
bool ChildWindows::eventFilter(QObject* watched, QEvent* event) {
    auto* window = qobject_cast<QMdiSubWindow*>(watched);
    if (event->type() == QEvent::ToolTip && window != nullptr) {
        const auto* listing = qobject_cast<ListingWindow*>(window->widget());
        if (listing != nullptr && ShowCaption(*listing, *static_cast<QHelpEvent*>(event))) {
            return true;
        }
    }
    if (event->type() != QEvent::ContextMenu || window == nullptr) {
        return QObject::eventFilter(watched, event);
    }
    const auto* click = static_cast<QContextMenuEvent*>(event);
    if (window->isMinimized() || click->pos().y() < window->widget()->y()) {
        window->systemMenu()->popup(click->globalPos());
    }
    return true;
}

ListingWindow& ChildWindows::Listing(Child& child, const ListingLook& look, const QRect& place) {
    if (child.isNull()) {
        const QPointer<QMdiSubWindow> active = area_.activeSubWindow();
        const QPointer<QWidget> focus = area_.window()->focusWidget();
        child = area_.addSubWindow(new ListingWindow(look));
        child->setAttribute(Qt::WA_DeleteOnClose);
        child->installEventFilter(this);
        child->show();
        child->setGeometry(place);
        if (active) {
            area_.setActiveSubWindow(active);
        }
        if (focus) {
            focus->setFocus();
        }
    }
    return *static_cast<ListingWindow*>(child->widget());
}

ListingWindow& ChildWindows::Program() {
    return Listing(program_, listing_looks::Program(), DefaultPlace(keys::PgmPlace));
}

ListingWindow& ChildWindows::Eeprom() {
    return Listing(eeprom_, listing_looks::Eeprom(), DefaultPlace(keys::EEpPlace));
}

void ChildWindows::ShowAll(const Settings& settings) {
    Program();
    Place(*program_, GetPlace(settings, keys::PgmPlace));
    Eeprom();
    Place(*eeprom_, GetPlace(settings, keys::EEpPlace));
    Place(*setting_, QRect(PixelsFromTwips(GetNumber(settings, keys::SetLeft)),
                           PixelsFromTwips(GetNumber(settings, keys::SetTop)), setting_->width(),
                           setting_->height()));
    area_.setActiveSubWindow(program_);  // where a stray key changes nothing
}

void ChildWindows::StorePlaces(Settings& settings) const {
    StorePlace(settings, keys::PgmPlace, program_);
    StorePlace(settings, keys::EEpPlace, eeprom_);
    if (setting_ != nullptr && !setting_->isHidden()) {
        const QRect place = NormalPlace(*setting_);
        SaveNumber(settings, keys::SetLeft, TwipsFromPixels(place.x()));
        SaveNumber(settings, keys::SetTop, TwipsFromPixels(place.y()));
    }
}

void ChildWindows::OpenAll() {
    OpenSettingWindow();
    OpenProgramWindow();
    OpenEepromWindow();
}

void ChildWindows::OpenProgramWindow() {
    Program();
    Place(*program_, DefaultPlace(keys::PgmPlace));
    area_.setActiveSubWindow(program_);
}

void ChildWindows::OpenEepromWindow() {
    Eeprom();
    Place(*eeprom_, DefaultPlace(keys::EEpPlace));
    area_.setActiveSubWindow(eeprom_);
}

void ChildWindows::OpenSettingWindow() {
    Place(*setting_,
          QRect(PixelsFromTwips(keys::SetLeft.defaultValue),
                PixelsFromTwips(keys::SetTop.defaultValue), setting_->width(), setting_->height()));
    area_.setActiveSubWindow(setting_);
}

int ChildWindows::ListingWidth() const {
    return program_.isNull() ? DefaultPlace(keys::PgmPlace).width() : program_->widget()->width();
}

void ChildWindows::ShowVerifyReport(const QString& text) {
    ListingWindow& report = Listing(verify_, listing_looks::Verify(), kVerifyPlace);
    report.SetListing(text);
    verify_->showNormal();
    area_.setActiveSubWindow(verify_);
}

}  // namespace tolvex
