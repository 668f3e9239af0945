// SPDX-License-Identifier: MIT
#include "cli/port_choice.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// A bare name is a device's own, as the system lists it.
QString WholePath(const QString& text) {
    return text.contains(u'/') ? QFileInfo(text).absoluteFilePath() : u"/dev/"_s + text;
}

}  // namespace

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
