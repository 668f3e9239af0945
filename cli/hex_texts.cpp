// SPDX-License-Identifier: MIT
#include "cli/hex_texts.h"

#include <algorithm>
#include <iterator>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

struct FaultRow {
    HexFault fault;
    QStringView key;
    QStringView text;
};

constexpr FaultRow kFaults[] = {
    {HexFault::NoColon, u"noColon", u"行頭がコロンではありません。"},
    {HexFault::Digit, u"digit", u"大文字の16進数字ではない文字があります。"},
    {HexFault::Length, u"length", u"長さがバイト数と合いません。"},
    {HexFault::Checksum, u"checksum", u"チェックサムが違います。"},
    {HexFault::UnknownType, u"unknownType", u"知らないレコードタイプです。"},
    {HexFault::BaseAddress, u"baseAddress", u"0 以外の拡張アドレスには対応していません。"},
    {HexFault::Overlap, u"overlap", u"前のレコードと同じ番地のデータです。"},
    {HexFault::OutsideMemory, u"outsideMemory", u"デバイスのメモリの外のデータです。"},
    {HexFault::EarlyEnd, u"earlyEnd", u"エンドレコードの後に行が続いています。"},
    {HexFault::MissingEnd, u"missingEnd", u"エンドレコードがありません。"},
};

const FaultRow& Row(HexFault fault) {
    return *std::ranges::find(kFaults, fault, &FaultRow::fault);
}

}  // namespace

QString HexFindingText(const HexFinding& finding) {
    const QString text = u"%1 行目: %2"_s.arg(finding.line).arg(Row(finding.fault).text);
    return finding.address < 0
               ? text
               : text + u" (0x%1)"_s.arg(QString::number(finding.address, 16).toUpper());
}

QJsonObject HexFindingJson(const HexFinding& finding) {
    QJsonObject object{{u"line"_s, finding.line}, {u"fault"_s, Row(finding.fault).key.toString()}};
    if (finding.address >= 0) {
        object[u"address"_s] = finding.address;
    }
    return object;
}

}  // namespace tolvex
