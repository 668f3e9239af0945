// SPDX-License-Identifier: MIT
#include <limits>

#include "cli/command.h"

namespace tolvex {

using namespace Qt::StringLiterals;

std::span<const CliCommand> CliCommands() {
    static const QCommandLineOption kForce(
        u"force"_s,
        u"シグネチャの合わないチップや、誤りがあってもデータのある HEX ファイルで続ける。"_s);
    static const QCommandLineOption kBackup(
        u"backup"_s, u"先にチップの内容を DIR に日付つきの HEX ファイルで保存する。"_s, u"DIR"_s);
    static const QCommandLineOption kOnly(
        u"only"_s, u"flash か eeprom だけを対象にする。もう一方の内容は変えない。"_s,
        u"flash|eeprom"_s);
    static const QCommandLineOption kKeepEeprom(u"keep-eeprom"_s,
                                                u"EEPROM を先に読み、同じ内容を書き戻す。"_s);
    static const QCommandLineOption kIfDifferent(
        u"if-different"_s, u"先にチップ全体を比べ、同じ内容なら何も書かずに終わる。"_s);
    static const QCommandLineOption kVerify(
        u"verify"_s, u"最後に使うセルまでではなく、チップ全体を読み返して比べる。"_s, u"all"_s);
    static const QCommandLineOption kReadFormat(
        u"format"_s, u"ファイルの形式。bin はメモリの内容そのもの。ほかの形式は内容で分かる。"_s,
        u"bin"_s);
    static const QCommandLineOption kWriteFormat(
        u"format"_s, u"書くファイルの形式。省略すると Intel HEX。bin はメモリの内容そのもの。"_s,
        u"hex|bin|srec"_s);
    static const QCommandLineOption kCount(
        u"count"_s, u"N 個で終わる。省略すると Ctrl-C まで続ける。"_s, u"N"_s);
    static const QCommandLineOption kSerial(
        u"serial"_s,
        u"番号を 1 個ごとに増やして書く。eeprom:0x10=u16le、flash:0x3FE=text:SN%06d など。"_s,
        u"ADDRESS=FORMAT"_s);
    static const QCommandLineOption kLog(u"log"_s, u"1 個に 1 行を FILE に書き足す (CSV)。"_s,
                                         u"FILE"_s);
    static const QCommandLineOption kAllPorts(u"all"_s,
                                              u"ないポートも含めて 20 個とも表示する。"_s);
    static const QString kFiles = u"CODE [DATA]"_s;
    constexpr int kAny = std::numeric_limits<int>::max();
    // clang-format off
    static const CliCommand kCommands[] = {
        {u"detect"_s, {}, 0, 0, u"ライタとチップを調べる。"_s, {}, Detect},
        {u"program"_s, kFiles, 1, 2, u"消去・書き込み・ベリファイをする（Program ボタン）。"_s,
         {kForce, kOnly, kKeepEeprom, kBackup, kVerify, kIfDifferent, kReadFormat}, Program},
        {u"batch"_s, kFiles, 1, 2, u"チップを次々に替えて書き込む。入れるのを待ち、書き込み、抜くのを待つ。"_s,
         {kCount, kSerial, kLog, kReadFormat}, BatchProgram},
        {u"verify"_s, kFiles, 1, 2, u"チップ全体をファイルと比べる（Verify ボタン）。"_s,
         {kForce, kOnly, kReadFormat}, Verify},
        {u"read"_s, kFiles, 1, 2, u"チップ全体を読んでファイルに書く（Read ボタン）。"_s,
         {kForce, kOnly, kWriteFormat}, Read},
        {u"blank"_s, {}, 0, 0, u"チップが空（すべて FF）かどうかを調べる。"_s, {kForce, kOnly}, Blank},
        {u"dump"_s, {}, 0, 0, u"チップの内容をウインドウのリストと同じ形で表示する。"_s, {kForce, kOnly}, Dump},
        {u"erase"_s, {}, 0, 0, u"Flash・EEPROM・ロックビットを消去する（Erase ボタン）。"_s,
         {kForce, kBackup}, Erase},
        {u"fuses"_s, u"[NAME=VALUE…]"_s, 0, kAny, u"Lock/Fuse ビットを読む、または書く。"_s, {}, Fuses},
        {u"lock"_s, u"MODE"_s, 1, 1,
         u"ロックビットを書く: full (書込み & ベリファイ 禁止)、write (書込み禁止)、none。"_s, {}, Lock},
        {u"check"_s, u"FILE…"_s, 1, kAny, u"HEX ファイルを厳密に調べる。"_s, {}, Check},
        {u"ports"_s, {}, 0, 0, u"COM ポートの一覧を表示する。"_s, {kAllPorts}, ListPorts},
        {u"devices"_s, {}, 0, 0, u"デバイスの一覧を表示する。"_s, {}, ListDevices},
        {u"doctor"_s, {}, 0, 0, u"ポートが使えない原因と、直すコマンドを示す。"_s, {}, Doctor},
        {u"build-writer"_s, u"[HEX]"_s, 0, 1,
         u"ライタを自作する: 結線と、ファームウエアを書き込むコマンド。HEX があればそこに写す。"_s, {}, BuildWriter},
    };
    // clang-format on
    return kCommands;
}

}  // namespace tolvex
