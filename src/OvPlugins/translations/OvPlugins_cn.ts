<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>OvPluginLoader</name>
    <message>
        <source>it gives no menu</source>
        <translation>它没有提供菜单</translation>
    </message>
    <message>
        <source>it failed to start: %1</source>
        <translation>启动失败：%1</translation>
    </message>
    <message>
        <source>it failed to start</source>
        <translation>启动失败</translation>
    </message>
    <message>
        <source>another %1 is called &quot;%2&quot; already</source>
        <translation>已有同类（%1）插件名为“%2”</translation>
    </message>
    <message>
        <source>its description lacks the name or the kind</source>
        <translation>其描述中缺少名称或种类</translation>
    </message>
    <message>
        <source>its description calls it &quot;%1&quot;, not &quot;%2&quot;</source>
        <translation>其描述中的种类为“%1”，而不是“%2”</translation>
    </message>
    <message>
        <source>it is no plug-in</source>
        <translation>它不是插件</translation>
    </message>
    <message>
        <source>it is no %1 but of the interface &quot;%2&quot;</source>
        <translation>它不是 %1 类插件，其接口为“%2”</translation>
    </message>
    <message>
        <source>it is made for version %1 of the interface, this program has version %2</source>
        <translation>它针对接口版本 %1 编译，而本程序的接口版本为 %2</translation>
    </message>
    <message>
        <source>The plug-in &quot;%1&quot; is skipped: %2.</source>
        <translation>已跳过插件“%1”：%2。</translation>
    </message>
    <message>
        <source>it lacks the interface it claims</source>
        <translation>它没有实现所声明的接口</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
</context>
</TS>
