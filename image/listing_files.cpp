// SPDX-License-Identifier: MIT
#include "image/listing_files.h"

#include <QDir>
#include <QFile>
#include <span>
#include <utility>

#include "base/text.h"
#include "image/image.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kCellsPerLine = 16;

/// Stands for a byte that is no printable ASCII: in the Japanese code page of the files the
/// half-width katakana middle dot.
constexpr char kPlaceholder = '\xA5';
constexpr QChar kShownPlaceholder(u'\uFF65');

/// Addresses count values; each value shows `cellsPerValue` cells.
QByteArray ListingText(std::span<const std::uint8_t> cells, std::size_t cellsPerValue) {
    QByteArray text;
    for (std::size_t start = 0; start < cells.size(); start += kCellsPerLine) {
        QByteArray values;
        QByteArray characters;
        for (std::size_t i = start; i < start + kCellsPerLine; ++i) {
            const std::uint8_t cell = cells[i];
            values += HexByte(cell).toLatin1();
            if ((i + 1) % cellsPerValue == 0) {
                values += ' ';
            }
            characters += cell >= 32 && cell <= 126 ? static_cast<char>(cell) : kPlaceholder;
        }
        const int address = static_cast<int>(start / cellsPerValue);
        text += HexWord4(address).toLatin1() + ": " + values + characters + "\r\n";
    }
    return text;
}

QByteArray FlashListing(const MemoryImages& images, const CurrentDevice& device) {
    const auto cells = static_cast<std::size_t>(device.flashWords) * 2;
    return ListingText(std::span(images.flash).first(cells), 2);
}

QByteArray EepromListing(const MemoryImages& images, const CurrentDevice& device) {
    const auto cells = static_cast<std::size_t>(device.eepromBytes);
    return ListingText(std::span(images.eeprom).first(cells), 1);
}

/// `text`: with plain newlines.
QString Shown(const QByteArray& text) {
    return QString::fromLatin1(text).replace(QLatin1Char(kPlaceholder), kShownPlaceholder);
}

/// Half a listing is none: what a full disk left of it is removed.
bool Replace(const QString& path, const QByteArray& text) {
    QFile file(path);
    if (!IsWritableTarget(path) || !file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return false;
    }
    const bool whole = file.write(text) == text.size() && file.flush();
    if (!whole) {
        file.close();
        QFile::remove(path);  // a file that has failed does not remove itself
    }
    return whole;
}

}  // namespace

QString ShownListing(const MemoryImages& images, const CurrentDevice& device, bool flash) {
    return Shown((flash ? FlashListing(images, device) : EepromListing(images, device))
                     .replace("\r\n", "\n"));
}

bool ListingFiles::WriteFlashListing() {
    return Write(flash_, FlashListing(state_.images, state_.device));
}

bool ListingFiles::ShowFlashListing() {
    return Show(flash_, &UserInterface::SetFlashListing);
}

bool ListingFiles::WriteEepromListing() {
    return Write(eeprom_, EepromListing(state_.images, state_.device));
}

bool ListingFiles::ShowEepromListing() {
    return Show(eeprom_, &UserInterface::SetEepromListing);
}

bool ListingFiles::WriteVerifyReport(const QByteArray& text) {
    return Write(report_, text);
}

bool ListingFiles::ShowVerifyReport() {
    return Show(report_, &UserInterface::ShowVerifyReport);
}

void ListingFiles::Retire() {
    if (retired_) {
        return;
    }
    for (const QString& folder : folders_) {
        for (const Listing* listing : {&flash_, &eeprom_, &report_}) {
            QFile::remove(folder + listing->name);
        }
    }
    retired_ = true;
}

bool ListingFiles::Write(Listing& listing, const QByteArray& text) {
    if (KeepsNothing()) {
        return true;
    }
    if (retired_) {
        return false;
    }
    const auto before = std::exchange(listing.path, std::nullopt);
    for (const QString& folder : folders_) {
        QDir().mkpath(folder);
        if (Replace(folder + listing.name, text)) {
            listing.path = folder + listing.name;
            break;
        }
    }
    if (before && listing.path != before) {
        QFile::remove(*before);  // out of date
    }
    if (!listing.path) {
        TellOnce();
    }
    return listing.path.has_value();
}

bool ListingFiles::Show(const Listing& listing, ShowText show) {
    if (KeepsNothing()) {
        return true;
    }
    if (retired_ || !listing.path) {
        return false;
    }
    QFile file(*listing.path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return false;
    }
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        return false;
    }
    (ui_.*show)(Shown(text));
    return true;
}

/// In the message dialog, because that never waits for an answer: a box would stop an operation
/// with the chip in programming mode. A sequence that ends for this reason says so itself.
void ListingFiles::TellOnce() {
    if (!std::exchange(told_, true)) {
        ui_.ShowMessage(
            MessageKind::Failure,
            Text::tr("リストファイルを書き込めるフォルダがないため、リストを表示できません。"));
    }
}

}  // namespace tolvex
