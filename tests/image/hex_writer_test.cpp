// SPDX-License-Identifier: MIT
#include "image/hex_writer.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "image/hex_reader.h"
#include "tests/image/real_files.h"

#ifdef Q_OS_UNIX
#include <sys/resource.h>

#include <csignal>
#endif

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::Bytes;

struct WriterTest : ::testing::Test {
    QTemporaryDir dir;
    QString path = dir.filePath(u"out.hex"_s);
    MemoryImages images;

    /// The written records; each line must end with CRLF.
    QList<QByteArray> Lines() {
        QList<QByteArray> lines = Bytes(path).split('\n');
        EXPECT_TRUE(lines.takeLast().isEmpty());
        for (QByteArray& line : lines) {
            EXPECT_TRUE(line.endsWith('\r'));
            line.chop(1);
        }
        return lines;
    }
};

TEST_F(WriterTest, Checksums) {
    const std::pair<QString, QString> cases[] = {
        {u":00000001"_s, u"FF"_s},
        {u":1000F000"_s + QString(32, u'0'), u"00"_s},
        {u":0100000001"_s, u"FE"_s},
        {u":02000004FFFF"_s, u"FC"_s},
    };
    for (const auto& [record, checksum] : cases) {
        QString complete = record;
        AppendChecksum(complete);
        EXPECT_EQ(complete, record + checksum);
    }
}

TEST_F(WriterTest, CodeRecordsToTheByte) {
    images.flash[2] = 0x94;
    images.flash[3] = 0x0C;
    images.flash[1024] = 0;  // beyond the device
    ASSERT_EQ(WriteCodeHex(path, images.flash, 512), HexWriteResult::Written);
    const QByteArray erased(32, 'F');
    const QList<QByteArray> lines = Lines();
    ASSERT_EQ(lines.size(), 65);
    EXPECT_EQ(lines[0], ":10000000FFFF0C94" + QByteArray(24, 'F') + "5E");
    EXPECT_EQ(lines[1], ":10001000" + erased + "F0");
    EXPECT_EQ(lines[63], ":1003F000" + erased + "0D");
    EXPECT_EQ(lines[64], ":00000001FF");

    images.ClearFlashImage();
    images.flash[0] = 0x94;
    images.flash[1] = 0x0C;
    ASSERT_EQ(WriteCodeHex(path, images.flash, 512), HexWriteResult::Written);
    EXPECT_EQ(Lines()[0], ":100000000C94" + QByteArray(28, 'F') + "5E");
    images.ClearFlashImage();
    ASSERT_EQ(WriteCodeHex(path, images.flash, 512), HexWriteResult::Written);
    EXPECT_EQ(Lines()[0], ":10000000" + erased + "00");
}

TEST_F(WriterTest, DataRecordsToTheByte) {
    images.eeprom[0] = 0x48;
    images.eeprom[1] = 0x65;
    std::fill_n(images.eeprom.begin() + 0xF0, 16, std::uint8_t{0});
    ASSERT_EQ(WriteDataHex(path, images.eeprom, 256), HexWriteResult::Written);
    const QList<QByteArray> lines = Lines();
    ASSERT_EQ(lines.size(), 17);
    EXPECT_EQ(lines[0], ":100000004865" + QByteArray(28, 'F') + "51");
    EXPECT_EQ(lines[15], ":1000F000" + QByteArray(32, '0') + "00");
    EXPECT_EQ(lines[16], ":00000001FF");
}

TEST_F(WriterTest, EverySizeReadsBackTheSame) {
    for (std::size_t i = 0; i < images.flash.size(); ++i) {
        images.flash[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    }
    for (std::size_t i = 0; i < images.eeprom.size(); ++i) {
        images.eeprom[i] = static_cast<std::uint8_t>(i * 11 + i / 256);
    }
    for (const int words : {0, 512, 1024, 2048, 4096}) {
        ASSERT_EQ(WriteCodeHex(path, images.flash, words), HexWriteResult::Written);
        EXPECT_EQ(Lines().size(), words / 8 + 1);
        FlashImage expected = images.flash;
        std::fill(expected.begin() + 2 * words, expected.end(), kErased);
        MemoryImages back;
        ErrorFlag flag;
        EXPECT_EQ(ReadCodeHex(path, back.flash, flag), HexReadResult::Complete);
        EXPECT_TRUE(back.flash == expected) << words;
        EXPECT_FALSE(flag.Failed());
    }
    for (const int bytes : {0, 64, 128, 256, 512}) {
        ASSERT_EQ(WriteDataHex(path, images.eeprom, bytes), HexWriteResult::Written);
        EXPECT_EQ(Lines().size(), bytes / 16 + 1);
        EepromImage expected = images.eeprom;
        std::fill(expected.begin() + bytes, expected.end(), kErased);
        MemoryImages back;
        ErrorFlag flag;
        EXPECT_EQ(ReadDataHex(path, back.eeprom, flag), HexReadResult::Complete);
        EXPECT_TRUE(back.eeprom == expected) << bytes;
        EXPECT_FALSE(flag.Failed());
    }
}

TEST_F(WriterTest, ALongerFileIsReplacedWhole) {
    testing::PutFile(path, QByteArray(5000, 'x'));
    ASSERT_EQ(WriteCodeHex(path, images.flash, 0), HexWriteResult::Written);
    EXPECT_EQ(Bytes(path), ":00000001FF\r\n");
}

TEST_F(WriterTest, PathsThatCannotBeWritten) {
    EXPECT_EQ(WriteCodeHex(QString(), images.flash, 512), HexWriteResult::Failed);
    EXPECT_EQ(WriteCodeHex(dir.path(), images.flash, 512), HexWriteResult::Failed);
    EXPECT_EQ(WriteDataHex(dir.filePath(u"no/such.eep"_s), images.eeprom, 64),
              HexWriteResult::Failed);
}

TEST_F(WriterTest, AReadOnlyFileRefusesAccessAndStays) {
    testing::PutFile(path, "kept");
    testing::MakeReadOnly(path);
    testing::OpenToAll(dir.path());
    const testing::OrdinaryUser user;
    if (!user.Bound()) {
        GTEST_SKIP() << "root can't give up its rights here";
    }
    EXPECT_EQ(WriteCodeHex(path, images.flash, 512), HexWriteResult::AccessRefused);
    EXPECT_EQ(Bytes(path), "kept");
}

TEST_F(WriterTest, AFullDiskIsNoticed) {
    const QString full = u"/dev/full"_s;
    if (!QFile::exists(full)) {
        GTEST_SKIP() << "no " << qPrintable(full);
    }
    // The end record alone stays in the buffer until the file is closed.
    EXPECT_EQ(WriteDataHex(full, images.eeprom, 0), HexWriteResult::Failed);
    EXPECT_EQ(WriteCodeHex(full, images.flash, 4096), HexWriteResult::Failed);
}

#ifdef Q_OS_UNIX
TEST_F(WriterTest, WhatFittedStays) {
    ASSERT_EQ(WriteCodeHex(path, images.flash, 4096), HexWriteResult::Written);
    const QByteArray complete = Bytes(path);

    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 10000;
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const HexWriteResult result = WriteCodeHex(path, images.flash, 4096);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);

    EXPECT_EQ(result, HexWriteResult::Failed);
    EXPECT_EQ(Bytes(path), complete.left(10000));
}
#endif

}  // namespace
}  // namespace tolvex
