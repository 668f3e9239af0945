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

bool WriteFile(const QString& path, const QByteArray& text) {
    if (path.isEmpty()) {
        return false;
    }
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(text) == text.size() && file.flush();
}

}  // namespace

ListingFiles::ListingFiles(const MemoryImages& images, const CurrentDevice& device,
                           const QString& folder, ListingWindows& windows)
    : images_(images), device_(device), folder_(folder), windows_(windows) {}

bool ListingFiles::WriteFlashListing() {
    const auto cells =
        std::span(images_.flash).first(2 * static_cast<std::size_t>(device_.flashWords));
    return WriteFile(Path(kFlashFile), ListingText(cells, 2));
}

bool ListingFiles::ShowFlashListing() {
    return Show(kFlashFile, &ListingWindows::SetFlashListing);
}

bool ListingFiles::WriteEepromListing() {
    const auto cells =
        std::span(images_.eeprom).first(static_cast<std::size_t>(device_.eepromBytes));
    return WriteFile(Path(kEepromFile), ListingText(cells, 1));
}

bool ListingFiles::ShowEepromListing() {
    return Show(kEepromFile, &ListingWindows::SetEepromListing);
}

QString ListingFiles::ReportPath() const {
    return Path(kReportFile);
}

bool ListingFiles::ShowVerifyReport() {
    return Show(kReportFile, &ListingWindows::ShowVerifyReport);
}

void ListingFiles::Retire() {
    if (retired_) {
        return;
    }
    for (const char* name : {kFlashFile, kEepromFile, kReportFile}) {
        QFile::remove(Path(name));
    }
    retired_ = true;
}

QString ListingFiles::Path(const char* name) const {
    return retired_ ? QString() : folder_ + QString::fromLatin1(name);
}

bool ListingFiles::Show(const char* name, ShowText show) {
    const QString path = Path(name);
    if (path.isEmpty()) {
        return false;
    }
    QFile file(path);
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
