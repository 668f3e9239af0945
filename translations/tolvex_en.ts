<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ja">
<context>
    <name>Tolvex</name>
    <message>
        <source>AT90Sシリーズ用シリアルISPライタのプログラミングソフトウエア</source>
        <translation>Programs AT90S chips through a serial ISP writer</translation>
    </message>
    <message>
        <source>MITライセンスで配布されているフリーソフトウエアです。</source>
        <translation>Free software under the MIT licence.</translation>
    </message>
    <message>
        <source>ｻﾎﾟｰﾄﾍﾟｰｼﾞ : %1</source>
        <translation>Support page: %1</translation>
    </message>
</context>
</TS>
