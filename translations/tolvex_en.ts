<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ja">
<context>
    <name>Tolvex</name>
    <message numerus="yes">
        <source> ほか %n 行</source>
        <translation>
            <numerusform> and 1 more line</numerusform>
            <numerusform> and %n more lines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n 個のチップに失敗しました。</source>
        <translation>
            <numerusform>%n chip failed.</numerusform>
            <numerusform>%n chips failed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>EEPROM メモリサイズ : %n byte</source>
        <translation>
            <numerusform>EEPROM size: 1 byte</numerusform>
            <numerusform>EEPROM size: %n bytes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Programメモリサイズ : %n word</source>
        <translation>
            <numerusform>Program memory size: 1 word</numerusform>
            <numerusform>Program memory size: %n words</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>チップは空ではありません（%n 個のセル）。</source>
        <translation>
            <numerusform>The chip is not blank (%n cell).</numerusform>
            <numerusform>The chip is not blank (%n cells).</numerusform>
        </translation>
    </message>
    <message>
        <source> 4MHz  OSC</source>
        <translation> 4 MHz  OSC</translation>
    </message>
    <message>
        <source>%1 のオープンに失敗しました。<byte value="xd"/>ポート番号を再設定してください。</source>
        <translation>%1 could not be opened.<byte value="xd"/>Please choose another port.</translation>
    </message>
    <message>
        <source>%1 は %2 (PID %3) が使っています。そのプログラムを終了してください。できなければ次のコマンドで止められますが、そこで保存していない内容は失われます。</source>
        <translation>%1 is in use by %2 (PID %3). Close that program. If you cannot, this command stops it, and whatever is not saved in it is lost.</translation>
    </message>
    <message>
        <source>%1 はありません。%2 があります。</source>
        <translation>There is no %1, but there is %2.</translation>
    </message>
    <message>
        <source>%1 はありません。アダプタを挿し直し、デバイス マネージャーの「ポート (COM と LPT)」で、ドライバーが入っていることと、番号が COM1 から COM20 までであることを確認してください。</source>
        <translation>There is no %1. Plug the adapter in again and check under &quot;Ports (COM &amp; LPT)&quot; in Device Manager that its driver is installed and that its number is one of COM1 to COM20.</translation>
    </message>
    <message>
        <source>%1 はありません。アダプタを挿し直し、認識されたか調べてください。</source>
        <translation>There is no %1. Plug the adapter in again and check whether the system has recognised it.</translation>
    </message>
    <message>
        <source>%1 をほかのプログラムが使っています (%2)。次のコマンドで調べられます。</source>
        <translation>%1 is in use by another program (%2). This command tells by which.</translation>
    </message>
    <message>
        <source>%1 を使う権限がありません。</source>
        <translation>You do not have permission to use %1.</translation>
    </message>
    <message>
        <source>%1 を使う権限がありません。グループ %2 には登録済みです。ログインし直してください。</source>
        <translation>You do not have permission to use %1. You are a member of the group %2 already: log out and in again.</translation>
    </message>
    <message>
        <source>%1 を使う権限がありません。パッケージの udev の規則では、マシンの前にいる人が使えます。インストールの前に挿したアダプタは挿し直してください。それでも使えなければ、次のコマンドを実行し、ログインし直してください。</source>
        <translation>You do not have permission to use %1. The package&apos;s udev rule gives it to whoever sits at the machine: plug in again an adapter that was there before the package was installed. If that does not help, run this command, then log out and in again.</translation>
    </message>
    <message>
        <source>%1 を使う権限がありません。パッケージをインストールしてアダプタを挿し直すと、マシンの前にいる人は使えます。または、次のコマンドを実行し、ログインし直してください。</source>
        <translation>You do not have permission to use %1. Whoever sits at the machine gets it once the package is installed and the adapter plugged in again. Or run this command, then log out and in again.</translation>
    </message>
    <message>
        <source>%1 を使う権限がありません。次のコマンドを実行し、ログインし直してください。</source>
        <translation>You do not have permission to use %1. Run this command, then log out and in again.</translation>
    </message>
    <message>
        <source>%1 を開けません: %2。ポートを使っているほかのプログラムを終了してください。</source>
        <translation>%1 cannot be opened: %2. Close the other program that uses the port.</translation>
    </message>
    <message>
        <source>%1 秒</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 行目: %2</source>
        <translation>Line %1: %2</translation>
    </message>
    <message>
        <source>%1: 小文字の16進数字があります。ウインドウのプログラムは 0 として読みます。</source>
        <translation>%1: there are lower-case hexadecimal digits. The window program reads them as 0.</translation>
    </message>
    <message>
        <source>--count は 1 以上の数です: %1</source>
        <translation>--count is a number from 1 on: %1</translation>
    </message>
    <message>
        <source>--format は hex、bin、srec のどれかです: %1</source>
        <translation>--format is hex, bin or srec: %1</translation>
    </message>
    <message>
        <source>--log のファイルが、ほかの引数と同じです: %1</source>
        <translation>The file of --log is another argument&apos;s, too: %1</translation>
    </message>
    <message>
        <source>--serial には CODE のファイル名が必要です。番号のファイルはその隣に置きます。</source>
        <translation>--serial needs the name of a CODE file: the file with the number stands beside it.</translation>
    </message>
    <message>
        <source>--serial は eeprom:0x10=u16le や flash:0x3FE=text:SN%06d の形で指定します（u8、u16le、u16be、u32le、u32be、text）</source>
        <translation>--serial looks like eeprom:0x10=u16le or flash:0x3FE=text:SN%06d (u8, u16le, u16be, u32le, u32be, text)</translation>
    </message>
    <message>
        <source>0 以外の拡張アドレスには対応していません。</source>
        <translation>Extended addresses other than 0 are not supported.</translation>
    </message>
    <message>
        <source>16進数字ではない文字があります。</source>
        <translation>There is a character that is no hexadecimal digit.</translation>
    </message>
    <message>
        <source>20pin</source>
        <translation>20-pin</translation>
    </message>
    <message>
        <source>28pin Socket</source>
        <translation>28-pin socket</translation>
    </message>
    <message>
        <source>28pinマイコンを使用するには、28ピンソケットを追加し、ボード上のコネクタCN1と結線する必要があります。XTAL1(9ピン)、XTAL2(10ピン)には、4MHzの発振子を取り付けてください。</source>
        <translation>For 28-pin chips, add a 28-pin socket and wire it to connector CN1 on the board. Connect a 4 MHz resonator to XTAL1 (pin 9) and XTAL2 (pin 10).</translation>
    </message>
    <message>
        <source>40pin</source>
        <translation>40-pin</translation>
    </message>
    <message>
        <source>8pin</source>
        <translation>8-pin</translation>
    </message>
    <message>
        <source>8pinマイコンを使用するときは、上図、赤線部分の結線が必要です。</source>
        <translation>For 8-pin chips, add the wires drawn in red above.</translation>
    </message>
    <message>
        <source>AT90S1200 (外部ｸﾛｯｸ)</source>
        <translation>AT90S1200 (external clock)</translation>
    </message>
    <message>
        <source>AT90S1200A(内部RCｸﾛｯｸ1MHz)</source>
        <translation>AT90S1200A (internal RC clock, 1 MHz)</translation>
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
        <source>AVRシリーズISPプログラマ&#x3000;設定ウインドウ</source>
        <translation>AVR ISP programmer settings</translation>
    </message>
    <message>
        <source>Address Select A</source>
        <translation>set address (A)</translation>
    </message>
    <message>
        <source>BOD ENABLE</source>
        <translation>BOD enable</translation>
    </message>
    <message>
        <source>BOD LEVEL</source>
        <translation>BOD level</translation>
    </message>
    <message>
        <source>Buffer READ</source>
        <translation>Read buffer</translation>
    </message>
    <message>
        <source>Buffer WRITE</source>
        <translation>Write buffer</translation>
    </message>
    <message>
        <source>CANCEL</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>COMポート選択(&amp;C)</source>
        <translation>&amp;Select COM port...</translation>
    </message>
    <message>
        <source>COM選択</source>
        <translation>COM port</translation>
    </message>
    <message>
        <source>Chip Erase e</source>
        <translation>chip erase (e)</translation>
    </message>
    <message>
        <source>EEP  ファイルのオープンエラー</source>
        <translation>The EEP file has a line without a colon.</translation>
    </message>
    <message>
        <source>EEPROM : %1</source>
        <translation>EEPROM: %1</translation>
    </message>
    <message>
        <source>EEPROM Data Memory Programming !</source>
        <translation>Programming the EEPROM...</translation>
    </message>
    <message>
        <source>EEPROM Data Memory Reading !</source>
        <translation>Reading the EEPROM...</translation>
    </message>
    <message>
        <source>EEPROM Data Memory Verifying !</source>
        <translation>Verifying the EEPROM...</translation>
    </message>
    <message>
        <source>EEPROM memory : Not found EEP file</source>
        <translation>EEPROM: no EEP file found</translation>
    </message>
    <message>
        <source>EEPROM memory</source>
        <translation>EEPROM memory</translation>
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
        <source>EEPROM アドレスが範囲を超えています．</source>
        <translation>The EEPROM address is out of range.</translation>
    </message>
    <message>
        <source>EEPROM メモリサイズ : --- byte</source>
        <translation>EEPROM size: --- bytes</translation>
    </message>
    <message>
        <source>EEPROMデータメモリ</source>
        <translation>EEPROM data memory</translation>
    </message>
    <message>
        <source>EEPROMデータメモリウインドウを開く</source>
        <translation>Open the &amp;EEPROM window</translation>
    </message>
    <message>
        <source>EEPROMメモリ ライト失敗</source>
        <translation>Writing the EEPROM failed.</translation>
    </message>
    <message>
        <source>EEPROMメモリ リード失敗</source>
        <translation>Reading the EEPROM failed.</translation>
    </message>
    <message>
        <source>EEROMメモリ ライト失敗</source>
        <translation>Writing the EEPROM failed.</translation>
    </message>
    <message>
        <source>EEROMメモリ リード失敗</source>
        <translation>Reading the EEPROM failed.</translation>
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
        <source>Eep File|*.eep|All Files|*.*|</source>
        <translation>EEP files|*.eep|All files|*.*|</translation>
    </message>
    <message>
        <source>Enter programming Mode P</source>
        <translation>enter programming mode (P)</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Erase</translation>
    </message>
    <message>
        <source>Eraseing Flash &amp; EEPROM memory !</source>
        <translation>Erasing the Flash and the EEPROM...</translation>
    </message>
    <message>
        <source>Flash &amp; EEPROM メモリクリアー失敗</source>
        <translation>Erasing the Flash and the EEPROM failed.</translation>
    </message>
    <message>
        <source>Flash Program Memory Programming !</source>
        <translation>Programming the Flash...</translation>
    </message>
    <message>
        <source>Flash Program Memory Reading !</source>
        <translation>Reading the Flash...</translation>
    </message>
    <message>
        <source>Flash Program Memory Verifying !</source>
        <translation>Verifying the Flash...</translation>
    </message>
    <message>
        <source>Flash アドレスが範囲を超えています．</source>
        <translation>The Flash address is out of range.</translation>
    </message>
    <message>
        <source>Flash メモリ ベリファイ失敗</source>
        <translation>Verifying the Flash failed.</translation>
    </message>
    <message>
        <source>Flashメモリ ライト失敗</source>
        <translation>Writing the Flash failed.</translation>
    </message>
    <message>
        <source>Flashメモリ リード失敗</source>
        <translation>Reading the Flash failed.</translation>
    </message>
    <message>
        <source>Fuse</source>
        <translation>Fuses</translation>
    </message>
    <message>
        <source>HEX ファイルのオープンエラー</source>
        <translation>The HEX file has a line without a colon.</translation>
    </message>
    <message>
        <source>HEXファイルの再ロード</source>
        <translation>Reload the HEX files</translation>
    </message>
    <message>
        <source>Hardware Ver Read v</source>
        <translation>read hardware version (v)</translation>
    </message>
    <message>
        <source>Hex File|*.HEX|All Files|*.*|</source>
        <translation>HEX files|*.HEX|All files|*.*|</translation>
    </message>
    <message>
        <source>Hex File|*.hex;*.rom|All Files|*.*|</source>
        <translation>HEX files|*.hex;*.rom|All files|*.*|</translation>
    </message>
    <message>
        <source>Hi byte Write Data Memory C</source>
        <translation>write high byte to the data memory (C)</translation>
    </message>
    <message>
        <source>Hi byte Write Program Memory C</source>
        <translation>write high byte to the program memory (C)</translation>
    </message>
    <message>
        <source>Intel HEX、S レコード、ELF のどれでもありません: %1
ほかの形式からは avr-objcopy -O ihex INPUT OUTPUT.hex で HEX ファイルを作れます。メモリの内容そのものなら --format bin を指定してください。</source>
        <translation>This is neither Intel HEX nor S-records nor ELF: %1
avr-objcopy -O ihex INPUT OUTPUT.hex makes a HEX file of other kinds. If it is a memory&apos;s raw content, give --format bin.</translation>
    </message>
    <message>
        <source>LED off x</source>
        <translation>LED off (x)</translation>
    </message>
    <message>
        <source>LED on x</source>
        <translation>LED on (x)</translation>
    </message>
    <message>
        <source>Leave programming Mode L</source>
        <translation>leave programming mode (L)</translation>
    </message>
    <message>
        <source>Lock bit &amp; Flash &amp; EEPROM メモリクリアー完了。</source>
        <translation>Lock bits, Flash and EEPROM erased.</translation>
    </message>
    <message>
        <source>Lock bit &amp; プログラム/EEPROMデータ メモリクリアー完了。</source>
        <translation>Lock bits, Flash and EEPROM erased.</translation>
    </message>
    <message>
        <source>Lock/Fuse READ</source>
        <translation>Read lock/fuses</translation>
    </message>
    <message>
        <source>Lock/Fuse WRITE</source>
        <translation>Write lock/fuses</translation>
    </message>
    <message>
        <source>Lock/Fuse bit ライトが完了しました。</source>
        <translation>Lock and fuse bits written.</translation>
    </message>
    <message>
        <source>Lock/Fuse bit ライトに失敗しました。</source>
        <translation>Writing the lock and fuse bits failed.</translation>
    </message>
    <message>
        <source>Lock/Fuse bit ライト中....</source>
        <translation>Writing lock and fuse bits...</translation>
    </message>
    <message>
        <source>Lock/Fuse bit リードが完了しました。</source>
        <translation>Lock and fuse bits read.</translation>
    </message>
    <message>
        <source>Lock/Fuse bit リードに失敗しました。</source>
        <translation>Reading the lock and fuse bits failed.</translation>
    </message>
    <message>
        <source>Lock/Fuse bit リード中...</source>
        <translation>Reading lock and fuse bits...</translation>
    </message>
    <message>
        <source>Lock/Fuse ビット</source>
        <translation>Lock and fuse bits</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>Lock</translation>
    </message>
    <message>
        <source>Low byte Write Data Memory c</source>
        <translation>write low byte to the data memory (c)</translation>
    </message>
    <message>
        <source>Low byte Write Program Memory c</source>
        <translation>write low byte to the program memory (c)</translation>
    </message>
    <message>
        <source>MITライセンスで配布されているフリーソフトウエアです。</source>
        <translation>Free software under the MIT licence.</translation>
    </message>
    <message>
        <source>PCバッファクリア</source>
        <translation>Clear the buffers in the PC</translation>
    </message>
    <message>
        <source>PCバッファメモリ修正</source>
        <translation>Patch the buffers</translation>
    </message>
    <message>
        <source>PROGRAM</source>
        <translation>Program</translation>
    </message>
    <message>
        <source>Program : %1</source>
        <translation>Program: %1</translation>
    </message>
    <message>
        <source>Program : Not found HEX file</source>
        <translation>Program: no HEX file found</translation>
    </message>
    <message>
        <source>Program Memoey</source>
        <translation>Program memory</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Program</translation>
    </message>
    <message>
        <source>Programメモリサイズ : --- word</source>
        <translation>Program memory size: --- words</translation>
    </message>
    <message>
        <source>ReLoad</source>
        <translation>Reload</translation>
    </message>
    <message>
        <source>Read Data Memory d</source>
        <translation>read data memory (d)</translation>
    </message>
    <message>
        <source>Read Fuse bit r</source>
        <translation>read fuse bits (r)</translation>
    </message>
    <message>
        <source>Read Lock &amp; Fuse bit F</source>
        <translation>read lock and fuse bits (F)</translation>
    </message>
    <message>
        <source>Read Program Memory R</source>
        <translation>read program memory (R)</translation>
    </message>
    <message>
        <source>Read Signature bytes s</source>
        <translation>read signature (s)</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Read</translation>
    </message>
    <message>
        <source>Reset Delay</source>
        <translation>Reset delay</translation>
    </message>
    <message>
        <source>Select device command T</source>
        <translation>select device (T)</translation>
    </message>
    <message>
        <source>Software ID Read S</source>
        <translation>read software identifier (S)</translation>
    </message>
    <message>
        <source>Software Ver Read V</source>
        <translation>read software version (V)</translation>
    </message>
    <message>
        <source>Verify Window</source>
        <translation>Verify report</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>Verify</translation>
    </message>
    <message>
        <source>Write Data Memory D</source>
        <translation>write data memory (D)</translation>
    </message>
    <message>
        <source>Write Fuse bit f</source>
        <translation>write fuse bits (f)</translation>
    </message>
    <message>
        <source>Write Lock bit l</source>
        <translation>write lock bits (l)</translation>
    </message>
    <message>
        <source>ZIP Socket</source>
        <translation>ZIF socket</translation>
    </message>
    <message>
        <source>eep File|*.eep|All Files|*.*|</source>
        <translation>EEP files|*.eep|All files|*.*|</translation>
    </message>
    <message>
        <source>select device command T</source>
        <translation>select device (T)</translation>
    </message>
    <message>
        <source>tolvex.hlp</source>
        <translation>tolvex_en.hlp</translation>
    </message>
    <message>
        <source>【HEXファイルの再ロード】(&amp;R)</source>
        <translation>[&amp;Reload HEX files]</translation>
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
        <source>このファームウエアバージョンでは、AT90S2333/4433をサポートしません。</source>
        <translation>This firmware version does not support the AT90S2333 and AT90S4433.</translation>
    </message>
    <message>
        <source>その他のボタン</source>
        <translation>More buttons</translation>
    </message>
    <message>
        <source>ほかのプログラムが使っています</source>
        <translation>another program uses it</translation>
    </message>
    <message>
        <source>アイコン</source>
        <translation>Icon</translation>
    </message>
    <message>
        <source>アイコンの整列(&amp;A)</source>
        <translation>Arrange &amp;icons</translation>
    </message>
    <message>
        <source>アドレス:</source>
        <translation>Address:</translation>
    </message>
    <message>
        <source>ウインドウ(&amp;W)</source>
        <translation>&amp;Window</translation>
    </message>
    <message>
        <source>ウインドウの再整列</source>
        <translation>&amp;Arrange windows</translation>
    </message>
    <message>
        <source>エンドレコードがありません。</source>
        <translation>There is no end record.</translation>
    </message>
    <message>
        <source>エンドレコードの後に行が続いています。</source>
        <translation>There are lines after the end record.</translation>
    </message>
    <message>
        <source>オプション(&amp;O)...</source>
        <translation>&amp;Options...</translation>
    </message>
    <message>
        <source>キャンセル</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>コード/データファイルを別名で保存(&amp;A)</source>
        <translation>Save code and data &amp;as...</translation>
    </message>
    <message>
        <source>コード/データファイルを名前をつけて保存</source>
        <translation>Save code and data under a name</translation>
    </message>
    <message>
        <source>コード/データファイルを開く(&amp;O)</source>
        <translation>&amp;Open code and data...</translation>
    </message>
    <message>
        <source>コード/データファイルを開く</source>
        <translation>Open code and data</translation>
    </message>
    <message>
        <source>コードファイル ＆ データファイルの保存</source>
        <translation>Save code and data files</translation>
    </message>
    <message>
        <source>コードファイル ＆ データファイルを開く</source>
        <translation>Open code and data files</translation>
    </message>
    <message>
        <source>コードファイル(*.hex)の保存</source>
        <translation>Save code file (*.hex)</translation>
    </message>
    <message>
        <source>コードファイル(*.hex)を開く</source>
        <translation>Open code file (*.hex)</translation>
    </message>
    <message>
        <source>コードファイルとデータファイルは1つずつドロップしてください。</source>
        <translation>Please drop one code file and one data file at most.</translation>
    </message>
    <message>
        <source>コードファイルを別名で保存</source>
        <translation>Sav&amp;e code as...</translation>
    </message>
    <message>
        <source>コードファイルを開く</source>
        <translation>Open &amp;code...</translation>
    </message>
    <message>
        <source>サポートホームページへジャンプ</source>
        <translation>Go to the support page</translation>
    </message>
    <message>
        <source>シグネチャ</source>
        <translation>Signature</translation>
    </message>
    <message>
        <source>シグネチャを読めません。</source>
        <translation>The signature can&apos;t be read.</translation>
    </message>
    <message>
        <source>シリアルポートとして使えません</source>
        <translation>it does not work as a serial port</translation>
    </message>
    <message>
        <source>シリアル番号 %1 は入りません: %2</source>
        <translation>The serial number %1 does not fit: %2</translation>
    </message>
    <message>
        <source>シリアル番号 %1 は入りません。</source>
        <translation>The serial number %1 does not fit.</translation>
    </message>
    <message>
        <source>シリアル番号のファイルに番号がありません: %1</source>
        <translation>The file of the serial number holds no number: %1</translation>
    </message>
    <message>
        <source>シリアル番号のファイルを書けません: %1</source>
        <translation>The file of the serial number can&apos;t be written: %1</translation>
    </message>
    <message>
        <source>ステータスバー(&amp;B)</source>
        <translation>Status &amp;bar</translation>
    </message>
    <message>
        <source>ステータスバー</source>
        <translation>Status bar</translation>
    </message>
    <message>
        <source>チェックサムが違います。</source>
        <translation>The checksum is wrong.</translation>
    </message>
    <message>
        <source>チップとの接触が失われました。</source>
        <translation>Contact with the chip was lost.</translation>
    </message>
    <message>
        <source>チップの内容は既にファイルのとおりです。何も書いていません。</source>
        <translation>The chip already holds what the files say. Nothing was written.</translation>
    </message>
    <message>
        <source>チップは空です。</source>
        <translation>The chip is blank.</translation>
    </message>
    <message>
        <source>チップをソケットに入れてください。</source>
        <translation>Put a chip into the socket.</translation>
    </message>
    <message>
        <source>チップを抜いてください。</source>
        <translation>Take the chip out.</translation>
    </message>
    <message>
        <source>ツールバー(&amp;T)</source>
        <translation>&amp;Toolbar</translation>
    </message>
    <message>
        <source>ツールバー</source>
        <translation>Toolbar</translation>
    </message>
    <message>
        <source>デ ー タ:</source>
        <translation>Data:   </translation>
    </message>
    <message>
        <source>デバイスが、ソケットにセットされていません。</source>
        <translation>There is no chip in the socket.</translation>
    </message>
    <message>
        <source>デバイスがプロテクトされています。<byte value="xd"/>
チップイレース(&lt;消 Erase&gt;ボタン)を実行してください。</source>
        <translation>The device is protected.<byte value="xd"/>
Erase the chip first.</translation>
    </message>
    <message>
        <source>デバイスのメモリの外のデータです。</source>
        <translation>The data lies outside the device&apos;s memory.</translation>
    </message>
    <message>
        <source>デバイス選択</source>
        <translation>Device</translation>
    </message>
    <message>
        <source>デバイス選択と、ソケット上のデバイスが一致しません。<byte value="xd"/>
購入直後のデバイスを使用する場合は、チップイレース(&lt;消 Erase&gt;ボタン)を実行してください。</source>
        <translation>The chip in the socket is not the selected device.<byte value="xd"/>
If it is new, erase the chip first.</translation>
    </message>
    <message>
        <source>データファイル(*.eep)の保存</source>
        <translation>Save data file (*.eep)</translation>
    </message>
    <message>
        <source>データファイル(*.eep)を開く</source>
        <translation>Open data file (*.eep)</translation>
    </message>
    <message>
        <source>データファイルを別名で保存</source>
        <translation>Save da&amp;ta as...</translation>
    </message>
    <message>
        <source>データファイルを開く</source>
        <translation>Open &amp;data...</translation>
    </message>
    <message>
        <source>トピックの検索(&amp;S)...</source>
        <translation>&amp;Search for topics...</translation>
    </message>
    <message>
        <source>バッファーをクリアしました。</source>
        <translation>Buffers cleared.</translation>
    </message>
    <message>
        <source>バッファ修正のみ。デバイスには書込みません。</source>
        <translation>Changes the buffer only, not the device.</translation>
    </message>
    <message>
        <source>バージョン情報(&amp;A)</source>
        <translation>&amp;About Tolvex</translation>
    </message>
    <message>
        <source>バージョン情報</source>
        <translation>About Tolvex</translation>
    </message>
    <message>
        <source>ファイル(&amp;F)</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>ファイルがオープンされていません</source>
        <translation>No file is open.</translation>
    </message>
    <message>
        <source>ファイルがオープンされていません．</source>
        <translation>No file is open.</translation>
    </message>
    <message>
        <source>ファイルが存在します。上書きしますか？</source>
        <translation>The file exists. Overwrite it?</translation>
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
        <source>ファイルの種類:</source>
        <translation>Files of type:</translation>
    </message>
    <message>
        <source>ファイルをオープンしました。</source>
        <translation>Files opened.</translation>
    </message>
    <message>
        <source>ファイルを保存しました．</source>
        <translation>Files saved.</translation>
    </message>
    <message>
        <source>ファイルを書けません: %1</source>
        <translation>The file can&apos;t be written: %1</translation>
    </message>
    <message>
        <source>ファイルを読み込んでいます。</source>
        <translation>Reading the file...</translation>
    </message>
    <message>
        <source>ファイルを読めません (%1): %2</source>
        <translation>The file can&apos;t be read (%1): %2</translation>
    </message>
    <message>
        <source>ファイル保存</source>
        <translation>Save file</translation>
    </message>
    <message>
        <source>ファイル保存できませんでした。</source>
        <translation>The file could not be saved.</translation>
    </message>
    <message>
        <source>ファイル名:</source>
        <translation>File name:</translation>
    </message>
    <message>
        <source>フォルダです</source>
        <translation>it is a folder</translation>
    </message>
    <message>
        <source>プログラミングを中止しました。</source>
        <translation>Programming was given up.</translation>
    </message>
    <message>
        <source>プログラム/EEPROMデータメモリ Lock/Fuseビット消去</source>
        <translation>Erase the Flash, the EEPROM and the lock bits</translation>
    </message>
    <message>
        <source>プログラム/EEPROMデータメモリのプログラム</source>
        <translation>Program the Flash and the EEPROM</translation>
    </message>
    <message>
        <source>プログラム/EEPROMデータメモリのベリファイ</source>
        <translation>Verify the Flash and the EEPROM</translation>
    </message>
    <message>
        <source>プログラム/EEPROMデータメモリのリード</source>
        <translation>Read the Flash and the EEPROM</translation>
    </message>
    <message>
        <source>プログラムメモリ</source>
        <translation>Program memory</translation>
    </message>
    <message>
        <source>プログラムメモリウインドウを開く</source>
        <translation>Open the &amp;program memory window</translation>
    </message>
    <message>
        <source>プログラム終了しました。</source>
        <translation>Programming finished.</translation>
    </message>
    <message>
        <source>プロテクトなし</source>
        <translation>Not protected</translation>
    </message>
    <message>
        <source>ヘルプ(&amp;H)</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>ヘルプ</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>ヘルプファイルを開くことができません。
%1</source>
        <translation>The help file cannot be opened.
%1</translation>
    </message>
    <message>
        <source>ベリファイ&#x3000;FLASH : %1 / EEPROM : %2</source>
        <translation>Verify  Flash: %1 / EEPROM: %2</translation>
    </message>
    <message>
        <source>ベリファイ&#x3000;通信エラー</source>
        <translation>Verify  Communication error</translation>
    </message>
    <message>
        <source>ベリファイを中止しました。</source>
        <translation>Verifying was given up.</translation>
    </message>
    <message>
        <source>ベリファイ終了しました。</source>
        <translation>Verifying finished.</translation>
    </message>
    <message>
        <source>ホーム</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>ボードの修正(&amp;8)</source>
        <translation>&amp;Board modifications</translation>
    </message>
    <message>
        <source>ボードの修正</source>
        <translation>Board modifications</translation>
    </message>
    <message>
        <source>ポートオープン失敗</source>
        <translation>Port not opened</translation>
    </message>
    <message>
        <source>メッセージ</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>ライタ</source>
        <translation>Writer</translation>
    </message>
    <message>
        <source>ライタと通信ができませんでした。(Command_S)</source>
        <translation>No communication with the writer. (command S)</translation>
    </message>
    <message>
        <source>ライタと通信ができませんでした。(Command_T)</source>
        <translation>No communication with the writer. (command T)</translation>
    </message>
    <message>
        <source>ライタと通信ができませんでした。(Command_V)</source>
        <translation>No communication with the writer. (command V)</translation>
    </message>
    <message>
        <source>ライタと通信ができませんでした。(Command_v)</source>
        <translation>No communication with the writer. (command v)</translation>
    </message>
    <message>
        <source>ライタと通信ができませんでした。(レジストリリード)</source>
        <translation>No communication with the writer. (no port was chosen)</translation>
    </message>
    <message>
        <source>ライタと通信ができませんでした。<byte value="xd"/>
PCとライタの接続を確認後、メニューバーの<byte value="xd"/>
[通信チェック] [COMポート選択]を実行して下さい。<byte value="xd"/>
</source>
        <translation>There is no communication with the writer.<byte value="xd"/>
Check its connection to the PC, then choose<byte value="xd"/>
[Port] [Select COM port] in the menu bar.<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>ライタと通信中！</source>
        <translation>Talking to the writer...</translation>
    </message>
    <message>
        <source>ライタを検出しました。 COM%1</source>
        <translation>Writer found at COM%1.</translation>
    </message>
    <message>
        <source>ライタボードの図</source>
        <translation>Drawing of the writer board</translation>
    </message>
    <message>
        <source>ライターのLEDオフ(&amp;F)</source>
        <translation>Writer LED o&amp;ff</translation>
    </message>
    <message>
        <source>ライターのLEDオン(&amp;O)</source>
        <translation>Writer LED &amp;on</translation>
    </message>
    <message>
        <source>ライター接続確認が終了していません。</source>
        <translation>The connection to the writer has not been checked.</translation>
    </message>
    <message>
        <source>リストファイルを書き込めないため、処理を途中で終了しました。</source>
        <translation>The operation ended early because a listing could not be written.</translation>
    </message>
    <message>
        <source>リストファイルを書き込めるフォルダがないため、リストを表示できません。</source>
        <translation>The listings cannot be shown because there is no folder to write them to.</translation>
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
        <source>リードを中止しました。</source>
        <translation>Reading was given up.</translation>
    </message>
    <message>
        <source>リードオンリーファイルにアクセスしました。</source>
        <translation>The file is read-only.</translation>
    </message>
    <message>
        <source>リード終了しました。</source>
        <translation>Reading finished.</translation>
    </message>
    <message>
        <source>上下に並べて表示(&amp;H)</source>
        <translation>Tile &amp;horizontally</translation>
    </message>
    <message>
        <source>上書き保存(&amp;S)</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>中断しました。</source>
        <translation>Interrupted.</translation>
    </message>
    <message>
        <source>今はファイルを開けません。終わってからもう一度開いてください。
%1</source>
        <translation>The file can&apos;t be opened now. Open it again when this is done.
%1</translation>
    </message>
    <message>
        <source>作業領域</source>
        <translation>Work area</translation>
    </message>
    <message>
        <source>使用中か、使う権限がありません</source>
        <translation>it is in use, or you do not have permission</translation>
    </message>
    <message>
        <source>保存</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>入力データに誤りがあります．</source>
        <translation>The input is not a hexadecimal number.</translation>
    </message>
    <message>
        <source>前のレコードと同じ番地のデータです。</source>
        <translation>The data has the same address as an earlier record.</translation>
    </message>
    <message>
        <source>合計</source>
        <translation>total</translation>
    </message>
    <message>
        <source>名前が長すぎます</source>
        <translation>the name is too long</translation>
    </message>
    <message>
        <source>場所:</source>
        <translation>Look in:</translation>
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
        <source>小文字の16進数字があります。大文字だけが使えます。</source>
        <translation>There are lower-case hexadecimal digits; only upper-case ones are allowed.</translation>
    </message>
    <message>
        <source>左右に並べて表示(&amp;V)</source>
        <translation>Tile &amp;vertically</translation>
    </message>
    <message>
        <source>応答が遅すぎます。アダプタの待ち時間を短くしてください。</source>
        <translation>Replies come too late. Shorten the adapter&apos;s latency.</translation>
    </message>
    <message>
        <source>応答が遅すぎます。デバイス マネージャーで %1 のプロパティを開き、「ポートの設定」の「詳細設定」にある待ち時間 (Latency Timer) を 1 ミリ秒にしてください。</source>
        <translation>Replies come too late. Open the properties of %1 in Device Manager and set the latency timer, under &quot;Advanced&quot; on the page &quot;Port Settings&quot;, to 1 millisecond.</translation>
    </message>
    <message>
        <source>戻る</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>指定されたファイルを開くことができませんでした。</source>
        <translation>The file could not be opened.</translation>
    </message>
    <message>
        <source>接続が切れました</source>
        <translation>the connection was lost</translation>
    </message>
    <message>
        <source>日付</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>書込み &amp; ベリファイ 禁止</source>
        <translation>No writing, no verifying</translation>
    </message>
    <message>
        <source>書込み禁止</source>
        <translation>No writing</translation>
    </message>
    <message>
        <source>検索</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>権限がありません</source>
        <translation>no permission</translation>
    </message>
    <message>
        <source>次のシリアル番号: %1 (%2)</source>
        <translation>Next serial number: %1 (%2)</translation>
    </message>
    <message>
        <source>次を検索</source>
        <translation>Find next</translation>
    </message>
    <message>
        <source>目次(&amp;C)</source>
        <translation>&amp;Contents</translation>
    </message>
    <message>
        <source>目次</source>
        <translation>Contents</translation>
    </message>
    <message>
        <source>知らないレコードタイプです。</source>
        <translation>The record type is unknown.</translation>
    </message>
    <message>
        <source>終了(&amp;X)</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>終了したプログラムのロックファイルが残っています。</source>
        <translation>A program that has ended left its lock file.</translation>
    </message>
    <message>
        <source>終了したプログラムのロックファイルが残っています。ここでは無視しますが、ほかのプログラムは開けません。</source>
        <translation>A program that has ended left its lock file. Tolvex ignores it, but other programs cannot open the port.</translation>
    </message>
    <message>
        <source>行頭がコロンではありません。</source>
        <translation>The line does not begin with a colon.</translation>
    </message>
    <message>
        <source>表示(&amp;V)</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>見つかりません</source>
        <translation>not found</translation>
    </message>
    <message>
        <source>見つかりません。</source>
        <translation>Not found.</translation>
    </message>
    <message>
        <source>設定ウインドウを開く</source>
        <translation>Open the &amp;settings window</translation>
    </message>
    <message>
        <source>設定デバイスと、ソケット上のデバイスがミスマッチです。</source>
        <translation>The chip in the socket is not the selected device.</translation>
    </message>
    <message>
        <source>読み取りエラー</source>
        <translation>read error</translation>
    </message>
    <message>
        <source>赤線：CN1から8pinソケットへの結線。青線：CN1から追加した28pinソケットへの結線。</source>
        <translation>Red lines: wires from CN1 to the 8-pin socket. Blue lines: wires from CN1 to the added 28-pin socket.</translation>
    </message>
    <message>
        <source>返答ﾃﾞｰﾀﾐｽ : %1 %2</source>
        <translation>Wrong reply: %1 %2</translation>
    </message>
    <message>
        <source>通信チェック(&amp;C)</source>
        <translation>&amp;Port</translation>
    </message>
    <message>
        <source>通信ポート</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>通信ポートを選んでください。</source>
        <translation>Choose the port of the writer.</translation>
    </message>
    <message>
        <source>通信ポート選択</source>
        <translation>Select port</translation>
    </message>
    <message>
        <source>進む</source>
        <translation>Forward</translation>
    </message>
    <message>
        <source>進行状況</source>
        <translation>Progress</translation>
    </message>
    <message>
        <source>重ねて表示(&amp;C)</source>
        <translation>&amp;Cascade</translation>
    </message>
    <message>
        <source>長さがバイト数と合いません。</source>
        <translation>The length does not fit the byte count.</translation>
    </message>
    <message>
        <source>閉じる</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>開く</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>（OK %1、NG %2）</source>
        <translation>(OK %1, NG %2)</translation>
    </message>
    <message>
        <source>２８pinマイコンを使用するときはファームウエアバージョンSW3.9以降が必要です。</source>
        <translation>28-pin chips need firmware version SW 3.9 or later.</translation>
    </message>
    <message>
        <source>８pin、２８pinマイコンを使用するときは、ボードの修正が必要です。</source>
        <translation>8-pin and 28-pin chips need modifications of the board.</translation>
    </message>
    <message>
        <source>ｵﾌﾟｼｮﾝ ﾀﾞｲｱﾛｸﾞのｺｰﾄﾞをここに記述します !</source>
        <translation>There are no options.</translation>
    </message>
    <message>
        <source>ｺﾏﾝﾄﾞ送信 : Select device command T , 0x%1</source>
        <translation>Command sent: select device (T), 0x%1</translation>
    </message>
    <message>
        <source>ｺﾐﾆｭｹｰｼｮﾝ失敗 : %1</source>
        <translation>Communication failed: %1</translation>
    </message>
    <message>
        <source>ｻﾎﾟｰﾄﾍﾟｰｼﾞ : %1</source>
        <translation>Support page: %1</translation>
    </message>
    <message>
        <source>ﾊﾞｯﾌｧｸﾘｱ</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>ﾍﾙﾌﾟの目次を表示できません。 このﾌﾟﾛｼﾞｪｸﾄに関連付けられたﾍﾙﾌﾟが存在しません。</source>
        <translation>The contents cannot be shown: no help is registered for this program.</translation>
    </message>
</context>
</TS>
