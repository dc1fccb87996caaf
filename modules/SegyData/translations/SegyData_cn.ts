<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>OvGatherOrderMenu</name>
    <message>
        <source>&amp;Gathers By</source>
        <translation>道集方式(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Field Record</source>
        <translation>野外文件号(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Source Position</source>
        <translation>炮点位置(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Receiver Position</source>
        <translation>检波点位置(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;CDP</source>
        <translation>CDP(&amp;C)</translation>
    </message>
    <message>
        <source>Common &amp;Offset</source>
        <translation>共炮检距(&amp;O)</translation>
    </message>
    <message>
        <source>Offset &amp;Bin Width...</source>
        <translation>炮检距间隔(&amp;B)...</translation>
    </message>
    <message>
        <source>Traces whose offsets fall into the same bin form a gather</source>
        <translation>炮检距落入同一间隔的道组成一个道集</translation>
    </message>
    <message>
        <source>Sort &amp;Traces By</source>
        <translation>道排序(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Descending</source>
        <translation>降序(&amp;D)</translation>
    </message>
    <message>
        <source>Offset Bin Width</source>
        <translation>炮检距间隔</translation>
    </message>
    <message>
        <source>Width of a bin (m):</source>
        <translation>间隔宽度 (m)：</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>OvHeaderMappingDlg</name>
    <message>
        <source>Header Mapping</source>
        <translation>道头映射</translation>
    </message>
    <message>
        <source>&amp;Preset</source>
        <translation>预设(&amp;P)</translation>
    </message>
    <message>
        <source>The &amp;first traces, values as they stand in the file</source>
        <translation>前若干道，数值与文件中一致(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Remarks</source>
        <translation>说明(&amp;R)</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Type a byte number, or press F2 to edit; Delete takes a word away</source>
        <translation>键入字节号，或按 F2 编辑；Delete 去掉该字</translation>
    </message>
    <message>
        <source>Own positions</source>
        <translation>自定义位置</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Examine Whole File</source>
        <translation>检查整个文件(&amp;E)</translation>
    </message>
    <message>
        <source>Found in all %1 traces.</source>
        <translation>取自全部 %1 道。</translation>
    </message>
    <message>
        <source>Found in %1 of %2 traces, spread over the file.</source>
        <translation>取自 %2 道中的 %1 道，均匀分布于整个文件。</translation>
    </message>
    <message>
        <source>Nothing to remark.</source>
        <translation>没有需要说明的问题。</translation>
    </message>
    <message>
        <source>&amp;Where the words lie, and what stands there</source>
        <translation>各字的位置与内容(&amp;W)</translation>
    </message>
    <message>
        <source>Examining...</source>
        <translation>正在检查...</translation>
    </message>
</context>
<context>
    <name>OvHeaderMappingModel</name>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Number of the first byte, counted from 1; 0 for none</source>
        <translation>首字节号，从 1 开始；0 表示没有</translation>
    </message>
    <message>
        <source>Byte</source>
        <translation>字节</translation>
    </message>
    <message>
        <source>How the bytes are read</source>
        <translation>字节的读取方式</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>The byte order, where it is not the file&apos;s</source>
        <translation>与文件字节序不同时的字节序</translation>
    </message>
    <message>
        <source>Byte order</source>
        <translation>字节序</translation>
    </message>
    <message>
        <source>The smallest value found, without scalar</source>
        <translation>找到的最小值（未乘比例因子）</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>最小值</translation>
    </message>
    <message>
        <source>The largest value found, without scalar</source>
        <translation>找到的最大值（未乘比例因子）</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>最大值</translation>
    </message>
    <message>
        <source>How many different values were found</source>
        <translation>找到的不同取值的个数</translation>
    </message>
    <message>
        <source>Different</source>
        <translation>不同取值</translation>
    </message>
    <message>
        <source>How many traces have 0</source>
        <translation>取值为 0 的道数</translation>
    </message>
    <message>
        <source>Zeros</source>
        <translation>零值</translation>
    </message>
    <message>
        <source>big-endian</source>
        <translation>大端</translation>
    </message>
    <message>
        <source>little-endian</source>
        <translation>小端</translation>
    </message>
    <message>
        <source>the file&apos;s</source>
        <translation>与文件相同</translation>
    </message>
    <message>
        <source>over %1</source>
        <translation>多于 %1</translation>
    </message>
</context>
<context>
    <name>OvSegyDataMenu</name>
    <message>
        <source>&amp;Data</source>
        <translation>数据(&amp;D)</translation>
    </message>
    <message>
        <source>SEG-Y &amp;Files</source>
        <translation>SEG-Y 文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open SEG-Y...</source>
        <translation>打开 SEG-Y(&amp;O)...</translation>
    </message>
    <message>
        <source>SEG-Y &amp;Information</source>
        <translation>SEG-Y 信息(&amp;I)</translation>
    </message>
    <message>
        <source>Reading the folder...</source>
        <translation>正在读取文件夹...</translation>
    </message>
    <message>
        <source>No SEG-Y files in this folder</source>
        <translation>此文件夹中没有 SEG-Y 文件</translation>
    </message>
    <message>
        <source>More...</source>
        <translation>更多...</translation>
    </message>
    <message>
        <source>Open SEG-Y</source>
        <translation>打开 SEG-Y</translation>
    </message>
    <message>
        <source>SEG-Y files (*.sgy *.segy *.SGY *.SEGY);;All files (*)</source>
        <translation>SEG-Y 文件 (*.sgy *.segy *.SGY *.SEGY);;所有文件 (*)</translation>
    </message>
    <message>
        <source>SEG-Y Information</source>
        <translation>SEG-Y 信息</translation>
    </message>
    <message>
        <source>What the headers and traces of the file hold, and what is odd</source>
        <translation>文件的卷头、道头和数据道的内容，以及异常之处</translation>
    </message>
    <message>
        <source>&amp;Header Mapping...</source>
        <translation>道头映射(&amp;H)...</translation>
    </message>
    <message>
        <source>Where the trace headers of this project&apos;s files keep field record, offset, coordinates and the rest</source>
        <translation>本项目文件的道头中野外文件号、炮检距、坐标等各字的位置</translation>
    </message>
    <message>
        <source>Header Mapping</source>
        <translation>道头映射</translation>
    </message>
</context>
<context>
    <name>OvSegyDisplayBar</name>
    <message>
        <source>Display</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Scaling</source>
        <translation>归一化</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>增益</translation>
    </message>
    <message>
        <source>AGC</source>
        <translation>AGC</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Reverse polarity</source>
        <translation>反转极性</translation>
    </message>
    <message>
        <source> dB</source>
        <translation> dB</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>off</source>
        <translation>关</translation>
    </message>
    <message>
        <source>Gain on top of the scaling</source>
        <translation>归一化之后附加的增益</translation>
    </message>
    <message>
        <source>Length of the automatic gain control window</source>
        <translation>自动增益控制的时窗长度</translation>
    </message>
    <message>
        <source>Wiggle</source>
        <translation>波形</translation>
    </message>
    <message>
        <source>Variable area</source>
        <translation>变面积</translation>
    </message>
    <message>
        <source>Wiggle and area</source>
        <translation>波形加变面积</translation>
    </message>
    <message>
        <source>Variable density</source>
        <translation>变密度</translation>
    </message>
    <message>
        <source>Each trace</source>
        <translation>逐道</translation>
    </message>
    <message>
        <source>Whole gather</source>
        <translation>整个道集</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>灰度</translation>
    </message>
    <message>
        <source>Black-white-red</source>
        <translation>黑-白-红</translation>
    </message>
    <message>
        <source>Blue-white-red</source>
        <translation>蓝-白-红</translation>
    </message>
    <message>
        <source>The display settings could not be stored with the project.</source>
        <translation>无法将显示设置保存到项目中。</translation>
    </message>
    <message>
        <source>How the traces are drawn</source>
        <translation>道的显示方式</translation>
    </message>
    <message>
        <source>Whether each trace is scaled by itself, or the gather as a whole</source>
        <translation>各道分别归一化，或整个道集统一归一化</translation>
    </message>
    <message>
        <source>Colors of the variable density</source>
        <translation>变密度显示所用的颜色</translation>
    </message>
    <message>
        <source>Draws troughs as peaks; data and picks stay as they are</source>
        <translation>将波谷显示为波峰；数据和拾取保持不变</translation>
    </message>
</context>
<context>
    <name>OvSegyInfoDlg</name>
    <message>
        <source>SEG-Y Information</source>
        <translation>SEG-Y 信息</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Text Header</source>
        <translation>文本卷头</translation>
    </message>
    <message>
        <source>Remarks (%1)</source>
        <translation>说明（%1）</translation>
    </message>
    <message>
        <source>Trace Headers</source>
        <translation>道头</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Examine Whole File</source>
        <translation>检查整个文件(&amp;E)</translation>
    </message>
    <message>
        <source>Looks at the headers and samples of every trace; on a large file this takes minutes</source>
        <translation>检查每一道的道头和采样值；大文件需要数分钟</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>Copies all pages as text</source>
        <translation>将所有页面复制为文本</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>保存(&amp;S)...</translation>
    </message>
    <message>
        <source>Writes all pages to a text file</source>
        <translation>将所有页面写入文本文件</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Examining...</source>
        <translation>正在检查...</translation>
    </message>
    <message>
        <source>All %1 traces were looked at.</source>
        <translation>已检查全部 %1 道。</translation>
    </message>
    <message>
        <source>A part of the %1 traces was looked at.</source>
        <translation>已检查 %1 道中的一部分。</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>已复制。</translation>
    </message>
    <message>
        <source>Save SEG-Y Information</source>
        <translation>保存 SEG-Y 信息</translation>
    </message>
    <message>
        <source>Text files (*.txt);;All files (*)</source>
        <translation>文本文件 (*.txt);;所有文件 (*)</translation>
    </message>
    <message>
        <source>Written to %1.</source>
        <translation>已写入 %1。</translation>
    </message>
    <message>
        <source>The text could not be written to %1: %2. Choose another folder or free some space.</source>
        <translation>文本无法写入 %1：%2。请选择其他文件夹或释放空间。</translation>
    </message>
</context>
<context>
    <name>OvSegyReport</name>
    <message>
        <source>File:</source>
        <translation>文件：</translation>
    </message>
    <message>
        <source>File size:</source>
        <translation>文件大小：</translation>
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
        <source>Text header:</source>
        <translation>文本卷头：</translation>
    </message>
    <message>
        <source>EBCDIC</source>
        <translation>EBCDIC</translation>
    </message>
    <message>
        <source>ASCII</source>
        <translation>ASCII</translation>
    </message>
    <message>
        <source>Extended text headers:</source>
        <translation>扩展文本卷头：</translation>
    </message>
    <message>
        <source>Extra trace headers:</source>
        <translation>附加道头数：</translation>
    </message>
    <message>
        <source>Data format:</source>
        <translation>数据格式：</translation>
    </message>
    <message>
        <source>%1 (code %2)</source>
        <translation>%1（代码 %2）</translation>
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
        <source>Samples per trace:</source>
        <translation>每道采样点数：</translation>
    </message>
    <message>
        <source>Trace length:</source>
        <translation>记录长度：</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>Traces:</source>
        <translation>道数：</translation>
    </message>
    <message>
        <source>Lengths:</source>
        <translation>长度单位：</translation>
    </message>
    <message>
        <source>metres</source>
        <translation>米</translation>
    </message>
    <message>
        <source>feet</source>
        <translation>英尺</translation>
    </message>
    <message>
        <source>Gathers:</source>
        <translation>道集数：</translation>
    </message>
    <message>
        <source>reading the trace headers...</source>
        <translation>正在读取道头...</translation>
    </message>
    <message>
        <source>Offsets:</source>
        <translation>炮检距：</translation>
    </message>
    <message>
        <source>none in the trace headers</source>
        <translation>道头中没有炮检距</translation>
    </message>
    <message>
        <source>%1 m to %2 m</source>
        <translation>%1 m 至 %2 m</translation>
    </message>
    <message>
        <source>error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>note</source>
        <translation>说明</translation>
    </message>
    <message>
        <source>trace %1</source>
        <translation>第 %1 道</translation>
    </message>
    <message>
        <source>bytes %1 to %2</source>
        <translation>第 %1 至 %2 字节</translation>
    </message>
    <message>
        <source>byte %1</source>
        <translation>第 %1 字节</translation>
    </message>
    <message>
        <source>, </source>
        <translation>，</translation>
    </message>
    <message>
        <source>%1 (byte %2): %3 to %4, %5 of %6 are zero</source>
        <translation>%1（第 %2 字节）：%3 至 %4，%6 个中有 %5 个为零</translation>
    </message>
    <message>
        <source>SEG-Y Information</source>
        <translation>SEG-Y 信息</translation>
    </message>
    <message>
        <source>Remarks</source>
        <translation>说明</translation>
    </message>
    <message>
        <source>Trace headers</source>
        <translation>道头</translation>
    </message>
    <message>
        <source>Text Header</source>
        <translation>文本卷头</translation>
    </message>
</context>
</TS>
