<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>OvFirstBreakFile</name>
    <message>
        <source>First-break file %1: %2</source>
        <translation>初至文件 %1：%2</translation>
    </message>
    <message>
        <source>No first-break file is open.</source>
        <translation>没有打开的初至文件。</translation>
    </message>
    <message>
        <source>it is read-only; the first breaks cannot be saved.</source>
        <translation>该文件是只读的，无法保存初至。</translation>
    </message>
    <message>
        <source>it was removed or renamed while it was open.</source>
        <translation>该文件在打开期间被删除或重命名。</translation>
    </message>
    <message>
        <source>it has first breaks of %1 traces for a gather of %2 traces.</source>
        <translation>其中的初至为 %1 道，而道集有 %2 道。</translation>
    </message>
    <message>
        <source>the row of a gather is damaged. Restore the file from a copy.</source>
        <translation>某个道集的记录已损坏。请用备份恢复该文件。</translation>
    </message>
    <message>
        <source>it is not a first-break file. Move it away.</source>
        <translation>它不是初至文件。请将其移走。</translation>
    </message>
    <message>
        <source>it is empty. Move it away.</source>
        <translation>该文件为空。请将其移走。</translation>
    </message>
    <message>
        <source>it is damaged (%1). Restore it from a copy or move it away.</source>
        <translation>该文件已损坏（%1）。请用备份恢复或将其移走。</translation>
    </message>
    <message>
        <source>it was written by a newer version of the program. Update the program.</source>
        <translation>该文件由更新版本的程序写出。请升级程序。</translation>
    </message>
    <message>
        <source>it belongs to another SEG-Y file: it was made for %1 with %2 traces, and this one has %3.</source>
        <translation>它属于另一个 SEG-Y 文件：它是为含 %2 道的 %1 建立的，而当前文件有 %3 道。</translation>
    </message>
    <message>
        <source>the first breaks from trace %1 on are damaged. Restore the file from a copy.</source>
        <translation>从第 %1 道起的初至已损坏。请用副本恢复该文件。</translation>
    </message>
    <message>
        <source>it is of an older version; it can be used once all traces of the SEG-Y file are known.</source>
        <translation>该文件是旧版本格式；读完 SEG-Y 文件的全部道头后才能使用。</translation>
    </message>
    <message>
        <source>the first breaks of %1 traces are incomplete.</source>
        <translation>%1 道的初至不完整。</translation>
    </message>
    <message>
        <source>the SEG-Y file has no such trace; it has %1.</source>
        <translation>SEG-Y 文件中没有该道；文件共有 %1 道。</translation>
    </message>
</context>
<context>
    <name>OvFirstBreakText</name>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>there is not enough memory.</source>
        <translation>内存不足。</translation>
    </message>
    <message>
        <source>the export was cancelled.</source>
        <translation>导出已取消。</translation>
    </message>
    <message>
        <source>the traces of the SEG-Y file are not all known yet.</source>
        <translation>SEG-Y 文件的道尚未全部读出。</translation>
    </message>
    <message>
        <source>record %1 has %2 traces and first breaks of %3.</source>
        <translation>野外文件号 %1 有 %2 道，而初至为 %3 道。</translation>
    </message>
</context>
<context>
    <name>OvGatherOrder</name>
    <message>
        <source>Field record</source>
        <translation>野外文件号</translation>
    </message>
    <message>
        <source>Source position</source>
        <translation>炮点位置</translation>
    </message>
    <message>
        <source>Receiver position</source>
        <translation>检波点位置</translation>
    </message>
    <message>
        <source>CDP</source>
        <translation>CDP</translation>
    </message>
    <message>
        <source>Common offset</source>
        <translation>共炮检距</translation>
    </message>
    <message>
        <source>File order</source>
        <translation>文件顺序</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>道号</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>炮检距</translation>
    </message>
    <message>
        <source>Absolute offset</source>
        <translation>炮检距绝对值</translation>
    </message>
    <message>
        <source>Source X</source>
        <translation>炮点 X 坐标</translation>
    </message>
    <message>
        <source>Source Y</source>
        <translation>炮点 Y 坐标</translation>
    </message>
    <message>
        <source>Receiver X</source>
        <translation>检波点 X 坐标</translation>
    </message>
    <message>
        <source>Receiver Y</source>
        <translation>检波点 Y 坐标</translation>
    </message>
    <message>
        <source>Source elevation</source>
        <translation>炮点高程</translation>
    </message>
    <message>
        <source>Receiver elevation</source>
        <translation>检波点高程</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>延迟时间</translation>
    </message>
    <message>
        <source>Trace identification code</source>
        <translation>道识别码</translation>
    </message>
</context>
<context>
    <name>OvHeaderSurvey</name>
    <message>
        <source>Cancelled.</source>
        <translation>已取消。</translation>
    </message>
    <message>
        <source>%1 is not a number in %2 of %3 traces; its type, byte order or position is wrong.</source>
        <translation>%1在 %3 道中有 %2 道不是有效数值；其类型、字节序或位置有误。</translation>
    </message>
    <message>
        <source>%1 is next to nothing in %2 of %3 traces; it is probably a whole number that is read as a floating-point one.</source>
        <translation>%1在 %3 道中有 %2 道几乎为零；很可能是把整数当作浮点数读取了。</translation>
    </message>
    <message>
        <source>%1 ranges from %2 to %3; the standard allows 1, 10, 100, 1000 and 10000, with a minus to divide.</source>
        <translation>%1的范围为 %2 至 %3；标准只允许 1、10、100、1000 和 10000，负号表示除。</translation>
    </message>
    <message>
        <source>Field record is %1 in all traces; they form one gather.</source>
        <translation>所有道的野外文件号均为 %1；它们组成一个道集。</translation>
    </message>
    <message>
        <source>Channel is 0 in all traces; channels are counted in file order.</source>
        <translation>所有道的道号均为 0；道号按文件顺序计数。</translation>
    </message>
    <message>
        <source>Channel is %1 in all traces.</source>
        <translation>所有道的道号均为 %1。</translation>
    </message>
    <message>
        <source>Offset is 0 in all traces; it is computed from the coordinates.</source>
        <translation>所有道的炮检距均为 0；炮检距由坐标计算。</translation>
    </message>
    <message>
        <source>Offset is 0 in all traces and there are no coordinates; offsets are unknown.</source>
        <translation>所有道的炮检距均为 0，且没有坐标；炮检距未知。</translation>
    </message>
    <message>
        <source>Offset goes up to %1, farther than any first break; its position, type or byte order is wrong.</source>
        <translation>炮检距最大达 %1，远于任何初至；其位置、类型或字节序有误。</translation>
    </message>
    <message>
        <source>Coordinates go up to %1; their position, type, byte order or scalar is wrong.</source>
        <translation>坐标最大达 %1；其位置、类型、字节序或比例因子有误。</translation>
    </message>
    <message>
        <source>Delay ranges from %1 to %2; its position or byte order may be wrong.</source>
        <translation>延迟时间的范围为 %1 至 %2；其位置或字节序可能有误。</translation>
    </message>
    <message>
        <source>Trace identification takes %1 values, more than there are kinds of traces; its position is wrong.</source>
        <translation>道识别码有 %1 种取值，多于道的种类；其位置有误。</translation>
    </message>
</context>
<context>
    <name>OvPickDefine</name>
    <message>
        <source>%1 is &quot;%2&quot;; it must be a number from %3 to %4.</source>
        <translation>%1 为“%2”；应为 %3 到 %4 之间的数。</translation>
    </message>
</context>
<context>
    <name>OvPickParameters</name>
    <message>
        <source>%1 is &quot;%2&quot;; it must be a number from %3 to %4.</source>
        <translation>%1 为“%2”；它必须是 %3 到 %4 之间的数。</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot;; it must be &quot;negative&quot; or &quot;positive&quot;.</source>
        <translation>%1 为“%2”；它必须是“negative”或“positive”。</translation>
    </message>
    <message>
        <source>There is no picking parameter &quot;%1&quot;. The parameters are: %2.</source>
        <translation>没有名为“%1”的拾取参数。可用参数：%2。</translation>
    </message>
    <message>
        <source>min_offset_m (%1) is larger than max_offset_m (%2).</source>
        <translation>min_offset_m（%1）大于 max_offset_m（%2）。</translation>
    </message>
    <message>
        <source>quick_window_ms (%1) is longer than processing_length_ms (%2).</source>
        <translation>quick_window_ms（%1）长于 processing_length_ms（%2）。</translation>
    </message>
</context>
<context>
    <name>OvPickRun</name>
    <message>
        <source>Gather %1 of %2 cannot be picked: %3</source>
        <translation>无法拾取 %2 的第 %1 个道集：%3</translation>
    </message>
</context>
<context>
    <name>OvPickSettings</name>
    <message>
        <source>phase is &quot;%1&quot;; it must be one of: %2.</source>
        <translation>phase 为“%1”，必须是下列之一：%2。</translation>
    </message>
    <message>
        <source>min_confidence is &quot;%1&quot;; it must be a number from 0 to 1.</source>
        <translation>min_confidence 为“%1”，必须是 0 到 1 之间的数。</translation>
    </message>
</context>
<context>
    <name>OvSegyDoctor</name>
    <message>
        <source>The file follows revision %1.%2 of the format.</source>
        <translation>文件遵循该格式的 %1.%2 修订版。</translation>
    </message>
    <message>
        <source>The byte order is %1.</source>
        <translation>字节序为%1。</translation>
    </message>
    <message>
        <source>The textual header is in %1.</source>
        <translation>文本卷头采用 %1 编码。</translation>
    </message>
    <message>
        <source>The samples are in format %1, %2.</source>
        <translation>采样点为格式 %1，即%2。</translation>
    </message>
    <message>
        <source>Traces: %1. Samples of a trace: %2, one every %3 µs.</source>
        <translation>文件有 %1 道，每道 %2 个采样点，采样间隔 %3 µs。</translation>
    </message>
    <message>
        <source>%1 of the %2 traces were examined.</source>
        <translation>检查了 %2 道中的 %1 道。</translation>
    </message>
    <message>
        <source>Examine the whole file to be sure of the rest.</source>
        <translation>要确认其余各道，请检查整个文件。</translation>
    </message>
    <message>
        <source>Extended textual headers behind the binary header: %1.</source>
        <translation>二进制卷头之后有 %1 个扩展文本卷头。</translation>
    </message>
    <message>
        <source>Additional headers of a trace: %1 at the most.</source>
        <translation>每道最多有 %1 个附加道头。</translation>
    </message>
    <message>
        <source>No trace has a field record number.</source>
        <translation>没有任何道带有野外文件号。</translation>
    </message>
    <message>
        <source>All traces form one gather. Where the number stands in other bytes, set them in the header mapping.</source>
        <translation>所有道组成一个道集。如果野外文件号位于其他字节，请在道头映射中设置。</translation>
    </message>
    <message>
        <source>No trace has a channel number.</source>
        <translation>没有任何道带有道号。</translation>
    </message>
    <message>
        <source>Traces are numbered within their gather.</source>
        <translation>各道在其道集内编号。</translation>
    </message>
    <message>
        <source>No trace has an elevation.</source>
        <translation>没有任何道带有高程。</translation>
    </message>
    <message>
        <source>Where offsets or coordinates stand in other bytes, set them in the header mapping.</source>
        <translation>如果炮检距或坐标位于其他字节，请在道头映射中设置。</translation>
    </message>
    <message>
        <source>No trace has an offset; offsets come from the coordinates.</source>
        <translation>没有任何道带有炮检距；炮检距由坐标算出。</translation>
    </message>
    <message>
        <source>No trace has an offset, and coordinates are missing, too.</source>
        <translation>没有任何道带有炮检距，坐标也缺失。</translation>
    </message>
    <message>
        <source>No trace has source coordinates.</source>
        <translation>没有任何道带有炮点坐标。</translation>
    </message>
    <message>
        <source>No trace has receiver coordinates.</source>
        <translation>没有任何道带有检波点坐标。</translation>
    </message>
    <message>
        <source>Trace headers that state another number of samples than the trace has: %1 of %2; the first is that of trace %3.</source>
        <translation>%2 个道头中有 %1 个所记的采样点数与该道实际不符；第一个是第 %3 道的道头。</translation>
    </message>
    <message>
        <source>The size of the file decides; nothing needs to be done.</source>
        <translation>以文件大小为准，无需处理。</translation>
    </message>
    <message>
        <source>Trace headers that state another sample interval than %3 µs: %1 of %2; the first is that of trace %4.</source>
        <translation>%2 个道头中有 %1 个所记的采样间隔不是 %3 µs；第一个是第 %4 道的道头。</translation>
    </message>
    <message>
        <source>Check the interval against the observer&apos;s notes before you pick.</source>
        <translation>拾取之前，请对照野外班报核对采样间隔。</translation>
    </message>
    <message>
        <source>Trace headers with a scalar for coordinates or elevations that is no power of ten: %1 of %2; the first is that of trace %3.</source>
        <translation>%2 个道头中有 %1 个的坐标或高程比例因子不是 10 的幂；第一个是第 %3 道的道头。</translation>
    </message>
    <message>
        <source>Check whether positions and elevations have the right size.</source>
        <translation>请检查位置和高程的大小是否正确。</translation>
    </message>
    <message>
        <source>Traces that repeat the field record and channel of another: %1; for one, record %2 and channel %3 occur more than once.</source>
        <translation>有 %1 道与其他道的野外文件号和道号相同；例如野外文件号 %2、道号 %3 出现不止一次。</translation>
    </message>
    <message>
        <source>Check whether shots were repeated or files joined twice.</source>
        <translation>请检查是否有重复放炮，或文件被重复合并。</translation>
    </message>
    <message>
        <source>Field records that lack channels: %1; the first is record %2 without channel %3.</source>
        <translation>有 %1 个野外文件号缺道；第一个是野外文件号 %2，缺道号 %3。</translation>
    </message>
    <message>
        <source>Check whether traces were removed on purpose.</source>
        <translation>请检查这些道是否有意剔除。</translation>
    </message>
    <message>
        <source>Field records that are missing between %1 and %2: %3; the first is %4.</source>
        <translation>野外文件号 %1 与 %2 之间缺 %3 个；第一个缺失的是 %4。</translation>
    </message>
    <message>
        <source>Samples that are infinite or no numbers: %1; traces with such samples: %2, the first is trace %3.</source>
        <translation>%2 道中有 %1 个采样点为无穷大或非数值；第一个这样的道是第 %3 道。</translation>
    </message>
    <message>
        <source>Write the file anew, or leave these traces out when you pick.</source>
        <translation>请重新写出该文件，或在拾取时不使用这些道。</translation>
    </message>
    <message>
        <source>Traces with samples of an impossible size: %1; the first is trace %2.</source>
        <translation>有 %1 道的采样值大得不合理；第一个是第 %2 道。</translation>
    </message>
    <message>
        <source>The sample format in bytes 3225-3226 may be wrong, or the file damaged.</source>
        <translation>第 3225-3226 字节的采样格式可能有误，或文件已损坏。</translation>
    </message>
    <message>
        <source>Traces without signal that are not marked as dead: %1 of %2; the first is trace %3.</source>
        <translation>%2 道中有 %1 道没有信号且未标记为死道；第一个是第 %3 道。</translation>
    </message>
    <message>
        <source>Traces that are marked as dead: %1 of %2; the first is trace %3.</source>
        <translation>%2 道中有 %1 道标记为死道；第一个是第 %3 道。</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>已取消。</translation>
    </message>
    <message>
        <source>There is not enough memory to examine %1.</source>
        <translation>内存不足，无法检查 %1。</translation>
    </message>
    <message>
        <source>The samples look like format %1, %2, although another is declared.</source>
        <translation>采样点看起来是格式 %1，即%2，但声明的是另一种格式。</translation>
    </message>
    <message>
        <source>Compare the traces with another file of the survey.</source>
        <translation>请与同一工区的其他文件对比这些道。</translation>
    </message>
</context>
<context>
    <name>OvSegyFile</name>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>无法打开 %1：%2</translation>
    </message>
    <message>
        <source>it is not a regular file.</source>
        <translation>它不是普通文件。</translation>
    </message>
    <message>
        <source>it is a folder.</source>
        <translation>它是一个文件夹。</translation>
    </message>
    <message>
        <source>Cannot read %1 at byte %2: %3</source>
        <translation>无法读取 %1 的第 %2 字节处：%3</translation>
    </message>
    <message>
        <source>the file is shorter than when it was opened. Open it again.</source>
        <translation>该文件比打开时短。请重新打开。</translation>
    </message>
    <message>
        <source>%1 has no trace %2; number of its traces: %3.</source>
        <translation>%1 没有第 %2 道；共有 %3 道。</translation>
    </message>
    <message>
        <source>There is not enough memory to read %1.</source>
        <translation>内存不足，无法读取 %1。</translation>
    </message>
    <message>
        <source>the file is empty.</source>
        <translation>文件为空。</translation>
    </message>
    <message>
        <source>it is no SEG-Y file; it has %1 bytes and the file headers alone take 3600.</source>
        <translation>它不是 SEG-Y 文件；文件只有 %1 字节，而仅文件头就需要 3600 字节。</translation>
    </message>
    <message>
        <source>it looks like a Seismic Unix (SU) file, which has no SEG-Y file headers. Convert it to SEG-Y first.</source>
        <translation>它像是 Seismic Unix（SU）文件，没有 SEG-Y 文件头。请先转换为 SEG-Y 格式。</translation>
    </message>
    <message>
        <source>it is no SEG-Y file, or its binary header is damaged: the sample format code in bytes 3225-3226 is %1.</source>
        <translation>它不是 SEG-Y 文件，或其二进制卷头已损坏：第 3225-3226 字节的采样格式代码为 %1。</translation>
    </message>
    <message>
        <source>The revision number %1.%2 is unknown; the file is read as revision 0.</source>
        <translation>修订版本号 %1.%2 未知；按修订版 0 读取该文件。</translation>
    </message>
    <message>
        <source>it has file headers but not one trace.</source>
        <translation>它只有文件头，没有一道数据。</translation>
    </message>
    <message>
        <source>The number of extended textual headers, %1, does not fit the file; none is assumed.</source>
        <translation>扩展文本卷头的数目 %1 与文件不符；按没有扩展文本卷头处理。</translation>
    </message>
    <message>
        <source>The position of the first trace, byte %1, does not fit the file; byte %2 is used.</source>
        <translation>第一道的位置（第 %1 字节）与文件不符；采用第 %2 字节。</translation>
    </message>
    <message>
        <source>Lengths in the file are in feet; offsets and elevations are converted to metres.</source>
        <translation>文件中的长度以英尺为单位；炮检距和高程已换算为米。</translation>
    </message>
    <message>
        <source>The binary header says %1 samples a trace, the first trace header %2; %3 is used.</source>
        <translation>二进制卷头中每道为 %1 个采样点，第一个道头中为 %2 个；采用 %3 个。</translation>
    </message>
    <message>
        <source>The number of extra trace headers, %1, does not fit the file; none is assumed.</source>
        <translation>附加道头的数目 %1 与文件不符；按没有附加道头处理。</translation>
    </message>
    <message>
        <source>The binary header says a sample interval of %1 µs, the first trace header %2 µs; %1 µs is used.</source>
        <translation>二进制卷头中的采样间隔为 %1 µs，第一个道头中为 %2 µs；采用 %1 µs。</translation>
    </message>
    <message>
        <source>The binary header has no valid sample interval; the %1 µs of the first trace header are used.</source>
        <translation>二进制卷头中没有有效的采样间隔；采用第一个道头中的 %1 µs。</translation>
    </message>
    <message>
        <source>The file has no valid sample interval; %1 µs are assumed.</source>
        <translation>文件中没有有效的采样间隔；假定为 %1 µs。</translation>
    </message>
    <message>
        <source>the binary header and the first trace header say 0 samples a trace.</source>
        <translation>二进制卷头和第一个道头中每道的采样点数均为 0。</translation>
    </message>
    <message>
        <source>it does not hold one whole trace: a trace of %1 samples takes %2 bytes and the file has %3 for traces.</source>
        <translation>它不含一个完整的道：%1 个采样点的道占 %2 字节，而文件中道数据只有 %3 字节。</translation>
    </message>
    <message>
        <source>The file ends in the middle of a trace or is damaged. Whole traces that are read: %1; bytes behind them that are left out: %2.</source>
        <translation>文件在某一道中间结束或已损坏：读取 %1 个完整的道，忽略其后的 %2 字节。</translation>
    </message>
    <message>
        <source>its samples are in format %1 (%2), which is not supported. Convert it to format 1 or 5.</source>
        <translation>其采样格式为 %1（%2），不受支持。请转换为格式 1 或 5。</translation>
    </message>
    <message>
        <source>The trace headers of %1 have %2 bytes, but the header mapping wants %3.</source>
        <translation>%1 的道头有 %2 字节，而道头映射需要 %3 字节。</translation>
    </message>
    <message>
        <source>it has a tape label but no whole file headers behind it.</source>
        <translation>它有磁带标签，但其后没有完整的卷头。</translation>
    </message>
    <message>
        <source>The byte-order constant in bytes 3297-3300 contradicts the sample format code; the file is read as %1.</source>
        <translation>第 3297-3300 字节的字节序常数与采样格式代码矛盾；按%1读取该文件。</translation>
    </message>
    <message>
        <source>its samples of 3 bytes cannot be told apart in pair-swapped order. Convert it to big-endian order.</source>
        <translation>在字节成对交换的字节序下无法区分其 3 字节采样点。请转换为大端字节序。</translation>
    </message>
    <message>
        <source>The traces differ in length; shorter ones are filled up with zeros.</source>
        <translation>各道长度不同；较短的道用零补齐。</translation>
    </message>
    <message>
        <source>The header of trace %1, at byte %2, makes no sense: the file may be damaged from there on.</source>
        <translation>第 %1 道的道头（第 %2 字节）没有意义：文件可能从此处起已损坏。</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>已取消。</translation>
    </message>
    <message>
        <source>The samples are declared as format %1 (%2), but clearly are in format %3 (%4) and read so.</source>
        <translation>声明的采样格式为 %1（%2），但采样点明显为格式 %3（%4），按后者读取。</translation>
    </message>
</context>
<context>
    <name>OvSegyIndex</name>
    <message>
        <source>%1 has %2 traces, more than the program can index. Split the file.</source>
        <translation>%1 有 %2 道，超出程序可建立索引的数目。请拆分该文件。</translation>
    </message>
    <message>
        <source>There is not enough memory to index the %1 traces of %2.</source>
        <translation>内存不足，无法为 %2 的 %1 道建立索引。</translation>
    </message>
    <message>
        <source>%1 has no gather %2; number of its gathers: %3.</source>
        <translation>%1 没有第 %2 个道集；共有 %3 个道集。</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>已取消。</translation>
    </message>
    <message>
        <source>The file has no offsets and no usable coordinates; offsets are unknown.</source>
        <translation>文件中没有炮检距，也没有可用的坐标；炮检距未知。</translation>
    </message>
    <message>
        <source>The file has no offsets; they are computed from the coordinates.</source>
        <translation>文件中没有炮检距；由坐标计算得出。</translation>
    </message>
    <message>
        <source>Every field record has one trace; all traces form one gather.</source>
        <translation>每个野外文件号只有一道；所有道组成一个道集。</translation>
    </message>
    <message>
        <source>The file has no field records; all traces form one gather.</source>
        <translation>文件中没有野外文件号；所有道组成一个道集。</translation>
    </message>
    <message>
        <source>unknown offset</source>
        <translation>炮检距未知</translation>
    </message>
    <message>
        <source>%1 - %2 m</source>
        <translation>%1 - %2 m</translation>
    </message>
    <message>
        <source>%1: %2, %3</source>
        <comment>number of a position: X, Y</comment>
        <translation>%1：%2，%3</translation>
    </message>
    <message>
        <source>The file has no source positions; all traces form one gather.</source>
        <translation>文件中没有炮点位置；所有道组成一个道集。</translation>
    </message>
    <message>
        <source>The file has no receiver positions; all traces form one gather.</source>
        <translation>文件中没有检波点位置；所有道组成一个道集。</translation>
    </message>
    <message>
        <source>The file has no CDP numbers; all traces form one gather.</source>
        <translation>文件中没有 CDP 号；所有道组成一个道集。</translation>
    </message>
</context>
<context>
    <name>OvSegyIndexCache</name>
    <message>
        <source>Cannot keep the header index %1: %2</source>
        <translation>无法保存道头索引 %1：%2</translation>
    </message>
    <message>
        <source>The header index %1 belongs to another state of its file; it is made anew.</source>
        <translation>道头索引 %1 与文件的当前状态不符，将重新建立。</translation>
    </message>
    <message>
        <source>there is not enough memory.</source>
        <translation>内存不足。</translation>
    </message>
    <message>
        <source>A kept header index cannot be used and is made anew: %1</source>
        <translation>已保存的道头索引无法使用，将重新建立：%1</translation>
    </message>
</context>
<context>
    <name>OvSegySampleFormat</name>
    <message>
        <source>4-byte IBM floating point</source>
        <translation>4 字节 IBM 浮点</translation>
    </message>
    <message>
        <source>4-byte integer</source>
        <translation>4 字节整数</translation>
    </message>
    <message>
        <source>2-byte integer</source>
        <translation>2 字节整数</translation>
    </message>
    <message>
        <source>4-byte fixed point with gain</source>
        <translation>4 字节带增益定点数</translation>
    </message>
    <message>
        <source>4-byte IEEE floating point</source>
        <translation>4 字节 IEEE 浮点</translation>
    </message>
    <message>
        <source>8-byte IEEE floating point</source>
        <translation>8 字节 IEEE 浮点</translation>
    </message>
    <message>
        <source>3-byte integer</source>
        <translation>3 字节整数</translation>
    </message>
    <message>
        <source>1-byte integer</source>
        <translation>1 字节整数</translation>
    </message>
    <message>
        <source>8-byte integer</source>
        <translation>8 字节整数</translation>
    </message>
    <message>
        <source>4-byte unsigned integer</source>
        <translation>4 字节无符号整数</translation>
    </message>
    <message>
        <source>2-byte unsigned integer</source>
        <translation>2 字节无符号整数</translation>
    </message>
    <message>
        <source>8-byte unsigned integer</source>
        <translation>8 字节无符号整数</translation>
    </message>
    <message>
        <source>3-byte unsigned integer</source>
        <translation>3 字节无符号整数</translation>
    </message>
    <message>
        <source>1-byte unsigned integer</source>
        <translation>1 字节无符号整数</translation>
    </message>
    <message>
        <source>Unknown format %1</source>
        <translation>未知格式 %1</translation>
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
        <source>pair-swapped</source>
        <translation>字节成对交换</translation>
    </message>
</context>
<context>
    <name>OvTraceHeaderMapping</name>
    <message>
        <source>SEG-Y revision 0 or 1</source>
        <translation>SEG-Y 修订版 0 或 1</translation>
    </message>
    <message>
        <source>SEG-Y revision 2 with extension header</source>
        <translation>SEG-Y 修订版 2（含扩展道头）</translation>
    </message>
    <message>
        <source>Inline and crossline (189, 193)</source>
        <translation>主测线与联络测线（189、193）</translation>
    </message>
    <message>
        <source>Source point (17) and receiver station (25)</source>
        <translation>炮点号（17）与检波点号（25）</translation>
    </message>
    <message>
        <source>Offset in floating point</source>
        <translation>炮检距为浮点数</translation>
    </message>
    <message>
        <source>Geometry in floating point, no scalars</source>
        <translation>观测系统为浮点数，无比例因子</translation>
    </message>
    <message>
        <source>%1 at bytes %2 to %3 lies behind the trace header, which has %4 bytes.</source>
        <translation>%1（第 %2 至 %3 字节）超出了道头，道头只有 %4 字节。</translation>
    </message>
    <message>
        <source>%1 is a code; it cannot be a %2.</source>
        <translation>%1是代码，不能是%2。</translation>
    </message>
    <message>
        <source>%1 is read as a %2 and rounded to whole numbers.</source>
        <translation>%1按%2读取，并四舍五入为整数。</translation>
    </message>
    <message>
        <source>%1 and %2 are read from the same bytes, %3 to %4.</source>
        <translation>%1和%2读自相同的字节（第 %3 至 %4 字节）。</translation>
    </message>
    <message>
        <source>%1 and %2 overlap at bytes %3 to %4.</source>
        <translation>%1和%2在第 %3 至 %4 字节处重叠。</translation>
    </message>
    <message>
        <source>There is no field record; all traces form one gather.</source>
        <translation>没有野外文件号；所有道组成一个道集。</translation>
    </message>
    <message>
        <source>Coordinates are incomplete: source and receiver need X and Y each.</source>
        <translation>坐标不完整：炮点和检波点都需要 X 和 Y 坐标。</translation>
    </message>
    <message>
        <source>Field record</source>
        <translation>野外文件号</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>道号</translation>
    </message>
    <message>
        <source>Source point</source>
        <translation>炮点号</translation>
    </message>
    <message>
        <source>Receiver station</source>
        <translation>检波点号</translation>
    </message>
    <message>
        <source>CDP</source>
        <translation>CDP</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>炮检距</translation>
    </message>
    <message>
        <source>Source X</source>
        <translation>炮点 X 坐标</translation>
    </message>
    <message>
        <source>Source Y</source>
        <translation>炮点 Y 坐标</translation>
    </message>
    <message>
        <source>Receiver X</source>
        <translation>检波点 X 坐标</translation>
    </message>
    <message>
        <source>Receiver Y</source>
        <translation>检波点 Y 坐标</translation>
    </message>
    <message>
        <source>Coordinate scalar</source>
        <translation>坐标比例因子</translation>
    </message>
    <message>
        <source>Coordinate units</source>
        <translation>坐标单位</translation>
    </message>
    <message>
        <source>Source elevation</source>
        <translation>炮点高程</translation>
    </message>
    <message>
        <source>Receiver elevation</source>
        <translation>检波点高程</translation>
    </message>
    <message>
        <source>Source depth</source>
        <translation>炮点深度</translation>
    </message>
    <message>
        <source>Source datum</source>
        <translation>炮点基准面高程</translation>
    </message>
    <message>
        <source>Receiver datum</source>
        <translation>检波点基准面高程</translation>
    </message>
    <message>
        <source>Elevation scalar</source>
        <translation>高程比例因子</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>延迟时间</translation>
    </message>
    <message>
        <source>Time scalar</source>
        <translation>时间比例因子</translation>
    </message>
    <message>
        <source>Trace identification</source>
        <translation>道识别码</translation>
    </message>
    <message>
        <source>1-byte integer</source>
        <translation>1 字节整数</translation>
    </message>
    <message>
        <source>1-byte unsigned integer</source>
        <translation>1 字节无符号整数</translation>
    </message>
    <message>
        <source>2-byte integer</source>
        <translation>2 字节整数</translation>
    </message>
    <message>
        <source>2-byte unsigned integer</source>
        <translation>2 字节无符号整数</translation>
    </message>
    <message>
        <source>4-byte integer</source>
        <translation>4 字节整数</translation>
    </message>
    <message>
        <source>4-byte unsigned integer</source>
        <translation>4 字节无符号整数</translation>
    </message>
    <message>
        <source>8-byte integer</source>
        <translation>8 字节整数</translation>
    </message>
    <message>
        <source>4-byte IEEE number</source>
        <translation>4 字节 IEEE 浮点数</translation>
    </message>
    <message>
        <source>4-byte IBM number</source>
        <translation>4 字节 IBM 浮点数</translation>
    </message>
    <message>
        <source>8-byte IEEE number</source>
        <translation>8 字节 IEEE 浮点数</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not say where a trace-header word lies; it should read like field_record=9:int32:file.</source>
        <translation>“%1”没有说明道头字的位置；应写成 field_record=9:int32:file 的形式。</translation>
    </message>
</context>
</TS>
