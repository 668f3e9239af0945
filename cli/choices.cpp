// SPDX-License-Identifier: MIT
#include "cli/choices.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

#include "device/catalogue.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// A bare name is a device's own, as the system lists it.
QString WholePath(const QString& text) {
    return text.contains(u'/') ? QFileInfo(text).absoluteFilePath() : u"/dev/"_s + text;
}

}  // namespace

QString PartNumber(const QString& catalogueName) {
    const auto end = std::ranges::find_if(
        catalogueName, [](QChar c) { return c.unicode() > 0x7F || !c.isLetterOrNumber(); });
    return catalogueName.left(end - catalogueName.begin());
}

QString PartOf(const std::array<std::uint8_t, 3>& signature) {
    const auto row = std::ranges::find(Catalogue(), signature, &DeviceRecord::signature);
    return row == Catalogue().end() ? QString() : PartNumber(row->name);
}

std::optional<int> ChooseDevice(const QString& text) {
    const auto rows = Catalogue();
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const QString& name = rows[index].name;
        if (name == text || PartNumber(name).compare(text, Qt::CaseInsensitive) == 0) {
            return static_cast<int>(index);
        }
    }
    return std::nullopt;
}

std::optional<PortChoice> ChoosePort(const QString& text, ComPorts& ports) {
    static const QRegularExpression numbered(u"^(?:COM)?(\\d+)$"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    const auto match = numbered.match(text);
    if (match.hasMatch()) {
        const int number = match.captured(1).toInt();
        return number >= 1 && number <= kComPortCount ? std::optional(PortChoice{number, false})
                                                      : std::nullopt;
    }
    if (text.isEmpty()) {
        return std::nullopt;
    }
    const QString path = WholePath(text);
    for (int number = 1; number <= kComPortCount; ++number) {
        if (ports.DevicePath(number) == path) {
            return PortChoice{number, true};
        }
    }
    ports.Assign(1, path);
    return PortChoice{1, true};
}

}  // namespace tolvex
