// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <numeric>
#include <optional>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

/// The bytes of a sample from address 0 on; nothing when a record has another shape than the
/// simplest readers want.
std::optional<QByteArray> ReadSample(const QString& name) {
    QFile file(QStringLiteral(TOLVEX_SOURCE_DIR "/samples/") + name);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray text = file.readAll();
    const QString whole = QString::fromLatin1(text);
    static const QRegularExpression shape(
        u"^(:[0-9A-F]{6}00([0-9A-F]{2}){2,17}\r\n)+:00000001FF\r\n$"_s);
    if (!shape.match(whole).hasMatch()) {
        return std::nullopt;
    }
    QByteArray bytes;
    for (const QByteArray& line : text.split('\n').first(text.count('\n') - 1)) {
        const QByteArray record = QByteArray::fromHex(line.mid(1).trimmed());
        const int sum = std::accumulate(record.begin(), record.end(), 0);
        const int address =
            static_cast<std::uint8_t>(record[1]) * 256 + static_cast<std::uint8_t>(record[2]);
        if (sum % 256 != 0 || address != bytes.size() || record.size() != record[0] + 5) {
            return std::nullopt;
        }
        bytes += record.sliced(4, record[0]);
    }
    return bytes;
}

struct Instruction {
    const char* name;
    unsigned mask, bits;
};

// What blink needs; every core has these, and none of them touches a stack or RAM.
constexpr Instruction kEveryCore[] = {
    {"nop", 0xFFFF, 0x0000},  {"eor", 0xFC00, 0x2400},  {"mov", 0xFC00, 0x2C00},
    {"ldi", 0xF000, 0xE000},  {"in", 0xF800, 0xB000},   {"out", 0xF800, 0xB800},
    {"sbi", 0xFF00, 0x9A00},  {"sbic", 0xFF00, 0x9900}, {"dec", 0xFE0F, 0x940A},
    {"brne", 0xFC07, 0xF401}, {"rjmp", 0xF000, 0xC000},
};

TEST(Samples, BlinkRunsOnEveryChip) {
    const auto flash = ReadSample(u"blink.hex"_s);
    ASSERT_TRUE(flash);
    ASSERT_GT(flash->size(), 0);
    EXPECT_LE(flash->size(), 2 * 512);
    for (qsizetype i = 0; i < flash->size(); i += 2) {
        const unsigned word = static_cast<std::uint8_t>((*flash)[i]) |
                              static_cast<unsigned>(static_cast<std::uint8_t>((*flash)[i + 1]))
                                  << 8;
        const bool known =
            std::any_of(std::begin(kEveryCore), std::end(kEveryCore),
                        [word](const Instruction& one) { return (word & one.mask) == one.bits; });
        EXPECT_TRUE(known) << "word " << i / 2 << ": " << std::hex << word;
    }
    const auto eeprom = ReadSample(u"blink.eep"_s);
    ASSERT_TRUE(eeprom);
    EXPECT_EQ(*eeprom, QByteArray(1, 50));
}

}  // namespace
}  // namespace tolvex
