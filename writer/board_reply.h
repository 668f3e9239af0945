// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <cstdint>
#include <optional>

namespace tolvex {

/// Ways in which a board, its cable or its adapter lets the PC down. The command itself is carried
/// out; only the reply suffers.
enum class FaultKind {
    Silent,  ///< no reply
    Short,   ///< the last byte is missing
    Wrong,   ///< another first byte
    Long,    ///< two bytes more
    Late,    ///< the right reply, after every time-out of the PC
    HangUp   ///< no reply, and the far end goes away
};

/// "silent", "short", "wrong", "long", "late", "hang-up".
QString FaultName(FaultKind kind);
std::optional<FaultKind> FaultFromName(const QString& name);

inline constexpr std::chrono::milliseconds kLateReply{6000};

/// One finished command and what the board answers.
struct BoardReply {
    std::uint8_t letter = 0;
    QByteArray arguments;
    QByteArray bytes;                    ///< the reply as it goes out; empty = the board is silent
    std::chrono::milliseconds delay{0};  ///< before the first reply byte
    bool hangUp = false;                 ///< the far end goes away instead of answering
    std::optional<FaultKind> fault;

    /// The command as text: "A 00 10", "P"; a letter that is no printable ASCII reads as "0x1B".
    QString Sent() const;
    /// "0D", "FF FF FF", "nothing".
    QString Answered() const;
    /// "A 00 10 -> 0D", or with a fault "P -> 3F (wrong)".
    QString LogLine() const;
};

/// Spoils a reply.
void ApplyFault(FaultKind kind, BoardReply& reply);

}  // namespace tolvex
