<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>OvDemoSurvey</name>
    <message>
        <source>Maravel</source>
        <translation>Maravel</translation>
    </message>
    <message>
        <source>%1 could not make the demo line: %2</source>
        <translation>%1 无法生成演示测线：%2</translation>
    </message>
    <message>
        <source>Making the demo line...</source>
        <translation>正在生成演示测线...</translation>
    </message>
    <message>
        <source>A synthetic refraction line with known first breaks.</source>
        <translation>初至已知的合成折射测线。</translation>
    </message>
    <message>
        <source>The project &quot;%1&quot; cannot be stored.</source>
        <translation>无法保存项目“%1”。</translation>
    </message>
</context>
<context>
    <name>OvHelpServer</name>
    <message>
        <source>%1 is missing, so the manual cannot be served; install the program again.</source>
        <translation>缺少 %1，无法提供手册，请重新安装程序。</translation>
    </message>
    <message>
        <source>Another program listens on port %1, where the manual should be served; end it and try again.</source>
        <translation>另一个程序占用了提供手册所用的端口 %1，请结束该程序后重试。</translation>
    </message>
    <message>
        <source>The pages of the manual are missing; install the program again.</source>
        <translation>手册页面缺失，请重新安装程序。</translation>
    </message>
    <message>
        <source>The manual cannot be served: install the package busybox and try again.</source>
        <translation>无法提供手册：请安装软件包 busybox 后重试。</translation>
    </message>
    <message>
        <source>The manual cannot be served: %1</source>
        <translation>无法提供手册：%1</translation>
    </message>
    <message>
        <source>No web browser could be started for %1</source>
        <translation>无法启动网页浏览器打开 %1</translation>
    </message>
</context>
<context>
    <name>OvHostOptions</name>
    <message>
        <source>Picks the first breaks of seismic gathers.</source>
        <translation>拾取地震道集的初至。</translation>
    </message>
    <message>
        <source>Shows this help.</source>
        <translation>显示本帮助。</translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation>显示版本。</translation>
    </message>
    <message>
        <source>Language of this session: en or zh.</source>
        <translation>本次会话的语言：en 或 zh。</translation>
    </message>
    <message>
        <source>Folder of the user database and settings.</source>
        <translation>用户数据库与设置所在的文件夹。</translation>
    </message>
    <message>
        <source>Makes a synthetic line, opens it as project &quot;Demo&quot;.</source>
        <translation>生成一条合成测线，并作为项目“Demo”打开。</translation>
    </message>
    <message>
        <source>Logs in and opens the project of that name.</source>
        <translation>登录并打开该名称的项目。</translation>
    </message>
    <message>
        <source>Shows a SEG-Y file once a project is open.</source>
        <translation>项目打开后显示一个 SEG-Y 文件。</translation>
    </message>
    <message>
        <source>Logs in without the button.</source>
        <translation>不按按钮直接登录。</translation>
    </message>
    <message>
        <source>Walks through the program, writes a picture of each window, leaves.</source>
        <translation>依次走过程序的各个窗口，保存每个窗口的图片后退出。</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;.</source>
        <translation>多余的参数“%1”。</translation>
    </message>
    <message>
        <source>Unknown language &quot;%1&quot;; use en or zh.</source>
        <translation>未知的语言“%1”；请使用 en 或 zh。</translation>
    </message>
    <message>
        <source>The option --%1 needs a value.</source>
        <translation>选项 --%1 需要一个值。</translation>
    </message>
    <message>
        <source>--demo and --project exclude each other.</source>
        <translation>--demo 与 --project 不能同时使用。</translation>
    </message>
    <message>
        <source>Try --help.</source>
        <translation>请使用 --help 查看用法。</translation>
    </message>
</context>
<context>
    <name>OvHostSession</name>
    <message>
        <source>The login failed.</source>
        <translation>登录失败。</translation>
    </message>
    <message>
        <source>There is no project named &quot;%1&quot;.</source>
        <translation>没有名为“%1”的项目。</translation>
    </message>
    <message>
        <source>Maravel</source>
        <translation>Maravel</translation>
    </message>
</context>
<context>
    <name>OvStepRunner</name>
    <message>
        <source>The step &quot;%1&quot; was not reached in time.</source>
        <translation>步骤“%1”未能按时到达。</translation>
    </message>
    <message>
        <source>The step &quot;%1&quot; failed.</source>
        <translation>步骤“%1”失败。</translation>
    </message>
</context>
</TS>
