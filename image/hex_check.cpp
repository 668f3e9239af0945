// SPDX-License-Identifier: MIT
#include "image/hex_check.h"

#include <QByteArray>
#include <QFile>
#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>

#include "image/hex_line.h"

namespace tolvex {

namespace {

constexpr int kHeaderBytes = 4;  ///< count, address, type
constexpr qsizetype kLongestLine = 1 + 2 * (kHeaderBytes + 255 + 1);

enum RecordType { kData = 0, kEnd = 1, kSegmentBase = 2, kLinearBase = 4, kLastType = 5 };

bool IsDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
}

/// One pass over one file.
class HexChecker {
  public:
    explicit HexChecker(int memoryBytes) : memoryBytes_(memoryBytes) {}

    void Take(QByteArray line) {
        ++line_;
        if (ended_ && endLine_ != 0) {
            Find(HexFault::EarlyEnd, -1, endLine_);
            endLine_ = 0;
        }
        if (const auto fault = Spell(line)) {
            Find(*fault);
            return;
        }
        const QByteArray record = QByteArray::fromHex(line.mid(1));
        int sum = 0;
        for (const char byte : record) {
            sum += static_cast<std::uint8_t>(byte);
        }
        if ((sum & 0xFF) != 0) {
            Find(HexFault::Checksum);
        }
        Carry(record);
    }

    HexReport Finish(bool readable) {
        if (!ended_) {
            Find(HexFault::MissingEnd, -1, std::max(line_, 1));
        }
        report_.readable = readable;
        report_.bytes = static_cast<int>(filled_.size());
        return report_;
    }

  private:
    void Find(HexFault fault, int address = -1, int line = 0) {
        report_.findings << HexFinding{fault, line != 0 ? line : line_, address};
    }

    /// What keeps the line from being read as a record.
    static std::optional<HexFault> Spell(const QByteArray& line) {
        if (!line.startsWith(':')) {
            return HexFault::NoColon;
        }
        if (!std::all_of(line.begin() + 1, line.end(), IsDigit)) {
            return HexFault::Digit;
        }
        const int count = line.mid(1, 2).toInt(nullptr, 16);
        return line.size() == 1 + 2 * (kHeaderBytes + count + 1) ? std::nullopt
                                                                 : std::optional(HexFault::Length);
    }

    void Carry(const QByteArray& record) {
        const auto at = [&record](int index) { return static_cast<std::uint8_t>(record[index]); };
        const int count = at(0);
        const int type = at(3);
        switch (type) {
            case kData:
                ++report_.records;
                Store(base_ + at(1) * 256 + at(2), count);
                break;
            case kEnd:
                ended_ = true;
                endLine_ = line_;
                break;
            case kSegmentBase:
            case kLinearBase:
                SetBase(count == 2 ? at(4) * 256 + at(5) : -1, type == kLinearBase ? 16 : 4);
                break;
            default:
                if (type > kLastType) {
                    Find(HexFault::UnknownType);
                }
        }
    }

    void SetBase(int value, int shift) {
        if (value < 0) {
            Find(HexFault::Length);
            return;
        }
        base_ = static_cast<std::int64_t>(value) << shift;
        if (base_ != 0) {
            Find(HexFault::BaseAddress);
        }
    }

    /// Each fault is told once a record, at its first byte.
    void Store(std::int64_t start, int count) {
        int overlap = -1;
        int outside = -1;
        for (std::int64_t address = start; address < start + count; ++address) {
            const int shown = static_cast<int>(std::min<std::int64_t>(address, 0x7FFFFFFF));
            if (address >= memoryBytes_ && outside < 0) {
                outside = shown;
            }
            if (!filled_.insert(address).second && overlap < 0) {
                overlap = shown;
            }
        }
        if (overlap >= 0) {
            Find(HexFault::Overlap, overlap);
        }
        if (outside >= 0) {
            Find(HexFault::OutsideMemory, outside);
        }
    }

    int memoryBytes_;
    HexReport report_;
    int line_ = 0;
    bool ended_ = false;
    int endLine_ = 0;  ///< of an end record that nothing has followed so far
    std::int64_t base_ = 0;
    std::set<std::int64_t> filled_;
};

}  // namespace

HexReport CheckHex(const QString& path, int memoryBytes) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    HexChecker checker(memoryBytes);
    while (!file.atEnd()) {
        checker.Take(TakeHexLine(file, kLongestLine + 1));  // one more shows that it is too long
    }
    return checker.Finish(file.error() == QFileDevice::NoError);
}

}  // namespace tolvex
