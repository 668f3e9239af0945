// SPDX-License-Identifier: MIT
#include "cli/chip_record.h"

#include <QJsonArray>
#include <QStringList>

#include "image/image.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

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

WriterCommands& ChipRecord::Around(WriterCommands& commands) {
    inner_ = &commands;
    return *this;
}

bool ChipRecord::Touched() const {
    return erased_ || uncertain_ || !words_.empty() || !bytes_.empty() || fuses_ || lock_;
}

QString ChipRecord::Text() const {
    const QString notErased =
        uncertain_ ? u"チップの消去は確認できていません。"_s : u"チップは消去していません。"_s;
    QStringList lines = {erased_ ? u"チップは消去済みです。"_s : notErased,
                         Line(u"Flash"_s, words_, u"word"_s), Line(u"EEPROM"_s, bytes_, u"byte"_s)};
    if (fuses_) {
        lines << u"ヒューズバイト: 0x%1 書き込み済み"_s.arg(HexByte(*fuses_));
    }
    if (lock_) {
        lines << u"ロックバイト: 0x%1 書き込み済み"_s.arg(HexByte(*lock_));
    }
    if (uncertain_) {
        lines << u"応答のない書き込みがあり、このほかの内容は不明です。"_s;
    }
    return lines.join(u'\n');
}

QJsonObject ChipRecord::Json() const {
    QJsonObject json{{u"erased"_s, erased_},
                     {u"flashWords"_s, QJsonArray::fromStringList(Ranges(words_))},
                     {u"eepromBytes"_s, QJsonArray::fromStringList(Ranges(bytes_))},
                     {u"uncertain"_s, uncertain_}};
    if (fuses_) {
        json[u"fuseByte"_s] = *fuses_;
    }
    if (lock_) {
        json[u"lockByte"_s] = *lock_;
    }
    return json;
}

/// What never went out because the run is being ended is no failure of the writer's.
void ChipRecord::NoteFailure() {
    if (failure_ == Failure::None && !port_.Stopped()) {
        failure_ = port_.TimedOut() ? Failure::Silent : Failure::Refused;
    }
}

/// What never went out can't have changed anything.
bool ChipRecord::Changed(bool acknowledged) {
    uncertain_ = uncertain_ || (!acknowledged && port_.Sent());
    return acknowledged;
}

void ChipRecord::EnterProgrammingMode(ErrorFlag& flag) {
    Run(flag, &W::EnterProgrammingMode);
    programming_ = programming_ || port_.Sent();
}

void ChipRecord::SetAddress(std::int32_t address, ErrorFlag& flag) {
    const bool set = Run(flag, &W::SetAddress, address);
    address_ = set ? std::optional(address) : std::nullopt;
}

void ChipRecord::WriteProgramWord(Byte high, Byte low, ErrorFlag& flag) {
    if (Changed(Run(flag, &W::WriteProgramWord, high, low) && address_)) {
        words_.insert((*address_)++);
    } else {
        address_.reset();
    }
}

void ChipRecord::WriteDataByte(Byte data, ErrorFlag& flag) {
    if (Changed(Run(flag, &W::WriteDataByte, data) && address_)) {
        bytes_.insert(*address_);
    }
}

void ChipRecord::ChipErase(ErrorFlag& flag) {
    if (Changed(Run(flag, &W::ChipErase))) {
        erased_ = true;
        words_.clear();
        bytes_.clear();
        lock_.reset();
    }
}

void ChipRecord::WriteFuseBits(Byte fuses, ErrorFlag& flag) {
    fuses_ = Changed(Run(flag, &W::WriteFuseBits, fuses)) ? std::optional(fuses) : fuses_;
}

void ChipRecord::WriteLockBits(Byte lock, ErrorFlag& flag) {
    lock_ = Changed(Run(flag, &W::WriteLockBits, lock)) ? std::optional(lock) : lock_;
}

}  // namespace tolvex
