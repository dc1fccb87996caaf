<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Batch</name>
    <message>
        <source>Usage: tarnpick-batch COMMAND [arguments]</source>
        <translation>用法：tarnpick-batch COMMAND [参数]</translation>
    </message>
    <message>
        <source>Commands:</source>
        <translation>命令：</translation>
    </message>
    <message>
        <source>tarnpick-batch COMMAND --help shows the arguments.</source>
        <translation>tarnpick-batch COMMAND --help 显示各参数。</translation>
    </message>
    <message>
        <source>Unknown command: %1</source>
        <translation>未知命令：%1</translation>
    </message>
</context>
<context>
    <name>GuideFile</name>
    <message>
        <source>The guide %1 cannot be used: %2</source>
        <translation>引导文件 %1 无法使用：%2</translation>
    </message>
    <message>
        <source>line %1 is no line of a table of first breaks.</source>
        <translation>第 %1 行不是初至表的内容。</translation>
    </message>
    <message>
        <source>line %1 is of a trace that the SEG-Y file does not have.</source>
        <translation>第 %1 行的道在 SEG-Y 文件中不存在。</translation>
    </message>
    <message>
        <source>there are too few picks in it.</source>
        <translation>其中的拾取太少。</translation>
    </message>
</context>
<context>
    <name>InfoCommand</name>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>%1 to %2 m</source>
        <translation>%1 至 %2 m</translation>
    </message>
    <message>
        <source>0 (coordinates are used as they are)</source>
        <translation>0（直接使用坐标）</translation>
    </message>
    <message>
        <source>%1 (coordinates are divided by %2)</source>
        <translation>%1（坐标除以 %2）</translation>
    </message>
    <message>
        <source>%1 (coordinates are multiplied by it)</source>
        <translation>%1（坐标乘以该值）</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>文件：</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>大小：</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 字节</translation>
    </message>
    <message>
        <source>Revision:</source>
        <translation>修订版本：</translation>
    </message>
    <message>
        <source>Byte order:</source>
        <translation>字节序：</translation>
    </message>
    <message>
        <source>Textual header:</source>
        <translation>文本卷头：</translation>
    </message>
    <message>
        <source>Sample format:</source>
        <translation>采样格式：</translation>
    </message>
    <message>
        <source>Samples a trace:</source>
        <translation>每道采样点数：</translation>
    </message>
    <message>
        <source>Sample interval:</source>
        <translation>采样间隔：</translation>
    </message>
    <message>
        <source>%1 µs</source>
        <translation>%1 µs</translation>
    </message>
    <message>
        <source>Traces:</source>
        <translation>道数：</translation>
    </message>
    <message>
        <source>Gathers:</source>
        <translation>道集数：</translation>
    </message>
    <message>
        <source>Offsets:</source>
        <translation>炮检距：</translation>
    </message>
    <message>
        <source>Coordinate scalar:</source>
        <translation>坐标比例因子：</translation>
    </message>
    <message>
        <source>Warning:</source>
        <translation>警告：</translation>
    </message>
    <message>
        <source>Shows this help.</source>
        <translation>显示此帮助。</translation>
    </message>
    <message>
        <source>Writes JSON.</source>
        <translation>输出 JSON。</translation>
    </message>
    <message>
        <source>The SEG-Y file.</source>
        <translation>SEG-Y 文件。</translation>
    </message>
    <message>
        <source>Exactly one file is needed.</source>
        <translation>需要且只能给出一个文件。</translation>
    </message>
    <message>
        <source>Shows what the headers of a SEG-Y file say and what is odd about it.</source>
        <translation>显示 SEG-Y 文件的头信息以及其中的异常。</translation>
    </message>
    <message>
        <source>Error:</source>
        <translation>错误：</translation>
    </message>
    <message>
        <source>Note:</source>
        <translation>提示：</translation>
    </message>
    <message>
        <source>Examines every trace, not only some of them.</source>
        <translation>检查每一道，而不只是其中一部分。</translation>
    </message>
</context>
<context>
    <name>PickCommand</name>
    <message>
        <source>Picks the first breaks of a SEG-Y file into a table.</source>
        <translation>拾取 SEG-Y 文件的初至并写成表格。</translation>
    </message>
    <message>
        <source>Shows this help.</source>
        <translation>显示此帮助。</translation>
    </message>
    <message>
        <source>The table that is written.</source>
        <translation>要写出的表格。</translation>
    </message>
    <message>
        <source>Sets a picking parameter; may be given again: %1.</source>
        <translation>设置一个拾取参数；可重复给出：%1。</translation>
    </message>
    <message>
        <source>Threads that pick; one a core without it.</source>
        <translation>拾取所用的线程数；不给出时每个核一个线程。</translation>
    </message>
    <message>
        <source>The SEG-Y file.</source>
        <translation>SEG-Y 文件。</translation>
    </message>
    <message>
        <source>--param %1 is not of the form name=value.</source>
        <translation>--param %1 不是 name=value 的形式。</translation>
    </message>
    <message>
        <source>--threads is &quot;%1&quot;; it must be a number from 1 to %2.</source>
        <translation>--threads 为“%1”；它必须是 1 到 %2 之间的数。</translation>
    </message>
    <message>
        <source>Exactly one file is needed.</source>
        <translation>需要且只能给出一个文件。</translation>
    </message>
    <message>
        <source>--out is missing: the table needs a name.</source>
        <translation>缺少 --out：表格需要一个文件名。</translation>
    </message>
    <message>
        <source>--out names the SEG-Y file itself.</source>
        <translation>--out 指向了 SEG-Y 文件本身。</translation>
    </message>
    <message>
        <source>Picked %1 of %2 traces in %3 of %4 gathers.
</source>
        <translation>已在 %4 个道集中的 %3 个内拾取 %2 道中的 %1 道。
</translation>
    </message>
    <message>
        <source>%1: there is not enough memory.</source>
        <translation>%1：内存不足。</translation>
    </message>
    <message>
        <source>The point of the first arrival that is picked: %1.</source>
        <translation>拾取初至波的位置：%1。</translation>
    </message>
    <message>
        <source>Leaves out picks that are less likely right, 0 to 1; %1 without it.</source>
        <translation>舍去置信度低于该值的拾取，0 到 1；缺省为 %1。</translation>
    </message>
    <message>
        <source>Picks to be guided by: a first-break file (.fb) of FILE or its text export.</source>
        <translation>作为引导的拾取：FILE 的初至文件 (.fb) 或其导出的文本。</translation>
    </message>
    <message>
        <source>Guide: velocity of the first arrival, m/s.</source>
        <translation>引导：初至波速度，m/s。</translation>
    </message>
    <message>
        <source>Guide: its time at offset 0, ms; 0 without it.</source>
        <translation>引导：炮检距为 0 时的初至时间，ms；缺省为 0。</translation>
    </message>
    <message>
        <source>Tells on the error output how far it is, also where that is no terminal.</source>
        <translation>在标准错误输出上报告进度，即使它不是终端。</translation>
    </message>
    <message>
        <source>--%1 is &quot;%2&quot;; it must be a number.</source>
        <translation>--%1 为“%2”；应为一个数。</translation>
    </message>
    <message>
        <source>--guide and --velocity are two guides; give one of them.</source>
        <translation>--guide 与 --velocity 是两种引导，只能给出其中一种。</translation>
    </message>
    <message>
        <source>--intercept needs --velocity.</source>
        <translation>--intercept 需要与 --velocity 一起使用。</translation>
    </message>
    <message>
        <source>--out names the guide itself.</source>
        <translation>--out 指定的就是引导文件本身。</translation>
    </message>
    <message>
        <source>Interrupted; %1 was left as it was.</source>
        <translation>已中断；%1 保持原样。</translation>
    </message>
</context>
<context>
    <name>ProgressLine</name>
    <message>
        <source>Gather %1 of %2 (%3 %)</source>
        <translation>第 %1 个道集，共 %2 个（%3 %）</translation>
    </message>
</context>
</TS>
