// SPDX-License-Identifier: MIT
#include "cli/device_choice.h"

#include <algorithm>

#include "device/catalogue.h"

namespace tolvex {

QString PartNumber(const QString& catalogueName) {
    const auto end = std::ranges::find_if(
        catalogueName, [](QChar c) { return c.unicode() > 0x7F || !c.isLetterOrNumber(); });
    return catalogueName.left(end - catalogueName.begin());
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

}  // namespace tolvex
