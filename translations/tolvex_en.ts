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
        <source>%n byte</source>
        <translation>
            <numerusform>%n byte</numerusform>
            <numerusform>%n bytes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n word</source>
        <translation>
            <numerusform>%n word</numerusform>
            <numerusform>%n words</numerusform>
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
        <source>チップの内容が違います（%n か所）。</source>
        <translation>
            <numerusform>The chip differs in %n place.</numerusform>
            <numerusform>The chip differs in %n places.</numerusform>
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
        <source> (未接続)</source>
        <translation> (nothing attached)</translation>
    </message>
    <message>
        <source> 4MHz  OSC</source>
        <translation> 4 MHz  OSC</translation>
    </message>
    <message>
        <source> 残り %1:%2</source>
        <translation> %1:%2 left</translation>
    </message>
    <message>
        <source>%1 %2: ファイル %3, チップ %4</source>
        <translation>%1 %2: file %3, chip %4</translation>
    </message>
    <message>
        <source>%1 Flash %2 word  EEPROM %3 byte  %4</source>
        <translation>%1 Flash %2 words  EEPROM %3 bytes  %4</translation>
    </message>
    <message>
        <source>%1 で指定できるビット:</source>
        <translation>The bits of %1:</translation>
    </message>
    <message>
        <source>%1 にヒューズはありません。ロックビットは lock で書きます。</source>
        <translation>%1 has no fuses. Its lock bits are written with lock.</translation>
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
        <source>%1 はシリアルポートではないか、使えません (%2)。</source>
        <translation>%1 is no serial port or cannot be used (%2).</translation>
    </message>
    <message>
        <source>%1 は既に %2 を指しています</source>
        <translation>%1 leads to %2 already</translation>
    </message>
    <message>
        <source>%1 は既にあり、シンボリックリンクではありません</source>
        <translation>%1 is in the way: it is no symbolic link</translation>
    </message>
    <message>
        <source>%1 は既にあります。</source>
        <translation>%1 exists already.</translation>
    </message>
    <message>
        <source>%1 は正常です。</source>
        <translation>%1 works.</translation>
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
        <source>%1 を書けません: %2</source>
        <translation>Cannot write %1: %2</translation>
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
        <source>%1%2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>%1: %2 書き込み済み (%3)</source>
        <translation>%1: %2 written (%3)</translation>
    </message>
    <message>
        <source>%1: OK (%2 / %3 %4)</source>
        <translation>%1: OK (%2; the %3 has %4)</translation>
    </message>
    <message>
        <source>%1: OK (%2、デバイスは未指定)</source>
        <translation>%1: OK (%2; no device named)</translation>
    </message>
    <message>
        <source>%1: ポートは COM1 から COM20 か、デバイスのパスです: %2</source>
        <translation>%1: a port is COM1 to COM20 or the path of a device, not %2</translation>
    </message>
    <message>
        <source>%1: 小文字の16進数字があります。ウインドウのプログラムは 0 として読みます。</source>
        <translation>%1: there are lower-case hexadecimal digits. The window program reads them as 0.</translation>
    </message>
    <message>
        <source>%1: 書き込みなし</source>
        <translation>%1: nothing written</translation>
    </message>
    <message>
        <source>%1: 知らないデバイスです: %2</source>
        <translation>%1: unknown device: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; が 16 進数 %2 桁ではありません</source>
        <translation>&quot;%1&quot; is not %2 hexadecimal digits</translation>
    </message>
    <message>
        <source>&quot;device&quot; が知らないチップです</source>
        <translation>&quot;device&quot; names no known chip</translation>
    </message>
    <message>
        <source>-%1 の値が空です。</source>
        <translation>The value of -%1 is empty.</translation>
    </message>
    <message>
        <source>--%1 が二度指定されています</source>
        <translation>--%1 was given twice</translation>
    </message>
    <message>
        <source>--%1 の値がありません</source>
        <translation>--%1 needs a value</translation>
    </message>
    <message>
        <source>--%1 の値が空です。</source>
        <translation>The value of --%1 is empty.</translation>
    </message>
    <message>
        <source>--%1 は 0 から %2 までの数です</source>
        <translation>--%1 is a number from 0 to %2</translation>
    </message>
    <message>
        <source>--count は 1 以上の数です: %1</source>
        <translation>--count is a number from 1 on: %1</translation>
    </message>
    <message>
        <source>--device %1 で指定してください。</source>
        <translation>Name it with --device %1.</translation>
    </message>
    <message>
        <source>--device: 知らないチップです: %1</source>
        <translation>--device: no such chip: %1</translation>
    </message>
    <message>
        <source>--empty と --device、--state は一緒に指定できません</source>
        <translation>--empty goes with neither --device nor --state</translation>
    </message>
    <message>
        <source>--fault は 3:silent のように K:KIND で指定します: %1</source>
        <translation>--fault is K:KIND, such as 3:silent, and not %1</translation>
    </message>
    <message>
        <source>--firmware は 3.9 のように、数字、点、数字で指定します</source>
        <translation>--firmware is a digit, a point and a digit, such as 3.9</translation>
    </message>
    <message>
        <source>--format は hex、bin、srec のどれかです: %1</source>
        <translation>--format is hex, bin or srec: %1</translation>
    </message>
    <message>
        <source>--json と標準出力の - は一緒に使えません。</source>
        <translation>--json cannot be combined with - for the standard output.</translation>
    </message>
    <message>
        <source>--keep-eeprom と EEPROM のファイルは一緒に指定できません。</source>
        <translation>--keep-eeprom cannot be combined with an EEPROM file.</translation>
    </message>
    <message>
        <source>--log のファイルが、ほかの引数と同じです: %1</source>
        <translation>The file of --log is another argument&apos;s, too: %1</translation>
    </message>
    <message>
        <source>--only ではファイルは一つです。</source>
        <translation>With --only there is one file.</translation>
    </message>
    <message>
        <source>--only は flash か eeprom です。</source>
        <translation>--only takes flash or eeprom.</translation>
    </message>
    <message>
        <source>--replay と --%1 は一緒に指定できません</source>
        <translation>--replay doesn&apos;t go with --%1</translation>
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
        <source>--socket と --device、--state は一緒に指定できません</source>
        <translation>--socket goes with neither --device nor --state</translation>
    </message>
    <message>
        <source>--socket: 知らないチップです: %1</source>
        <translation>--socket: no such chip: %1</translation>
    </message>
    <message>
        <source>--trace のファイルが、ほかの引数と同じです: %1</source>
        <translation>The --trace file is also another argument: %1</translation>
    </message>
    <message>
        <source>--verify は all だけです: %1</source>
        <translation>--verify takes only &quot;all&quot;, not: %1</translation>
    </message>
    <message>
        <source>0 以外の拡張アドレスには対応していません。</source>
        <translation>Extended addresses other than 0 are not supported.</translation>
    </message>
    <message>
        <source>1 から数えて K 番目のコマンドの応答を壊す: silent, short, wrong, long, late, hang-up。何度でも指定できる。</source>
        <translation>Spoil the reply to command K, counted from 1: silent, short, wrong, long, late, hang-up. May be given several times.</translation>
    </message>
    <message>
        <source>1 個に 1 行を FILE に書き足す (CSV)。</source>
        <translation>Append a line for each chip to FILE (CSV).</translation>
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
        <translation>For 28-pin chips, add a 28-pin socket and wire it to connector CN1 on the board. Connect a 4 MHz resonator to XTAL1 (pin 9) and XTAL2 (pin 10).</translation>
    </message>
    <message>
        <source>40pin</source>
        <translation>40-pin</translation>
    </message>
    <message>
        <source>470 Ω、RESET と VCC の間に 10 kΩ</source>
        <translation>470 Ω; 10 kΩ from RESET to VCC</translation>
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
        <source>Arduino Uno R3 / Nano と %1 の結線:</source>
        <translation>Wiring of an Arduino Uno R3 or Nano and the %1:</translation>
    </message>
    <message>
        <source>Arduino をつなぐと、書き込むコマンドを表示します。</source>
        <translation>With an Arduino attached, the command that burns the firmware is shown here.</translation>
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
        <source>CODE と DATA が同じファイルです: %1</source>
        <translation>CODE and DATA are the same file: %1</translation>
    </message>
    <message>
        <source>CODE は Flash、DATA は EEPROM のファイルです。DATA を省略すると、CODE の隣の .eep か、ELF ファイルの .eeprom を使います。- は標準入力か標準出力です。</source>
        <translation>CODE is a file for the Flash, DATA one for the EEPROM. Without DATA the .eep beside CODE counts, or the .eeprom of an ELF file. - is the standard input or output.</translation>
    </message>
    <message>
        <source>COM ポートの一覧を表示する。</source>
        <translation>List the COM ports.</translation>
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
        <source>Chip Erase の後、リセットなしの命令: %1</source>
        <translation>%1 after Chip Erase without a reset</translation>
    </message>
    <message>
        <source>D8 との間に LED と 1 kΩ</source>
        <translation>LED and 1 kΩ to D8</translation>
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
        <source>EEPROM のファイル: %1</source>
        <translation>EEPROM file: %1</translation>
    </message>
    <message>
        <source>EEPROM のファイルです。--only eeprom を指定してください: %1</source>
        <translation>This is an EEPROM file; use --only eeprom: %1</translation>
    </message>
    <message>
        <source>EEPROM のファイルはありません。EEPROM は空（FF）として扱います。</source>
        <translation>There is no EEPROM file: the EEPROM counts as blank (FF).</translation>
    </message>
    <message>
        <source>EEPROM を先に読み、同じ内容を書き戻す。</source>
        <translation>Read the EEPROM first and write the same content back.</translation>
    </message>
    <message>
        <source>EEPROM を読んでいます</source>
        <translation>Reading the EEPROM...</translation>
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
        <source>Flash メモリを読んでいます</source>
        <translation>Reading the Flash...</translation>
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
        <source>Flash・EEPROM・ロックビットを消去する（Erase ボタン）。</source>
        <translation>Erase Flash, EEPROM and lock bits (the Erase button).</translation>
    </message>
    <message>
        <source>Fuse</source>
        <translation>Fuses</translation>
    </message>
    <message>
        <source>HEX ファイル %1 がありません</source>
        <translation>no such HEX file: %1</translation>
    </message>
    <message>
        <source>HEX ファイルに誤りがあります。</source>
        <translation>The HEX file has faults.</translation>
    </message>
    <message>
        <source>HEX ファイルのオープンエラー</source>
        <translation>The HEX file has a line without a colon.</translation>
    </message>
    <message>
        <source>HEX ファイルを厳密に調べる。</source>
        <translation>Check HEX files strictly.</translation>
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
        <source>JSON ではありません</source>
        <translation>it is not JSON</translation>
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
        <source>Lock/Fuse ビットを書けません。</source>
        <translation>Cannot write the lock and fuse bits.</translation>
    </message>
    <message>
        <source>Lock/Fuse ビットを読む、または書く。</source>
        <translation>Read or write the lock and fuse bits.</translation>
    </message>
    <message>
        <source>Lock/Fuse ビットを読めません。</source>
        <translation>Cannot read the lock and fuse bits.</translation>
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
        <source>MODE は full、write、none のどれかです: %1</source>
        <translation>MODE is full, write or none, not: %1</translation>
    </message>
    <message>
        <source>MODE:
  full   書き込みもベリファイもできなくする
  write  書き込みをできなくする
  none   ロックしない（ロックを外せるのは消去だけ）</source>
        <translation>MODE:
  full   the chip can neither be written nor verified any more
  write  the chip can&apos;t be written any more
  none   no lock (only an erase takes one away)</translation>
    </message>
    <message>
        <source>N 個で終わる。省略すると Ctrl-C まで続ける。</source>
        <translation>End after N chips. Default: go on until Ctrl-C.</translation>
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
        <source>RESET が High の間に SCK が動きました</source>
        <translation>SCK moves while RESET is high</translation>
    </message>
    <message>
        <source>RESET が Low になったとき、SCK が Low ではありませんでした</source>
        <translation>SCK was not low when RESET went low</translation>
    </message>
    <message>
        <source>RESET が Low になってから SCK が動くまでが短すぎます</source>
        <translation>SCK moves too soon after RESET went low</translation>
    </message>
    <message>
        <source>RESET が Low の間に線が浮いています</source>
        <translation>a line floats while RESET is low</translation>
    </message>
    <message>
        <source>RESET、SCK、MOSI、MISO、D9 とシリアル通信（PC からの RXD、PC への TXD）を Value Change Dump として FILE に記録する。PulseView と GTKWave で読める。書き込み 1 秒で 30 MB になる。</source>
        <translation>Record RESET, SCK, MOSI, MISO, D9 and the serial line (RXD from the PC, TXD to it) in FILE as a Value Change Dump, for PulseView and GTKWave. A second of programming is 30 MB.</translation>
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
        <source>SCK が High の間に MOSI が変わりました</source>
        <translation>MOSI changes while SCK is high</translation>
    </message>
    <message>
        <source>SCK が上がる前に MOSI が決まっていません</source>
        <translation>MOSI is not there before SCK goes up</translation>
    </message>
    <message>
        <source>SCK が速すぎるか、チップにクロックがありません</source>
        <translation>SCK is too fast, or the chip has no clock</translation>
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
        <source>VCC と GND の間に 100 nF</source>
        <translation>100 nF from VCC to GND</translation>
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
        <source>flash か eeprom だけを対象にする。もう一方の内容は変えない。</source>
        <translation>Work on flash or eeprom only and leave the other memory as it is.</translation>
    </message>
    <message>
        <source>libsimavr に atmega328p がありません</source>
        <translation>libsimavr knows no atmega328p</translation>
    </message>
    <message>
        <source>read の出力と --trace で、既にあるファイルを置き換える。</source>
        <translation>Let read and --trace replace files that exist.</translation>
    </message>
    <message>
        <source>select device command T</source>
        <translation>select device (T)</translation>
    </message>
    <message>
        <source>tolvex-cli --trace で FILE に記録した通信の、ボードの側を再生し、その終わりで終わる。--baud 0 を付けると、応答は記録の時刻を待たずにすぐ返る。</source>
        <translation>Play the board&apos;s side of the session in FILE, recorded with tolvex-cli --trace, and end with it. With --baud 0 the replies come at once instead of at their time.</translation>
    </message>
    <message>
        <source>tolvex-cli: 出力を書けません。</source>
        <translation>tolvex-cli: Cannot write the output.</translation>
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
        <source>このデバイスにヒューズはなく、ロックビットは読めません。書くには lock を使います。</source>
        <translation>This device has no fuses, and its lock bits cannot be read. To write them, use the command lock.</translation>
    </message>
    <message>
        <source>このデバイスのロックビットは読み返せません。確認していません。</source>
        <translation>This device&apos;s lock bits cannot be read back. They are not confirmed.</translation>
    </message>
    <message>
        <source>このファームウエアバージョンでは、AT90S2333/4433をサポートしません。</source>
        <translation>This firmware version does not support the AT90S2333 and AT90S4433.</translation>
    </message>
    <message>
        <source>この説明を表示する。</source>
        <translation>Show this help.</translation>
    </message>
    <message>
        <source>その他のボタン</source>
        <translation>More buttons</translation>
    </message>
    <message>
        <source>ないポートも含めて 20 個とも表示する。</source>
        <translation>List all twenty ports, also those that do not exist.</translation>
    </message>
    <message>
        <source>なし</source>
        <translation>not there</translation>
    </message>
    <message>
        <source>ほかのプログラムが使っています</source>
        <translation>another program is using it</translation>
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
        <source>アダプタの USB レイテンシタイマ（ミリ秒）。FTDI の初期値は 16 ms。0 は待ち時間なし。</source>
        <translation>USB latency timer of the adapter in milliseconds (FTDI&apos;s default is 16 ms); 0 is none.</translation>
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
        <source>オプション:</source>
        <translation>Options:</translation>
    </message>
    <message>
        <source>オプションの使い方が違います: %1 に値は付けられません。</source>
        <translation>%1 takes no value.</translation>
    </message>
    <message>
        <source>オプションの使い方が違います: %1 の値がありません。</source>
        <translation>%1 needs a value.</translation>
    </message>
    <message>
        <source>キャンセル</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>コマンド 1 つにつき 1 行を FILE に書く。</source>
        <translation>Write one line for each command to FILE.</translation>
    </message>
    <message>
        <source>コマンド:</source>
        <translation>Commands:</translation>
    </message>
    <message>
        <source>コマンドがありません。--help で一覧を表示します。</source>
        <translation>There is no command. --help lists them.</translation>
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
        <source>シグネチャ: %1 (%2)</source>
        <translation>Signature: %1 (%2)</translation>
    </message>
    <message>
        <source>シグネチャ</source>
        <translation>Signature</translation>
    </message>
    <message>
        <source>シグネチャの合わないチップや、誤りがあってもデータのある HEX ファイルで続ける。</source>
        <translation>Go on with a chip whose signature does not match, and with a HEX file that has faults but also data.</translation>
    </message>
    <message>
        <source>シグネチャを読めません。</source>
        <translation>Cannot read the signature.</translation>
    </message>
    <message>
        <source>シグネチャを読めるのに、ロックビットが full と読めました。</source>
        <translation>The lock bits read as full, although the signature can be read.</translation>
    </message>
    <message>
        <source>システムが受け付けませんでした</source>
        <translation>the system refused</translation>
    </message>
    <message>
        <source>システムのエラー %1</source>
        <translation>system error %1</translation>
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
        <source>シリアル通信の全バイトを FILE に記録する。</source>
        <translation>Record every byte of the serial line in FILE.</translation>
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
        <source>ソケットにチップがありません。</source>
        <translation>There is no chip in the socket.</translation>
    </message>
    <message>
        <source>ソケットにチップがない。</source>
        <translation>No chip in the socket.</translation>
    </message>
    <message>
        <source>ソケットのチップ。名前、型番、またはデバイスの一覧での番号。省略すると状態ファイルのチップ、なければ AT90S1200。</source>
        <translation>The chip in the socket: its name, part number or list index. Default: that of the state file, else AT90S1200.</translation>
    </message>
    <message>
        <source>ソケットのチップは %1 (%2) で、%3 ではありません。</source>
        <translation>The chip in the socket is %1 (%2), not %3.</translation>
    </message>
    <message>
        <source>チェックサムが違います。</source>
        <translation>The checksum is wrong.</translation>
    </message>
    <message>
        <source>チップが Lock/Fuse ビットを受け付けませんでした。</source>
        <translation>The chip did not accept the lock and fuse bits.</translation>
    </message>
    <message>
        <source>チップが、ボードのクロックの代わりに、この周波数 (Hz) の自分のクロックで動く。</source>
        <translation>The chip runs on a clock of its own of so many hertz, instead of the board&apos;s.</translation>
    </message>
    <message>
        <source>チップが、リセットの後の最初の N クロックを取りこぼす。</source>
        <translation>The chip misses the first N clocks after a reset.</translation>
    </message>
    <message>
        <source>チップがロックされています。</source>
        <translation>The chip is locked.</translation>
    </message>
    <message>
        <source>チップが出力するかもしれない線に出力しました</source>
        <translation>a line is driven while the chip may drive it</translation>
    </message>
    <message>
        <source>チップが空（すべて FF）かどうかを調べる。</source>
        <translation>Tell whether the chip is blank (all FF).</translation>
    </message>
    <message>
        <source>チップとの接触が失われました。</source>
        <translation>Contact with the chip was lost.</translation>
    </message>
    <message>
        <source>チップに命令 %1 はありません</source>
        <translation>the chip has no instruction %1</translation>
    </message>
    <message>
        <source>チップに接触していません（シグネチャ %1）。ソケットとチップの向きを確認してください。</source>
        <translation>There is no contact with the chip (signature %1). Check the socket and which way round the chip is.</translation>
    </message>
    <message>
        <source>チップの内容は既にファイルのとおりです。何も書いていません。</source>
        <translation>The chip already holds what the files say. Nothing was written.</translation>
    </message>
    <message>
        <source>チップの内容を FILE に残し、次の回に引き継ぐ。</source>
        <translation>Keep the chip&apos;s contents in FILE from run to run.</translation>
    </message>
    <message>
        <source>チップの内容をウインドウのリストと同じ形で表示する。</source>
        <translation>Print the chip&apos;s content as the window&apos;s listings do.</translation>
    </message>
    <message>
        <source>チップの書き込みが、最低の電源電圧のときと同じ遅さになる。</source>
        <translation>The chip writes as slowly as at its lowest supply.</translation>
    </message>
    <message>
        <source>チップの書き込み中に RESET が High になりました</source>
        <translation>RESET goes high while the chip is writing</translation>
    </message>
    <message>
        <source>チップの書き込み中に応答が送られました</source>
        <translation>an answer goes out while the chip is writing</translation>
    </message>
    <message>
        <source>チップの書き込み中の命令: %1</source>
        <translation>%1 while the chip is writing</translation>
    </message>
    <message>
        <source>チップの消去は確認できていません。</source>
        <translation>It is not certain that the chip is erased.</translation>
    </message>
    <message>
        <source>チップはロックされています。消去してロックを解除します。</source>
        <translation>The chip is locked. Erasing it removes the lock.</translation>
    </message>
    <message>
        <source>チップは書き込み禁止にロックされています。消去でロックは外れます。必要なら後で tolvex-cli lock write を実行してください。</source>
        <translation>The chip is locked against writing. The erase removes the lock; if you need it, run tolvex-cli lock write afterwards.</translation>
    </message>
    <message>
        <source>チップは消去していません。</source>
        <translation>The chip was not erased.</translation>
    </message>
    <message>
        <source>チップは消去済みです。</source>
        <translation>The chip was erased.</translation>
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
        <source>チップを次々に替えて書き込む。入れるのを待ち、書き込み、抜くのを待つ。</source>
        <translation>Program one chip after the other: wait until it is put in, program it, wait until it is taken out.</translation>
    </message>
    <message>
        <source>チップを読めません。</source>
        <translation>Cannot read the chip.</translation>
    </message>
    <message>
        <source>チップ全体をファイルと比べる（Verify ボタン）。</source>
        <translation>Compare the whole chip with the files (the Verify button).</translation>
    </message>
    <message>
        <source>チップ全体を消去します: 全体で %1 秒以上</source>
        <translation>Erasing the whole chip: at least %1 s in all</translation>
    </message>
    <message>
        <source>チップ全体を読んでファイルに書く（Read ボタン）。</source>
        <translation>Read the whole chip into files (the Read button).</translation>
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
        <source>ディスクの空きがありません</source>
        <translation>no space left on the disk</translation>
    </message>
    <message>
        <source>デバイス: %1 (%2)</source>
        <translation>Device: %1 (%2)</translation>
    </message>
    <message>
        <source>デバイスが、ソケットにセットされていません。</source>
        <translation>There is no chip in the socket.</translation>
    </message>
    <message>
        <source>デバイスがありません</source>
        <translation>no such device</translation>
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
        <source>デバイスの一覧を表示する。</source>
        <translation>List the devices.</translation>
    </message>
    <message>
        <source>デバイス名。省略すると環境変数 TOLVEX_DEVICE、なければ保存済みのデバイス。</source>
        <translation>The device, such as AT90S2313. Default: the environment variable TOLVEX_DEVICE, else the stored device.</translation>
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
        <source>ハードウエア: %1</source>
        <translation>Hardware: %1</translation>
    </message>
    <message>
        <source>バイトではありません: %1</source>
        <translation>no byte: %1</translation>
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
        <source>バージョンを表示する。</source>
        <translation>Show the version.</translation>
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
        <source>ヒューズバイト: 0x%1 書き込み済み</source>
        <translation>Fuse byte: 0x%1 written</translation>
    </message>
    <message>
        <source>ヒューズバイト</source>
        <translation>Fuse byte</translation>
    </message>
    <message>
        <source>ファイル(&amp;F)</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>ファイルかフォルダがありません</source>
        <translation>no such file or folder</translation>
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
        <source>ファイルが既にあります。--overwrite で置き換えます: %1</source>
        <translation>The file exists already; --overwrite replaces it: %1</translation>
    </message>
    <message>
        <source>ファイルにこのメモリのデータがありません: %1</source>
        <translation>The file has no data for this memory: %1</translation>
    </message>
    <message>
        <source>ファイルに誤りがあります。</source>
        <translation>The file has faults.</translation>
    </message>
    <message>
        <source>ファイルのデータの一部は書き込めませんでした。</source>
        <translation>Some of the file&apos;s data could not be written.</translation>
    </message>
    <message>
        <source>ファイルの一部は比べられません。</source>
        <translation>Part of the file cannot be compared.</translation>
    </message>
    <message>
        <source>ファイルの形式。bin はメモリの内容そのもの。ほかの形式は内容で分かる。</source>
        <translation>The files&apos; format. bin is the memory&apos;s bytes and nothing else; other formats show themselves.</translation>
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
        <source>ファイルを書けません (%1): %2</source>
        <translation>Cannot write the file (%1): %2</translation>
    </message>
    <message>
        <source>ファイルを書けません: %1</source>
        <translation>Cannot write the file: %1</translation>
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
        <source>ファームウエア %1 は %2 をサポートしません（%3 が必要です）。</source>
        <translation>Firmware %1 does not support the %2; it takes %3.</translation>
    </message>
    <message>
        <source>ファームウエア tolvex_writer.hex がありません。</source>
        <translation>The firmware, tolvex_writer.hex, is missing.</translation>
    </message>
    <message>
        <source>ファームウエア: %1</source>
        <translation>Firmware: %1</translation>
    </message>
    <message>
        <source>ファームウエアが停止しました</source>
        <translation>the firmware has crashed</translation>
    </message>
    <message>
        <source>ファームウエアの書き込み（RESET のコンデンサとチップを外して。古い Nano では -b 57600）:</source>
        <translation>To burn the firmware (without the capacitor at RESET and the chip; an old Nano wants -b 57600):</translation>
    </message>
    <message>
        <source>フォルダか普通のファイルです</source>
        <translation>it is a folder or an ordinary file</translation>
    </message>
    <message>
        <source>フォルダがありません</source>
        <translation>there is no such folder</translation>
    </message>
    <message>
        <source>フォルダです</source>
        <translation>it is a folder</translation>
    </message>
    <message>
        <source>フォルダに書く権限がありません</source>
        <translation>no permission to write in the folder</translation>
    </message>
    <message>
        <source>フォルダを作れません: %1</source>
        <translation>Cannot make the folder: %1</translation>
    </message>
    <message>
        <source>プログラミングを中止しました。</source>
        <translation>Programming was given up.</translation>
    </message>
    <message>
        <source>プログラム/EEPROMデータメモリ Lock/Fuseビット消去</source>
        <translation>Erase the program and EEPROM memory and the lock bits</translation>
    </message>
    <message>
        <source>プログラム/EEPROMデータメモリのプログラム</source>
        <translation>Program the program and EEPROM memory</translation>
    </message>
    <message>
        <source>プログラム/EEPROMデータメモリのベリファイ</source>
        <translation>Verify the program and EEPROM memory</translation>
    </message>
    <message>
        <source>プログラム/EEPROMデータメモリのリード</source>
        <translation>Read the program and EEPROM memory</translation>
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
        <source>ベリファイできませんでした。</source>
        <translation>The chip could not be verified.</translation>
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
        <source>ポート %1 を開けません: %2</source>
        <translation>Cannot open port %1: %2</translation>
    </message>
    <message>
        <source>ポートが使えない原因と、直すコマンドを示す。</source>
        <translation>Tell why a port does not work, and the command that fixes it.</translation>
    </message>
    <message>
        <source>ポートが選ばれていません。--port で指定してください。</source>
        <translation>No port is chosen. Name one with --port.</translation>
    </message>
    <message>
        <source>ポートは選ばれていません。つながっているものを使います: %1</source>
        <translation>No port was chosen; the one that is attached is used: %1</translation>
    </message>
    <message>
        <source>ポートは開けますが、ライタが応答しません。電源とケーブルを確認してください。自作のライタなら、ファームウエアを書き込んだか、RESET に 10 µF のコンデンサがあるかも確認してください。</source>
        <translation>The port opens, but the writer does not answer. Check its power and the cable. If you built the writer yourself, check also that the firmware is in it and that there are 10 µF at RESET.</translation>
    </message>
    <message>
        <source>ポートを開いたときにボードがリセットされ、起動が遅れました。ボードの RESET と GND の間に 10 µF のコンデンサを入れてください。</source>
        <translation>Opening the port reset the board, which then started late. Put 10 µF between its RESET and GND.</translation>
    </message>
    <message>
        <source>ポートオープン失敗</source>
        <translation>Port not opened</translation>
    </message>
    <message>
        <source>ポート番号かデバイスのパス。省略すると環境変数 TOLVEX_PORT、なければ保存済みのポート。</source>
        <translation>The port: a COM number or the path of a device. Default: the environment variable TOLVEX_PORT, else the stored port.</translation>
    </message>
    <message>
        <source>メッセージ</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>ライタ: %1</source>
        <translation>Writer: %1</translation>
    </message>
    <message>
        <source>ライタ</source>
        <translation>Writer</translation>
    </message>
    <message>
        <source>ライタがコマンドを拒否しました。</source>
        <translation>The writer refused the command.</translation>
    </message>
    <message>
        <source>ライタがプログラミングモードのままかもしれません。電源を入れ直してください。</source>
        <translation>The writer may still be in programming mode. Switch it off and on again.</translation>
    </message>
    <message>
        <source>ライタが応答しません。</source>
        <translation>The writer does not answer.</translation>
    </message>
    <message>
        <source>ライタが答えるファームウエアのバージョン。</source>
        <translation>Firmware version that the writer reports.</translation>
    </message>
    <message>
        <source>ライタが見つかりません: %1</source>
        <translation>No writer found: %1</translation>
    </message>
    <message>
        <source>ライタとの接続が切れました: %1</source>
        <translation>The connection to the writer was lost: %1</translation>
    </message>
    <message>
        <source>ライタとチップを調べる。</source>
        <translation>Find the writer and the chip.</translation>
    </message>
    <message>
        <source>ライタと通信ができませんでした。
PCとライタの接続を確認して下さい。</source>
        <translation>There is no communication with the writer.
Check its connection to the PC.</translation>
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
        <source>ライタは応答しますが、コマンドを受け付けません。ライタの種類と、もう一度試したときの通信の記録を確認してください。</source>
        <translation>The writer answers but does not take the commands. Check what kind of writer it is, and look at the trace of another attempt.</translation>
    </message>
    <message>
        <source>ライタを検出しました。 COM%1</source>
        <translation>Writer found at COM%1.</translation>
    </message>
    <message>
        <source>ライタを自作する: 結線と、ファームウエアを書き込むコマンド。HEX があればそこに写す。</source>
        <translation>Build a writer: its wiring, and the command that burns its firmware. HEX gets a copy of the firmware.</translation>
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
        <source>リセットのパルスが短すぎます</source>
        <translation>the reset pulse is too short</translation>
    </message>
    <message>
        <source>リンク %1 を作れません: %2</source>
        <translation>cannot make the link %1: %2</translation>
    </message>
    <message>
        <source>リンクが循環しています</source>
        <translation>the links lead in a circle</translation>
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
        <source>ロックバイト: 0x%1 書き込み済み</source>
        <translation>Lock byte: 0x%1 written</translation>
    </message>
    <message>
        <source>ロックバイト</source>
        <translation>Lock byte</translation>
    </message>
    <message>
        <source>ロックビットを書く: full (書込み &amp; ベリファイ 禁止)、write (書込み禁止)、none。</source>
        <translation>Write the lock bits: full (neither written nor verified any more), write (not written any more) or none.</translation>
    </message>
    <message>
        <source>ロックビットを読めません。</source>
        <translation>Cannot read the lock bits.</translation>
    </message>
    <message>
        <source>一致</source>
        <translation>matches</translation>
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
        <source>不一致</source>
        <translation>does not match</translation>
    </message>
    <message>
        <source>中断しました。</source>
        <translation>Interrupted.</translation>
    </message>
    <message>
        <source>二度指定されています: %1</source>
        <translation>Given twice: %1</translation>
    </message>
    <message>
        <source>二度読んだ Lock/Fuse ビットが違います。何も書いていません。</source>
        <translation>Two readings of the lock and fuse bits differ. Nothing was written.</translation>
    </message>
    <message>
        <source>二度読んだ内容が違います。チップには何も書いていません。</source>
        <translation>Two readings of the chip differ. Nothing was written to it.</translation>
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
        <source>使い方: %1 [オプション] %2</source>
        <translation>Usage: %1 [options] %2</translation>
    </message>
    <message>
        <source>使い方: tolvex-cli %1</source>
        <translation>Usage: tolvex-cli %1</translation>
    </message>
    <message>
        <source>使用中か、使う権限がありません</source>
        <translation>it is in use, or you do not have permission</translation>
    </message>
    <message>
        <source>使用中です</source>
        <translation>it is in use</translation>
    </message>
    <message>
        <source>使用可</source>
        <translation>usable</translation>
    </message>
    <message>
        <source>保存</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>保存しました: %1</source>
        <translation>Saved: %1</translation>
    </message>
    <message>
        <source>先にチップの内容を DIR に日付つきの HEX ファイルで保存する。</source>
        <translation>First save the chip to HEX files in DIR, named by date.</translation>
    </message>
    <message>
        <source>先にチップ全体を比べ、同じ内容なら何も書かずに終わる。</source>
        <translation>Compare the whole chip first, and write nothing if it is the same.</translation>
    </message>
    <message>
        <source>入出力エラーです</source>
        <translation>input/output error</translation>
    </message>
    <message>
        <source>入力データに誤りがあります．</source>
        <translation>The input is not a hexadecimal number.</translation>
    </message>
    <message>
        <source>内部の RC クロックで動くので、D9 はつなぎません。</source>
        <translation>It runs on its internal RC clock: leave D9 unconnected.</translation>
    </message>
    <message>
        <source>前のレコードと同じ番地のデータです。</source>
        <translation>The data has the same address as an earlier record.</translation>
    </message>
    <message>
        <source>動かしたままチップを替える。ソケットにあるもの（チップの名前とその状態ファイル、なければ空）を FILE に書く。</source>
        <translation>Change chips while the board runs: FILE holds what is in the socket, a chip&apos;s name and its state file, or nothing.</translation>
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
        <translation>it is too large</translation>
    </message>
    <message>
        <source>実行するファームウエア。</source>
        <translation>The firmware to run.</translation>
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
        <source>引数が UTF-8 ではありません。</source>
        <translation>An argument is not UTF-8.</translation>
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
        <source>応答の後でチップが操作されました</source>
        <translation>the chip is worked on after the answer</translation>
    </message>
    <message>
        <source>応答時間: %1 ms</source>
        <translation>Round trip: %1 ms</translation>
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
        <source>指定できません: %1
指定できる値:
%2</source>
        <translation>Not possible: %1
Possible are:
%2</translation>
    </message>
    <message>
        <source>接続が切れました</source>
        <translation>the connection was lost</translation>
    </message>
    <message>
        <source>既にあります</source>
        <translation>it exists already</translation>
    </message>
    <message>
        <source>日付</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>時刻と出来事がありません</source>
        <translation>no time and event</translation>
    </message>
    <message>
        <source>書き込みを確認できませんでした。</source>
        <translation>It could not be confirmed that the chip was programmed.</translation>
    </message>
    <message>
        <source>書くファイルの形式。省略すると Intel HEX。bin はメモリの内容そのもの。</source>
        <translation>The format to write. Default: Intel HEX. bin is the memory&apos;s bytes and nothing else.</translation>
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
        <source>最初の命令が Programming Enable ではありません</source>
        <translation>the first instruction is not Programming Enable</translation>
    </message>
    <message>
        <source>最後に使うセルまでではなく、チップ全体を読み返して比べる。</source>
        <translation>Read back and compare the whole chip, not only up to the last used cell.</translation>
    </message>
    <message>
        <source>検索</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>標準出力には一つのメモリだけを書けます。--only か DATA を指定してください。</source>
        <translation>The standard output takes one memory only. Use --only, or name DATA.</translation>
    </message>
    <message>
        <source>権限がありません</source>
        <translation>permission denied</translation>
    </message>
    <message>
        <source>権限なし</source>
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
        <source>浮いた線と、意味のないビットの雑音を変える。</source>
        <translation>Another noise on lines that float, and in bits without a meaning.</translation>
    </message>
    <message>
        <source>消去して書き込みます: Flash %1, EEPROM %2, 全体で %3 秒以上</source>
        <translation>Erasing and programming: Flash %1, EEPROM %2, at least %3 s in all</translation>
    </message>
    <message>
        <source>消去を確認できませんでした。</source>
        <translation>It could not be confirmed that the chip was erased.</translation>
    </message>
    <message>
        <source>消去・書き込み・ベリファイをする（Program ボタン）。</source>
        <translation>Erase, program and verify (the Program button).</translation>
    </message>
    <message>
        <source>状態ファイル %1 には別のチップが入っています: %2</source>
        <translation>state file %1 holds another chip: %2</translation>
    </message>
    <message>
        <source>状態ファイル %1 を書けません: %2</source>
        <translation>state file %1: %2</translation>
    </message>
    <message>
        <source>状態ファイル %1 を読めません: %2</source>
        <translation>state file %1: %2</translation>
    </message>
    <message>
        <source>番号を 1 個ごとに増やして書く。eeprom:0x10=u16le、flash:0x3FE=text:SN%06d など。</source>
        <translation>Write a number that grows from chip to chip, such as eeprom:0x10=u16le or flash:0x3FE=text:SN%06d.</translation>
    </message>
    <message>
        <source>疑似端末につながる模擬ライタ。</source>
        <translation>A simulated writer board on a pseudo-terminal.</translation>
    </message>
    <message>
        <source>疑似端末を作れません: %1</source>
        <translation>no pseudo-terminal: %1</translation>
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
        <source>知らないオプションです: %1</source>
        <translation>Unknown option: %1</translation>
    </message>
    <message>
        <source>知らないコマンドです: %1</source>
        <translation>Unknown command: %1</translation>
    </message>
    <message>
        <source>知らないレコードタイプです。</source>
        <translation>The record type is unknown.</translation>
    </message>
    <message>
        <source>知らない出来事です: %1</source>
        <translation>unknown event: %1</translation>
    </message>
    <message>
        <source>知らない引数です: %1</source>
        <translation>unknown argument: %1</translation>
    </message>
    <message>
        <source>知らない部品</source>
        <translation>an unknown part</translation>
    </message>
    <message>
        <source>確認できていない書き込みがあり、このほかの内容は不明です。</source>
        <translation>Some writes are not confirmed; what else the chip holds is not known.</translation>
    </message>
    <message>
        <source>空の引数があります。シェルの変数が空でないか確認してください。</source>
        <translation>An argument is empty. Check whether a shell variable is not set.</translation>
    </message>
    <message>
        <source>端末へのシンボリックリンクを PATH に作り、終わるときに消す。既にあるものを置き換えるのは、終了した模擬ライタのリンクのときだけ。</source>
        <translation>Make PATH a symbolic link to the terminal; it is removed at the end. What is at PATH already is replaced only if it is the link of a board that has ended.</translation>
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
        <source>経過を表示しない。原因と相違は表示する。</source>
        <translation>No progress. Causes and differences are still shown.</translation>
    </message>
    <message>
        <source>結果を JSON で出力する。</source>
        <translation>Print the result as JSON.</translation>
    </message>
    <message>
        <source>続けます。</source>
        <translation>Going on all the same.</translation>
    </message>
    <message>
        <source>自作のライタのボードをシミュレータで動かし、疑似端末につなぐ。ファームウエアがチップのデータシートの規定に反すると、すぐにステータス 1 で終わる。</source>
        <translation>The writer board that anyone can build, in a simulator, on a pseudo-terminal. It ends with status 1 as soon as the firmware breaks a rule of the chips&apos; data sheets.</translation>
    </message>
    <message>
        <source>自分のクロックで動いているチップ（水晶発振子、RCEN）には D9 をつなぎません。</source>
        <translation>Leave D9 unconnected where the chip has a clock of its own (a crystal, or RCEN).</translation>
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
        <source>記録 %1 の %2 行目: %3</source>
        <translation>trace %1: line %2: %3</translation>
    </message>
    <message>
        <source>記録 %1 を書けません: %2</source>
        <translation>cannot write %1: %2</translation>
    </message>
    <message>
        <source>記録 %1 を読めません: %2</source>
        <translation>cannot read trace %1: %2</translation>
    </message>
    <message>
        <source>記録の %1 行目: PC が %3 ではなく %2 を送りました</source>
        <translation>trace line %1: the PC sent %2 instead of %3</translation>
    </message>
    <message>
        <source>記録の終わりの後に、PC が %1 を送りました</source>
        <translation>the PC sent %1 after the end of the trace</translation>
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
        <source>読み出し専用です</source>
        <translation>it is read-only</translation>
    </message>
    <message>
        <source>読み取りエラー</source>
        <translation>read error</translation>
    </message>
    <message>
        <source>読めないファイルがあります。</source>
        <translation>Not every file can be read.</translation>
    </message>
    <message>
        <source>読めるもの: Intel HEX、S レコード、AVR 用の ELF（内容で判断）。バイナリは --format bin で指定します。</source>
        <translation>What is read: Intel HEX, S-records and ELF for AVRs, told by their content; raw binary with --format bin.</translation>
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
        <source>途中でチップとの接触が失われたか、チップが替わりました。ソケットとケーブルを確認してください。</source>
        <translation>The contact with the chip was lost on the way, or another chip was put in. Check the socket and the cable.</translation>
    </message>
    <message>
        <source>途中の名前がフォルダではありません</source>
        <translation>a name on the way is no folder</translation>
    </message>
    <message>
        <source>通信の形式が 8N1 ではありません</source>
        <translation>the line&apos;s frames are not 8N1</translation>
    </message>
    <message>
        <source>通信の速さ。0 は速さに制限のないことを表す。</source>
        <translation>Speed of the line; 0 is as fast as it goes.</translation>
    </message>
    <message>
        <source>通信の速さが %1 baud です</source>
        <translation>the line runs at %1 baud</translation>
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
        <source>開いているファイルが多すぎます</source>
        <translation>too many files are open</translation>
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
        <source>（雑音: --seed %1）</source>
        <translation>(noise: --seed %1)</translation>
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
