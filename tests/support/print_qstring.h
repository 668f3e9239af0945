// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <ostream>

/// How a failed expectation shows a text; without this, as a row of bytes. Every test includes it
/// first of all.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
