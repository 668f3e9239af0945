// SPDX-License-Identifier: MIT
#include "image/hex_reader.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <map>

#include "image/hex_writer.h"
#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using Cells = std::map<std::size_t, int>;

/// What the images hold before a read: no value of any case.
constexpr std::uint8_t kBackground = 0xEE;

template <typename Image>
Cells Stored(const Image& image) {
    Cells cells;
    for (std::size_t i = 0; i < image.size(); ++i) {
        if (image[i] != kBackground) {
            cells[i] = image[i];
        }
    }
    return cells;
}

struct ReaderTest : ::testing::Test {
    QTemporaryDir dir;
    QString path = dir.filePath(u"case.hex"_s);
    FlashImage flash;
    EepromImage eeprom;
    ErrorFlag flag;

    HexReadResult Code(const QByteArray& file) {
        testing::PutFile(path, file);
        flash.fill(kBackground);
        flag.Clear();
        return ReadCodeHex(path, flash, flag);
    }
    HexReadResult Data(const QByteArray& file) {
        testing::PutFile(path, file);
        eeprom.fill(kBackground);
        flag.Clear();
        return ReadDataHex(path, eeprom, flag);
    }
};

TEST_F(ReaderTest, Records) {
    const HexReadResult noColon = HexReadResult::NoColon;
    const struct {
        const char* what;
        QByteArray file;
        Cells data;  ///< what the data reader stores
        bool flagged = false;
        HexReadResult result = HexReadResult::Complete;
    } cases[] = {
        // clang-format off
        {"plain", ":0400000012345678E8\n:00000001FF\n", {{0, 0x12}, {1, 0x34}, {2, 0x56}, {3, 0x78}}},
        {"wrong checksum", ":010000001200\n", {{0, 0x12}}},
        {"data after the end record", ":00000001FF\n:0100020042BB\n", {{2, 0x42}}},
        {"later record wins", ":0100000011EE\n:0100000022DD\n", {{0, 0x22}}},
        {"extended address is skipped", ":020000040001F9\n:0100000033CC\n", {{0, 0x33}}},
        {"lower-case data digits are 0", ":02000000a1FfFF\n", {{0, 0x01}, {1, 0xF0}}, true},
        {"count beyond the line takes the checksum, then 0",
         ":03000000AABB\n", {{0, 0xAA}, {1, 0xBB}, {2, 0}}, true},
        {"LF, CRLF, lone CR, no end", ":0100000001\n:0100010002\r\n:0100020003\r:0100030004",
         {{0, 1}, {1, 2}, {2, 3}, {3, 4}}},
        {"no colon later keeps what came before", ":0100000012\n0100010034\n:0100020056\n",
         {{0, 0x12}}, false, noColon},
        // clang-format on
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Data(c.file), c.result) << c.what;
        EXPECT_EQ(Stored(eeprom), c.data) << c.what;
        EXPECT_EQ(flag.Failed(), c.flagged) << c.what;

        Cells swapped;
        for (const auto& [address, byte] : c.data) {
            swapped[address ^ 1] = byte;
        }
        EXPECT_EQ(Code(c.file), c.result) << c.what;
        EXPECT_EQ(Stored(flash), swapped) << c.what;
        EXPECT_EQ(flag.Failed(), c.flagged) << c.what;
    }
}

TEST_F(ReaderTest, TheLongestRecordIsTakenWhole) {
    const QByteArray record = ":FF000000" + QByteArray("5A").repeated(255);
    EXPECT_EQ(Data(record + QByteArray(10000, '7') + "\r\n:0101000011\r\n"),
              HexReadResult::Complete);
    const Cells stored = Stored(eeprom);
    EXPECT_EQ(stored.size(), 256U);
    EXPECT_EQ(stored.at(254), 0x5A);
    EXPECT_EQ(stored.at(256), 0x11);
    EXPECT_FALSE(flag.Failed());
}

TEST_F(ReaderTest, AByteBeyondTheImageEndsTheRead) {
    const HexReadResult failed = HexReadResult::Failed, complete = HexReadResult::Complete;
    EXPECT_EQ(Code(":02FFFE001122\n:0100000033"), complete);
    EXPECT_EQ(Stored(flash), (Cells{{65535, 0x11}, {65534, 0x22}, {1, 0x33}}));
    EXPECT_EQ(Code(":02FFFF001122\n:0100000033"), failed);
    EXPECT_EQ(Stored(flash), (Cells{{65534, 0x11}}));
    EXPECT_EQ(Data(":0207FF001122"), complete);
    EXPECT_EQ(Stored(eeprom), (Cells{{2047, 0x11}, {2048, 0x22}}));
    EXPECT_EQ(Data(":020800001122\n:0100000033"), failed);
    EXPECT_EQ(Stored(eeprom), (Cells{{2048, 0x11}}));
    EXPECT_EQ(Data(":01FFFF0011"), failed);
    EXPECT_EQ(Stored(eeprom), Cells{});
}

TEST_F(ReaderTest, OnlyRegularFilesAreRead) {
    const QString fifo = dir.filePath(u"fifo"_s), link = dir.filePath(u"link"_s);
    testing::MakeFifo(fifo);
    QFile::link(path, link);
    Code(":0100000012\n");
    EXPECT_EQ(ReadCodeHex(QString(), flash, flag), HexReadResult::Complete);
    for (const QString& bad : {dir.path(), fifo, u"/gone.hex"_s, QString()}) {
        EXPECT_FALSE(FileExists(bad)) << bad.toStdString();
        EXPECT_TRUE(bad.isEmpty() || ReadCodeHex(bad, flash, flag) == HexReadResult::Failed);
    }
    // Opens, but its first page can never be read.
    EXPECT_EQ(ReadCodeHex(u"/proc/self/mem"_s, flash, flag), HexReadResult::Failed);
    EXPECT_EQ(Stored(flash), (Cells{{1, 0x12}}));
    EXPECT_TRUE(FileExists(link));
    EXPECT_EQ(ReadDataHex(link, eeprom, flag), HexReadResult::Complete);
    QFile::setPermissions(path, QFile::WriteOwner);
    testing::OpenToAll(dir.path());
    const testing::OrdinaryUser user;
    EXPECT_TRUE(!user.Bound() || !FileExists(path)) << "there, but not to be opened";
}

struct WriterTest : ::testing::Test {
    QTemporaryDir dir;
    QString path = dir.filePath(u"out.hex"_s);
    MemoryImages images;
};

TEST_F(WriterTest, RecordsToTheByte) {
    images.flash[2] = 0x94;
    images.flash[3] = 0x0C;
    images.flash[1024] = 0;  // beyond the device
    ASSERT_EQ(WriteCodeHex(path, images.flash, 512), HexWriteResult::Written);
    QList<QByteArray> lines = testing::Lines(path);
    ASSERT_EQ(lines.size(), 65);
    EXPECT_EQ(lines[0], ":10000000FFFF0C94" + QByteArray(24, 'F') + "5E");
    EXPECT_EQ(lines[63], ":1003F000" + QByteArray(32, 'F') + "0D");
    EXPECT_EQ(lines[64], ":00000001FF");

    std::fill_n(images.eeprom.begin() + 0xF0, 16, std::uint8_t{0});
    ASSERT_EQ(WriteDataHex(path, images.eeprom, 256), HexWriteResult::Written);
    lines = testing::Lines(path);
    ASSERT_EQ(lines.size(), 17) << "a shorter file replaces a longer one";
    EXPECT_EQ(lines[15], ":1000F000" + QByteArray(32, '0') + "00");
}

TEST_F(WriterTest, EveryFailureIsNoticed) {
    const HexWriteResult failed = HexWriteResult::Failed, written = HexWriteResult::Written;
    const QString fifo = dir.filePath(u"fifo"_s), halfACharacter = path + QChar(0xD842);
    testing::MakeFifo(fifo);
    for (const QString& bad : {QString(), dir.path(), dir.filePath(u"no/such.eep"_s), fifo}) {
        EXPECT_EQ(WriteCodeHex(bad, images.flash, 512), failed) << bad.toStdString();
    }
    EXPECT_EQ(WriteCodeHex(halfACharacter, images.flash, 512), written) << "and no exception";
    const testing::FullDisk full(10);
    // The end record alone stays in the buffer until the file is closed.
    EXPECT_EQ(WriteDataHex(path, images.eeprom, 0), failed);
    EXPECT_EQ(WriteCodeHex(path, images.flash, 4096), failed);
}

}  // namespace
}  // namespace tolvex
