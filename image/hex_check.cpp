// SPDX-License-Identifier: MIT
#include "image/hex_check.h"

#include <QByteArray>
#include <QFile>
#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/text.h"
#include "image/hex_reader.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Name and text, in the order of `HexFault`.
constexpr std::pair<QStringView, const char*> kFaults[] = {
    {u"noColon", QT_TRANSLATE_NOOP("Tolvex", "行頭がコロンではありません。")},
    {u"lowerCase",
     QT_TRANSLATE_NOOP("Tolvex", "小文字の16進数字があります。大文字だけが使えます。")},
    {u"digit", QT_TRANSLATE_NOOP("Tolvex", "16進数字ではない文字があります。")},
    {u"length", QT_TRANSLATE_NOOP("Tolvex", "長さがバイト数と合いません。")},
    {u"checksum", QT_TRANSLATE_NOOP("Tolvex", "チェックサムが違います。")},
    {u"unknownType", QT_TRANSLATE_NOOP("Tolvex", "知らないレコードタイプです。")},
    {u"baseAddress", QT_TRANSLATE_NOOP("Tolvex", "0 以外の拡張アドレスには対応していません。")},
    {u"overlap", QT_TRANSLATE_NOOP("Tolvex", "前のレコードと同じ番地のデータです。")},
    {u"outsideMemory", QT_TRANSLATE_NOOP("Tolvex", "デバイスのメモリの外のデータです。")},
    {u"earlyEnd", QT_TRANSLATE_NOOP("Tolvex", "エンドレコードの後に行が続いています。")},
    {u"missingEnd", QT_TRANSLATE_NOOP("Tolvex", "エンドレコードがありません。")},
};
static_assert(std::size(kFaults) == static_cast<std::size_t>(HexFault::MissingEnd) + 1);

constexpr int kHeaderBytes = 4;  ///< count, address, type
constexpr qsizetype kLongestLine = 1 + 2 * (kHeaderBytes + 255 + 1);

enum RecordType { kData = 0, kEnd = 1, kSegmentBase = 2, kLinearBase = 4, kLastType = 5 };

bool IsDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
}

bool IsLowerDigit(char c) {
    return c >= 'a' && c <= 'f';
}

/// Faults that a record can have while the reader still takes its bytes to their places.
bool IsHarmless(HexFault fault) {
    return fault == HexFault::NoColon || fault == HexFault::Checksum ||
           fault == HexFault::EarlyEnd || fault == HexFault::MissingEnd;
}

/// One pass over one file.
class HexChecker {
  public:
    explicit HexChecker(int memoryBytes)
        : memoryBytes_(memoryBytes), filled_(static_cast<std::size_t>(memoryBytes)) {}

    void Take(const QByteArray& line) {
        ++line_;
        if (ended_ && endLine_ != 0) {
            Find(HexFault::EarlyEnd, -1, endLine_);
            endLine_ = 0;
        }
        if (const auto fault = Spell(line)) {
            stopped_ = stopped_ || *fault == HexFault::NoColon;
            if (line.toUpper() == ":00000001FF") {
                ended_ = true;
                endLine_ = line_;
            }
            Find(*fault);
            return;
        }
        sound_ = true;
        const QByteArray record = QByteArray::fromHex(line.mid(1));
        int sum = 0;
        for (const char byte : record) {
            sum += static_cast<std::uint8_t>(byte);
        }
        if ((sum & 0xFF) != 0) {
            Find(HexFault::Checksum);
        }
        Carry(record);
        report_.goodRecords += record[3] == kData && sound_ ? 1 : 0;
    }

    HexReport Finish() {
        if (!ended_) {
            Find(HexFault::MissingEnd, -1, std::max(line_, 1));
        }
        report_.readable = true;
        report_.bytes = static_cast<int>(std::ranges::count(filled_, true));
        return report_;
    }

  private:
    void Find(HexFault fault, int address = -1, int line = 0) {
        sound_ = false;
        report_.lossless = report_.lossless && IsHarmless(fault);
        int listed = 0;
        HexFinding* last = nullptr;
        for (HexFinding& finding : report_.findings) {
            if (finding.fault == fault) {
                ++listed;
                last = &finding;
            }
        }
        if (listed == kListedOfAFault) {
            ++last->more;
        } else {
            report_.findings << HexFinding{fault, line != 0 ? line : line_, address};
        }
    }

    /// What keeps the line from being read as a record.
    static std::optional<HexFault> Spell(const QByteArray& line) {
        if (!line.startsWith(':')) {
            return HexFault::NoColon;
        }
        const auto isOther = [](char c) { return !IsDigit(c) && !IsLowerDigit(c); };
        if (std::any_of(line.begin() + 1, line.end(), isOther)) {
            return HexFault::Digit;
        }
        if (std::any_of(line.begin() + 1, line.end(), IsLowerDigit)) {
            return HexFault::LowerCase;
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
                report_.lossless = report_.lossless && !stopped_;
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

    /// Each fault is told once a record, at its first byte. What lies outside is a fault already,
    /// so only the memory's own bytes are looked at for an overlap.
    void Store(std::int64_t start, int count) {
        int overlap = -1;
        int outside = -1;
        for (std::int64_t address = start; address < start + count; ++address) {
            const int shown = static_cast<int>(std::min<std::int64_t>(address, 0x7FFFFFFF));
            if (address >= memoryBytes_) {
                outside = outside < 0 ? shown : outside;
                break;
            }
            const auto cell = static_cast<std::size_t>(address);
            overlap = filled_[cell] && overlap < 0 ? shown : overlap;
            filled_[cell] = true;
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
    bool stopped_ = false;  ///< the reader has come to a line without a colon
    bool sound_ = true;     ///< nothing found in the line under way
    std::vector<bool> filled_;
};

}  // namespace

QStringView HexFaultName(HexFault fault) {
    return kFaults[static_cast<std::size_t>(fault)].first;
}

QString HexFindingText(const HexFinding& finding) {
    QString text = Text::tr(kFaults[static_cast<std::size_t>(finding.fault)].second);
    if (finding.line > 0) {
        text = Text::tr("%1 行目: %2").arg(finding.line).arg(text);
    }
    if (finding.address >= 0) {
        text += u" (0x%1)"_s.arg(QString::number(finding.address, 16).toUpper());
    }
    return finding.more == 0 ? text : text + Text::tr(" ほか %n 行", nullptr, finding.more);
}

HexReport CheckHex(const QString& path, int memoryBytes) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    HexReport report = CheckHex(file, memoryBytes);
    report.readable = file.error() == QFileDevice::NoError;
    return report;
}

HexReport CheckHex(QIODevice& device, int memoryBytes) {
    HexChecker checker(memoryBytes);
    QByteArray line;
    while (TakeHexLine(device, kLongestLine + 1, line)) {  // one more shows that it is too long
        checker.Take(line);
    }
    return checker.Finish();
}

}  // namespace tolvex
