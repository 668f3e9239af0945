// SPDX-License-Identifier: MIT
#include "writer/trace_replay.h"

#include <QFile>
#include <QStringList>
#include <cerrno>

#include "base/system_cause.h"
#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// What claims to have taken longer is damaged, and could not be counted in finer units.
constexpr std::chrono::microseconds kLongestSession = std::chrono::hours(24 * 365);

QString Hex(char byte) {
    return QString::fromLatin1(QByteArray(1, byte).toHex().toUpper());
}

}  // namespace

std::optional<QString> TraceReplay::Load(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return Text::tr("記録 %1 を読めません: %2").arg(path, SystemCause(errno));
    }
    int line = 0;
    while (!file.atEnd()) {
        const QString text = QString::fromLatin1(file.readLine()).trimmed();
        if (const auto wrong = Parse(text, ++line)) {
            return Text::tr("記録 %1 の %2 行目: %3").arg(path, QString::number(line), *wrong);
        }
    }
    // What the board said before it was ever asked is not waited for.
    Schedule(Instant::zero());
    return std::nullopt;
}

std::optional<QString> TraceReplay::Parse(const QString& text, int line) {
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty()) {
        return std::nullopt;
    }
    bool isTime = false;
    const std::chrono::microseconds time(words[0].toLongLong(&isTime));
    isTime = isTime && time >= std::chrono::microseconds::zero() && time <= kLongestSession;
    const QString kind = words.value(1);
    if (!isTime || kind.isEmpty()) {
        return Text::tr("時刻と出来事がありません");
    }
    if (kind == u"open"_s || kind == u"refused"_s || kind == u"close"_s) {
        return std::nullopt;
    }
    if (kind == u"lost"_s) {
        events_.append({line, time, false, {}});
        return std::nullopt;
    }
    QByteArray bytes;
    for (const QString& word : words.mid(2)) {
        bool isByte = false;
        bytes += static_cast<char>(word.toUShort(&isByte, 16));
        if (!isByte || word.size() != 2) {
            return Text::tr("バイトではありません: %1").arg(word);
        }
    }
    if ((kind != u">"_s && kind != u"<"_s) || bytes.isEmpty()) {
        return Text::tr("知らない出来事です: %1").arg(kind);
    }
    events_.append({line, time, kind == u">"_s, bytes});
    return std::nullopt;
}

void TraceReplay::Send(QByteArrayView bytes, Instant now) {
    for (const char byte : bytes) {
        Expect(byte);
        Schedule(now);
    }
}

void TraceReplay::Expect(char byte) {
    if (departure_) {
        return;
    }
    if (next_ >= events_.size()) {
        departure_ = Text::tr("記録の終わりの後に、PC が %1 を送りました").arg(Hex(byte));
        return;
    }
    const Event& event = events_[next_];
    if (event.bytes[received_] != byte) {
        departure_ = Text::tr("記録の %1 行目: PC が %3 ではなく %2 を送りました")
                         .arg(QString::number(event.line), Hex(byte), Hex(event.bytes[received_]));
        return;
    }
    if (++received_ == event.bytes.size()) {
        received_ = 0;
        ++next_;
    }
}

/// What the board said between this event of the PC and its next one.
void TraceReplay::Schedule(Instant now) {
    if (received_ != 0 || departure_) {
        return;
    }
    const auto asked = next_ == 0 ? std::chrono::microseconds::zero() : events_[next_ - 1].time;
    for (; next_ < events_.size() && !events_[next_].fromPc; ++next_) {
        const Event& event = events_[next_];
        due_.push_back({skipDelays_ ? now : now + (event.time - asked), event.bytes});
    }
}

std::optional<Board::Instant> TraceReplay::NextDue() const {
    return due_.empty() ? std::nullopt : std::optional(due_.front().at);
}

Board::Events TraceReplay::Run(Instant now) {
    Events events;
    while (!due_.empty() && due_.front().at <= now) {
        if (due_.front().bytes.isEmpty()) {
            events.hangUp = true;
        }
        events.bytes += due_.front().bytes;
        events.lastByte = due_.front().at;
        due_.pop_front();
        if (events.hangUp) {
            break;
        }
    }
    return events;
}

}  // namespace tolvex
