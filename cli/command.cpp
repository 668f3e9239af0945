// SPDX-License-Identifier: MIT
#include "cli/command.h"

#include <limits>

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

QList<CliCommand> CliCommands() {
    const QCommandLineOption force(
        u"force"_s,
        Text::tr(
            "シグネチャの合わないチップや、誤りがあってもデータのある HEX ファイルで続ける。"));
    const QCommandLineOption backup(
        u"backup"_s, Text::tr("先にチップの内容を DIR に日付つきの HEX ファイルで保存する。"),
        u"DIR"_s);
    const QCommandLineOption only(
        u"only"_s, Text::tr("flash か eeprom だけを対象にする。もう一方の内容は変えない。"),
        u"flash|eeprom"_s);
    const QCommandLineOption keepEeprom(u"keep-eeprom"_s,
                                        Text::tr("EEPROM を先に読み、同じ内容を書き戻す。"));
    const QCommandLineOption ifDifferent(
        u"if-different"_s, Text::tr("先にチップ全体を比べ、同じ内容なら何も書かずに終わる。"));
    const QCommandLineOption verify(
        u"verify"_s, Text::tr("最後に使うセルまでではなく、チップ全体を読み返して比べる。"),
        u"all"_s);
    const QCommandLineOption readFormat(
        u"format"_s,
        Text::tr("ファイルの形式。bin はメモリの内容そのもの。ほかの形式は内容で分かる。"),
        u"bin"_s);
    const QCommandLineOption writeFormat(
        u"format"_s,
        Text::tr("書くファイルの形式。省略すると Intel HEX。bin はメモリの内容そのもの。"),
        u"hex|bin|srec"_s);
    const QCommandLineOption count(
        u"count"_s, Text::tr("N 個で終わる。省略すると Ctrl-C まで続ける。"), u"N"_s);
    const QCommandLineOption serial(
        u"serial"_s,
        Text::tr(
            "番号を 1 個ごとに増やして書く。eeprom:0x10=u16le、flash:0x3FE=text:SN%06d など。"),
        u"ADDRESS=FORMAT"_s);
    const QCommandLineOption log(u"log"_s, Text::tr("1 個に 1 行を FILE に書き足す (CSV)。"),
                                 u"FILE"_s);
    const QCommandLineOption allPorts(u"all"_s, Text::tr("ないポートも含めて 20 個とも表示する。"));
    const QString files = u"CODE [DATA]"_s;
    constexpr int kAny = std::numeric_limits<int>::max();
    // clang-format off
    return {
        {u"detect"_s, {}, 0, 0, Text::tr("ライタとチップを調べる。"), {}, Detect},
        {u"program"_s, files, 1, 2, Text::tr("消去・書き込み・ベリファイをする（Program ボタン）。"),
         {force, only, keepEeprom, backup, verify, ifDifferent, readFormat}, Program, TakesFiles},
        {u"batch"_s, files, 1, 2, Text::tr("チップを次々に替えて書き込む。入れるのを待ち、書き込み、抜くのを待つ。"),
         {count, serial, log, readFormat}, BatchProgram, TakesFiles},
        {u"verify"_s, files, 1, 2, Text::tr("チップ全体をファイルと比べる（Verify ボタン）。"),
         {force, only, readFormat}, Verify, TakesFiles},
        {u"read"_s, files, 1, 2, Text::tr("チップ全体を読んでファイルに書く（Read ボタン）。"),
         {force, only, writeFormat}, Read, TakesFiles},
        {u"blank"_s, {}, 0, 0, Text::tr("チップが空（すべて FF）かどうかを調べる。"), {force, only}, Blank},
        {u"dump"_s, {}, 0, 0, Text::tr("チップの内容をウインドウのリストと同じ形で表示する。"), {force, only}, Dump},
        {u"erase"_s, {}, 0, 0, Text::tr("Flash・EEPROM・ロックビットを消去する（Erase ボタン）。"),
         {force, backup}, Erase},
        {u"fuses"_s, u"[NAME=VALUE…]"_s, 0, kAny, Text::tr("Lock/Fuse ビットを読む、または書く。"), {}, Fuses, TakesFuses},
        {u"lock"_s, u"MODE"_s, 1, 1,
         Text::tr("ロックビットを書く: full (書込み & ベリファイ 禁止)、write (書込み禁止)、none。"), {}, Lock, TakesLock},
        {u"check"_s, u"FILE…"_s, 1, kAny, Text::tr("HEX ファイルを厳密に調べる。"), {}, Check},
        {u"ports"_s, {}, 0, 0, Text::tr("COM ポートの一覧を表示する。"), {allPorts}, ListPorts},
        {u"devices"_s, {}, 0, 0, Text::tr("デバイスの一覧を表示する。"), {}, ListDevices},
        {u"doctor"_s, {}, 0, 0, Text::tr("ポートが使えない原因と、直すコマンドを示す。"), {}, Doctor},
        {u"build-writer"_s, u"[HEX]"_s, 0, 1,
         Text::tr("ライタを自作する: 結線と、ファームウエアを書き込むコマンド。HEX があればそこに写す。"), {}, BuildWriter},
    };
    // clang-format on
}

}  // namespace tolvex
