// SPDX-License-Identifier: MIT
#include "image/hex_reader.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <map>

#include "tests/image/real_files.h"

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

struct Case {
    const char* what;
    QByteArray file;
    Cells data;  ///< what the data reader stores
    bool flagged = false;
    HexReadResult result = HexReadResult::Complete;
};

TEST_F(ReaderTest, Records) {
    const HexReadResult noColon = HexReadResult::NoColon;
    const Case cases[] = {
        {"plain",
         ":0400000012345678E8\n:00000001FF\n",
         {{0, 0x12}, {1, 0x34}, {2, 0x56}, {3, 0x78}}},
        {"wrong checksum", ":010000001200\n", {{0, 0x12}}},
        {"no checksum", ":0100000012\n", {{0, 0x12}}},
        {"data after the end record", ":00000001FF\n:0100020042BB\n", {{2, 0x42}}},
        {"later record wins", ":0100000011EE\n:0100000022DD\n", {{0, 0x22}}},
        {"extended address is skipped", ":020000040001F9\n:0100000033CC\n", {{0, 0x33}}},
        {"types 2, 3, 5 and FF are skipped",
         ":0100000211EC\n:0100000311EB\n:0100000511E9\n:010000FF1100\n",
         {}},
        {"count 0", ":00000000FF\n", {}},
        {"lower-case data digits are 0", ":02000000a1FfFF\n", {{0, 0x01}, {1, 0xF0}}, true},
        {"lower-case type digit reads as data", ":0100000a12\n", {{0, 0x12}}, true},
        {"lower-case address digit is 0", ":0100a00012\n", {{0, 0x12}}, true},
        {"byte that is no ASCII is 0",
         ":0100000\xE9"
         "12\n",
         {{0, 0x12}},
         true},
        {"count beyond the line takes the checksum, then 0",
         ":03000000AABB\n",
         {{0, 0xAA}, {1, 0xBB}, {2, 0}},
         true},
        {"colon alone", ":\n:0100000012\n", {{0, 0x12}}, true},
        {"LF, CRLF, lone CR, no end",
         ":0100000001\n:0100010002\r\n:0100020003\r:0100030004",
         {{0, 1}, {1, 2}, {2, 3}, {3, 4}}},
        {"CR at the very end", ":0100000001\r", {{0, 1}}},
        {"empty file", "", {}},
        {"no colon at once", "hello\n:0100000012\n", {}, false, noColon},
        {"no colon later keeps what came before",
         ":0100000012\n0100010034\n:0100020056\n",
         {{0, 0x12}},
         false,
         noColon},
        {"blank line stops", ":0100000012\n\n:0100010034\n", {{0, 0x12}}, false, noColon},
        {"blank before the colon stops", " :0100000012\n", {}, false, noColon},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Data(c.file), c.result) << c.what;
        EXPECT_EQ(Stored(eeprom), c.data) << c.what;
        EXPECT_EQ(flag.Failed(), c.flagged) << c.what;

        Cells swapped;
        for (const auto& [address, byte] : c.data) {
            swapped[address % 2 == 0 ? address + 1 : address - 1] = byte;
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

struct Edge {
    const char* what;
    QByteArray record;  ///< address and count are what matters; every byte is 0x11
    std::size_t first, last;
    HexReadResult result;
};

TEST_F(ReaderTest, AFlashByteBeyondTheImageEndsTheRead) {
    const QByteArray bytes = QByteArray("11").repeated(16);
    const Edge cases[] = {
        {"up to the last address", ":10FFF000" + bytes, 65520, 65535, HexReadResult::Complete},
        {"half beyond", ":10FFF800" + bytes, 65528, 65535, HexReadResult::Failed},
        {"one beyond, odd start", ":02FFFF00" + bytes, 65534, 65534, HexReadResult::Failed},
    };
    for (const Edge& c : cases) {
        // What follows a record that runs beyond is not read.
        EXPECT_EQ(Code(c.record + "\n:0100000022\n"), c.result) << c.what;
        Cells expected;
        for (std::size_t cell = c.first; cell <= c.last; ++cell) {
            expected[cell] = 0x11;
        }
        if (c.result == HexReadResult::Complete) {
            expected[1] = 0x22;
        }
        EXPECT_EQ(Stored(flash), expected) << c.what;
    }
}

TEST_F(ReaderTest, AnEepromByteBeyondTheImageEndsTheRead) {
    EXPECT_EQ(Data(":0207FF001122"), HexReadResult::Complete);
    EXPECT_EQ(Stored(eeprom), (Cells{{2047, 0x11}, {2048, 0x22}}));
    EXPECT_EQ(Data(":020800001122\n:0100000033"), HexReadResult::Failed);
    EXPECT_EQ(Stored(eeprom), (Cells{{2048, 0x11}}));
    EXPECT_EQ(Data(":01FFFF0011"), HexReadResult::Failed);
    EXPECT_EQ(Stored(eeprom), Cells{});
}

TEST_F(ReaderTest, FilesThatCannotBeRead) {
    flash.fill(kBackground);
    EXPECT_EQ(ReadCodeHex(QString(), flash, flag), HexReadResult::Complete);
    EXPECT_EQ(ReadCodeHex(dir.filePath(u"gone.hex"_s), flash, flag), HexReadResult::Failed);
    EXPECT_EQ(ReadCodeHex(dir.path(), flash, flag), HexReadResult::Failed);
    // Opens, but its first page can never be read.
    const QString broken = u"/proc/self/mem"_s;
    if (FileExists(broken)) {
        EXPECT_EQ(ReadCodeHex(broken, flash, flag), HexReadResult::Failed);
    }
    EXPECT_EQ(Stored(flash), Cells{});
    EXPECT_FALSE(flag.Failed());
}

}  // namespace
}  // namespace tolvex
