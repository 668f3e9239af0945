// SPDX-License-Identifier: MIT
#include "image/listing_files.h"

#include <QFile>
#include <span>

namespace tolvex {

namespace {

constexpr char kFlashFile[] = "avrhex.txt";
constexpr char kEepromFile[] = "avreep.txt";
constexpr char kReportFile[] = "avrvfy.txt";

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

}  // namespace

bool ListingFiles::WriteFlashListing() {
    const auto cells =
        std::span(images_.flash).first(2 * static_cast<std::size_t>(device_.flashWords));
    return Write(kFlashFile, ListingText(cells, 2));
}

bool ListingFiles::ShowFlashListing() {
    return Show(kFlashFile, &ListingWindows::SetFlashListing);
}

bool ListingFiles::WriteEepromListing() {
    const auto cells =
        std::span(images_.eeprom).first(static_cast<std::size_t>(device_.eepromBytes));
    return Write(kEepromFile, ListingText(cells, 1));
}

bool ListingFiles::ShowEepromListing() {
    return Show(kEepromFile, &ListingWindows::SetEepromListing);
}

bool ListingFiles::WriteVerifyReport(const QByteArray& text) {
    return Write(kReportFile, text);
}

bool ListingFiles::ShowVerifyReport() {
    return Show(kReportFile, &ListingWindows::ShowVerifyReport);
}

void ListingFiles::Retire() {
    if (retired_ || KeepsNothing()) {
        return;
    }
    for (const char* name : {kFlashFile, kEepromFile, kReportFile}) {
        QFile::remove(Path(name));
    }
    retired_ = true;
}

bool ListingFiles::Write(const char* name, const QByteArray& text) {
    if (KeepsNothing()) {
        return true;
    }
    if (retired_) {
        return false;
    }
    QFile file(Path(name));
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(text) == text.size() && file.flush();
}

bool ListingFiles::Show(const char* name, ShowText show) {
    if (KeepsNothing()) {
        return true;
    }
    if (retired_) {
        return false;
    }
    QFile file(Path(name));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return false;
    }
    QString text = QString::fromLatin1(file.readAll());
    if (file.error() != QFileDevice::NoError) {
        return false;
    }
    text.replace(QLatin1Char(kPlaceholder), kShownPlaceholder);
    (windows_.*show)(text);
    return true;
}

}  // namespace tolvex
