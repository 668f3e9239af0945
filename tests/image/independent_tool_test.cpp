// SPDX-License-Identifier: MIT
// Another tool makes the files that the program reads, and reads those that it writes.
#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <random>

#include "image/hex_reader.h"
#include "image/hex_writer.h"
#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

/// Records of 16 bytes and an end record, which is what the program writes.
bool MakeHex(const QString& raw, const QString& hex) {
    return QProcess::execute(u"srec_cat"_s, {raw, u"-binary"_s, u"-output"_s, hex, u"-intel"_s,
                                             u"-address-length=2"_s, u"-line-length=44"_s}) == 0;
}

TEST(IndependentTool, MakesWhatTheReadersReadAndReadsWhatTheWritersWrite) {
    if (QStandardPaths::findExecutable(u"srec_cat"_s).isEmpty()) {
        GTEST_SKIP() << "srec_cat (Debian: srecord) is not installed";
    }
    const QTemporaryDir dir;
    const QString raw = dir.filePath(u"raw"_s), theirs = dir.filePath(u"theirs"_s),
                  ours = dir.filePath(u"ours"_s);
    std::mt19937 random(1);
    for (const int size : {64, 512, 8192}) {
        QByteArray bytes(size, '\0'), swapped;
        std::ranges::generate(bytes, [&random] { return static_cast<char>(random()); });
        testing::PutFile(raw, bytes);
        ASSERT_TRUE(MakeHex(raw, theirs));
        const auto expectSame = [&] {
            EXPECT_EQ(QProcess::execute(u"srec_cmp"_s, {ours, u"-intel"_s, raw, u"-binary"_s}), 0);
            EXPECT_EQ(testing::Bytes(ours).replace("\r\n", "\n"), testing::Bytes(theirs));
        };
        MemoryImages images;
        ErrorFlag flag;
        EXPECT_EQ(ReadCodeHex(theirs, images.flash, flag), HexReadResult::Complete);
        for (std::size_t cell = 0; cell < static_cast<std::size_t>(size); ++cell) {
            swapped += static_cast<char>(images.flash[cell ^ 1]);
        }
        EXPECT_EQ(swapped, bytes) << "the image has a word's high byte first";
        EXPECT_EQ(WriteCodeHex(ours, images.flash, size / 2), HexWriteResult::Written);
        expectSame();
        if (size <= 512) {
            EXPECT_EQ(ReadDataHex(theirs, images.eeprom, flag), HexReadResult::Complete);
            EXPECT_EQ(WriteDataHex(ours, images.eeprom, size), HexWriteResult::Written);
            expectSame();
        }
    }
    for (const char* sample : {"blink.hex", "blink.eep"}) {
        const QString path = QStringLiteral(TOLVEX_SOURCE_DIR "/samples/") + QLatin1String(sample);
        EXPECT_EQ(QProcess::execute(u"srec_info"_s, {path, u"-intel"_s}), 0) << sample;
    }
}

}  // namespace
}  // namespace tolvex
