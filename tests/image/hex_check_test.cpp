// SPDX-License-Identifier: MIT
#include "image/hex_check.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

constexpr int kMemory = 64;

HexReport Check(const QByteArray& text) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.hex"_s);
    testing::PutFile(path, text);
    return CheckHex(path, kMemory);
}

constexpr char kEnd[] = ":00000001FF\r\n";

TEST(HexCheck, NamesEachFaultWithItsLine) {
    struct Case {
        const char* what;
        QByteArray text;
        QList<HexFinding> findings;
    };
    using enum HexFault;
    const Case cases[] = {
        {"CR alone", ":020000001234B8\r:00000001FF\r", {}},
        {"up to the last byte", QByteArray(":01003F0012AE\r\n") + kEnd, {}},
        {"no colon", QByteArray("020000001234B8\r\n") + kEnd, {{NoColon, 1}}},
        {"blank line", QByteArray(":020000001234B8\r\n\r\n") + kEnd, {{NoColon, 2}}},
        {"lower case", QByteArray(":01000000ab54\r\n") + kEnd, {{LowerCase, 1}}},
        {"blank at the end", QByteArray(":020000001234B8 \r\n") + kEnd, {{Digit, 1}}},
        {"too long", QByteArray(":02000000123456B8\r\n") + kEnd, {{Length, 1}}},
        {"endless", ':' + QByteArray(100'000, '0') + "\r\n" + kEnd, {{Length, 1}}},
        {"checksum", QByteArray(":020000001234B9\r\n") + kEnd, {{Checksum, 1}}},
        {"type 6", QByteArray(":00000006FA\r\n") + kEnd, {{UnknownType, 1}}},
        {"segment base, with data inside it",
         QByteArray(":020000020001FB\r\n:020000001234B8\r\n") + kEnd,
         {{BaseAddress, 1}}},
        {"overlap", QByteArray(":020000001234B8\r\n:0100010034CA\r\n") + kEnd, {{Overlap, 2, 1}}},
        {"outside", QByteArray(":02003F00123479\r\n") + kEnd, {{OutsideMemory, 1, 64}}},
        {"early end", QByteArray(kEnd) + ":020000001234B8\r\n", {{EarlyEnd, 1}}},
        {"missing end", ":020000001234B8\r\n", {{MissingEnd, 1}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const HexReport report = Check(c.text);
        EXPECT_TRUE(report.readable);
        ASSERT_EQ(report.findings.size(), c.findings.size());
        for (qsizetype i = 0; i < c.findings.size(); ++i) {
            EXPECT_EQ(report.findings[i].fault, c.findings[i].fault);
            EXPECT_EQ(report.findings[i].line, c.findings[i].line);
            EXPECT_EQ(report.findings[i].address, c.findings[i].address);
        }
        EXPECT_EQ(report.Clean(), c.findings.isEmpty());
    }
}

TEST(HexCheck, CountsAddressesOnce) {
    const HexReport report = Check(QByteArray(":020000001234B8\r\n:020001001234B7\r\n") + kEnd);
    EXPECT_EQ(report.records, 2);
    EXPECT_EQ(report.bytes, 3);
}

}  // namespace
}  // namespace tolvex
