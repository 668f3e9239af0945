// SPDX-License-Identifier: MIT
#include "app/child_windows.h"

#include "base/settings_keys.h"
#include "widgets/twips.h"

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
    return Pixels(of.left.standard, of.top.standard, of.width.standard, of.height.standard);
}

QRect StoredPlace(const Settings& settings, const GeometryKeys& of) {
    return Pixels(GetNumber(settings, of.left), GetNumber(settings, of.top),
                  GetNumber(settings, of.width), GetNumber(settings, of.height));
}

void SavePlace(Settings& settings, const GeometryKeys& of, const QMdiSubWindow* window) {
    if (window == nullptr || window->isHidden()) {
        return;
    }
    const QRect place = window->geometry();
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

}  // namespace

ChildWindows::ChildWindows(QMdiArea& area, frmSetting* setting)
    : area_(area), setting_(area.addSubWindow(setting)) {
    setting_->setAttribute(Qt::WA_DeleteOnClose, false);
    // Its size is fixed by design; without the third button the caption is whole.
    setting_->setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                             Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                             Qt::WindowCloseButtonHint);
    setting_->hide();
}

ListingWindow& ChildWindows::Listing(Child& child, const ListingLook& look, const QRect& place) {
    if (child.isNull()) {
        child = area_.addSubWindow(new ListingWindow(look));
        child->setAttribute(Qt::WA_DeleteOnClose);
        child->show();
        child->setGeometry(place);
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
}

void ChildWindows::SaveGeometry(Settings& settings) const {
    SavePlace(settings, kProgramKeys, program_);
    SavePlace(settings, kEepromKeys, eeprom_);
    if (!setting_->isHidden()) {
        SaveNumber(settings, keys::SetLeft, TwipsFromPixels(setting_->x()));
        SaveNumber(settings, keys::SetTop, TwipsFromPixels(setting_->y()));
    }
}

void ChildWindows::OpenProgramWindow() {
    Program();
    Place(*program_, DefaultPlace(kProgramKeys));
}

void ChildWindows::OpenEepromWindow() {
    Eeprom();
    Place(*eeprom_, DefaultPlace(kEepromKeys));
}

void ChildWindows::OpenSettingWindow() {
    Place(*setting_,
          Pixels(keys::SetLeft.standard, keys::SetTop.standard, kSettingWidth, kSettingHeight));
}

QSize ChildWindows::ListingSize() const {
    return program_.isNull() ? QSize(0, 0) : program_->widget()->size();
}

void ChildWindows::SetFlashListing(const QString& text) {
    Program().SetListing(text);
}

void ChildWindows::SetEepromListing(const QString& text) {
    Eeprom().SetListing(text);
}

void ChildWindows::ShowVerifyReport(const QString& text) {
    ListingWindow& report = Listing(verify_, listing_looks::Verify(), kVerifyPlace);
    report.SetListing(text);
    verify_->showNormal();
    area_.setActiveSubWindow(verify_);
}

void ChildWindows::SetFlashCaption(const QString& caption) {
    Program().setWindowTitle(caption);
}

void ChildWindows::SetEepromCaption(const QString& caption) {
    Eeprom().setWindowTitle(caption);
}

}  // namespace tolvex
