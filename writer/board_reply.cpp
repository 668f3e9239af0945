// SPDX-License-Identifier: MIT
#include "writer/board_reply.h"

#include <algorithm>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

struct FaultRow {
    FaultKind kind;
    const char* name;
};

constexpr FaultRow kFaults[] = {
    {FaultKind::Silent, "silent"}, {FaultKind::Short, "short"}, {FaultKind::Wrong, "wrong"},
    {FaultKind::Long, "long"},     {FaultKind::Late, "late"},   {FaultKind::HangUp, "hang-up"},
};

QString HexBytes(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

}  // namespace

QString FaultName(FaultKind kind) {
    const auto row = std::ranges::find(kFaults, kind, &FaultRow::kind);
    Q_ASSERT(row != std::end(kFaults));
    return QString::fromLatin1(row->name);
}

std::optional<FaultKind> FaultFromName(const QString& name) {
    for (const FaultRow& row : kFaults) {
        if (name == QLatin1StringView(row.name)) {
            return row.kind;
        }
    }
    return std::nullopt;
}

QString BoardReply::Sent() const {
    const bool printable = letter > 0x20 && letter < 0x7F;
    QString text = printable ? QString(QLatin1Char(static_cast<char>(letter)))
                             : u"0x"_s + HexBytes(QByteArray(1, static_cast<char>(letter)));
    if (!arguments.isEmpty()) {
        text += u' ' + HexBytes(arguments);
    }
    return text;
}

QString BoardReply::Answered() const {
    return bytes.isEmpty() ? u"nothing"_s : HexBytes(bytes);
}

QString BoardReply::LogLine() const {
    const QString line = Sent() + u" -> "_s + Answered();
    return fault ? line + u" (%1)"_s.arg(FaultName(*fault)) : line;
}

void ApplyFault(FaultKind kind, BoardReply& reply) {
    reply.fault = kind;
    switch (kind) {
        case FaultKind::Silent:
            reply.bytes.clear();
            break;
        case FaultKind::Short:
            reply.bytes.chop(1);
            break;
        case FaultKind::Wrong:
            reply.bytes[0] = reply.bytes.startsWith('?') ? '!' : '?';
            break;
        case FaultKind::Long:
            reply.bytes += "??";
            break;
        case FaultKind::Late:
            reply.delay += kLateReply;
            break;
        case FaultKind::HangUp:
            reply.bytes.clear();
            reply.hangUp = true;
            break;
    }
}

}  // namespace tolvex
