<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>OvDocumentJob</name>
    <message>
        <source>Waiting for the trace headers to be read...</source>
        <translation>正在等待道头读取完成...</translation>
    </message>
    <message>
        <source>The work was broken off: %1. Close other windows or programs and try again.</source>
        <translation>操作已中断：%1。请关闭其他窗口或程序后重试。</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Cancelled. %1</source>
        <translation>已取消。%1</translation>
    </message>
    <message>
        <source>Gather %1 of %2</source>
        <translation>第 %1 个道集，共 %2 个</translation>
    </message>
</context>
<context>
    <name>OvExportJob</name>
    <message>
        <source>Exporting first breaks to %1</source>
        <translation>正在导出初至到 %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was left as it was.</source>
        <translation>“%1”保持原样。</translation>
    </message>
    <message>
        <source>%1 first breaks exported to &quot;%2&quot;.</source>
        <translation>已将 %1 个初至导出到“%2”。</translation>
    </message>
</context>
<context>
    <name>OvFirstBreakBar</name>
    <message>
        <source>Snap</source>
        <translation>捕捉</translation>
    </message>
    <message>
        <source>A pick set by hand snaps to an arrival within this time of the click, in milliseconds; at 0 ms it stands exactly where you click</source>
        <translation>手工拾取时，在点击位置前后此时间（毫秒）内捕捉到波至；为 0 ms 时拾取恰好位于点击处</translation>
    </message>
</context>
<context>
    <name>OvFirstBreakMenu</name>
    <message>
        <source>First &amp;Break</source>
        <translation>初至(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Automatic Picking...</source>
        <translation>自动拾取(&amp;A)...</translation>
    </message>
    <message>
        <source>Writing first breaks to trace headers is not available yet.</source>
        <translation>目前尚不能将初至写入道头。</translation>
    </message>
    <message>
        <source>&amp;Edit Picks</source>
        <translation>编辑拾取(&amp;E)</translation>
    </message>
    <message>
        <source>Set picks by click or drag, remove them with Shift, reject them with Ctrl</source>
        <translation>单击或拖动设置拾取，按住 Shift 删除，按住 Ctrl 剔除</translation>
    </message>
    <message>
        <source>&amp;Undo Pick Edit</source>
        <translation>撤销拾取编辑(&amp;U)</translation>
    </message>
    <message>
        <source>Undo the last edit of picks</source>
        <translation>撤销上一次拾取编辑</translation>
    </message>
    <message>
        <source>&amp;Redo Pick Edit</source>
        <translation>重做拾取编辑(&amp;R)</translation>
    </message>
    <message>
        <source>Redo the edit of picks that was undone</source>
        <translation>重做已撤销的拾取编辑</translation>
    </message>
    <message>
        <source>Re&amp;ject or Restore Pick</source>
        <translation>剔除或恢复拾取(&amp;J)</translation>
    </message>
    <message>
        <source>Reject the pick of the marked trace, or restore a rejected one</source>
        <translation>剔除所标记道的拾取，或恢复已剔除的拾取</translation>
    </message>
    <message>
        <source>&amp;Classify Error Picks</source>
        <translation>判别错误初至(&amp;C)</translation>
    </message>
    <message>
        <source>Reject the automatic picks of this gather that are probably wrong</source>
        <translation>剔除本道集中可能有误的自动拾取</translation>
    </message>
    <message>
        <source>&amp;Pick This Gather</source>
        <translation>拾取当前道集(&amp;P)</translation>
    </message>
    <message>
        <source>Pick the gather shown with the saved values; picks made by hand stay</source>
        <translation>用已保存的参数拾取当前显示的道集；手工拾取保持不变</translation>
    </message>
</context>
<context>
    <name>OvFirstBreakPlugin</name>
    <message>
        <source>&quot;%1&quot; is still at work. Wait until it has ended, or cancel it in the task list.</source>
        <translation>“%1”仍在运行。请等待其结束，或在任务列表中取消。</translation>
    </message>
    <message>
        <source>Export FB to Text File</source>
        <translation>导出初至到文本文件</translation>
    </message>
    <message>
        <source>Comma-separated text (*.csv);;Text (*.txt);;All files (*)</source>
        <translation>逗号分隔文本 (*.csv);;文本 (*.txt);;所有文件 (*)</translation>
    </message>
</context>
<context>
    <name>OvPickDlg</name>
    <message>
        <source>Automatic Picking</source>
        <translation>自动拾取</translation>
    </message>
    <message>
        <source>&amp;All gathers</source>
        <translation>所有道集(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;This gather</source>
        <translation>当前道集(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Keep manual picks</source>
        <translation>保留手工拾取(&amp;K)</translation>
    </message>
    <message>
        <source>Picks made or moved by hand stay as they are</source>
        <translation>手工拾取或移动过的初至保持不变</translation>
    </message>
    <message>
        <source>Pick</source>
        <translation>拾取</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Previe&amp;w</source>
        <translation>预览(&amp;W)</translation>
    </message>
    <message>
        <source>Shows in the view behind what these values lead to. Nothing is stored</source>
        <translation>在后面的视图中显示这些参数的拾取结果，不保存任何内容</translation>
    </message>
    <message>
        <source>Goes on where the last run with these values stopped</source>
        <translation>从上次使用这些参数的拾取停止处继续</translation>
    </message>
    <message>
        <source>&amp;Start Over</source>
        <translation>重新开始(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Continue (gathers left: %1)</source>
        <translation>继续(剩余 %1 个道集)(&amp;C)</translation>
    </message>
    <message>
        <source>Shows the default values again. Nothing is stored by that</source>
        <translation>重新显示默认值，不会保存任何内容</translation>
    </message>
    <message>
        <source>Keeps the values shown with the project, for the next time</source>
        <translation>将当前值随项目保存，供下次使用</translation>
    </message>
    <message>
        <source>Picks the gathers that the number of shots and their increment choose</source>
        <translation>拾取由总炮数和炮间隔选定的道集</translation>
    </message>
    <message>
        <source>Picks the gather on the screen, and no other</source>
        <translation>只拾取屏幕上的道集</translation>
    </message>
</context>
<context>
    <name>OvPickGuideFields</name>
    <message>
        <source>P&amp;hase</source>
        <translation>相位(&amp;H)</translation>
    </message>
    <message>
        <source>Onset</source>
        <translation>起跳点</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>波峰</translation>
    </message>
    <message>
        <source>Trough</source>
        <translation>波谷</translation>
    </message>
    <message>
        <source>Zero crossing</source>
        <translation>过零点</translation>
    </message>
    <message>
        <source>Mi&amp;nimum confidence</source>
        <translation>最小置信度(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>引导(&amp;G)</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Velocity and intercept</source>
        <translation>速度与截距时间</translation>
    </message>
    <message>
        <source>My picks</source>
        <translation>我的拾取</translation>
    </message>
    <message>
        <source>Previous gather</source>
        <translation>上一个道集</translation>
    </message>
    <message>
        <source>Picks made by hand, and the automatic ones beside them</source>
        <translation>手工拾取，以及同一道集内的自动拾取</translation>
    </message>
    <message>
        <source>&amp;Velocity</source>
        <translation>速度(&amp;V)</translation>
    </message>
    <message>
        <source> m/s</source>
        <translation> m/s</translation>
    </message>
    <message>
        <source>&amp;Intercept</source>
        <translation>截距时间(&amp;I)</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>The point of the first arrival that is picked, the same on every trace.
Default: onset</source>
        <translation>拾取初至波的哪一个位置，各道一致。
默认值：起跳点</translation>
    </message>
    <message>
        <source>Picks that are less likely right than this are left out.
0 to 1, no unit. Default: 0.3</source>
        <translation>置信度低于该值的拾取将被舍去。
0 至 1，无单位。默认值：0.3</translation>
    </message>
    <message>
        <source>What is known of the first breaks beforehand. A guide helps where the data are poor; clear arrivals are picked without it.
Default: none</source>
        <translation>事先已知的初至信息。资料品质差时引导有帮助；初至清晰时无需引导也能拾取。
默认值：无</translation>
    </message>
    <message>
        <source>Velocity of the first arrival, for the guide by velocity and intercept.
1 to 20000 m/s. Default: 2000</source>
        <translation>初至波速度，用于“速度与截距时间”引导。
1 至 20000 m/s。默认值：2000</translation>
    </message>
    <message>
        <source>Time of the first arrival at offset 0, for the guide by velocity and intercept.
-10000 to 10000 ms. Default: 0</source>
        <translation>炮检距为 0 时的初至时间，用于“速度与截距时间”引导。
-10000 至 10000 ms。默认值：0</translation>
    </message>
</context>
<context>
    <name>OvPickJob</name>
    <message>
        <source>Picking %1</source>
        <translation>正在拾取 %1</translation>
    </message>
    <message>
        <source>Picked traces: %1 of %2. Gathers: %3.</source>
        <translation>%3 个道集的 %2 道中有 %1 道已拾取初至。</translation>
    </message>
    <message>
        <source>Picking a gather of %1</source>
        <translation>正在拾取 %1 的一个道集</translation>
    </message>
    <message>
        <source>Pick This Gather</source>
        <translation>拾取当前道集</translation>
    </message>
    <message>
        <source>Picked traces of the gather: %1 of %2.</source>
        <translation>该道集 %2 道中有 %1 道已拾取。</translation>
    </message>
</context>
<context>
    <name>OvPickWork</name>
    <message>
        <source>There are too few picks to be guided by. Pick some traces by hand, or choose another guide.</source>
        <translation>可作引导的拾取太少。请先手工拾取一些道，或选择其他引导方式。</translation>
    </message>
</context>
<context>
    <name>OvPreviewPicker</name>
    <message>
        <source>The gather cannot be picked: %1</source>
        <translation>无法拾取该道集：%1</translation>
    </message>
</context>
</TS>
