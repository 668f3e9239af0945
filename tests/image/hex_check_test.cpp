// SPDX-License-Identifier: MIT
#include "image/hex_check.h"

#include <gtest/gtest.h>

#include <QBuffer>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

HexReport Check(QByteArray text) {
    QBuffer file(&text);
    file.open(QIODevice::ReadOnly);
    return CheckHex(file, 64);
}

TEST(HexCheck, NamesEachFaultWithItsLine) {
    const QByteArray end = ":00000001FF\r\n", data = ":020000001234B8\r\n";
    // What is found has its line and its first address.
    const std::tuple<const char*, QByteArray, QString> cases[] = {
        // clang-format off
        {"CR alone", ":020000001234B8\r:00000001FF\r", {}},
        {"up to the last byte", ":01003F0012AE\r\n" + end, {}},
        {"no colon", data.mid(1) + end, u"noColon 1 -1"_s},
        {"blank line", data + "\r\n" + end, u"noColon 2 -1"_s},
        {"lower case", ":01000000ab54\r\n" + end, u"lowerCase 1 -1"_s},
        {"blank at the end", ":020000001234B8 \r\n" + end, u"digit 1 -1"_s},
        {"too long", ":02000000123456B8\r\n" + end, u"length 1 -1"_s},
        {"endless", ':' + QByteArray(100'000, '0') + "\r\n" + end, u"length 1 -1"_s},
        {"checksum", ":020000001234B9\r\n" + end, u"checksum 1 -1"_s},
        {"type 6", ":00000006FA\r\n" + end, u"unknownType 1 -1"_s},
        {"segment base, with data inside it", ":020000020001FB\r\n" + data + end, u"baseAddress 1 -1"_s},
        {"overlap", data + ":0100010034CA\r\n" + end, u"overlap 2 1"_s},
        {"outside", ":02003F00123479\r\n" + end, u"outsideMemory 1 64"_s},
        {"early end", end + data, u"earlyEnd 1 -1"_s},
        {"missing end", data, u"missingEnd 1 -1"_s},
        // clang-format on
    };
    for (const auto& [what, text, expected] : cases) {
        const HexReport report = Check(text);
        QStringList found;
        for (const HexFinding& finding : report.findings) {
            found << u"%1 %2 %3"_s.arg(HexFaultName(finding.fault))
                         .arg(finding.line)
                         .arg(finding.address);
        }
        EXPECT_EQ(found.join(u'\n'), expected) << what;
        EXPECT_TRUE(report.readable) << what;
    }
    const HexReport overlapping = Check(data + ":020001001234B7\r\n" + end);
    EXPECT_EQ(overlapping.records, 2);
    EXPECT_EQ(overlapping.bytes, 3) << "each address once";
}

}  // namespace
}  // namespace tolvex
