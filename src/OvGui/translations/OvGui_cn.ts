<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>OvAbstractViewController</name>
    <message>
        <source>Picture written to %1.</source>
        <translation>图片已写入 %1。</translation>
    </message>
</context>
<context>
    <name>OvBanner</name>
    <message>
        <source>Reload</source>
        <translation>重新载入</translation>
    </message>
    <message>
        <source>Read the file as it is now</source>
        <translation>按文件现在的内容重新读取</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详细信息</translation>
    </message>
    <message>
        <source>What is known of the file, and what is odd</source>
        <translation>文件的情况及异常之处</translation>
    </message>
    <message>
        <source>Put this message away</source>
        <translation>收起此消息</translation>
    </message>
    <message>
        <source>×</source>
        <translation>×</translation>
    </message>
</context>
<context>
    <name>OvFirstBreakStore</name>
    <message>
        <source>%1 is write-protected. First breaks can be looked at but not changed.</source>
        <translation>%1 是写保护的。初至可以查看，但不能修改。</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made. Check its place and its rights.</source>
        <translation>无法创建文件夹 %1。请检查其位置和权限。</translation>
    </message>
</context>
<context>
    <name>OvGatherPane</name>
    <message>
        <source>Reading headers…</source>
        <translation>正在读取道头…</translation>
    </message>
    <message>
        <source>There is nothing to show. Open a SEG-Y file.</source>
        <translation>没有可显示的内容。请打开一个 SEG-Y 文件。</translation>
    </message>
    <message>
        <source>%1 holds no traces.</source>
        <translation>%1 中没有地震道。</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>正在加载…</translation>
    </message>
    <message>
        <source>Reading headers… %1 %; showing the first gather</source>
        <translation>正在读取道头… %1 %；显示第一个道集</translation>
    </message>
    <message>
        <source>%1 - gather %2 of %3</source>
        <translation>%1 - 道集 %2 / %3</translation>
    </message>
    <message>
        <source>Ordering the traces…</source>
        <translation>正在排序各道…</translation>
    </message>
    <message>
        <source>Reading headers by the new mapping… %1 %</source>
        <translation>正在按新的映射读取道头… %1 %</translation>
    </message>
</context>
<context>
    <name>OvGatherReader</name>
    <message>
        <source>%1 has no gather %2.</source>
        <translation>%1 中没有第 %2 个道集。</translation>
    </message>
    <message>
        <source>Gather %1 of %2 takes %3 MiB, too much to show at once. Sort the file into gathers of one shot each.</source>
        <translation>%2 的第 %1 个道集占用 %3 MiB，无法一次显示。请将文件按每炮一个道集分选。</translation>
    </message>
</context>
<context>
    <name>OvGatherViewController</name>
    <message>
        <source>No data</source>
        <translation>无数据</translation>
    </message>
    <message>
        <source>Picture written to %1.</source>
        <translation>图片已写入 %1。</translation>
    </message>
    <message>
        <source>The wheel zooms at the mouse, with Ctrl the time only, with Shift the traces only. Drag to move; drag with the right button, or with Shift, to zoom to a rectangle; double-click to see the whole gather. Left and Right, Page Up and Page Down leaf through the gathers, Up and Down scroll, + - and 0 zoom. E turns the editing of picks on and off: then click or drag to set picks, with Shift or the right button to remove, with Ctrl to reject them; Ctrl+Left and Ctrl+Right choose a trace, Up and Down move its pick, Space sets, Delete removes, R rejects it.</source>
        <translation>滚轮以鼠标位置为中心缩放，按住 Ctrl 只缩放时间，按住 Shift 只缩放道。拖动可移动数据；用右键拖动，或按住 Shift 拖动，可放大到所选矩形；双击显示整个道集。左右方向键和 Page Up、Page Down 翻阅道集，上下方向键滚动，+、- 和 0 缩放。E 键开启或关闭拾取编辑：开启后单击或拖动设置拾取，按住 Shift 或用右键删除，按住 Ctrl 剔除；Ctrl+左、Ctrl+右选择道，上下方向键移动该道的拾取，空格键设置，Delete 键删除，R 键剔除。</translation>
    </message>
    <message>
        <source>%1 %2 does not exist.</source>
        <translation>没有%1为 %2 的道集。</translation>
    </message>
</context>
<context>
    <name>OvIndexLoader</name>
    <message>
        <source>Indexing %1</source>
        <translation>正在建立 %1 的索引</translation>
    </message>
    <message>
        <source>Reading the headers of %1 was cancelled; only the first gather is shown. Read the headers to see all gathers.</source>
        <translation>%1 的道头读取已取消；只显示第一个道集。读取道头后可查看全部道集。</translation>
    </message>
    <message>
        <source>Reading the headers of %1 by the new mapping was cancelled; the gathers are those of the mapping before. Read the headers to see the new ones.</source>
        <translation>已取消按新的映射读取 %1 的道头；道集仍按之前的映射。读取道头即可看到新的道集。</translation>
    </message>
</context>
<context>
    <name>OvMultiPlaneViewController</name>
    <message>
        <source>Parallel View</source>
        <translation>并列显示</translation>
    </message>
    <message>
        <source>No view is linked. Choose the views to link in the Parallel View dialog.</source>
        <translation>没有链接的视图。请在“并列显示”对话框中选择要链接的视图。</translation>
    </message>
</context>
<context>
    <name>OvPagingBar</name>
    <message>
        <source>of %1</source>
        <translation>共 %1 个</translation>
    </message>
    <message>
        <source>&amp;Gather</source>
        <translation>道集(&amp;G)</translation>
    </message>
    <message>
        <source>Field &amp;record</source>
        <translation>野外文件号(&amp;R)</translation>
    </message>
    <message>
        <source>−</source>
        <translation>−</translation>
    </message>
    <message>
        <source>+</source>
        <translation>+</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>全图</translation>
    </message>
    <message>
        <source>Previous gather (Left or Page Up)</source>
        <translation>上一个道集（左方向键或 Page Up）</translation>
    </message>
    <message>
        <source>Next gather (Right or Page Down)</source>
        <translation>下一个道集（右方向键或 Page Down）</translation>
    </message>
    <message>
        <source>Leaf through the gathers (Home and End for the first and the last)</source>
        <translation>翻阅道集（Home 和 End 转到第一个和最后一个）</translation>
    </message>
    <message>
        <source>Position of the gather in the file</source>
        <translation>道集在文件中的序号</translation>
    </message>
    <message>
        <source>Go to a field record; the arrows step to the neighbouring gathers</source>
        <translation>转到指定野外文件号；箭头转到相邻道集</translation>
    </message>
    <message>
        <source>Zoom in (+)</source>
        <translation>放大 (+)</translation>
    </message>
    <message>
        <source>Zoom out (-)</source>
        <translation>缩小 (-)</translation>
    </message>
    <message>
        <source>Show the whole gather (0)</source>
        <translation>显示整个道集 (0)</translation>
    </message>
    <message>
        <source>Read Headers</source>
        <translation>读取道头</translation>
    </message>
    <message>
        <source>Read all trace headers of the file, to see all its gathers</source>
        <translation>读取文件的全部道头，以查看其所有道集</translation>
    </message>
    <message>
        <source> m</source>
        <translation> m</translation>
    </message>
    <message>
        <source>Sou&amp;rce</source>
        <translation>炮点(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Receiver</source>
        <translation>检波点(&amp;R)</translation>
    </message>
    <message>
        <source>CDP (&amp;R)</source>
        <translation>CDP(&amp;R)</translation>
    </message>
    <message>
        <source>Offset (&amp;R)</source>
        <translation>炮检距(&amp;R)</translation>
    </message>
    <message>
        <source>Go to a source position by its number, counted from the first trace on; the arrows step to the neighbouring gathers</source>
        <translation>按编号转到炮点位置，编号从第一道起计；箭头转到相邻道集</translation>
    </message>
    <message>
        <source>Go to a receiver position by its number, counted from the first trace on; the arrows step to the neighbouring gathers</source>
        <translation>按编号转到检波点位置，编号从第一道起计；箭头转到相邻道集</translation>
    </message>
    <message>
        <source>Go to a CDP; the arrows step to the neighbouring gathers</source>
        <translation>转到指定 CDP；箭头转到相邻道集</translation>
    </message>
    <message>
        <source>Go to the gather that an offset falls into; the arrows step to the neighbouring gathers</source>
        <translation>转到炮检距所属的道集；箭头转到相邻道集</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
</context>
<context>
    <name>OvPickDesk</name>
    <message>
        <source>There is nothing to pick.</source>
        <translation>没有可拾取的数据。</translation>
    </message>
    <message>
        <source>The gather is not there yet.</source>
        <translation>道集尚未就绪。</translation>
    </message>
    <message>
        <source>Classify Error Picks</source>
        <translation>判别错误初至</translation>
    </message>
    <message>
        <source>%1 has no picks to classify.</source>
        <translation>%1没有可判别的拾取。</translation>
    </message>
    <message>
        <source>%1, picks rejected because they look wrong: %2 of %3.</source>
        <translation>%1：%3 个拾取中有 %2 个可能有误，已剔除。</translation>
    </message>
    <message>
        <source>No pick is marked. Click a trace, or press Ctrl+Left or Ctrl+Right.</source>
        <translation>没有选中拾取。请单击一道，或按 Ctrl+左、Ctrl+右选择。</translation>
    </message>
    <message>
        <source>Picks are rejected while they are edited. Choose Edit Picks first.</source>
        <translation>只能在编辑拾取时剔除拾取。请先选择“编辑拾取”。</translation>
    </message>
</context>
<context>
    <name>OvPickTool</name>
    <message>
        <source>Remove Picks</source>
        <translation>删除拾取</translation>
    </message>
    <message>
        <source>Restore Picks</source>
        <translation>恢复拾取</translation>
    </message>
    <message>
        <source>Reject Picks</source>
        <translation>剔除拾取</translation>
    </message>
    <message>
        <source>Set Picks</source>
        <translation>设置拾取</translation>
    </message>
    <message>
        <source>Move Pick</source>
        <translation>移动拾取</translation>
    </message>
</context>
<context>
    <name>OvPictureFile</name>
    <message>
        <source>The picture could not be written to %1: %2. Choose another folder or free some space.</source>
        <translation>图片无法写入 %1：%2。请选择其他文件夹，或释放一些磁盘空间。</translation>
    </message>
    <message>
        <source>Export to Image</source>
        <translation>导出为图片</translation>
    </message>
    <message>
        <source>PNG images (*.png)</source>
        <translation>PNG 图片 (*.png)</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
</context>
<context>
    <name>OvProjectMapping</name>
    <message>
        <source>The header mapping belongs to a project. Open a project, then set it.</source>
        <translation>道头映射属于项目。请先打开项目，再设置道头映射。</translation>
    </message>
    <message>
        <source>The header mapping cannot be stored with the project; the message console says why. The previous one stays.</source>
        <translation>道头映射无法随项目保存，原因见消息控制台。原来的映射保持不变。</translation>
    </message>
</context>
<context>
    <name>OvReadoutTool</name>
    <message>
        <source>Time %1 ms</source>
        <translation>时间 %1 ms</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>道号 %1</translation>
    </message>
    <message>
        <source>Trace %1</source>
        <translation>地震道 %1</translation>
    </message>
    <message>
        <source>Offset %1 m</source>
        <translation>炮检距 %1 m</translation>
    </message>
    <message>
        <source>Dead trace</source>
        <translation>死道</translation>
    </message>
    <message>
        <source>Amplitude %1</source>
        <translation>振幅 %1</translation>
    </message>
    <message>
        <source>First break %1 ms, rejected</source>
        <translation>初至 %1 ms，已剔除</translation>
    </message>
    <message>
        <source>First break %1 ms</source>
        <translation>初至 %1 ms</translation>
    </message>
</context>
<context>
    <name>OvSegyDocument</name>
    <message>
        <source>First breaks of %1 can be stored once all its headers are read.</source>
        <translation>读完 %1 的全部道头后才能保存其初至。</translation>
    </message>
    <message>
        <source>%1 has no gather %2.</source>
        <translation>%1 中没有第 %2 个道集。</translation>
    </message>
    <message>
        <source>Gather %1 of %2 has %3 traces, but %4 first breaks were given.</source>
        <translation>%2 的第 %1 个道集有 %3 道，但给出了 %4 个初至。</translation>
    </message>
    <message>
        <source>A job is working on %1. Wait for its end or cancel it, then reload the file.</source>
        <translation>有任务正在处理 %1。请等待其结束或将其取消，然后重新载入文件。</translation>
    </message>
</context>
<context>
    <name>OvSegyWatch</name>
    <message>
        <source>%1 has grown since it was opened; the new traces are not shown yet.</source>
        <translation>%1 打开后变大了；新的道尚未显示。</translation>
    </message>
    <message>
        <source>%1 has become shorter since it was opened; traces behind its end cannot be read any more.</source>
        <translation>%1 打开后变短了；超出文件末尾的道已无法读取。</translation>
    </message>
    <message>
        <source>%1 was written again since it was opened; what is shown may be out of date.</source>
        <translation>%1 打开后被重新写入；所显示的内容可能已过时。</translation>
    </message>
    <message>
        <source>%1 was deleted or moved, or its drive is gone. What was read stays shown.</source>
        <translation>%1 已被删除或移走，或其所在的驱动器已断开。已读取的内容仍保持显示。</translation>
    </message>
</context>
<context>
    <name>OvTimeAxis</name>
    <message>
        <source>Time (ms)</source>
        <translation>时间 (ms)</translation>
    </message>
</context>
<context>
    <name>OvTraceAxis</name>
    <message>
        <source>Offset (m)</source>
        <translation>炮检距 (m)</translation>
    </message>
    <message>
        <source>Receiver X</source>
        <translation>检波点 X 坐标</translation>
    </message>
    <message>
        <source>Trace number</source>
        <translation>地震道序号</translation>
    </message>
    <message>
        <source>CDP</source>
        <translation>CDP</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>道号</translation>
    </message>
    <message>
        <source>Offset (m), not in the file</source>
        <translation>炮检距 (m)，文件中没有</translation>
    </message>
</context>
<context>
    <name>OvViewNotices</name>
    <message>
        <source>The header mapping of the project does not fit this file, which is read by the standard positions: %1</source>
        <translation>项目的道头映射不适合此文件，此文件按标准位置读取：%1</translation>
    </message>
    <message>
        <source>The traces have no offsets and no usable coordinates.</source>
        <translation>各道没有炮检距，也没有可用的坐标。</translation>
    </message>
    <message>
        <source>%1 (further remarks: %2)</source>
        <translation>%1（另有 %2 条说明）</translation>
    </message>
</context>
</TS>
