// SPDX-License-Identifier: MIT
#include "cli/chip_record.h"

#include <QJsonArray>
#include <QStringList>
#include <utility>

#include "base/text.h"
#include "image/image.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// So many time-outs close together end the run.
constexpr int kTimeOutLimit = 3;
/// Replies in time after which earlier time-outs are forgotten. A writer that is always late
/// answers every other command in time, with the reply to the one before.
constexpr int kRepliesToForget = 20;

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

QString Line(const QString& memory, const std::set<int>& addresses, QString (*count)(int)) {
    return addresses.empty() ? Text::tr("%1: 書き込みなし").arg(memory)
                             : Text::tr("%1: %2 書き込み済み (%3)")
                                   .arg(memory, count(static_cast<int>(addresses.size())),
                                        Ranges(addresses).join(u", "_s));
}

}  // namespace

CommandHooks ChipRecord::Hooks() {
    return {.maySend = [this] { return MaySend(); },
            .onEnd = [this](char letter, int argument,
                            Outcome outcome) { Note(letter, argument, outcome); }};
}

bool ChipRecord::MaySend() {
    if (shuttingDown_) {
        return true;
    }
    stopped_ = stopped_ || signal_() != 0;
    unwinding_ = stopped_ || contactLost_ || cutOff_ || timeOuts_ >= kTimeOutLimit;
    return !unwinding_;
}

bool ChipRecord::Touched() const {
    return erased_ || Uncertain() || !words_.empty() || !bytes_.empty() || fuses_ || lock_;
}

QString ChipRecord::Text() const {
    const QString notErased = Uncertain() ? Text::tr("チップの消去は確認できていません。")
                                          : Text::tr("チップは消去していません。");
    QStringList lines = {erased_ ? Text::tr("チップは消去済みです。") : notErased,
                         Line(u"Flash"_s, words_, WordCount), Line(u"EEPROM"_s, bytes_, ByteCount)};
    if (fuses_) {
        lines << Text::tr("ヒューズバイト: 0x%1 書き込み済み").arg(HexByte(*fuses_));
    }
    if (lock_) {
        lines << Text::tr("ロックバイト: 0x%1 書き込み済み").arg(HexByte(*lock_));
    }
    if (Uncertain()) {
        lines << Text::tr("確認できていない書き込みがあり、このほかの内容は不明です。");
    }
    return lines.join(u'\n');
}

QJsonObject ChipRecord::Json() const {
    QJsonObject json{{u"erased"_s, erased_},
                     {u"flashWords"_s, QJsonArray::fromStringList(Ranges(words_))},
                     {u"eepromBytes"_s, QJsonArray::fromStringList(Ranges(bytes_))},
                     {u"uncertain"_s, Uncertain()}};
    if (fuses_) {
        json[u"fuseByte"_s] = *fuses_;
    }
    if (lock_) {
        json[u"lockByte"_s] = *lock_;
    }
    return json;
}

void ChipRecord::Note(char letter, int argument, Outcome outcome) {
    NoteOutcome(outcome);
    const bool sent = outcome != Outcome::NotSent;
    const bool acknowledged = outcome == Outcome::Ok;
    if (letter == 'P') {
        DropPending();
        programming_ = programming_ || sent;
        entered_ = acknowledged;
    } else if (letter == 'L') {
        DropPending();
        programming_ = programming_ && !acknowledged;
    } else if (letter == 'A') {
        address_ = acknowledged ? std::optional(argument) : std::nullopt;
    } else if (sent || letter == 'C') {  // of half a word, the other half has been written
        NoteChange(letter, argument, acknowledged);
    }
}

void ChipRecord::NoteOutcome(Outcome outcome) {
    // A closed port: it was open when the operation began.
    lineLost_ = outcome == Outcome::LineLost || outcome == Outcome::NotSent;
    cutOff_ = cutOff_ || outcome == Outcome::LineLost;
    if (outcome == Outcome::Abandoned && !shuttingDown_) {
        stopped_ = unwinding_ = true;
    }
    if (outcome != Outcome::Ok && !firstFailure_) {
        firstFailure_ = outcome;
    }
    if (outcome == Outcome::NoReply) {
        ++timeOuts_;
        inTime_ = 0;
    } else if (++inTime_ == kRepliesToForget) {
        timeOuts_ = 0;
    }
}

/// What was sent and not acknowledged may have changed the chip, and so may what was written while
/// the address was not known.
void ChipRecord::NoteChange(char letter, int argument, bool acknowledged) {
    const bool writesMemory = letter == 'c' || letter == 'C' || letter == 'D';
    if (!writesMemory && letter != 'e' && letter != 'f' && letter != 'l') {
        return;
    }
    if (!acknowledged || !entered_ || (writesMemory && !address_)) {
        Doubt(letter);
    } else if (letter == 'C') {
        pending_.push_back({letter, (*address_)++});
    } else if (letter != 'c') {
        pending_.push_back({letter, letter == 'D' ? *address_ : argument});
    }
}

/// A word that went nobody knows where may have spoilt one that was certain.
void ChipRecord::Doubt(char letter) {
    uncertain_ = true;
    maybeErased_ = maybeErased_ || letter == 'e';
    if (letter == 'D') {
        bytes_.clear();
    } else if (letter == 'c' || letter == 'C') {
        words_.clear();
        address_.reset();
        std::erase_if(pending_, [](const Change& change) { return change.letter == 'C'; });
    }
}

void ChipRecord::NoteProof(bool same) {
    contactLost_ = contactLost_ || !same;
    if (same && entered_) {
        for (const Change& change : std::exchange(pending_, {})) {
            Apply(change);
        }
    }
}

/// Programming mode was left, or entered anew, before the chip has answered.
void ChipRecord::DropPending() {
    for (const Change& change : std::exchange(pending_, {})) {
        Doubt(change.letter);
    }
}

void ChipRecord::Apply(const Change& change) {
    switch (change.letter) {
        case 'C':
            if (maybeErased_) {
                uncertain_ = true;
            } else {
                words_.insert(change.value);
            }
            break;
        case 'D':
            bytes_.insert(change.value);
            break;
        case 'e':
            erased_ = true;
            maybeErased_ = false;
            words_.clear();
            bytes_.clear();
            lock_.reset();
            break;
        case 'f':
            fuses_ = change.value;
            break;
        default:
            lock_ = change.value;
    }
}

}  // namespace tolvex
