<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>DemoMain</name>
    <message>
        <source>The demo survey in %1 is complete.</source>
        <translation>%1 中的演示项目已完整。</translation>
    </message>
    <message>
        <source>Wrote the demo survey to %1.</source>
        <translation>演示项目已写入 %1。</translation>
    </message>
    <message>
        <source>Writes a synthetic refraction line with known first breaks.</source>
        <translation>生成一条初至已知的合成折射测线。</translation>
    </message>
    <message>
        <source>Only the first N shots.</source>
        <translation>仅生成前 N 炮。</translation>
    </message>
    <message>
        <source>Where the files go.</source>
        <translation>文件存放的文件夹。</translation>
    </message>
</context>
<context>
    <name>DemoSurvey</name>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>Cannot make the folder %1.</source>
        <translation>无法创建文件夹 %1。</translation>
    </message>
</context>
</TS>
