<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ja">
<context>
    <name>Tolvex</name>
    <message>
        <source>%1: 小文字の16進数字があります。ウインドウのプログラムは 0 として読みます。</source>
        <translation>%1: there are lower-case hexadecimal digits. The window program reads them as 0.</translation>
    </message>
    <message>
        <source>--format は hex、bin、srec のどれかです: %1</source>
        <translation>--format is hex, bin or srec: %1</translation>
    </message>
    <message>
        <source>AT90Sシリーズ用シリアルISPライタのプログラミングソフトウエア</source>
        <translation>Programs AT90S chips through a serial ISP writer</translation>
    </message>
    <message>
        <source>AVR 用ではありません</source>
        <translation>not for an AVR</translation>
    </message>
    <message>
        <source>EEPROM などのデータが混ざっています。avr-objcopy に、コードのファイルでは -R .eeprom を、EEPROM のファイルでは -j .eeprom --change-section-lma .eeprom=0 を付けて作り直してください。</source>
        <translation>The file holds EEPROM data or the like besides. Make it anew with avr-objcopy: for a code file with -R .eeprom, for an EEPROM file with -j .eeprom --change-section-lma .eeprom=0.</translation>
    </message>
    <message>
        <source>EEPROM のファイル: %1 (.eeprom)</source>
        <translation>EEPROM file: %1 (.eeprom)</translation>
    </message>
    <message>
        <source>ELF ファイルのヒューズやロックビットは書き込みません。</source>
        <translation>The fuses and lock bits in the ELF file are not written.</translation>
    </message>
    <message>
        <source>ELF ファイルを使えません (%1): %2</source>
        <translation>The ELF file can&apos;t be used (%1): %2</translation>
    </message>
    <message>
        <source>Intel HEX、S レコード、ELF のどれでもありません: %1
ほかの形式からは avr-objcopy -O ihex INPUT OUTPUT.hex で HEX ファイルを作れます。メモリの内容そのものなら --format bin を指定してください。</source>
        <translation>This is neither Intel HEX nor S-records nor ELF: %1
avr-objcopy -O ihex INPUT OUTPUT.hex makes a HEX file of other kinds. If it is a memory&apos;s raw content, give --format bin.</translation>
    </message>
    <message>
        <source>MITライセンスで配布されているフリーソフトウエアです。</source>
        <translation>Free software under the MIT licence.</translation>
    </message>
    <message>
        <source>ありません</source>
        <translation>it is missing</translation>
    </message>
    <message>
        <source>ここでの --format は bin だけです。ほかの形式は内容で分かります: %1</source>
        <translation>Here --format is bin alone; other kinds are told by their content: %1</translation>
    </message>
    <message>
        <source>ファイルにこのメモリのデータがありません: %1</source>
        <translation>The file has no data for this memory: %1</translation>
    </message>
    <message>
        <source>ファイルに誤りがあります。
</source>
        <translation>The file has faults.
</translation>
    </message>
    <message>
        <source>ファイルを読めません (%1): %2</source>
        <translation>The file can&apos;t be read (%1): %2</translation>
    </message>
    <message>
        <source>フォルダです</source>
        <translation>it is a folder</translation>
    </message>
    <message>
        <source>リンクが自分自身を指しています</source>
        <translation>the link points to itself</translation>
    </message>
    <message>
        <source>リンクされていません</source>
        <translation>not linked</translation>
    </message>
    <message>
        <source>リンクの先がありません</source>
        <translation>the link leads nowhere</translation>
    </message>
    <message>
        <source>名前が長すぎます</source>
        <translation>the name is too long</translation>
    </message>
    <message>
        <source>壊れています</source>
        <translation>damaged</translation>
    </message>
    <message>
        <source>大きすぎます</source>
        <translation>too large</translation>
    </message>
    <message>
        <source>権限がありません</source>
        <translation>no permission</translation>
    </message>
    <message>
        <source>読み取りエラー</source>
        <translation>read error</translation>
    </message>
    <message>
        <source>ｻﾎﾟｰﾄﾍﾟｰｼﾞ : %1</source>
        <translation>Support page: %1</translation>
    </message>
</context>
</TS>
