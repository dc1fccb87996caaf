<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>OvCopyViewPlugin</name>
    <message>
        <source>Copy View to Clipboard</source>
        <translation>复制视图到剪贴板</translation>
    </message>
    <message>
        <source>There is no view to copy.</source>
        <translation>没有可复制的视图。</translation>
    </message>
    <message>
        <source>The picture of the view is on the clipboard.</source>
        <translation>视图的图像已复制到剪贴板。</translation>
    </message>
</context>
</TS>
