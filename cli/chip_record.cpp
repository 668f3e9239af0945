// SPDX-License-Identifier: MIT
#include "cli/chip_record.h"

#include <QJsonArray>
#include <QStringList>

#include "image/image.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr char kAcknowledge = 13;

/// "0000-00FF", "0102": each run of neighbours as one entry.
QStringList Ranges(const std::set<int>& addresses) {
    QStringList ranges;
    for (auto first = addresses.begin(); first != addresses.end();) {
        auto last = first;
        auto next = std::next(first);
        while (next != addresses.end() && *next == *last + 1) {
            last = next++;
        }
        ranges << (first == last ? HexWord4(*first) : HexWord4(*first) + u'-' + HexWord4(*last));
        first = next;
    }
    return ranges;
}

QString Line(const QString& memory, const std::set<int>& addresses, const QString& unit) {
    return addresses.empty() ? u"%1: 書き込みなし"_s.arg(memory)
                             : u"%1: %2 %3 書き込み済み (%4)"_s.arg(memory)
                                   .arg(addresses.size())
                                   .arg(unit, Ranges(addresses).join(u", "_s));
}

}  // namespace

QString ChipRecord::Text() const {
    const QStringList lines = {
        erased_ ? u"チップは消去済みです。"_s : u"チップは消去していません。"_s,
        Line(u"Flash"_s, words_, u"word"_s), Line(u"EEPROM"_s, bytes_, u"byte"_s)};
    return lines.join(u'\n');
}

QJsonObject ChipRecord::Json() const {
    return {{u"erased"_s, erased_},
            {u"flashWords"_s, QJsonArray::fromStringList(Ranges(words_))},
            {u"eepromBytes"_s, QJsonArray::fromStringList(Ranges(bytes_))}};
}

void ChipRecord::Began() {
    request_.clear();
    answered_ = false;
}

/// The writer moves on with a word's second half, whatever becomes of the reply.
void ChipRecord::Sent(QByteArrayView bytes) {
    request_ += bytes;
    if (request_.size() == 2 && request_.front() == 'C') {
        word_ = address_++;
    }
}

void ChipRecord::Received(QByteArrayView bytes) {
    if (!answered_ && !request_.isEmpty()) {
        answered_ = true;
        Carry(bytes.front() == kAcknowledge);
    }
}

void ChipRecord::Carry(bool acknowledged) {
    if (!acknowledged) {
        lowByteWritten_ = false;
        return;
    }
    switch (request_.front()) {
        case 'P':
            programming_ = true;
            break;
        case 'L':
            programming_ = false;
            break;
        case 'e':
            erased_ = true;
            words_.clear();
            bytes_.clear();
            break;
        case 'A':
            address_ = Argument(1) * 256 + Argument(2);
            break;
        case 'c':
            lowByteWritten_ = true;
            break;
        case 'C':
            if (lowByteWritten_) {
                words_.insert(word_);
            }
            lowByteWritten_ = false;
            break;
        case 'D':
            bytes_.insert(address_);
            break;
        default:
            break;
    }
}

int ChipRecord::Argument(int index) const {
    return index < request_.size() ? static_cast<std::uint8_t>(request_[index]) : 0;
}

}  // namespace tolvex
