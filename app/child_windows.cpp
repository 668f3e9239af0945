// SPDX-License-Identifier: MIT
#include "app/child_windows.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QToolTip>

#include "base/settings.h"

namespace tolvex {

namespace {

/// The geometry keys of a child window.
struct GeometryKeys {
    NumberKey left, top, width, height;
};

constexpr GeometryKeys kProgramKeys{keys::PgmLeft, keys::PgmTop, keys::PgmWidth, keys::PgmHeight};
constexpr GeometryKeys kEepromKeys{keys::EEpLeft, keys::EEpTop, keys::EEpWidth, keys::EEpHeight};
/// Wide enough for the report's longest line.
const QRect kVerifyPlace(20, 20, 560, 300);
constexpr double kSettingWidth = 4100;
constexpr double kSettingHeight = 6050;

QRect Pixels(double left, double top, double width, double height) {
    return {PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width),
            PixelsFromTwips(height)};
}

QRect DefaultPlace(const GeometryKeys& of) {
    return Pixels(of.left.defaultValue, of.top.defaultValue, of.width.defaultValue,
                  of.height.defaultValue);
}

QRect StoredPlace(const Settings& settings, const GeometryKeys& of) {
    return Pixels(GetNumber(settings, of.left), GetNumber(settings, of.top),
                  GetNumber(settings, of.width), GetNumber(settings, of.height));
}

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

void StorePlace(Settings& settings, const GeometryKeys& of, QMdiSubWindow* window) {
    if (window == nullptr || window->isHidden()) {
        return;
    }
    const QRect place = NormalPlace(*window);
    SaveNumber(settings, of.left, TwipsFromPixels(place.x()));
    SaveNumber(settings, of.top, TwipsFromPixels(place.y()));
    SaveNumber(settings, of.width, TwipsFromPixels(place.width()));
    SaveNumber(settings, of.height, TwipsFromPixels(place.height()));
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
    return Listing(program_, listing_looks::Program(), DefaultPlace(kProgramKeys));
}

ListingWindow& ChildWindows::Eeprom() {
    return Listing(eeprom_, listing_looks::Eeprom(), DefaultPlace(kEepromKeys));
}

void ChildWindows::ShowAll(const Settings& settings) {
    Program();
    Place(*program_, StoredPlace(settings, kProgramKeys));
    Eeprom();
    Place(*eeprom_, StoredPlace(settings, kEepromKeys));
    Place(*setting_, Pixels(GetNumber(settings, keys::SetLeft), GetNumber(settings, keys::SetTop),
                            kSettingWidth, kSettingHeight));
    area_.setActiveSubWindow(program_);  // where a stray key changes nothing
}

void ChildWindows::StorePlaces(Settings& settings) const {
    StorePlace(settings, kProgramKeys, program_);
    StorePlace(settings, kEepromKeys, eeprom_);
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
    Place(*program_, DefaultPlace(kProgramKeys));
    area_.setActiveSubWindow(program_);
}

void ChildWindows::OpenEepromWindow() {
    Eeprom();
    Place(*eeprom_, DefaultPlace(kEepromKeys));
    area_.setActiveSubWindow(eeprom_);
}

void ChildWindows::OpenSettingWindow() {
    Place(*setting_, Pixels(keys::SetLeft.defaultValue, keys::SetTop.defaultValue, kSettingWidth,
                            kSettingHeight));
    area_.setActiveSubWindow(setting_);
}

int ChildWindows::ListingWidth() const {
    return program_.isNull() ? DefaultPlace(kProgramKeys).width() : program_->widget()->width();
}

void ChildWindows::ShowVerifyReport(const QString& text) {
    ListingWindow& report = Listing(verify_, listing_looks::Verify(), kVerifyPlace);
    report.SetListing(text);
    verify_->showNormal();
    area_.setActiveSubWindow(verify_);
}

}  // namespace tolvex
